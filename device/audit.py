#!/usr/bin/env python3
"""Checks a built Vantori.dylib: that a phone can load it, that it holds nothing unexpected, and that what
it hooks, answers and sends is what the system has.

Reads the dylib, the linker's map of it, the text stubs and the tables of device/platform. Every finding
is one line that says what to do; the exit status is 1 when there is an error. Sizes are bytes.
"""

import argparse
import pathlib
import struct
import sys

from auditing import checks
from auditing.forms import spans, systems_of
from auditing.link_map import LinkMap
from auditing.macho import Malformed, read_dylib
from auditing.tables import Platform, read_stub


def errors_of(dylib, link_map, stubs, platform, forbidden):
    methods = list(link_map.methods(dylib))
    yield from checks.check_file(dylib)
    yield from checks.check_secrets(dylib, forbidden)
    yield from checks.check_symbols(dylib, stubs)
    yield from checks.check_stubs(dylib, stubs, platform)
    yield from checks.check_hooks(link_map.hooks(dylib), platform)
    yield from checks.check_methods(methods, platform)
    yield from checks.check_messages(link_map.messages(), methods, platform)
    yield from checks.check_classes(link_map.classes(dylib), methods, platform)
    yield from checks.check_features(link_map.features(dylib), platform)


def describe_messages(link_map, platform):
    """Each private message that the library sends or takes over, with where it was found."""
    for selector in link_map.messages():
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


def describe_room(dylib, link_map):
    print("by section:")
    for section in dylib.sections:
        print(f"  {section.size:7} {section.name}")
    print("by source:")
    for name, size in link_map.room_by_file():
        print(f"  {size:7} {name}")


def main():
    here = pathlib.Path(__file__).resolve().parent
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    parser.add_argument("dylib", type=pathlib.Path)
    parser.add_argument("--map", type=pathlib.Path, required=True, help="the linker's map of the dylib")
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
        dylib = read_dylib(arguments.dylib.read_bytes())
        link_map = LinkMap(arguments.map)
        if not link_map.fits(dylib):
            raise Malformed(f"{arguments.map} is the map of another file")
    except (OSError, Malformed) as problem:
        sys.exit(f"audit: {problem}")
    except (struct.error, ValueError) as problem:
        sys.exit(f"audit: {arguments.dylib} is cut short or damaged: {problem}")

    forbidden = {str(here.parent), *arguments.forbid}
    errors = list(errors_of(dylib, link_map, stubs, platform, forbidden))
    if arguments.messages:
        describe_messages(link_map, platform)
    if arguments.forms:
        describe_forms(link_map.features(dylib), platform)
    if arguments.room:
        describe_room(dylib, link_map)
    for error in errors:
        print(f"error: {error}")
    print(
        f"{arguments.dylib.name}: {len(dylib.data)} bytes, {len(dylib.undefined)} system symbols from "
        f"{len(dylib.libraries)} libraries, {len(list(link_map.hooks(dylib)))} hooks, "
        f"{len(link_map.messages())} messages, {len(list(link_map.features(dylib)))} features with forms, "
        f"{len(errors)} errors"
    )
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
