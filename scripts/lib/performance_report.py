"""Writes docs/performance.md from measurements: performance_report.py FOLDER DYLIB...

FOLDER has what the measuring programs wrote (JSON):
    library.json, phone.json    several repetitions of each subject and of its floor
    icons-N.json, toggles-N.json    the opening with so many of them
A subject is a benchmark whose name another one has with /floor behind it; a new pair becomes a row by
itself. Of the lines of the document only those between the marks are written. What was measured is kept
in docs/performance.json; the next report compares with it: a ratio has moved when no repetition of the
one report lies in the range of the other's.
"""

import datetime
import json
import pathlib
import platform
import re
import statistics
import subprocess
import sys

from benchmark_table import FLOOR, name_of, nanoseconds, readable, runs_of

DOCUMENT, KEPT, PICTURES = "docs/performance.md", "docs/performance.json", "docs/pictures"
BEGIN, END = "<!-- measured: written by scripts/benchmark --report -->", "<!-- measured: end -->"
OPENING, MEMORY = "opening the toolbar", "memory after openings"
FRAME = "a drawn frame, application, "
# What is drawn: the file, the name of the lines below, of those at the side, and the series.
PLOTS = (
    ("performance-frames.svg", "thousands of pixels", "microseconds for a frame over an application", "frames"),
    ("performance-icons.svg", "icons in the dock", "microseconds for an opening", "icons"),
    ("performance-toggles.svg", "toggles in the list", "microseconds for an opening", "toggles"),
    ("performance-memory.svg", "openings", "KiB more than after the first", "memory"),
)


def times(path):
    """The times of each benchmark in nanoseconds, one a repetition."""
    found = {}
    for run in runs_of(path):
        if run.get("run_type") != "aggregate":
            found.setdefault(name_of(run), []).append(nanoseconds(run))
    return found


def ratios(measured):
    """Each subject: its time and its floor's (medians), and the ratio with its range."""
    rows = {}
    for name, subject in measured.items():
        floor = measured.get(name + FLOOR)
        if name.endswith(FLOOR) or not floor:
            continue
        each = [one / other for one, other in zip(subject, floor)]
        rows[name] = {
            "time": statistics.median(subject),
            "floor": statistics.median(floor),
            "ratio": statistics.median(each),
            "lowest": min(each),
            "highest": max(each),
        }
    return rows


def numbered(folder, start):
    """The openings by how many there were of something, in microseconds."""
    points = {}
    for path in folder.glob(f"{start}-*.json"):
        points[int(path.stem.rsplit("-", 1)[1])] = statistics.median(times(path)[OPENING]) / 1e3
    return sorted(points.items())


def frames(measured):
    """The frames over an application by the thousands of pixels that the screen has, in microseconds."""
    points = []
    for name, each in measured.items():
        if name.startswith(FRAME) and not name.endswith(FLOOR):
            width, height = map(int, name.removeprefix(FRAME).split(" x "))
            points.append((width * height / 1000, statistics.median(each) / 1e3))
    return sorted(points)


def memory(path):
    points = {}
    for run in runs_of(path):
        if run["name"].startswith(MEMORY + "/") and run.get("run_type") != "aggregate":
            points.setdefault(int(run["name"].split("/")[1]), []).append(run["bytes"] / 1024)
    return sorted((count, statistics.median(values)) for count, values in points.items())


def machine():
    model = "unknown processor"
    for line in pathlib.Path("/proc/cpuinfo").read_text(encoding="ascii").splitlines():
        if line.startswith("model name"):
            model = line.split(":", 1)[1].strip()
            break
    count = len([one for one in pathlib.Path("/sys/devices/system/cpu").glob("cpu[0-9]*")])
    return f"{model}, {count} processors, {platform.machine()}"


