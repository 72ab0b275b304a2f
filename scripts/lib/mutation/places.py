"""Finds the places of a source that can be changed, in the syntax tree of the compiler.

A Change is one small difference, a Place a stretch of the source with the changes that are switched there. Places
lie inside one another and are written from the inside out (rendering.py).
"""

import os
import re
from dataclasses import dataclass, field

from clang import cindex
from clang.cindex import CursorKind as Kind

ORDERS = {"<": "less", "<=": "lessOrEqual", ">": "greater", ">=": "greaterOrEqual"}
EDGES = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
OPPOSITES = {"<": ">=", "<=": ">", ">": "<=", ">=": "<", "==": "!=", "!=": "=="}
ARITHMETIC = {"+": ("plus", "-"), "-": ("minus", "+"), "*": ("times", "/"), "/": ("divided", "*"),
              "%": ("remainder", "/")}  # fmt: skip
COMPOUND = {"+=": ("add", "-="), "-=": ("subtract", "+=")}
FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.FUNCTION_TEMPLATE,
             Kind.CONVERSION_FUNCTION}  # fmt: skip
WRAPPERS = {Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR}
UNKNOWN = -1  # inside a function that has no probe
COMMENT = re.compile(rb"//[^\n]*|/\*.*?\*/", re.DOTALL)
NUMBER = re.compile(r"(0[xX][0-9a-fA-F]+|[0-9.]+(?:[eE][-+]?\d+)?)([uUlLfF]*)$")
STRING = re.compile(r'"(?:[^"\\\n]|\\.)*"(_ns)?$')


class ReadError(Exception):
    """A source that the compiler's library cannot read."""


@dataclass
class Change:
    file: str
    line: int
    function: str
    kind: str
    before: str
    after: str
    key: str = ""
    atLoad: bool = False  # asked before any test, so that the functions that use the constant tell who sees it
    users: set = field(default_factory=set)  # numbers of their probes
    isBroken: bool = False  # it cannot be switched while the program runs


@dataclass
class Place:
    start: int
    end: int
    shape: str  # how it is written: a name in rendering.py
    changes: list = field(default_factory=list)
    parts: list = field(default_factory=list)  # stretches that the writing needs by themselves
    extra: str = ""
    name: str = ""  # of the constant or function that is declared there


@dataclass
class Source:
    name: str
    text: bytes
    places: list = field(default_factory=list)


def one_line(text):
    return " ".join(text.split())


def other_number(text):
    """A number near it, of the same type."""
    found = NUMBER.match(text)
    if not found:
        return None
    digits, suffix = found.groups()
    if digits[:2] in ("0x", "0X"):
        return hex(int(digits, 16) + 1) + suffix
    if "." in digits or "e" in digits or "E" in digits:
        value = float(digits)
        near = 1.0 if value == 0 else value + (0.1 if value <= 2 else 1)
        return repr(round(near, 6)) + suffix
    return str(int(digits) + 1) + suffix


