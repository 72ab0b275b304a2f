"""Writes a source with all its changes, each behind its switch, and tells where in the result each change is."""

import bisect
import re

OPEN, CLOSE = "\x01", "\x02"
MARK = re.compile("\x01(\\d+)\x03|\x02")


class Writer:
    """Writes one source. Numbers are those of the changes; a change that is broken is written as nothing."""

    def __init__(self, source, number):
        self.source = source
        self.number = number
        alive = [p for p in source.places if p.shape == "probe" or any(not c.isBroken for c in p.changes)
                 or p.shape == "statement"]  # fmt: skip
        self.places = sorted(alive, key=lambda p: (p.start, -p.end))
        self.starts = [p.start for p in self.places]
        self.indices = {id(p): i for i, p in enumerate(self.places)}
        self.written = {}

    def on(self, change, place_index):
        return f"mutation::on({self.number[id(change)]})"

    def text(self):
        return self.stretch(0, len(self.source.text), -1)

    # What stands from start to end, with the places in it that come after the one with the index.
    def stretch(self, start, end, after):
        pieces = []
        at = start
        index = max(after + 1, bisect.bisect_left(self.starts, start))
        while index < len(self.places) and self.places[index].start < end:
            place = self.places[index]
            if place.start >= at and place.end <= end:
                pieces.append(self.source.text[at : place.start].decode())
                pieces.append(f"{OPEN}{index}\x03{self.place(index)}{CLOSE}")
                at = place.end
            index += 1
        pieces.append(self.source.text[at:end].decode())
        return "".join(pieces)

    def place(self, index):
        if index not in self.written:
            place = self.places[index]
            self.written[index] = getattr(self, place.shape)(place, index)
        return self.written[index]

    def inner(self, place, index):
        return self.stretch(place.start, place.end, index)

    def plain(self, place, index):
        return self.inner(place, index)

    def constant(self, place, index):
        return place.extra + self.stretch(place.parts[0][1], place.end, index)

    def probe(self, place, index):
        return "{ mutation::on(%d);" % self.number["probe", int(place.extra)]

    def instead(self, place, index):
        return f"({self.on(place.changes[0], index)} ? {place.extra} : {self.inner(place, index)})"

    def call(self, place, index):
        numbers = ", ".join(str(self.number[id(change)]) for change in place.changes)
        operands = ", ".join(f"({self.stretch(*part, index)})" if len(place.parts) < 3 else "" for part in place.parts)
        return f"mutation::{place.extra}({numbers}, {operands})"

    def nothing(self, place, index):
        return self.inner(place, index)

    def and_(self, place, index):
        return f"({self.on(place.changes[0], index)} || static_cast<bool>({self.inner(place, index)}))"

    def or_(self, place, index):
        return f"(!{self.on(place.changes[0], index)} && static_cast<bool>({self.inner(place, index)}))"

    def not_(self, place, index):
        return f"({self.on(place.changes[0], index)} != static_cast<bool>({self.inner(place, index)}))"

    # Swapped with its neighbour, the second of the two runs before the first and not after it.
    def statement(self, place, index):
        text = self.inner(place, index)
        before = ""
        left_out = [] if place.changes[0].isBroken else [place.changes[0]]
        for other, swap in place.parts:
            if swap.isBroken:
                continue
            if other.start > place.start:
                second = self.stretch(other.start, other.end, self.indices[id(other)])
                before = f"if ({self.on(swap, index)}) {{ {second} }} "
            else:
                left_out.append(swap)
        skipped = " && ".join(f"!{self.on(change, index)}" for change in left_out)
        return f"{{ {before}if ({skipped}) {{ {text} }} }}" if skipped else before and f"{{ {before}{text} }}" or text


setattr(Writer, "and", Writer.and_)
setattr(Writer, "or", Writer.or_)
setattr(Writer, "not", Writer.not_)


class Written:
    """The text for the compiler, and which places lie at a line and column of it."""

    def __init__(self, source, number):
        writer = Writer(source, number)
        self.places = writer.places
        self.spans = []
        pieces, length, opened, at = [], 0, [], 0
        marked = writer.text()
        for mark in MARK.finditer(marked):
            piece = marked[at : mark.start()]
            pieces.append(piece)
            length += len(piece.encode())
            at = mark.end()
            if mark.group(1):
                opened.append((int(mark.group(1)), length))
            else:
                index, start = opened.pop()
                self.spans.append((start, length, index))
        pieces.append(marked[at:])
        self.text = "".join(pieces)
        self.lines = [0]
        for line in self.text.encode().split(b"\n"):
            self.lines.append(self.lines[-1] + len(line) + 1)

    def at(self, line, column):
        """The places there, the narrowest first."""
        offset = self.lines[line - 1] + column - 1
        found = sorted((end - start, index) for start, end, index in self.spans if start <= offset < end)
        return [self.places[index] for _, index in found if self.places[index].shape != "probe"]

    def on_line(self, line):
        first, last = self.lines[line - 1], self.lines[line]
        found = {index for start, end, index in self.spans if start < last and end > first}
        return [self.places[index] for index in found if self.places[index].shape not in ("probe",)]

    def line(self, number):
        return self.text.split("\n")[number - 1]
