#include "simulator/runtime/clock.hpp"

#include <algorithm>

#include "platform/ownership.hpp"
#include "simulator/runtime/date.hpp"

namespace simulator {

Clock::Clock() : switchedOn_(firstDate) {}

Clock& Clock::shared() {
    // Never destroyed: what is still scheduled when the process ends needs a phone to go in peace.
    static Clock& clock = *new Clock;
    return clock;
}

Clock::Ticket Clock::at(double time, Work work) {
    Ticket ticket = nextTicket_++;
    double due = std::max(time, now_);
    due_.emplace(std::pair(due, ticket), std::move(work));
    times_.emplace(ticket, due);
    return ticket;
}

void Clock::withdraw(Ticket ticket) {
    auto found = times_.find(ticket);
    if (found == times_.end()) return;
    due_.erase({found->second, ticket});
    times_.erase(found);
}

void Clock::post(Work work) { posted_.push_back(std::move(work)); }

void Clock::everyFrame(Work work) { frames_.push_back(std::move(work)); }

void Clock::advance(double seconds) {
    const double end = now_ + std::max(seconds, 0.0);
    turn();
    // A step shorter than a millionth of a frame is the rounding of the steps before it.
    while (end - now_ > frame * 1e-6) {
        now_ = std::min(now_ + frame, end);
        turn();
    }
    now_ = end;
}

void Clock::turn() {
    platform::AutoreleasePool pool;
    runDue();
    runPosted();
    runFrame();
}

void Clock::runDue() {
    while (!due_.empty() && due_.begin()->first.first <= now_) {
        auto first = due_.begin();
        Work work = std::move(first->second);
        times_.erase(first->first.second);
        due_.erase(first);
        work();
    }
}

void Clock::runPosted() {
    if (draining_) return;
    draining_ = true;
    struct Ending {
        bool& flag;
        ~Ending() { flag = false; }
    } ending{draining_};
    // What the work itself posts waits for the next turn.
    std::vector<Work> batch = std::exchange(posted_, {});
    for (Work& work : batch) work();
}

void Clock::runFrame() {
    for (std::size_t i = 0; i < frames_.size(); ++i) frames_[i]();
}

}  // namespace simulator