class Finder:
    """Walks the translation units; each file is read in the first one that has it."""

    def __init__(self, root, files):
        self.root = root
        self.sources = {name: Source(name, (root / name).read_bytes()) for name in files}
        self.done = set()
        self.changes = []
        self.probes = 0
        self.uses = {}  # constant: the probes of the functions that name it
        self.constants = {}  # constant: the changes in its value
        self.counts = {}
        self.names = {}  # of the files, by their paths

    def read(self, unit):
        fresh = set()
        for cursor in unit.cursor.get_children():
            place = cursor.location.file
            name = self.inside(place.name) if place else None
            if name is None or name in self.done:
                continue
            fresh.add(name)
            self.walk(cursor, Context(self.sources[name]))
        self.done |= fresh

    def inside(self, path):
        if path not in self.names:
            name = os.path.relpath(os.path.realpath(path), self.root)
            self.names[path] = name if name in self.sources else None
        return self.names[path]

    def finish(self):
        for constant, changes in self.constants.items():
            users = self.users_of(constant, set())
            for change in changes:
                change.users = users

    # The probes of those who use a constant, also through other constants; None: not known.
    def users_of(self, constant, seen):
        found = set()
        for user in self.uses.get(constant, ()):
            if user is None or user == UNKNOWN:
                return None
            if isinstance(user, tuple):
                if user not in seen:
                    more = self.users_of(user[0], seen | {user})
                    if more is None:
                        return None
                    found |= more
            else:
                found.add(user)
        return found

    def change(self, context, cursor_start, kind, before, after):
        source = context.source
        line = source.text.count(b"\n", 0, cursor_start) + 1
        before, after = one_line(before), one_line(after)
        change = Change(source.name, line, context.function, kind, before, after)
        key = f"{source.name} | {context.function} | {kind} | {before} | {after}"
        count = self.counts[key] = self.counts.get(key, 0) + 1
        change.key = key if count == 1 else f"{key} | {count}"
        self.changes.append(change)
        if context.constant:
            change.atLoad = True
            self.constants.setdefault(context.constant, []).append(change)
            context.declaration.changes.append(change)
        return change

    def walk(self, cursor, context):
        handler = HANDLERS.get(cursor.kind)
        if handler and handler(self, cursor, context):
            return
        for child in cursor.get_children():
            self.walk(child, context)

    # Handlers return whether they have walked the children themselves.

    def function(self, cursor, context):
        if self.inside(cursor.location.file.name) != context.source.name:
            return True
        inner = context.inside(cursor.spelling)
        children = list(cursor.get_children())
        bodies = [c for c in children if c.kind == Kind.COMPOUND_STMT]
        head = context.text(cursor)[: bodies[0].extent.start.offset - cursor.extent.start.offset] if bodies else ""
        word = re.search(r"\b(constexpr|consteval)\b", head)
        if word and word.group() == "consteval":
            return True
        count = len(self.changes)
        if word:
            inner.probe = UNKNOWN
        elif bodies:
            self.probe(bodies[0], inner)
        for child in children:
            self.walk(child, inner)
        if word and len(self.changes) > count:
            start = cursor.extent.start.offset + word.start()
            place = Place(start, cursor.extent.end.offset, "constant", self.changes[count:])
            place.parts = [(start, start + len("constexpr"))]
            place.extra = "" if re.search(r"\binline\b", head) else "inline"
            place.name = cursor.spelling
            context.source.places.append(place)
        return True

    def probe(self, body, context):
        context.probe = self.probes
        self.probes += 1
        start = body.extent.start.offset
        context.source.places.append(Place(start, start + 1, "probe", extra=str(context.probe)))

    def lambda_(self, cursor, context):
        inner = context.inside(context.function)
        inner.probe = UNKNOWN if context.probe is None else context.probe  # one of a table may run while compiling
        for child in cursor.get_children():
            if child.kind == Kind.COMPOUND_STMT and inner.probe != UNKNOWN:
                self.probe(child, inner)
            self.walk(child, inner)
        return True

    def record(self, cursor, context):
        if not cursor.is_definition():
            return False
        inner = context.inside(cursor.spelling)
        inner.record = True
        for child in cursor.get_children():
            self.walk(child, inner)
        return True

    def variable(self, cursor, context):
        text = context.text(cursor)
        children = list(cursor.get_children())
        head = re.match(r"[^={(\[]*", text).group()
        isConstant = re.search(r"\bconstexpr\b", head)
        isAtLoad = context.probe is None
        if re.search(r"\btemplate\b|FixedString", head):
            return True
        if not isConstant and not isAtLoad:
            return False
        inner = context.inside(context.function if context.probe is not None else cursor.spelling)
        inner.probe = context.probe
        start = cursor.extent.start.offset
        word = start + isConstant.start() if isConstant else start
        place = Place(word, cursor.extent.end.offset, "constant" if isConstant else "plain")
        if isConstant:
            place.parts = [(word, word + len("constexpr"))]
            isInline = context.record and not re.search(r"\binline\b", head)
            place.extra = "inline const" if isInline else "const"
            place.name = cursor.spelling
        inner.declaration = place
        inner.constant = cursor.get_usr() or None if isAtLoad else None
        count = len(self.changes)
        for child in children:
            self.walk(child, inner)
        if isConstant and not isAtLoad:
            place.changes = self.changes[count:]
        if place.changes:
            context.source.places.append(place)
        return True

    def reference(self, cursor, context):
        used = cursor.referenced
        if used is not None and used.kind in (Kind.VAR_DECL, Kind.FIELD_DECL):
            user = context.probe if context.probe is not None else (context.constant,) if context.constant else None
            self.uses.setdefault(used.get_usr(), set()).add(user)
        return False

    def number(self, cursor, context):
        text = context.text(cursor)
        after = other_number(text)
        if after and not context.is_argument_of_template(cursor):
            self.literal(cursor, context, "constant", text, after)
        return True

    def boolean(self, cursor, context):
        text = context.text(cursor)
        if text in ("true", "false") and not context.is_argument_of_template(cursor):
            self.literal(cursor, context, "constant", text, "false" if text == "true" else "true")
        return True

    def string(self, cursor, context):
        text = context.text(cursor)
        found = STRING.match(text)
        if found and not context.is_argument_of_template(cursor):
            suffix = found.group(1) or ""
            inner = text[: len(text) - len(suffix) - 1]
            self.literal(cursor, context, "text", text, f'{inner}~"{suffix}')
        return True

    def literal(self, cursor, context, kind, before, after):
        start, end = span(cursor)
        place = Place(start, end, "instead", extra=after)
        shown = context.around(start, end)
        place.changes.append(self.change(context, start, kind, f"{before} in {shown}", after))
        context.source.places.append(place)

    def binary(self, cursor, context):
        children = list(cursor.get_children())
        if len(children) != 2:
            return False
        left, right = children
        (start, left_end), (right_start, end) = span(left), span(right)
        if not start < left_end <= right_start < end:
            return False
        operator = COMMENT.sub(b"", context.source.text[left_end:right_start]).decode().strip()
        self.operation(operator, (start, left_end), (right_start, end), left, right, context)
        return False

    def operation(self, operator, left, right, left_cursor, right_cursor, context):
        start, end = left[0], right[1]
        shown = context.source.text[start:end].decode()
        between = lambda other: context.source.text[left[0]:left[1]].decode() + f" {other} " + context.source.text[right[0]:right[1]].decode()  # noqa: E731, E501
        if operator in ORDERS:
            place = Place(start, end, "call", parts=[left, right], extra=ORDERS[operator])
            place.changes.append(self.change(context, start, "comparison", shown, between(EDGES[operator])))
            place.changes.append(self.change(context, start, "comparison", shown, between(OPPOSITES[operator])))
        elif operator in ("==", "!="):
            place = Place(start, end, "call", parts=[left, right], extra="equal" if operator == "==" else "unequal")
            place.changes.append(self.change(context, start, "comparison", shown, between(OPPOSITES[operator])))
        elif operator in ARITHMETIC:
            name, other = ARITHMETIC[operator]
            place = Place(start, end, "call", parts=[left, right], extra=name)
            place.changes.append(self.change(context, start, "arithmetic", shown, between(other)))
        elif operator in COMPOUND:
            name, other = COMPOUND[operator]
            place = Place(start, end, "call", parts=[left, right], extra=name)
            place.changes.append(self.change(context, start, "arithmetic", shown, between(other)))
        elif operator in ("&&", "||"):
            for (first, last), cursor, rest in ((left, left_cursor, right), (right, right_cursor, left)):
                place = Place(first, last, "and" if operator == "&&" else "or")
                remains = context.source.text[rest[0]:rest[1]].decode()
                place.changes.append(self.change(context, first, "condition", shown, remains))
                context.source.places.append(place)
                self.negate(cursor, context)
            return
        else:
            return
        context.source.places.append(place)

    def overloaded(self, cursor, context):
        name = cursor.spelling
        if name in ("operator==", "operator!="):
            arguments = list(cursor.get_arguments())
            if len(arguments) == 2:
                (start, left_end), (right_start, end) = span(arguments[0]), span(arguments[1])
                if start < left_end <= right_start < end:
                    operator = COMMENT.sub(b"", context.source.text[left_end:right_start]).decode().strip()
                    if operator in ("==", "!="):
                        self.operation(operator, (start, left_end), (right_start, end), *arguments, context)
        elif name == 'operator""_ns' or STRING.match(context.text(cursor)):
            return self.string(cursor, context)
        elif name in ("min", "max"):
            self.extreme(cursor, context)
        return False

    def extreme(self, cursor, context):
        start, end = span(cursor)
        found = re.match(rb"std::(min|max)(?=\()", context.source.text[start:end])
        if not found:
            return
        arguments = [span(a) for a in cursor.get_arguments()]
        if len(arguments) != 2:
            return
        text = context.source.text[start:end].decode()
        name, other = ("lower", "max") if found.group(1) == b"min" else ("higher", "min")
        place = Place(start, end, "call", parts=arguments, extra=name)
        place.changes.append(self.change(context, start, "arithmetic", text, f"std::{other}" + text[8:]))
        context.source.places.append(place)

    def unary(self, cursor, context):
        text = context.text(cursor)
        start, end = span(cursor)
        if text.startswith("!"):
            self.negate(cursor, context)
        elif text.startswith("-") and not text.startswith("--"):
            (inner,) = (span(c) for c in cursor.get_children())
            place = Place(start, end, "call", parts=[inner], extra="negative")
            place.changes.append(self.change(context, start, "arithmetic", text, text[1:].strip()))
            context.source.places.append(place)
        return False

    # The opposite of a condition, unless a comparison in it is turned round anyway.
    def negate(self, cursor, context):
        inner = cursor
        while inner.kind in WRAPPERS:
            children = list(inner.get_children())
            if len(children) != 1:
                break
            inner = children[0]
        if inner.kind in (Kind.BINARY_OPERATOR, Kind.CXX_BOOL_LITERAL_EXPR, Kind.VAR_DECL, Kind.DECL_STMT):
            return
        if inner.kind == Kind.CALL_EXPR and inner.spelling in ("operator==", "operator!="):
            return
        start, end = span(inner)
        if (start, end) in context.source_negated():
            return
        context.source_negated().add((start, end))
        text = context.source.text[start:end].decode()
        if text.startswith("!="):  # the compiler's, for an operator == turned round: half of a comparison
            return
        place = Place(start, end, "not")
        place.changes.append(self.change(context, start, "condition", text, f"!({text})"))
        context.source.places.append(place)

    def branch(self, cursor, context):
        children = list(cursor.get_children())
        if re.match(r"if\s+constexpr\b", context.text(cursor)):
            for child in children[1:]:
                self.walk(child, context)
                self.statement(child, context)
            return True
        position = {Kind.DO_STMT: -1}.get(cursor.kind, 0)
        if cursor.kind not in (Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT):
            self.negate(children[position], context)
        elif cursor.kind == Kind.FOR_STMT:
            for child in children[:-1]:
                if child.kind == Kind.UNEXPOSED_EXPR or child.type.kind == cindex.TypeKind.BOOL:
                    self.negate(child, context)
        if cursor.kind != Kind.CONDITIONAL_OPERATOR:
            for child in children:
                if child.kind not in (Kind.COMPOUND_STMT,) and child != children[position]:
                    if cursor.kind in (Kind.IF_STMT,) or child == children[-1]:
                        self.statement(child, context)
        return False

    # A label is a number of the compiler.
    def case(self, cursor, context):
        for child in list(cursor.get_children())[1:]:
            self.statement(child, context)
            self.walk(child, context)
        return True

    def skipped(self, cursor, context):
        return True

    def returned(self, cursor, context):
        for child in cursor.get_children():
            if child.type.get_canonical().kind == cindex.TypeKind.BOOL:
                self.negate(child, context)
        return False

    def block(self, cursor, context):
        previous = None
        for child in cursor.get_children():
            place = self.statement(child, context)
            if place and previous and place.extra == previous.extra == "call":
                first = context.source.text[previous.start : previous.end].decode()
                second = context.source.text[place.start : place.end].decode()
                swap = self.change(context, previous.start, "order", f"{first} {second}", f"{second} {first}")
                previous.parts.append((place, swap))
                previous.changes.append(swap)
                place.parts.insert(0, (previous, swap))
            previous = place
        return False

    # A call or an assignment that stands by itself, which can be left out.
    def statement(self, cursor, context):
        inner = cursor
        while inner.kind == Kind.UNEXPOSED_EXPR:
            children = list(inner.get_children())
            if len(children) != 1:
                break
            inner = children[0]
        isCall = inner.kind == Kind.CALL_EXPR
        isAssignment = inner.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.UNARY_OPERATOR)
        start, end = span(cursor)
        text = context.source.text[start:end].decode()
        if isCall and inner.spelling == "operator=":
            isCall, isAssignment = False, True
        if not (isCall or isAssignment) or inner.kind == Kind.UNARY_OPERATOR and not text.startswith(("++", "--")):
            return None
        found = re.compile(rb"(?:\s|//[^\n]*\n)*;").match(context.source.text, end)
        if not found or context.constant:
            return None
        place = Place(start, found.end(), "statement", extra="call" if isCall else "assignment")
        kind = "call left out" if isCall else "assignment left out"
        place.changes.append(self.change(context, start, kind, text, ""))
        context.source.places.append(place)
        return place


