#!/usr/bin/env python3
"""Signed pointers (arm64e) through a linker that knows none, before and after the link.

Stands in for a linker's own arm64e: ld64.lld 22 refuses the compiler's relocations of signed pointers,
writes plain lists of pointers, which no system reads in an arm64e image, and marks the file as arm64.
When lld does all three by itself (a signed relocation links, `otool -fixup_chains` or its like shows the
signing, the CPU subtype is 2 and not 0x80000002, and iOS 12 can read the list), this file and
device/signing can go.

    sign_pointers.py objects --from FOLDER --into FOLDER OBJECT...
        copies objects, each to the same place below the second folder as it has below the first, with
        relocations that the linker takes, and names them in objects.txt there (for -filelist)
    sign_pointers.py dylib FILE
        makes the linked file an arm64e one: pointers as threads, as dyld of iOS 12 to 14 reads them,
        CPU subtype 2, pages hashed anew

What it does not understand it refuses with one sentence and status 1; the file stays as it was.
"""

import argparse
import pathlib
import sys

from signing.image import Refused
from signing.objects import with_plain_relocations
from signing.threads import with_threads


def rewrite_objects(start, into, objects):
    copies = []
    for path in objects:
        try:
            data, _ = with_plain_relocations(path.read_bytes())
        except Refused as problem:
            sys.exit(f"sign_pointers: {path}: {problem}")
        copy = into / path.resolve().relative_to(start.resolve())
        copy.parent.mkdir(parents=True, exist_ok=True)
        copy.write_bytes(data)
        copies.append(copy)
    into.mkdir(parents=True, exist_ok=True)
    (into / "objects.txt").write_text("".join(f"{copy}\n" for copy in copies), encoding="utf-8")


def rewrite_dylib(path):
    try:
        data, told = with_threads(path.read_bytes())
    except Refused as problem:
        sys.exit(f"sign_pointers: {path}: {problem}")
    path.write_bytes(data)
    print(f"{path.name}: {told}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    commands = parser.add_subparsers(dest="command", required=True)
    objects = commands.add_parser("objects", help="copy objects, for a linker without signed pointers")
    objects.add_argument("--from", dest="start", type=pathlib.Path, required=True, metavar="FOLDER")
    objects.add_argument("--into", type=pathlib.Path, required=True, metavar="FOLDER")
    objects.add_argument("objects", type=pathlib.Path, nargs="+", metavar="OBJECT")
    dylib = commands.add_parser("dylib", help="make a linked file an arm64e one, in place")
    dylib.add_argument("dylib", type=pathlib.Path, metavar="FILE")
    arguments = parser.parse_args()
    try:
        if arguments.command == "objects":
            rewrite_objects(arguments.start, arguments.into, arguments.objects)
        else:
            rewrite_dylib(arguments.dylib)
    except (OSError, ValueError) as problem:
        sys.exit(f"sign_pointers: {problem}")


if __name__ == "__main__":
    main()
