// Whole lines from the terminal as they come, without waiting for them; and the console that takes
// them between the frames of a phone that runs by itself.
#pragma once

#include <optional>
#include <string>

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

// Waits until there is something to read on one of the descriptors, at most so many milliseconds
// (-1: as long as it takes). Which of the two has something; a descriptor of -1 never has.
struct Readable {
    bool first = false;
    bool second = false;
};
Readable waitForInput(int first, int second, int milliseconds);

}  // namespace simulator::live
