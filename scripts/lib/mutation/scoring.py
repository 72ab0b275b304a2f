"""The score: who was caught, who is equal, who survived; by folder, as text and as a table of the document."""

import collections
import re
from dataclasses import dataclass

KINDS = ("constant", "text", "comparison", "condition", "arithmetic", "call left out", "assignment left out", "order")
BEGIN, END = "<!-- scripts/mutate: begin -->", "<!-- scripts/mutate: end -->"


@dataclass
class Equal:
    """A row of equal.tsv: changes that nobody can notice, and why. Each column but the last is a pattern."""

    file: str
    function: str
    kind: str
    text: str  # of what is changed, "before -> after"
    reason: str
    used: int = 0

    def covers(self, change):
        return (
            matches(change.file, self.file) and matches(change.function, self.function)
            and matches(change.kind, self.kind) and matches(f"{change.before} -> {change.after}", self.text)
        )  # fmt: skip


def matches(text, pattern):
    return re.fullmatch(".*".join(re.escape(part) for part in pattern.split("*")), text, re.DOTALL) is not None


def read_equal(path):
    rows = []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        cells = line.split("\t")
        if len(cells) != 5 or not all(cells):
            raise ValueError(f"{path}:{number}: five cells parted by tabs are expected, got {len(cells)}")
        rows.append(Equal(*cells))
    return rows


@dataclass
class Row:
    caught: int = 0
    survived: int = 0
    equal: int = 0

    @property
    def score(self):
        counted = self.caught + self.survived
        return f"{100 * self.caught / counted:.1f}" if counted else "-"


def rows_of(changes, results, equal):
    """{folder: Row}, {kind: Row} and the survivors that are not equal, in order."""
    folders, kinds, survivors = collections.OrderedDict(), collections.OrderedDict(), []
    for change in changes:
        outcome = results.get(change.key)
        if outcome is None or change.isBroken:
            continue
        row = folders.setdefault(change.file.rpartition("/")[0] or change.file, Row())
        kind = kinds.setdefault(change.kind, Row())
        if outcome["outcome"] == "caught":
            row.caught += 1
            kind.caught += 1
            continue
        covering = next((each for each in equal if each.covers(change)), None)
        if covering:
            covering.used += 1
            row.equal += 1
            kind.equal += 1
        else:
            row.survived += 1
            kind.survived += 1
            survivors.append(change)
    return folders, kinds, survivors


def total(rows):
    return Row(*(sum(getattr(row, name) for row in rows) for name in ("caught", "survived", "equal")))


def table(rows, head):
    lines = [f"| {head} | Changes | Caught | Survived | Equal | Caught of 100 that are not equal |",
             "|---|---:|---:|---:|---:|---:|"]  # fmt: skip
    for name, row in [*rows.items(), ("all", total(rows.values()))]:
        count = row.caught + row.survived + row.equal
        name = f"`{name}`" if head == "Folder" and name != "all" else name
        lines.append(f"| {name} | {count} | {row.caught} | {row.survived} | {row.equal} | {row.score} |")
    return lines


def survivor_lines(survivors, results):
    for change in survivors:
        result = results[change.key]
        by = "no test comes by" if result["outcome"] == "unseen" else f"{result['tests']} tests ran"
        by += ", more are left" if result["outcome"] == "open" else ""
        after = change.after or "(nothing)"
        yield f"{change.file}:{change.line}: {change.function}: {change.kind}: {change.before} -> {after}  [{by}]"


def into_document(path, lines):
    text = path.read_text(encoding="utf-8")
    head, begin, rest = text.partition(BEGIN)
    _, end, tail = rest.partition(END)
    if not begin or not end:
        raise ValueError(f"{path} has no place for the table: {BEGIN} and {END}")
    path.write_text(head + begin + "\n\n" + "\n".join(lines) + "\n\n" + end + tail, encoding="utf-8")
