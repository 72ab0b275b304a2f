"""The checks. Each yields its errors, one line each, which say what to do."""

import re

from auditing.forms import rows_of, systems_of
from auditing.handles import lineage
from auditing.link_map import BLOCK_DESCRIPTOR
from auditing.macho import INITIALISERS
from auditing.selectors import IMAGE_INFO, contents
from auditing.signature import signature_fault
from auditing.tables import LOOKED_UP, OWN, PRIVATE, SYMBOLS
from auditing.threads import Signing

INSTALL_NAME = "/Library/MobileSubstrate/DynamicLibraries/Vantori.dylib"
MINIMUM_IOS = {"arm64": (11, 0), "arm64e": (12, 0)}
OLDEST_IOS = min(MINIMUM_IOS.values())

# How functions are signed on arm64e: any of C, and those in the descriptor of a block.
FUNCTION, BLOCK_FUNCTION = Signing("IA", 0, False), Signing("IA", 0, True)

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
    wanted = MINIMUM_IOS[dylib.slice]
    if dylib.minimum != wanted:
        yield f"lowest iOS is {dylib.minimum or 'missing'}, not {wanted}"
    for command in sorted(set(dylib.commands) - set(LOAD_COMMANDS)):
        yield f"load command {command:#x} is none that iOS 11 knows and this library needs"
    started = sum(one.size // 8 for one in dylib.sections if one.kind == INITIALISERS)
    if started != 1:
        yield f"{started} functions run when the library is loaded, not the one of entry.cpp"
    fault = signature_fault(dylib)
    if fault:
        yield fault


def check_pointer(pointer, dylib, name):
    """Whether code jumps to it as it is signed."""
    leads_to_code = pointer.target is not None and dylib.is_code(pointer.target)
    place = f"the pointer at {pointer.address:#x} ({name or 'no symbol'})"
    if not pointer.signing:
        if leads_to_code:
            yield f"{place} leads to a function and is not signed"
        return
    if not leads_to_code:
        yield f"{place} is signed ({pointer.signing}) and leads to no function"
    wanted = BLOCK_FUNCTION if BLOCK_DESCRIPTOR.search(name) else FUNCTION
    if pointer.signing != wanted:
        yield f"{place} is signed with {pointer.signing} in place of {wanted}"


def check_pointers(dylib, pointers, link_map):
    """On arm64e: each function in data is signed as the code that calls it expects."""
    if dylib.slice != "arm64e":
        return
    places = [one.address for one in pointers]
    for address in sorted({one for one in places if places.count(one) > 1}):
        yield f"two threads go through the pointer at {address:#x}"
    for pointer in pointers:
        yield from check_pointer(pointer, dylib, link_map.symbol_at(pointer.address))
    for section in (one for one in dylib.sections if one.kind == INITIALISERS):
        for address in range(section.address, section.address + section.size, 8):
            if address not in places:
                yield f"the initialiser at {address:#x} is in no thread"


def check_same(slices):
    """Both architectures hold the same library: the same hooks, methods, messages, classes, symbols."""
    first = slices[0]
    for other in slices[1:]:
        for what, one, two in zip(first.contents, first.contents.values(), other.contents.values()):
            for name in sorted(one ^ two):
                have, lack = (first, other) if name in one else (other, first)
                yield f"{what} {name} is in {have.name} and not in {lack.name}"


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
            elif number(row["since"]) > OLDEST_IOS:
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


def check_references(dylib, references):
    """The object runtime finds the references to selectors, and the name of each."""
    if contents(dylib, IMAGE_INFO) != bytes(8):
        yield f"{IMAGE_INFO} is not eight zero bytes: the object runtime would pass over the selectors, or expect more"
    if not references:
        yield "it has no references to selectors, so it could send nothing"
    for reference in references:
        if reference.name is None:
            yield f"the reference at {reference.address:#x} leads to no name of a selector"


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


def check_handles(handles, messages, platform):
    """What a handle sends is known of its class, or of one that it derives from."""
    known = {(row.class_name, row.kind, row.selector) for row in platform.methods}
    sent = set(messages)
    for name, handle in sorted(handles.items()):
        if handle.class_name.startswith("VNT"):
            continue
        classes = list(lineage(name, handles))
        for kind, selector in sorted(handle.sent):
            if selector in sent and not any((one, kind, selector) in known for one in classes):
                yield (
                    f"nothing says that the system has {kind}[{handle.class_name} {selector}], which {name} sends: "
                    f"add a row for it to a table of device/platform"
                )


def check_classes(classes, methods, platform):
    """Each class that is looked up exists, on some system or in the library."""
    ours = {method.class_name for method in methods}
    for name in classes:
        if name not in platform.classes | ours and not name.startswith("VNT"):
            yield f"the class {name} is not known: add a row for it to a table of device/platform (kind: class)"


def check_need(feature, form, need, platform):
    """What a form needs is in the tables, and is called there as the library calls it."""
    where = f"the form '{form.name}' of {feature.name}"
    rows = rows_of(need, platform)
    if not rows:
        table = LOOKED_UP if need.kind == "symbol" else PRIVATE
        yield (
            f"{where} needs {need}, which is not known: add a row for it to device/platform/{table} "
            "with the systems that have it"
        )
    elif need.encoding and plain(need.encoding) not in encodings_of(rows[0]):
        yield f"{where} sends {need} as {need.encoding}, but the system has {' or '.join(encodings_of(rows[0]))}"


def check_features(features, platform):
    """Each form can be done where it is taken, and is taken somewhere; the first is kept in any case."""
    for feature in features:
        faults = [
            fault
            for form in feature.forms
            for need in form.needs
            for fault in check_need(feature, form, need, platform)
        ]
        yield from faults
        if faults:
            continue
        for name, releases in systems_of(feature, platform).items():
            if name and not releases and name != feature.forms[0].name:
                yield (
                    f"the form '{name}' of {feature.name} is taken on no system: one before it is there wherever it "
                    "is, or the tables know of no system that has all it needs"
                )
