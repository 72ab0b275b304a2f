"""The code signature: an ad-hoc one, whose every page hash is worked out anew.

The numbers are from Apple's <kern/cs_blobs.h>.
"""

import hashlib
import struct

CS_SUPERBLOB, CS_DIRECTORY, CS_ADHOC, CS_SHA256 = 0xFADE0CC0, 0xFADE0C02, 0x2, 2


def fault_of_directory(data, directory, end):
    head = struct.unpack_from(">9I4B", data, directory)
    flags, hashes, slots, limit = head[3], head[4], head[7], head[8]
    hash_size, hash_type, page_bits = head[9], head[10], head[12]
    if not flags & CS_ADHOC or hash_type != CS_SHA256:
        return f"the code signature is not an ad-hoc one with SHA-256 (flags {flags:#x})"
    for slot in range(slots):
        page = data[slot << page_bits : min((slot + 1) << page_bits, limit)]
        at = directory + hashes + slot * hash_size
        if hashlib.sha256(page).digest() != data[at : at + hash_size]:
            return f"page {slot} was changed after signing"
    return None if limit == end else "the code signature does not cover the file"


def signature_fault(dylib):
    """What is wrong with the code signature, or None."""
    if not dylib.signature:
        return "no code signature"
    data, start = dylib.data, dylib.signature[0]
    magic, _, blobs = struct.unpack_from(">3I", data, start)
    if magic != CS_SUPERBLOB:
        return "the code signature has no super blob"
    for blob in range(blobs):
        directory = start + struct.unpack_from(">2I", data, start + 12 + 8 * blob)[1]
        if struct.unpack_from(">I", data, directory)[0] == CS_DIRECTORY:
            return fault_of_directory(data, directory, start)
    return "the code signature has no code directory"
