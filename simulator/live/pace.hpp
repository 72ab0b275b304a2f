// How the phone's clock follows the real one: as fast, ten times slower, or not at all until it is let
// step. What was missed in a long pause of the program is not made up for.
#pragma once

#include <chrono>

namespace simulator::live {

class Pace {
  public:
    using Moment = std::chrono::steady_clock::time_point;

    explicit Pace(Moment now = std::chrono::steady_clock::now()) : before_(now) {}

    bool isSlow() const { return slow_; }
    bool isPaused() const { return paused_; }
    void setSlow(bool slow) { slow_ = slow; }
    void setPaused(bool paused) { paused_ = paused; }
    // One frame on, which pauses.
    void step();

    // How often the phone is to be given frameTime() since the last call.
    int frames(Moment now = std::chrono::steady_clock::now());
    // Seconds of the phone's time in a frame of the display.
    double frameTime() const;
    // Seconds of real time until the next frame is due.
    double rest() const;

  private:
    Moment before_;
    double behind_ = 0;  // seconds of real time for which the phone's clock has not moved yet
    int steps_ = 0;
    bool slow_ = false;
    bool paused_ = false;
};

}  // namespace simulator::live
