// The settings pane for a page: the cells in order, each with the value that holds.
#pragma once

#include <nlohmann/json.hpp>

namespace simulator::serve {

nlohmann::json settingsList();

}  // namespace simulator::serve
