"""The messages of a dylib: its references to selectors, which are pointers to names until the object runtime
has put the one selector of each name in their place. It does so for a library that has something for it
(__objc_imageinfo), before anything of the library runs.

The names of the sections and the layout are from Apple's objc4 (objc-file.mm, objc-private.h).
"""

import struct
from dataclasses import dataclass

from auditing.macho import Malformed

IMAGE_INFO, REFERENCES, NAMES = "__DATA,__objc_imageinfo", "__DATA,__objc_selrefs", "__TEXT,__objc_methname"
POINTER = 8


@dataclass(frozen=True)
class Reference:
    """One reference: where it lies, and the name that it leads to; None where it leads to no name."""

    address: int
    name: str | None


def section_of(dylib, name):
    return next((one for one in dylib.sections if one.name == name), None)


def contents(dylib, name):
    section = section_of(dylib, name)
    return dylib.data[section.offset : section.offset + section.size] if section else b""


def name_at(dylib, address):
    """The name that begins at that address."""
    names = section_of(dylib, NAMES)
    if address is None or not names or not names.holds(address):
        return None
    start = names.offset + address - names.address
    end = dylib.data.find(b"\0", start, names.offset + names.size)
    begins = address == names.address or dylib.data[start - 1] == 0
    return dylib.data[start:end].decode("ascii", "replace") if begins and end > start else None


def read_references(dylib, pointers):
    """All references, in order. Where pointers are threads those say where each leads, else it does itself."""
    section = section_of(dylib, REFERENCES)
    if not section:
        return []
    if section.size % POINTER:
        raise Malformed("its references to selectors are no whole number of pointers")
    places = range(section.address, section.address + section.size, POINTER)
    if dylib.slice == "arm64e":
        threads = {one.address: one.target for one in pointers}
        targets = [threads.get(place) for place in places]
    else:
        targets = struct.unpack(f"<{len(places)}Q", contents(dylib, REFERENCES))
    return [Reference(place, name_at(dylib, target)) for place, target in zip(places, targets)]
