// The panes that packages add to the Settings application: property lists on the phone, from which the
// system makes a list of cells. What a cell changes is written to the file of its domain, and its
// notification is posted.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace simulator {

struct PaneCell {
    enum class Kind { group, toggle, choice, other };
    Kind kind = Kind::other;
    std::string label = {};
    std::string footer = {};  // below a group
    std::string key = {};
    nlohmann::json standard = {};  // the value where the file has none
    std::string domain = {};
    std::string notification = {};
    std::vector<nlohmann::json> values = {};  // of a choice, each with its title
    std::vector<std::string> titles = {};
};

struct SettingsPane {
    std::string entry;  // its row in the Settings application
    std::string title;
    std::vector<PaneCell> cells;
};

// In the order of their files; what is no pane is left out.
std::vector<SettingsPane> settingsPanes();

nlohmann::json valueOf(const PaneCell& cell);
void setValue(const PaneCell& cell, const nlohmann::json& value);

}  // namespace simulator
