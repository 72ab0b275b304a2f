// What a library for a phone finds under the names of system functions. Most are those of this
// process under the same name. Replaced are those whose calling convention or structures differ on
// arm64 iOS, those that GCC's object runtime lacks, and those that can tell mistakes which would
// only show on a phone: messages with variable arguments, and methods with a wrong encoding.
#pragma once

#include <string_view>

namespace simulator::loader {

// The address for a name without the underscore of C; null when there is none.
const void* systemSymbol(std::string_view name);
// The same as a library finds it whose pointers are not signed.
const void* plainSymbol(std::string_view name);

}  // namespace simulator::loader
