// A hand that does to a phone whatever the scenario language has words for, from a seed. What it does is
// written down as lines before any phone is there: running them is the scenarios' own execution, and
// leaving some out is how a failure is made small.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/restless/random.hpp"

namespace simulator::restless {

struct Event {
    std::string line;
    std::string_view kind;  // a habit's name, or one of those below
    int gesture = 0;        // the lines of one gesture share a number; 0 for a line by itself
    bool isMove = false;    // between a gesture's beginning and its end
};

inline constexpr std::string_view setUp = "setting up";  // up to boot, and the names that are given
inline constexpr std::string_view rest = "rest";         // until nothing moves, and the check
inline constexpr std::string_view proof = "proof";       // that the toolbar can still be opened

// Whether it counts as something that was done to the phone.
inline bool isDone(const Event& event) {
    return event.kind != setUp && event.kind != rest && event.kind != proof;
}

// One phone's life: how it is set up, and how much is done to it. What is empty is drawn from the seed.
struct LifeOptions {
    std::uint64_t seed = 0;
    int events = 0;
    std::string device = {};
    std::string system = {};
    bool real = false;  // always; else now and then
};

// Ends with a proof and a rest. `events` of the lines count as done.
std::vector<Event> life(const LifeOptions& options);

// The names of all habits, in the order of their table.
std::vector<std::string_view> habitNames();

// What habits write with.
class Hand {
  public:
    Hand(std::uint64_t seed, double width, double height)
        : random(seed), width_(width), height_(height) {}

    Random random;

    void write(std::string_view kind, std::string line);
    // Something that takes several lines, with others between them.
    struct Gesture {
        std::string_view kind;
        std::vector<std::string> moves;
        std::string end;
    };
    void begin(std::string line, Gesture gesture);
    bool isBusy() const { return !gesture_.end.empty(); }
    void goOn();    // with the gesture
    void finish();  // it, at once
    void comeToRest();
    // From wherever the phone is: brings it home, as it was bought, and pulls.
    void showThatItOpens();

    // In points of the interface as it is held.
    double width() const { return isTurned_ ? height_ : width_; }
    double height() const { return isTurned_ ? width_ : height_; }
    void turned(bool onItsSide) { isTurned_ = onItsSide; }

    int done() const { return done_; }
    std::vector<Event> takeEvents() { return std::move(events_); }

  private:
    std::vector<Event> events_;
    Gesture gesture_;
    std::size_t nextMove_ = 0;
    int gestures_ = 0;
    int done_ = 0;
    double width_;
    double height_;
    bool isTurned_ = false;
};

struct Habit {
    std::string_view name;
    int weight;
    void (*act)(Hand& hand);
    bool isGesture = false;  // not while another one is under way
};

}  // namespace simulator::restless
