// Whole lines from standard input as they come, without waiting for them: from a terminal edited,
// from a pipe as they are.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "simulator/live/line_editor.hpp"

namespace simulator::live {

class LineReader {
  public:
    explicit LineReader(int descriptor) : descriptor_(descriptor) {}

    // The next whole line, without its end; the rest of the input counts as one at its end.
    std::optional<std::string> line();
    // Reads what is there. Waits for nothing only when poll() said that there is something.
    void read();
    bool atEnd() const { return ended_ && pending_.empty(); }
    int descriptor() const { return descriptor_; }

  private:
    int descriptor_;
    std::string pending_;
    bool ended_ = false;
};

// The lines of whoever talks to the console.
class ConsoleInput {
  public:
    // With an editor when it is a terminal.
    explicit ConsoleInput(LineEditor::Completer completer);

    bool isTerminal() const { return editor_ != nullptr; }
    void prompt();
    void read();
    std::optional<std::string> line();
    bool atEnd() const;
    int descriptor() const { return lines_.descriptor(); }
    // A line of output that comes by itself, maybe while someone types.
    void tell(const std::string& text);

  private:
    LineReader lines_;
    std::unique_ptr<LineEditor> editor_;
};

// Waits until there is something to read on one of the descriptors, at most so many milliseconds
// (-1: as long as it takes). Which of the two has something; a descriptor of -1 never has.
struct Readable {
    bool first = false;
    bool second = false;
};
Readable waitForInput(int first, int second, int milliseconds);

}  // namespace simulator::live
