// A phone that someone looks at: set up from the command line, switched on, listening for the
// notifications of other processes, with a console beside it.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "simulator/live/console_input.hpp"
#include "simulator/live/darwin_socket.hpp"
#include "simulator/scenario/console.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/scenario/runner.hpp"

namespace simulator::live {

struct LiveOptions {
    std::string device;                 // its own default when empty
    std::string system;                 // likewise
    std::vector<std::string> settings;  // KEY=JSON
    std::filesystem::path root;         // see PhoneOptions
    bool real = false;                  // likewise
    std::filesystem::path pictures;
    std::filesystem::path recording;  // a scenario of all that is done; none when empty
};

// Throws std::runtime_error when the text is no KEY=JSON.
std::pair<std::string, nlohmann::json> parseSetting(const std::string& text);
// What is wrong with such a text, if anything.
std::optional<std::string> mistakeInSettingText(const std::string& text);
// The settings of a command line; a key that nothing reads is told of.
scenario::Settings parsedSettings(const std::vector<std::string>& texts, std::ostream& warnings);

class LivePhone {
  public:
    // Throws std::runtime_error for options that do not hold. The phone is off.
    LivePhone(const LiveOptions& options, bool prompt, std::ostream& output);

    // What is done through it can be recorded.
    Phone& phone() { return console_.phone(); }
    scenario::Console& console() { return console_; }
    LineEditor::Completer completer();
    const DarwinListener& listener() const { return listener_; }

    // Posts what other processes have sent since the last time. They are lost on a phone that is
    // still off.
    void hearNotifications();

  private:
    void takeFiles();
    void takeSettings();

    std::unique_ptr<Phone> phone_;
    DarwinListener listener_;
    scenario::Console console_;
    std::string settings_;  // the bytes of the settings file as they were last taken
};

// Carries out every whole line that is there. False when one says `quit`, or at the end.
bool takeLines(ConsoleInput& input, scenario::Console& console);

// The console on standard input: statements in phone time, notifications as they come. The status
// of the console.
int runLiveConsole(const LiveOptions& options, std::ostream& output);

}  // namespace simulator::live
