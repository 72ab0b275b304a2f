#!/usr/bin/env python3
"""Writes what the tables of device/platform say of the systems as rows of C++, for the simulated phone.

A row is a class, a kind (- + i c: method, class method, variable, the class itself), a name, the release that
brought it, and what was seen where. A release is its major version times 100 plus its minor one: 13.4.1 is 1304.
"""

import argparse
import pathlib
import sys
from collections import defaultdict

sys.dont_write_bytecode = True

from auditing.macho import Malformed  # noqa: E402 (nothing is written beside the sources)
from auditing.tables import Platform, release  # noqa: E402

KINDS = {"-": "-", "+": "+", "ivar": "i", "class": "c"}
FOUND = {"own": "own", "inherited": "inherited", "absent": "absent"}


def merged(platform):
    """By name: the release that brought it, and the finding of each release that was looked at. A method that
    has one encoding on some systems and another on others has a row of each in the tables, and one here."""
    since, seen = {}, defaultdict(dict)
    for row in platform.methods:
        name = (row.class_name, KINDS[row.kind], row.selector)
        since[name] = release(row.since) if row.since else 0
        for found in FOUND:
            for system in getattr(row, found):
                known = seen[name].setdefault(release(system), found)
                if known != found:
                    raise Malformed(f"{' '.join(name)} is {known} and {found} on {system}")
    return [(name, since[name], sorted(seen[name].items())) for name in sorted(since)]


def written(rows):
    yield "// Written by device/system_rows.py from device/platform; not kept."
    yield "constexpr Sighting sightings[]{"
    for name, _, seen in rows:
        if seen:
            yield f"    // {' '.join(name)}"
            yield "    " + " ".join(f"{{{number}, Found::{found}}}," for number, found in seen)
    yield "};"
    yield "constexpr SystemRow systemRows[]{"
    first = 0
    for (owner, kind, name), brought, seen in rows:
        yield f"    {{\"{owner}\", '{kind}', \"{name}\", {brought}, {first}, {len(seen)}}},"
        first += len(seen)
    yield "};"


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("folder", type=pathlib.Path, help="device/platform")
    parser.add_argument("output", type=pathlib.Path)
    arguments = parser.parse_args()
    try:
        rows = merged(Platform(arguments.folder))
    except (OSError, Malformed) as problem:
        sys.exit(f"system-rows: {problem}")
    arguments.output.write_text("\n".join(written(rows)) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
