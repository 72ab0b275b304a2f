// The key that a page's address carries: who has it may drive the phone, nobody else.
#pragma once

#include <string>
#include <string_view>

namespace simulator::serve {

// 128 bits of the system's randomness, as 32 hexadecimal digits. Throws std::runtime_error when the system
// has none to give.
std::string makeKey();

// Takes as long whichever character differs, so that no key is found one character at a time.
bool isKey(std::string_view offered, std::string_view key);

}  // namespace simulator::serve
