// The console: the statements of a scenario read and carried out one at a time.
#pragma once

#include <filesystem>
#include <functional>
#include <istream>
#include <ostream>
#include <string>

#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/scenario/session.hpp"

namespace simulator::scenario {

struct ConsoleOptions {
    std::filesystem::path pictures;
    bool prompt = true;  // off when no one is there to see it
};

// Takes lines as they come; where they come from is the caller's business.
class Console {
  public:
    Console(Phone& phone, const ConsoleOptions& options, std::ostream& output);

    void greet();
    void prompt();
    // False when the line says `quit`.
    bool take(const std::string& text);
    RecordingPhone& phone() { return session_.phone(); }
    // What may come next in a line that someone types.
    std::vector<std::string> complete(const std::string& before, const std::string& word) const;
    // Where to what happens by itself is told; the output when nowhere else.
    void tellBy(std::function<void(const std::string&)> tell) { tell_ = std::move(tell); }
    // 1 when a statement failed or was malformed, else 0.
    int status() const;

  private:
    ConsoleOptions options_;
    std::ostream& output_;
    Session session_;
    Parser parser_;
    int lines_ = 0;
    bool malformed_ = false;
    std::function<void(const std::string&)> tell_;
};

// Reads until `quit` or the end of the input; the console's status.
int runConsole(Phone& phone, const ConsoleOptions& options, std::istream& input,
               std::ostream& output);

}  // namespace simulator::scenario
