// Property lists in the old text form, { key = value; } and ( value, value ), which libplist does not
// read. Every value is a string, data in <hexadecimal digits>, a list or a dictionary.
#pragma once

#include <string_view>

#include "platform/foundation.hpp"

namespace simulator {

// The root object (autoreleased); empty when the text is no such list, or deeper than that.
platform::Object readTextList(std::string_view text, int deepest);

}  // namespace simulator
