// A scenario carried out in real time: its statements come one after the other, and none before as much of
// the phone's time has passed as its waits have let pass.
#pragma once

#include <deque>
#include <optional>
#include <string>

namespace simulator::serve {

class Replay {
  public:
    explicit Replay(const std::string& scenario);

    // The statements up to `boot`, without it.
    std::optional<std::string> beforeBoot();

    // So many seconds more may pass.
    void allow(double seconds) { allowed_ += seconds; }
    // The next statement, when the phone's time has not got ahead of what is allowed. `wait S times N` comes
    // as N waits, which is the same.
    std::optional<std::string> next(double now);
    bool isOver() const { return lines_.empty(); }

  private:
    struct Line {
        std::string text;
        long times = 1;
    };
    std::deque<Line> lines_;
    double allowed_ = 0;
    std::optional<double> begun_;  // on the phone's clock
};

}  // namespace simulator::serve
