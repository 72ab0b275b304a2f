"""Objects whose signed pointers a linker without them takes for plain ones.

The compiler leaves a signed pointer as eight bytes under a relocation of a kind of its own. From the low
bits up they hold the addend (32 bits), the number (16), whether the place counts (1), the key (2), and a
set bit 63. Under a plain relocation the linker adds the target's address to all eight, or makes them the
addend of a bind; either way nothing of them is lost, and the place in the file holds afterwards what a
thread wants there. Only the kind has to be changed.
"""

from signing.image import SUBTYPE_ARM64E, SUBTYPE_FEATURES, TYPE_OBJECT, Image, Refused

PLAIN, SIGNED = 0, 11  # ARM64_RELOC_UNSIGNED, ARM64_RELOC_AUTHENTICATED_POINTER
ZERO_FILL = (0x01, 0x0C, 0x12)
EXTERNAL, RELATIVE, LENGTH_SHIFT, KIND_SHIFT = 1 << 27, 1 << 24, 25, 28
POINTER_LENGTH = 3  # a power of two
SIGNED_BIT, UNUSED_BITS, NEGATIVE_ADDEND = 1 << 63, 0xFFF << 51, 1 << 31


def check_pointer(image, section, at, flags):
    """What lld is to add to must keep its upper half as it is."""
    if flags & RELATIVE or flags >> LENGTH_SHIFT & 3 != POINTER_LENGTH or not flags & EXTERNAL:
        raise Refused("a signed pointer is relocated otherwise than by the address of a symbol")
    if section.kind in ZERO_FILL or at + 8 > section.size:
        raise Refused("a signed pointer lies outside its section")
    held = image.numbers(section.offset + at, "<Q", "a signed pointer")[0]
    if not held & SIGNED_BIT or held & UNUSED_BITS:
        raise Refused(f"a signed pointer holds {held:#x}, which does not say how it is signed")
    if held & NEGATIVE_ADDEND:
        raise Refused("a signed pointer points before its symbol")


def with_plain_relocations(data):
    """The object's bytes with the kind of those relocations changed, and how many they were."""
    image = Image(data)
    if image.type != TYPE_OBJECT or image.subtype & ~SUBTYPE_FEATURES != SUBTYPE_ARM64E:
        raise Refused("it is no object for arm64e")
    changed = 0
    for section in (one for segment in image.segments for one in segment.sections):
        for index in range(section.relocation_count):
            place = section.relocations + 8 * index
            at, flags = image.numbers(place, "<2I", "the relocations")
            if flags >> KIND_SHIFT != SIGNED:
                continue
            check_pointer(image, section, at, flags)
            image.put(place + 4, "<I", flags & ((1 << KIND_SHIFT) - 1) | PLAIN << KIND_SHIFT)
            changed += 1
    return bytes(image.data), changed
