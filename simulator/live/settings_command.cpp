#include "simulator/live/settings_command.hpp"

#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "simulator/foundation/device_root.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/foundation/property_list.hpp"
#include "simulator/live/darwin_socket.hpp"
#include "simulator/phone/launch.hpp"
#include "simulator/scenario/json_text.hpp"
#include "simulator/scenario/known_names.hpp"

namespace simulator::live {

namespace {

using platform::NSString;
using platform::Object;

constexpr const char* settingsDomain = "com.ferolin.vantoripb";
constexpr const char* settingsChanged = "VantoriPB/reloadSettings";

void enter(const std::filesystem::path& root) {
    if (!std::filesystem::is_directory(root))
        throw std::runtime_error("there is no phone's file system in " + root.string());
    DeviceRoot::shared().set(root);
    prepareProcess();
}

nlohmann::json parsed(const std::string& text) {
    return scenario::jsonOrError(text, "the value is no JSON");
}

void write(const std::string& key, const std::optional<nlohmann::json>& value) {
    platform::AutoreleasePool pool;
    if (key.empty()) throw std::runtime_error("a setting's key is not empty");
    try {
        writePreference(settingsDomain, key, value);
    } catch (const std::invalid_argument& error) {
        throw std::runtime_error(key + ": " + error.what());
    }
}

void announce(const std::filesystem::path& root, std::ostream& output) {
    if (!sendDarwin(root, settingsChanged))
        output << "no phone runs in " << root.string() << ": only the file was written\n";
}

}  // namespace

void setSetting(const std::filesystem::path& root, const std::string& key, const std::string& json,
                std::ostream& output) {
    const nlohmann::json value = parsed(json);
    enter(root);
    if (const auto mistake = mistakeInSetting(key))
        output << *mistake << "; it is written all the same\n";
    write(key, value);
    announce(root, output);
}

void unsetSetting(const std::filesystem::path& root, const std::string& key, std::ostream& output) {
    enter(root);
    write(key, std::nullopt);
    announce(root, output);
}

void getSettings(const std::filesystem::path& root, const std::optional<std::string>& key,
                 std::ostream& output) {
    enter(root);
    platform::AutoreleasePool pool;
    const nlohmann::json all = readPreferences(settingsDomain);
    if (!key) {
        for (const auto& [name, value] : all.items()) output << name << ' ' << value << '\n';
        return;
    }
    if (!all.contains(*key)) throw std::runtime_error("no such setting: " + *key);
    output << all.at(*key) << '\n';
}

}  // namespace simulator::live
