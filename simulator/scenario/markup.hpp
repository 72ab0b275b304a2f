// Text inside HTML and XML, between tags or in an attribute.
#pragma once

#include <string>
#include <string_view>

namespace simulator::scenario {

// What XML cannot hold at all is left out.
std::string escaped(std::string_view text);

}  // namespace simulator::scenario
