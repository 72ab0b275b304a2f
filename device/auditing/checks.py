"""The checks. Each yields its errors, one line each, which say what to do."""

import re

from auditing.macho import INITIALISERS
from auditing.signature import signature_fault
from auditing.tables import OWN, PRIVATE, SYMBOLS

INSTALL_NAME = "/Library/MobileSubstrate/DynamicLibraries/Vantori.dylib"
MINIMUM_IOS = (11, 0)

# The load commands that the dynamic linker of iOS 11 knows and that this library has a use for; later
# linkers write others (chained fixups), which it does not know. From Apple's <mach-o/loader.h>.
LOAD_COMMANDS = {
    0x02: "SYMTAB", 0x0B: "DYSYMTAB", 0x0C: "LOAD_DYLIB", 0x0D: "ID_DYLIB", 0x19: "SEGMENT_64",
    0x1B: "UUID", 0x1D: "CODE_SIGNATURE", 0x25: "VERSION_MIN_IPHONEOS", 0x26: "FUNCTION_STARTS",
    0x29: "DATA_IN_CODE", 0x2A: "SOURCE_VERSION", 0x2C: "ENCRYPTION_INFO_64",
    0x32: "BUILD_VERSION", 0x80000022: "DYLD_INFO_ONLY",
}  # fmt: skip

PLACES = re.compile(rb"/(?:home|root|Users|builds|work)/[\w./-]+")
SOURCES = re.compile(rb"[\w./-]*\w/\w+\.(?:cpp|hpp)")


def check_file(dylib):
    """What the loader of a phone looks at."""
    if dylib.install_name != INSTALL_NAME:
        yield f"install name is {dylib.install_name or 'missing'}, not {INSTALL_NAME}"
    if dylib.minimum != MINIMUM_IOS:
        yield f"lowest iOS is {dylib.minimum or 'missing'}, not {MINIMUM_IOS}"
    for command in sorted(set(dylib.commands) - set(LOAD_COMMANDS)):
        yield f"load command {command:#x} is none that iOS 11 knows and this library needs"
    started = sum(one.size // 8 for one in dylib.sections if one.kind == INITIALISERS)
    if started != 1:
        yield f"{started} functions run when the library is loaded, not the one of entry.cpp"
    fault = signature_fault(dylib)
    if fault:
        yield fault


def check_secrets(dylib, forbidden):
    """What the file tells of where it was built, and what others see of it."""
    for symbol in dylib.exported:
        yield f"exports {symbol}: the library shows nothing to others"
    if dylib.debugging:
        yield f"{dylib.debugging} debugging symbols are left"
    for path in sorted(forbidden):
        if path.encode() in dylib.data:
            yield f"holds the build path {path}"
    for found in sorted({*PLACES.findall(dylib.data), *SOURCES.findall(dylib.data)}):
        yield f"holds a path of the build, {found.decode()}"


def check_symbols(dylib, stubs):
    """Every symbol that is used is in the stub of its library."""
    by_name = {stub.install_name: stub for stub in stubs}
    for library in dylib.libraries:
        if library not in by_name:
            yield f"links {library}, which no stub describes"
    for symbol, index in sorted(dylib.undefined.items()):
        if not 0 <= index < len(dylib.libraries):
            yield f"{symbol} is not bound to a library"
            continue
        library = dylib.libraries[index]
        if library in by_name and symbol not in by_name[library].symbols:
            yield f"{symbol} is not in the stub of {library}"


def number(text):
    return tuple(int(part) for part in text.split("."))


def check_stubs(dylib, stubs, platform):
    """Every symbol of a stub is used, and one that the library of that name has on every phone."""
    for stub in stubs:
        for symbol in sorted(stub.symbols):
            row = platform.symbols.get(symbol)
            if symbol not in dylib.undefined:
                yield f"the stub of {stub.install_name} lists {symbol}, which nothing uses: take it out"
            if not row:
                yield (
                    f"nothing says that the system has {symbol}: add to device/platform/{SYMBOLS} its name, "
                    f"{stub.install_name}, since which iOS, and where that is known from"
                )
            elif row["library"] != stub.install_name:
                yield f"{symbol} is in {row['library']}, not in {stub.install_name} ({SYMBOLS})"
            elif number(row["since"]) > MINIMUM_IOS:
                yield f"{symbol} is there from iOS {row['since']} only ({SYMBOLS})"


def plain(encoding):
    """Without qualifiers that change nothing for a caller: oneway, const, in and the like."""
    return re.sub(r"^[rnNoORV]+", "", encoding)


def encodings_of(rows):
    return sorted({plain(row.encoding) for row in rows})


def is_on_purpose(method, platform):
    return (method.class_name, method.selector, method.encoding) in platform.ours


def check_hooks(hooks, platform):
    """Each hook expects the encoding that the system's method has."""
    for hook in hooks:
        if is_on_purpose(hook, platform):
            continue
        name = f"-[{hook.class_name} {hook.selector}]"
        rows = [
            row
            for row in platform.methods
            if (row.class_name, row.kind, row.selector) == (hook.class_name, "-", hook.selector)
        ]
        if not rows:
            yield (
                f"hook {name} is not known: add to device/platform/{PRIVATE} the row "
                f"'{hook.class_name} - {hook.selector} {hook.encoding}' with the systems that have it"
            )
        elif plain(hook.encoding) not in encodings_of(rows):
            yield f"hook {name} expects {hook.encoding}, but the system has {' or '.join(encodings_of(rows))}"


def check_methods(methods, platform):
    """A method that answers a message of the system has the encoding which the system sends."""
    for method in methods:
        rows = [row for row in platform.of_selector(method.selector) if row.kind == method.kind]
        if not rows or is_on_purpose(method, platform):
            continue
        if plain(method.encoding) not in encodings_of(rows):
            owner = method.class_name or "(a class of the system)"
            like = ", ".join(sorted({f"{row.class_name} ({row.encoding})" for row in rows}))
            yield (
                f"{method.kind}[{owner} {method.selector}] has the encoding {method.encoding}, but not as in "
                f"{like}; if it only shares the name, add '{owner} {method.selector} {method.encoding}' to "
                f"device/platform/{OWN}"
            )


def check_messages(messages, methods, platform):
    """Each message is one that the system or the library itself has."""
    ours = {method.selector for method in methods}
    known = {row.selector for row in platform.methods if row.kind in "+-"}
    for selector in messages:
        if selector not in ours | known:
            yield (
                f"the message {selector} is not known: add a row for it to device/platform/{PRIVATE} "
                "(with the systems that have it) or, if it is documented, to public_methods.tsv"
            )


def check_classes(classes, methods, platform):
    """Each class that is looked up exists, on some system or in the library."""
    ours = {method.class_name for method in methods}
    for name in classes:
        if name not in platform.classes | ours and not name.startswith("VNT"):
            yield f"the class {name} is not known: add a row for it to a table of device/platform (kind: class)"
