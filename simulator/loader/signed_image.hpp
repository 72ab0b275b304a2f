// The one library of this process whose pointers are signed, if there is one: what it hands to the
// phone is authenticated, what it is handed is signed.
#pragma once

#include <cstdint>
#include <span>

namespace simulator::loader {

// Before the library's pointers are filled in.
void setSignedImage(std::span<const std::byte> memory);
bool hasSignedImage();
// Whether that place is in the library.
bool isInSignedImage(const void* place);

}  // namespace simulator::loader
