#include "simulator/serve/settings_list.hpp"

#include "simulator/services/settings_pane.hpp"

namespace simulator::serve {

namespace {

using nlohmann::json;

const char* nameOf(PaneCell::Kind kind) {
    switch (kind) {
        case PaneCell::Kind::group:
            return "group";
        case PaneCell::Kind::toggle:
            return "switch";
        case PaneCell::Kind::choice:
            return "choice";
        default:
            return "other";
    }
}

json entryOf(const PaneCell& cell) {
    json entry{{"kind", nameOf(cell.kind)}, {"label", cell.label}};
    if (!cell.footer.empty()) entry["footer"] = cell.footer;
    if (cell.key.empty()) return entry;
    entry["key"] = cell.key;
    entry["value"] = valueOf(cell);
    entry["values"] = cell.values;
    entry["titles"] = cell.titles;
    entry["notification"] = cell.notification;
    return entry;
}

}  // namespace

json settingsList() {
    json cells = json::array();
    for (const SettingsPane& pane : settingsPanes())
        for (const PaneCell& cell : pane.cells) cells.push_back(entryOf(cell));
    return cells;
}

}  // namespace simulator::serve
