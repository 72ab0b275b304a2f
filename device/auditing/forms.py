"""The tables of forms (platform/form.hpp) in a dylib: what each form needs, and on which systems it is taken.

A table is one line of text in the dylib: "feature: form = need & need; form = need". A need is a method
("-[Class selector] encoding", "+[...] ..."), "class Class", "ivar Class variable" or "symbol name of library".
"""

import re
from dataclasses import dataclass

from auditing.macho import Malformed
from auditing.tables import release

METHOD = re.compile(r"([-+])\[(\S+) (\S+)\] (\S+)")
OTHER = re.compile(r"(class) (\S+)|(ivar) (\S+) (\S+)|(symbol) (\S+) of (\S+)")
# The latest minor version of each major one from 11 on.
OLDEST, LATEST_MINOR = 11, (4, 5, 7, 8)
RELEASES = [
    (OLDEST + index) * 100 + minor
    for index, latest in enumerate(LATEST_MINOR)
    for minor in range(latest + 1)
]


@dataclass
class Need:
    """What has to be there: kind - + class ivar symbol. The owner of a symbol is its library."""

    kind: str
    owner: str
    name: str = ""
    encoding: str = ""

    def __str__(self):
        if self.kind in "-+":
            return f"{self.kind}[{self.owner} {self.name}]"
        if self.kind == "symbol":
            return f"{self.name} of {self.owner}"
        return " ".join(filter(None, (self.kind, self.owner, self.name)))


@dataclass
class Form:
    """One row of a feature's table."""

    name: str
    needs: list


@dataclass
class Feature:
    """One table."""

    name: str
    forms: list


def read_need(text):
    if found := METHOD.fullmatch(text):
        return Need(*found.groups())
    if found := OTHER.fullmatch(text):
        kind, *names = (part for part in found.groups() if part)
        return Need(kind, *reversed(names)) if kind == "symbol" else Need(kind, *names)
    raise Malformed(f"'{text}' is no need of a form")


def read_feature(text):
    name, _, rows = text.partition(": ")
    forms = []
    for row in rows.split("; "):
        form, _, needs = row.partition(" = ")
        forms.append(Form(form, [read_need(need) for need in needs.split(" & ")]))
    return Feature(name, forms)


def distance(seen, wanted):
    """Where nobody looked the nearest system stands in: of the same major version if there is any, by the number
    of releases between, the earlier of two. So does the simulated phone."""
    order = {number: place for place, number in enumerate(RELEASES)}
    return (seen // 100 != wanted // 100, abs(order.get(seen, 0) - order[wanted]), seen)


def sightings(rows):
    """By release: whether it was there."""
    seen = {}
    for row in rows:
        for systems, there in ((row.own, True), (row.inherited, True), (row.absent, False)):
            seen.update({release(system): there for system in systems})
    return seen


def is_seen(rows, wanted):
    """Whether a system of that release has what the rows are about."""
    if any(row.since and wanted < release(row.since) for row in rows):
        return False
    seen = sightings(rows)
    return seen[min(seen, key=lambda other: distance(other, wanted))] if seen else True


def rows_of(need, platform):
    """The rows of the tables that say where it is: of a method also those of its class."""
    if need.kind == "symbol":
        known = platform.looked_up.get(need.name)
        return [[known]] if known and known.class_name == need.owner else []
    own = platform.of_name(need.owner, need.kind, need.name)
    if need.kind == "class" or not own:
        return [own] if own else []
    return [rows for rows in (own, platform.of_name(need.owner, "class", "")) if rows]


def is_met(need, platform, wanted):
    rows = rows_of(need, platform)
    return bool(rows) and all(is_seen(group, wanted) for group in rows)


def taken(feature, platform, wanted):
    """The form that a system of that release takes, or None."""
    for form in feature.forms:
        if all(is_met(need, platform, wanted) for need in form.needs):
            return form
    return None


def systems_of(feature, platform):
    """By form, in the order of the table, the releases that take it; under None those that take none."""
    found = {form.name: [] for form in feature.forms}
    found[None] = []
    for wanted in RELEASES:
        form = taken(feature, platform, wanted)
        found[form.name if form else None].append(wanted)
    return found


def spans(releases):
    """11.0-11.4, 13.6: neighbours joined."""
    runs = []
    for number in releases:
        if runs and RELEASES.index(number) == RELEASES.index(runs[-1][-1]) + 1:
            runs[-1].append(number)
        else:
            runs.append([number])
    names = [[f"{number // 100}.{number % 100}" for number in (run[0], run[-1])] for run in runs]
    return ", ".join(first if first == last else f"{first}-{last}" for first, last in names)
