// Lines that someone types at a terminal: edited, remembered from one time to the next, completed. They
// come key by key between other work, as those of a pipe do.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace simulator::live {

// There is one terminal, so there is one editor at a time.
class LineEditor {
  public:
    using Completer =
        std::function<std::vector<std::string>(const std::string& before, const std::string& word)>;

    // What was typed is kept in the history's file; not at all when that is empty.
    LineEditor(Completer completer, std::filesystem::path history);
    ~LineEditor();
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;

    // Shows the prompt; from here on keys make up the next line.
    void prompt();
    // Takes one key. Waits for nothing only when poll() said that there is one.
    void read();
    std::optional<std::string> line();
    bool atEnd() const { return ended_; }
    // Writes something while a line is being typed: above it.
    void tell(const std::string& text);

  private:
    static void take(char* text);
    static char** complete(const char* text, int start, int end);
    static char* candidate(const char* text, int state);

    static LineEditor* current_;
    Completer completer_;
    std::filesystem::path history_;
    std::optional<std::string> line_;
    std::vector<std::string> candidates_;
    bool typing_ = false;
    bool ended_ = false;
};

// Where the console's history is kept: the user's folder for the state of programs, or none.
std::filesystem::path historyFile();

}  // namespace simulator::live