def take(folder, dylibs):
    sizes = {path.parts[-3].removeprefix("device-"): path.stat().st_size for path in dylibs}
    measured = times(folder / "library.json") | times(folder / "phone.json")
    return {
        "date": datetime.date.today().isoformat(),
        "machine": machine(),
        "ratios": ratios(measured),
        "sizes": sizes,
        "frames": frames(measured),
        "icons": numbered(folder, "icons"),
        "toggles": numbered(folder, "toggles"),
        "memory": memory(folder / "phone.json"),
    }


def moved(now, before):
    """One line for each ratio and size that differs by more than the noise."""
    for name, row in now["ratios"].items():
        old = before["ratios"].get(name)
        if not old:
            yield f"{name}: new"
        elif row["lowest"] > old["highest"] or row["highest"] < old["lowest"]:
            yield f"{name}: {old['ratio']:.2f} before, {row['ratio']:.2f} now"
    for name in before["ratios"].keys() - now["ratios"].keys():
        yield f"{name}: no longer measured"
    for name, size in now["sizes"].items():
        if before["sizes"].get(name) not in (None, size):
            yield f"the {name} slice: {before['sizes'][name]:,} bytes before, {size:,} now"


def by_number(item):
    """A key that puts 375 before 1125."""
    return [int(part) if part.isdigit() else part for part in re.split(r"(\d+)", item[0])]


def text_of(now, before):
    yield f"Measured on {now['date']}: {now['machine']}."
    yield ""
    yield "| | Time | Floor | Ratio | Range |"
    yield "|---|---|---|---|---|"
    for name, row in sorted(now["ratios"].items(), key=by_number):  # they were measured in a random order
        span = f"{row['lowest']:.2f} to {row['highest']:.2f}"
        yield f"| {name} | {readable(row['time'])} | {readable(row['floor'])} | {row['ratio']:.2f} | {span} |"
    yield ""
    yield "| Slice of the dylib | Bytes |"
    yield "|---|---|"
    for name, size in now["sizes"].items():
        yield f"| {name} | {size:,} |"
    for file, below, side, series in PLOTS:
        if now[series]:
            yield ""
            yield f"![{side[0].upper()}{side[1:]}, against {below}](pictures/{file})"
    yield ""
    if not before:
        yield "There is no earlier report to compare with."
        return
    changes = list(moved(now, before))
    yield f"Against the report of {before['date']} ({before['machine']}), what moved beyond the noise:"
    yield ""
    yield from (f"- {line}" for line in changes or ["nothing"])


def draw(points, below, side, picture):
    """By gnuplot, whose drawing does not change from run to run."""
    data = "\n".join(f"{x} {y:.2f}" for x, y in points)
    subprocess.run(
        ["gnuplot"],
        input=f"""$points << END
{data}
END
set terminal svg size 640,320 dynamic background rgb 'white' font 'sans-serif,12'
set output '{picture}'
set xlabel '{below}'
set ylabel '{side}'
{"set logscale x" if points[0][0] == 1 else ""}
set yrange [0:*]
set grid
unset key
plot $points with linespoints pointtype 7 linecolor rgb '#2060c0'
""",
        text=True,
        check=True,
    )


def main():
    folder, dylibs = pathlib.Path(sys.argv[1]), [pathlib.Path(one) for one in sys.argv[2:]]
    kept, document = pathlib.Path(KEPT), pathlib.Path(DOCUMENT)
    before = json.loads(kept.read_text(encoding="utf-8")) if kept.exists() else None
    now = take(folder, dylibs)
    for file, below, side, series in PLOTS:
        if now[series]:
            draw(now[series], below, side, pathlib.Path(PICTURES) / file)
    page = document.read_text(encoding="utf-8")
    start, end = page.index(BEGIN) + len(BEGIN), page.index(END)
    text = "\n".join(text_of(now, before))
    document.write_text(f"{page[:start]}\n\n{text}\n\n{page[end:]}", encoding="utf-8")
    kept.write_text(json.dumps(now, indent=1) + "\n", encoding="utf-8")
    print(text)


if __name__ == "__main__":
    main()
