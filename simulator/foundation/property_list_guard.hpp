// Whether a property list may be handed to GNUstep's reader, which recurses without a limit and
// keeps a typed number on the stack: no more than 1 MiB, no deeper than 200 levels. All three
// formats are looked at: XML, binary, and the old text lists.
#pragma once

#include <string_view>

namespace simulator {

bool isHarmlessPropertyList(std::string_view bytes);

}  // namespace simulator
