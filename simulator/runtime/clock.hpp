// The phone's time, in seconds since it was switched on. It moves only when told to; animations,
// timers, the main queue and finger moves all run on it, in steps of the display's rate (60 Hz). So does
// the date, which starts where it is set.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace simulator {

class Clock {
  public:
    using Work = std::function<void()>;
    using Ticket = std::uint64_t;
    static constexpr double frame = 1.0 / 60;

    Clock();
    static Clock& shared();

    double now() const { return now_; }

    // Seconds since the first of January 1970.
    double date() const { return switchedOn_ + now_; }
    void setDate(double date) { switchedOn_ = date - now_; }

    // Work for that time (or at once in the next turn when it is past), in order of time, then of
    // asking. The ticket withdraws it; a ticket that has run is ignored.
    Ticket at(double time, Work work);
    Ticket after(double seconds, Work work) { return at(now_ + seconds, std::move(work)); }
    void withdraw(Ticket ticket);

    // How much work waits for its time.
    long waiting() const { return static_cast<long>(due_.size()); }

    // Work for the next turn of the main run loop: first in, first out, never re-entered.
    void post(Work work);

    // Work after every step of the display (animations, momentum, layout). Kept for ever.
    void everyFrame(Work work);

    // Lets that many seconds pass. Each step runs what is due, the main queue, then the frame.
    void advance(double seconds);

    // One turn of the run loop without time: what is due and posted, then the frame's work.
    void turn();

  private:
    void runDue();
    void runPosted();
    void runFrame();

    double now_ = 0;
    double switchedOn_;  // when, as the first date says or as it was set
    Ticket nextTicket_ = 1;
    std::map<std::pair<double, Ticket>, Work> due_;
    std::map<Ticket, double> times_;
    std::vector<Work> posted_;
    std::vector<Work> frames_;
    bool draining_ = false;
};

}  // namespace simulator
