#!/usr/bin/env python3
"""Checks a built Vantori.dylib: that a phone can load it, that it holds nothing unexpected, and that what
it hooks, answers and sends is what the system has. A file for several processors is looked at part by
part (slice), and the parts are compared.

Reads the dylib, the linker's map of each slice, the text stubs, the tables of device/platform and the handles
of the sources. Every
finding is one line that says what to do; the exit status is 1 when there is an error. Sizes are bytes.
"""

import argparse
import pathlib
import struct
import sys

from auditing import checks
from auditing.fat import read_slices
from auditing.forms import spans, systems_of
from auditing.handles import read_handles
from auditing.link_map import LinkMap
from auditing.macho import Malformed
from auditing.selectors import read_references
from auditing.tables import Platform, read_stub
from auditing.threads import read_threads


class Slice:
    """What the file holds for one processor, with the linker's map of it."""

    def __init__(self, dylib, maps):
        self.dylib, self.name = dylib, dylib.slice
        self.map = next((one for one in maps if one.fits(dylib)), None)
        if not self.map:
            raise Malformed(f"no map fits its {self.name} slice: each is the map of another file")
        self.hooks = list(self.map.hooks())
        self.methods = list(self.map.methods())
        self.features = list(self.map.features(dylib))
        self.pointers = list(read_threads(dylib)) if self.name == "arm64e" else []
        self.references = read_references(dylib, self.pointers)
        self.messages = sorted({one.name for one in self.references if one.name})
        self.contents = {
            "the hook": {f"{hook.class_name} {hook.selector} {hook.encoding}" for hook in self.hooks},
            "the method": {f"{one.kind}[{one.class_name} {one.selector}]" for one in self.methods},
            "the message": set(self.messages),
            "the class": set(self.map.classes(dylib)),
            "the symbol": set(dylib.undefined),
        }

    def errors(self, stubs, platform, handles, forbidden):
        dylib = self.dylib
        yield from checks.check_file(dylib)
        yield from checks.check_pointers(dylib, self.pointers, self.map)
        yield from checks.check_secrets(dylib, forbidden)
        yield from checks.check_symbols(dylib, stubs)
        yield from checks.check_stubs(dylib, stubs, platform)
        yield from checks.check_hooks(self.hooks, platform)
        yield from checks.check_methods(self.methods, platform)
        yield from checks.check_references(dylib, self.references)
        yield from checks.check_messages(self.messages, self.methods, platform)
        yield from checks.check_handles(handles, self.messages, platform)
        yield from checks.check_classes(self.map.classes(dylib), self.methods, platform)
        yield from checks.check_features(self.features, platform)

    def summary(self):
        signed = sum(bool(one.signing) for one in self.pointers)
        threads = f", {len(self.pointers)} pointers in threads, {signed} signed" if self.pointers else ""
        return (
            f"{self.name}: {len(self.dylib.data)} bytes, {len(self.dylib.undefined)} system symbols from "
            f"{len(self.dylib.libraries)} libraries, {len(self.hooks)} hooks, "
            f"{len(self.messages)} messages, {len(self.features)} features with forms{threads}"
        )


def describe_messages(messages, platform):
    """Each private message that the library sends or takes over, with where it was found."""
    for selector in messages:
        rows = platform.of_selector(selector)
        if not rows or not all(row.private for row in rows):
            continue
        for row in rows:
            found = " ".join(row.own + row.inherited) or "no system looked at"
            lacking = f"; not in {' '.join(row.absent)}" if row.absent else ""
            print(f"  {row.kind}[{row.class_name} {selector}] {row.encoding}: in {found}{lacking}")


def describe_forms(features, platform):
    """Which system takes which form, and what is looked up at run time."""
    symbols = {}
    for feature in features:
        print(f"{feature.name}:")
        for form, releases in systems_of(feature, platform).items():
            if releases:
                print(f"  {form or 'off'}: {spans(releases)}")
        needs = [need for form in feature.forms for need in form.needs if need.kind == "symbol"]
        symbols.update({need.name: need for need in needs})
    print("looked up at run time:")
    for name, need in sorted(symbols.items()):
        row = platform.looked_up.get(name)
        print(f"  {need}: in {' '.join(row.own) if row else 'no system looked at'}")


def describe_room(one):
    print(f"{one.name} by section:")
    for section in one.dylib.sections:
        print(f"  {section.size:7} {section.name}")
    print(f"{one.name} by name:")
    for name, size in one.map.room_by_name():
        if size:
            print(f"  {size:7} {name}")


def describe_difference(slices):
    """What takes another size in one slice than in the other."""
    sizes = [{section.name: section.size for section in one.dylib.sections} for one in slices]
    for name in dict.fromkeys(name for one in sizes for name in one):
        room = [one.get(name, 0) for one in sizes]
        if len(set(room)) > 1:
            print(f"  {name}: " + ", ".join(f"{one.name} {size}" for one, size in zip(slices, room)))


def main():
    here = pathlib.Path(__file__).resolve().parent
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    parser.add_argument("dylib", type=pathlib.Path)
    parser.add_argument(
        "--map",
        type=pathlib.Path,
        action="append",
        required=True,
        help="the linker's map; one for each slice, in any order",
    )
    parser.add_argument("--stubs", type=pathlib.Path, default=here / "stubs", metavar="FOLDER")
    parser.add_argument("--platform", type=pathlib.Path, default=here / "platform", metavar="FOLDER")
    parser.add_argument(
        "--forbid",
        action="append",
        default=[],
        metavar="PATH",
        help="a path that must not occur in the file; the repository always is one",
    )
    parser.add_argument("--messages", action="store_true", help="list the private messages, and where they exist")
    parser.add_argument("--forms", action="store_true", help="list which form of a feature which system takes")
    parser.add_argument("--room", action="store_true", help="list what takes the room")
    arguments = parser.parse_args()
    try:
        stubs = [read_stub(path) for path in sorted(arguments.stubs.glob("*.tbd"))]
        platform = Platform(arguments.platform)
        maps = [LinkMap(path) for path in arguments.map]
        data = arguments.dylib.read_bytes()
        slices = [Slice(one, maps) for one in read_slices(data)]
        handles = read_handles(here.parent)
        forbidden = {str(here.parent), *arguments.forbid}
        errors = {one.name: list(one.errors(stubs, platform, handles, forbidden)) for one in slices}
        errors["both"] = list(checks.check_same(slices))
    except (OSError, Malformed) as problem:
        sys.exit(f"audit: {problem}")
    except (struct.error, ValueError, IndexError) as problem:
        sys.exit(f"audit: {arguments.dylib} is cut short or damaged: {problem}")

    if arguments.messages:
        describe_messages(slices[0].messages, platform)
    if arguments.forms:
        describe_forms(slices[0].features, platform)
    if arguments.room:
        for one in slices:
            describe_room(one)
    for name, found in errors.items():
        for error in found:
            print(f"error: {error}" if len(slices) == 1 else f"error: {name}: {error}")
    for one in slices:
        print(one.summary())
    describe_difference(slices)
    count = sum(len(found) for found in errors.values())
    print(f"{arguments.dylib.name}: {len(data)} bytes, {count} errors")
    return 1 if count else 0


if __name__ == "__main__":
    sys.exit(main())
