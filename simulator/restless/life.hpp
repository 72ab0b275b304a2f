// Running lines on a fresh phone, in a process of its own, so that one that dies is told of by one that
// lives.
#pragma once

#include <sys/types.h>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "simulator/restless/hand.hpp"
#include "simulator/scenario/runner.hpp"

namespace simulator {
class BlackBox;
}

namespace simulator::restless {

// What went wrong first: at which of the lines (counted from 0), and what. `sign` is the same for the
// same fault at other places and with other numbers.
struct Finding {
    std::size_t line = 0;
    std::string what;
    std::string sign;
};

struct Outcome {
    long openings = 0;    // of either toolbar
    long behind = 0;      // of those, of the one behind applications
    long rests = 0;       // at which everything was checked
    long proofs = 0;      // that a pull still opens
    long refused = 0;     // lines that the phone could not carry out, and stayed as it was
    std::size_t run = 0;  // lines, the last one the finding's if there is one
    std::optional<Finding> finding;
};

class Life {
  public:
    // Starts at once. What the phone's process writes by itself goes on to where this one's does, unless
    // it is to be quiet. Throws std::runtime_error when there is no process.
    Life(const std::vector<Event>& events, const scenario::PhoneMaker& makePhone, bool quiet);
    ~Life();
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;

    // Waits for its end.
    Outcome outcome();

  private:
    Outcome buried(int status) const;

    const std::vector<Event>& events_;
    BlackBox* box_ = nullptr;
    pid_t process_ = -1;
    int voice_ = -1;
};

}  // namespace simulator::restless
