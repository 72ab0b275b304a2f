#include "simulator/live/live_phone.hpp"

#include <unistd.h>
#include <nlohmann/json.hpp>

#include <stdexcept>

#include "simulator/foundation/device_root.hpp"

namespace simulator::live {

namespace {

std::unique_ptr<Phone> setUp(const LiveOptions& options) {
    std::unique_ptr<Phone> phone = makePhone({options.root, options.real});
    if (!options.device.empty()) phone->device(options.device);
    if (!options.system.empty()) phone->system(options.system);
    for (const std::string& text : options.settings) {
        const auto [key, value] = parseSetting(text);
        phone->setting(key, value);
    }
    return phone;
}

// Carries out every whole line that is there. False when one says `quit`.
bool takeLines(LineReader& input, scenario::Console& console) {
    while (const std::optional<std::string> text = input.line()) {
        if (!console.take(*text)) return false;
        if (!input.atEnd()) console.prompt();
    }
    return !input.atEnd();
}

}  // namespace

std::pair<std::string, nlohmann::json> parseSetting(const std::string& text) {
    const std::size_t sign = text.find('=');
    if (sign == std::string::npos || sign == 0)
        throw std::runtime_error("a setting is KEY=JSON, not " + text);
    try {
        return {text.substr(0, sign), nlohmann::json::parse(text.substr(sign + 1))};
    } catch (const nlohmann::json::exception& error) {
        throw std::runtime_error("the setting " + text + " has no JSON value: " + error.what());
    }
}

LivePhone::LivePhone(const LiveOptions& options, bool prompt, std::ostream& output)
    : phone_(setUp(options)),
      listener_(DeviceRoot::shared().path()),
      console_(*phone_, {options.pictures, prompt}, output) {
    if (prompt)
        output << "The phone's files are in " << DeviceRoot::shared().path().string() << '\n';
}

void LivePhone::hearNotifications() {
    for (const std::string& name : listener_.take()) {
        try {
            phone_->postDarwin(name);
            phone_->wait(0);
        } catch (const PhoneError&) {
            return;  // it is off
        }
    }
}

int runLiveConsole(const LiveOptions& options, std::ostream& output) {
    LivePhone live(options, isatty(STDIN_FILENO) != 0, output);
    LineReader input(STDIN_FILENO);
    live.console().greet();
    live.console().prompt();
    do {
        const Readable ready = waitForInput(STDIN_FILENO, live.listener().descriptor(), -1);
        if (ready.second) live.hearNotifications();
        if (ready.first) input.read();
    } while (takeLines(input, live.console()));
    return live.console().status();
}

}  // namespace simulator::live
