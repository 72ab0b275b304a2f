"""The folders in their order, and who includes what: for the check and the picture of the floors."""

import pathlib
import re

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def floors_of(building):
    """The folders of the library or of the simulator, the lowest first."""
    text = (REPOSITORY / "cmake/VantoriFloors.cmake").read_text(encoding="utf-8")
    return re.search(rf"^set\({building}_floors ([^)]*)\)", text, re.MULTILINE)[1].split()


def includes_of(root, rooms):
    """Each source of the rooms, by its name from the root, with what it includes in quotes."""
    return {
        path.relative_to(root).as_posix(): INCLUDE.findall(path.read_text(encoding="utf-8"))
        for room in sorted(rooms)
        for path in [root / room, *sorted((root / room).rglob("*"))]
        if path.is_file() and path.suffix in {".cpp", ".hpp", ".h"}
    }
