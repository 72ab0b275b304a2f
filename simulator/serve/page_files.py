"""Writes the files of the page as rows of the table in page_files.cpp: page_files.py OUTPUT FILE..."""

import pathlib
import sys

TYPES = {
    ".html": "text/html; charset=utf-8",
    ".css": "text/css; charset=utf-8",
    ".js": "text/javascript; charset=utf-8",
    ".svg": "image/svg+xml",
}


def main():
    output, *files = map(pathlib.Path, sys.argv[1:])
    rows = []
    for file in sorted(files):
        text = file.read_text(encoding="utf-8")
        if ")page_file\"" in text:
            sys.exit(f"{file}: ends its own literal")
        rows.append(f'{{"{file.name}", "{TYPES[file.suffix]}", R"page_file({text})page_file"}},\n')
    output.write_text("".join(rows), encoding="utf-8")


if __name__ == "__main__":
    main()
