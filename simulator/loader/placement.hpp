// An image in memory: its segments copied to where it stands, its fixups filled in, and what has to
// run before anything else. Works on plain memory, so that any host can test it.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "simulator/loader/fixups.hpp"

namespace simulator::loader {

// Memory for the whole image: file.memorySize() bytes that are zero at first. Address zero of the
// image, file.start(), is its first byte.
using Memory = std::span<std::byte>;

// Copies each segment to its place.
void copySegments(const MachOFile& file, Memory memory);

// The address of a symbol, null when nobody has it. The name is without the underscore of C.
using Lookup = std::function<const void*(std::string_view name)>;

// Fills in every pointer, signed where the image says so. Symbols of the image itself come from the
// image; the others are looked up. Throws BadImage for symbols that nobody has, all of them in one message, with the library
// that should have them.
void applyFixups(const MachOFile& file, const Fixups& fixups, Memory memory, const Lookup& lookup,
                 const Sign& sign);

// The addresses, as linked, of the functions to call once the fixups are filled in, in order.
// Throws BadImage when one lies outside the code, or when a phone could not call it for its signature.
std::vector<std::uint64_t> initialisers(const MachOFile& file, const Fixups& fixups);

// Pointers to names of selectors (__objc_selrefs): each must become the selector of that name. None in
// an image that does not say that it has something for the object runtime (__objc_imageinfo): a phone's
// passes over it.
struct SelectorReference {
    std::uint64_t address;
    std::string_view name;
};
std::vector<SelectorReference> selectorReferences(const MachOFile& file, const Fixups& fixups);

}  // namespace simulator::loader