class Context:
    """Where the walk is."""

    def __init__(self, source):
        self.source = source
        self.function = ""
        self.probe = None
        self.constant = None
        self.declaration = None
        self.record = False

    def inside(self, name):
        inner = Context(self.source)
        inner.function = f"{self.function}::{name}" if self.function and name != self.function else name or self.function
        inner.probe = self.probe
        return inner

    def text(self, cursor):
        start, end = span(cursor)
        return self.source.text[start:end].decode()

    def source_negated(self):
        if not hasattr(self.source, "negated"):
            self.source.negated = set()
        return self.source.negated

    # The statement around a literal, as far as its line goes.
    def around(self, start, end):
        text = self.source.text
        first = text.rfind(b"\n", 0, start) + 1
        last = text.find(b"\n", end)
        return text[first:last].decode().strip()

    # Comparisons have spaces around them, lists of template arguments have not.
    def is_argument_of_template(self, cursor):
        before = self.source.text[max(0, cursor.extent.start.offset - 300) : cursor.extent.start.offset].decode(errors="replace")
        depth = 0
        for i in range(len(before) - 1, 0, -1):
            letter = before[i]
            if letter in ")}]" or letter == ">" and before[i - 1] not in " -":
                depth += 1
            elif letter in "({[;":
                if depth == 0:
                    return False
                depth -= 1
            elif letter == "<" and (before[i - 1].isalnum() or before[i - 1] == "_"):
                if depth == 0:
                    return True
                depth -= 1
        return False


