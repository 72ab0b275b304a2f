#include "simulator/services/settings_pane.hpp"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>

#include "simulator/foundation/device_root.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/foundation/property_list.hpp"
#include "simulator/runtime/darwin.hpp"

namespace simulator {

namespace {

using nlohmann::json;

constexpr const char* folder = "/Library/PreferenceLoader/Preferences";

struct CellKind {
    std::string_view name;
    PaneCell::Kind kind;
};
constexpr std::array<CellKind, 3> cellKinds{{
    {"PSGroupCell", PaneCell::Kind::group},
    {"PSSwitchCell", PaneCell::Kind::toggle},
    {"PSSegmentCell", PaneCell::Kind::choice},
}};

std::string text(const json& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? found->get<std::string>() : "";
}

PaneCell cellOf(const json& item) {
    PaneCell cell;
    const std::string name = text(item, "cell");
    for (const CellKind& each : cellKinds)
        if (each.name == name) cell.kind = each.kind;
    cell.label = text(item, "label");
    cell.footer = text(item, "footerText");
    cell.key = text(item, "key");
    cell.standard = item.value("default", json());
    cell.domain = text(item, "defaults");
    cell.notification = text(item, "PostNotification");
    for (const json& value : item.value("validValues", json::array())) cell.values.push_back(value);
    for (const json& title : item.value("validTitles", json::array()))
        cell.titles.push_back(title.is_string() ? title.get<std::string>() : title.dump());
    cell.titles.resize(cell.values.size());
    return cell;
}

std::optional<SettingsPane> paneOf(const json& list) {
    if (!list.is_object() || !list.contains("entry") || !list.contains("items") ||
        !list["items"].is_array())
        return std::nullopt;
    SettingsPane pane{text(list["entry"], "label"), text(list, "title"), {}};
    for (const json& item : list["items"])
        if (item.is_object()) pane.cells.push_back(cellOf(item));
    return pane;
}

}  // namespace

std::vector<SettingsPane> settingsPanes() {
    platform::AutoreleasePool pool;
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (const auto& entry :
         std::filesystem::directory_iterator(DeviceRoot::shared().locate(folder), error))
        if (entry.path().extension() == ".plist") files.push_back(entry.path());
    std::ranges::sort(files);
    std::vector<SettingsPane> panes;
    for (const auto& file : files) {
        const platform::Object root = decodePropertyList(readFile(file).value_or(""));
        if (!root) continue;
        if (auto pane = paneOf(propertyListJson(root))) panes.push_back(std::move(*pane));
    }
    return panes;
}

json valueOf(const PaneCell& cell) {
    platform::AutoreleasePool pool;
    return readPreferences(cell.domain).value(cell.key, cell.standard);
}

void setValue(const PaneCell& cell, const json& value) {
    platform::AutoreleasePool pool;
    writePreference(cell.domain, cell.key, value);
    if (!cell.notification.empty()) postDarwin(cell.notification);
}

}  // namespace simulator
