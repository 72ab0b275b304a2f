// What the libraries of the phone's system export to those who look it up at run time: C functions and
// constants, by the path of the library. They are no files of this machine. None is there until a
// stand-in exports it.
#pragma once

#include <string_view>

namespace simulator {

// For the life of the phone. The name is C's, without an underscore before it.
void exportSymbol(std::string_view library, std::string_view symbol, const void* address);
template <class R, class... A>
void exportFunction(std::string_view library, std::string_view symbol, R (*function)(A...)) {
    exportSymbol(library, symbol, reinterpret_cast<const void*>(function));
}

// A handle, as dlopen gives one; null where the phone has no such library.
const void* systemLibrary(std::string_view library);
// Null where no library of that handle is, or the library exports no such symbol.
const void* symbolOfLibrary(const void* handle, std::string_view symbol);

}  // namespace simulator