def span(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


HANDLERS = {
    **dict.fromkeys(FUNCTIONS, Finder.function),
    **dict.fromkeys((Kind.STRUCT_DECL, Kind.CLASS_DECL, Kind.CLASS_TEMPLATE), Finder.record),
    **dict.fromkeys((Kind.IF_STMT, Kind.WHILE_STMT, Kind.DO_STMT, Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT,
                     Kind.CONDITIONAL_OPERATOR), Finder.branch),
    **dict.fromkeys((Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL), Finder.number),
    Kind.VAR_DECL: Finder.variable,
    **dict.fromkeys((Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR), Finder.binary),
    **dict.fromkeys((Kind.DECL_REF_EXPR, Kind.MEMBER_REF_EXPR), Finder.reference),
    **dict.fromkeys((Kind.STATIC_ASSERT, Kind.ENUM_DECL, Kind.TEMPLATE_NON_TYPE_PARAMETER), Finder.skipped),
    Kind.CASE_STMT: Finder.case,
    Kind.LAMBDA_EXPR: Finder.lambda_,
    Kind.CXX_BOOL_LITERAL_EXPR: Finder.boolean,
    Kind.STRING_LITERAL: Finder.string,
    Kind.CALL_EXPR: Finder.overloaded,
    Kind.UNARY_OPERATOR: Finder.unary,
    Kind.RETURN_STMT: Finder.returned,
    Kind.COMPOUND_STMT: Finder.block,
}  # fmt: skip


def find(root, files, units, arguments):
    """The sources with their places, all changes in order, and how many probes were set."""
    finder = Finder(root, files)
    index = cindex.Index.create()
    for unit in units:
        tree = index.parse(str(root / unit), args=arguments)
        for problem in tree.diagnostics:
            if problem.severity >= cindex.Diagnostic.Fatal:
                raise ReadError(f"{unit} cannot be read: {problem.spelling}")
        finder.read(tree)
    finder.finish()
    return finder
