#include "simulator/live/live_phone.hpp"

#include <unistd.h>
#include <nlohmann/json.hpp>

#include <stdexcept>

#include "simulator/foundation/device_root.hpp"
#include "simulator/scenario/json_text.hpp"
#include "simulator/scenario/known_names.hpp"
#include "simulator/scenario/parser.hpp"

namespace simulator::live {

namespace {

constexpr const char* settingsFile = "/var/mobile/Library/Preferences/com.ferolin.vantoripb.plist";

void setUp(Phone& phone, const LiveOptions& options) {
    if (options.real) phone.real();
    if (!options.device.empty()) phone.device(options.device);
    if (!options.system.empty()) phone.system(options.system);
    for (const std::string& text : options.settings) {
        const auto [key, value] = parseSetting(text);
        phone.setting(key, value);
    }
}

}  // namespace

std::pair<std::string, nlohmann::json> parseSetting(const std::string& text) {
    const std::size_t sign = text.find('=');
    if (sign == std::string::npos || sign == 0)
        throw std::runtime_error("a setting is KEY=JSON, not " + text);
    const std::string key = text.substr(0, sign);
    return {key, scenario::jsonOrError(text.substr(sign + 1), key + " has no JSON value")};
}

std::optional<std::string> mistakeInSettingText(const std::string& text) {
    try {
        parseSetting(text);
        return std::nullopt;
    } catch (const std::exception& error) {
        return error.what();
    }
}

scenario::Settings parsedSettings(const std::vector<std::string>& texts, std::ostream& warnings) {
    scenario::Settings settings;
    for (const std::string& text : texts) {
        auto [key, value] = parseSetting(text);
        if (const auto mistake = mistakeInSetting(key))
            warnings << "vantori-simulator: " << *mistake << "; it is written all the same\n";
        settings.emplace_back(std::move(key),
                              std::make_shared<const nlohmann::json>(std::move(value)));
    }
    return settings;
}

LivePhone::LivePhone(const LiveOptions& options, bool prompt, std::ostream& output)
    : phone_(makePhone({options.root})),
      listener_(DeviceRoot::shared().path()),
      console_(*phone_, {options.pictures, prompt}, output) {
    if (!options.recording.empty()) console_.phone().start(options.recording);
    // What the phone keeps from earlier times belongs to a recording.
    if (!options.root.empty()) takeFiles();
    setUp(phone(), options);
    if (prompt)
        output << "The phone's files are in " << DeviceRoot::shared().path().string() << '\n';
}

void LivePhone::takeFiles() {
    const std::filesystem::path& root = DeviceRoot::shared().path();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file()) continue;
        const std::string path = "/" + entry.path().lexically_relative(root).string();
        if (path.starts_with("/Library/")) continue;  // the package's, which every start brings
        console_.phone().found(path, scenario::readFile(entry.path()));
    }
}

// Other processes write the settings before they tell of it.
void LivePhone::takeSettings() {
    const std::filesystem::path file = DeviceRoot::shared().locate(settingsFile);
    std::string bytes = std::filesystem::exists(file) ? scenario::readFile(file) : "";
    if (bytes.empty() || bytes == settings_) return;
    console_.phone().found(settingsFile, bytes);
    settings_ = std::move(bytes);
}

void LivePhone::hearNotifications() {
    for (const std::string& name : listener_.take()) {
        takeSettings();
        try {
            phone().postDarwin(name);
            phone().wait(0);
        } catch (const PhoneError&) {
            return;  // it is off
        }
    }
}

int runLiveConsole(const LiveOptions& options, std::ostream& output) {
    LivePhone live(options, isatty(STDIN_FILENO) != 0, output);
    ConsoleInput input(live.completer());
    live.console().tellBy([&input](const std::string& text) { input.tell(text); });
    live.console().greet();
    input.prompt();
    for (;;) {
        const Readable ready = waitForInput(input.descriptor(), live.listener().descriptor(), -1);
        if (ready.second) live.hearNotifications();
        if (ready.first) input.read();
        if (!takeLines(input, live.console())) return live.console().status();
    }
}

bool takeLines(ConsoleInput& input, scenario::Console& console) {
    while (const std::optional<std::string> text = input.line()) {
        if (!console.take(*text)) return false;
        input.prompt();
    }
    return !input.atEnd();
}

LineEditor::Completer LivePhone::completer() {
    return [this](const std::string& before, const std::string& word) {
        return console_.complete(before, word);
    };
}

}  // namespace simulator::live
