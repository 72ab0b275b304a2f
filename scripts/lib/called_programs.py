"""Which programs the sources call: command words of shell scripts, and what Python and CMake name.

The shell scanner knows the grammar as far as the scripts here use it: quotes, comments, here
documents, case patterns, arrays, arithmetic, substitutions, and words that run the command after them.
"""

import ast
import re

ARGUMENT_TAKERS = {"for", "select", "function", "case"}  # no command follows on the line
OPENERS = {"if", "then", "elif", "else", "while", "until", "do", "!", "{", "time", "in"}
CLOSERS = {"fi", "done", "esac", "}"}
# They run the command that is their argument. The last ones are functions of the scripts.
RUNNERS = {"exec", "command", "env", "xargs", "sudo", "nice", "setpriv", "unshare", "check_with", "apart"}
TAKES_VALUE = {"setpriv": {"--pdeathsig"}, "xargs": {"-n", "-P", "-I", "-a"}}
BUILTINS = set(
    ". : [ alias break builtin cd command compgen continue declare echo eval exec exit export false"
    " getopts hash help jobs kill let local mapfile popd printf pushd pwd read readonly return set"
    " shift shopt source test trap true type ulimit umask unset wait".split()
)
ASSIGNMENT = re.compile(r"[A-Za-z_]\w*(\[[^]]*\])?\+?=")
FUNCTION = re.compile(r"^\s*(?:function\s+)?([A-Za-z_][\w-]*)\s*\(\)", re.MULTILINE)
HERE = re.compile(r"<<-?\s*(['\"]?)(\w+)\1")
SPACES_AND_OPERATORS = " \t\n;&|()<>"


class Scanner:
    def __init__(self, text):
        self.text, self.at, self.found = text, 0, []

    def peek(self, part):
        return self.text.startswith(part, self.at)

    def skip_past(self, part):
        end = self.text.find(part, self.at)
        self.at = len(self.text) if end < 0 else end + len(part)

    def substitution(self):
        """At $( or <( or >(: its commands count, arithmetic is passed over."""
        if self.peek("$(("):
            self.at += 3
            self.balanced("(", ")", depth=2)
            return
        self.at += 2
        self.commands(until=")")

    def balanced(self, opening, closing, depth=1):
        while self.at < len(self.text) and depth:
            if self.peek("$(") and opening != "(":
                self.substitution()
                continue
            if self.peek("'") and opening != "(":
                self.at += 1
                self.skip_past("'")
                continue
            depth += {opening: 1, closing: -1}.get(self.text[self.at], 0)
            self.at += 1

    def quoted(self):
        self.at += 1
        while self.at < len(self.text) and not self.peek('"'):
            if self.peek("$("):
                self.substitution()
            else:
                self.at += 2 if self.peek("\\") else 1
        self.at += 1

    def word(self):
        """The word that starts here."""
        start = self.at
        while self.at < len(self.text) and self.text[self.at] not in SPACES_AND_OPERATORS:
            if self.peek("\\"):
                self.at += 2
            elif self.peek("'"):
                self.at += 1
                self.skip_past("'")
            elif self.peek('"'):
                self.quoted()
            elif self.peek("$("):
                self.substitution()
            elif self.peek("${"):
                self.at += 2
                self.balanced("{", "}")
            elif self.peek("=(") and ASSIGNMENT.match(self.text[start : self.at + 1]):
                self.at += 2
                self.array()
            else:
                self.at += 1
        return self.text[start : self.at]

    def array(self):
        while self.at < len(self.text) and not self.peek(")"):
            if self.peek("#"):
                self.skip_past("\n")
            elif not self.word():
                self.at += 1
        self.at += 1

    def here_document(self, match, pending):
        pending.append(match[2])
        self.at = match.end()

    def patterns(self):
        """At the patterns of a case: past their closing parenthesis, or at the end of the case."""
        while self.at < len(self.text) and self.text[self.at] in " \t\n":
            self.at += 1
        if self.peek("esac"):
            return
        while self.at < len(self.text) and not self.peek(")"):
            if not self.word():
                self.at += 1
        self.at += 1

    def commands(self, until=None):
        expecting, runner, cases, pending = True, None, 0, []
        while self.at < len(self.text):
            letter = self.text[self.at]
            here = HERE.match(self.text, self.at)
            if letter == until:
                self.at += 1
                return
            if letter == "\n":
                self.at += 1
                for mark in pending:
                    end = re.compile(rf"^\s*{mark}$", re.MULTILINE).search(self.text, self.at)
                    self.at = end.end() if end else len(self.text)
                expecting, runner, pending = True, None, []
            elif letter == "#":
                end = self.text.find("\n", self.at)
                self.at = len(self.text) if end < 0 else end
            elif letter in " \t" or self.peek("\\\n"):
                self.at += 1 if letter in " \t" else 2
            elif self.peek("<<<"):
                self.at += 3
                self.argument()
            elif here:
                self.here_document(here, pending)
            elif self.peek("<(") or self.peek(">("):
                self.substitution()
            elif letter in "<>":
                self.at += 2 if self.text[self.at + 1 : self.at + 2] in (">", "&") else 1
                self.argument()
            elif expecting and self.peek("(("):
                self.at += 2
                self.balanced("(", ")", depth=2)
            elif self.peek(";;"):
                self.at += 2
                self.patterns()
                expecting, runner = True, None
            elif letter in ";&|()":
                self.at += 1
                expecting, runner = True, None
            else:
                word = self.word()
                if word == "case" and expecting:
                    cases += 1
                    self.skip_past(" in")
                    self.patterns()
                elif expecting:
                    expecting, runner = self.command_word(word, runner)

    def argument(self):
        while self.text[self.at : self.at + 1] in (" ", "\t"):
            self.at += 1
        self.word()

    def command_word(self, word, runner):
        """Whether a command is still expected after this word, and by which runner."""
        if word in OPENERS or (ASSIGNMENT.match(word) and not runner == "xargs"):
            return True, runner
        if word.startswith('"${') and word.endswith('[@]}"'):
            return True, runner  # may be empty, as where no sudo is needed
        if word in CLOSERS or word in ARGUMENT_TAKERS:
            return False, None
        if word == "[[":
            self.skip_past("]]")
            return False, None
        if runner and word.startswith("-"):
            if word in TAKES_VALUE.get(runner, ()):
                self.argument()
            return True, runner
        self.found.append(word)
        return (True, word) if word in RUNNERS else (False, None)


def functions(text):
    return set(FUNCTION.findall(text))


def of_shell(text):
    """The names of the programs that a shell script calls; not its functions, builtins and paths."""
    scanner = Scanner(text)
    scanner.commands()
    own = functions(text) | BUILTINS
    called = {word for word in scanner.found if re.fullmatch(r"[A-Za-z_][\w.+-]*", word)}
    first = re.match(r"#!(?:/usr/bin/env )?(\S+)", text)
    if first:
        called.add(first[1].rsplit("/", 1)[-1])
    return called - own


def of_python(text):
    """The programs that are the first word of a run(...) or a list given to one."""
    called = {"python3"} if text.startswith("#!") else set()
    for node in ast.walk(ast.parse(text)):
        if not isinstance(node, ast.Call) or not node.args:
            continue
        name = getattr(node.func, "attr", getattr(node.func, "id", ""))
        if name not in {"run", "check_output", "check_call", "Popen"}:
            continue
        first = node.args[0]
        while isinstance(first, ast.BinOp):
            first = first.left
        if isinstance(first, (ast.List, ast.Tuple)) and first.elts:
            first = first.elts[0]
        if isinstance(first, ast.Constant) and isinstance(first.value, str):
            called.add(first.value)
    return called


CMAKE = re.compile(
    r"find_program\(\s*\w+\s+([\w.+-]+)"
    r"|set\(CMAKE_\w+_COMPILER\s+([\w.+-]+)\)"
    r"|set\(CMAKE_CROSSCOMPILING_EMULATOR\s+([\w.+-]+)"
)
CMAKE_LINKER = re.compile(r"-fuse-ld=([\w.+-]+)")


def of_cmake(text):
    called = {name for match in CMAKE.findall(text) for name in match if name}
    return called | {f"ld.{name}" for name in CMAKE_LINKER.findall(text)}
