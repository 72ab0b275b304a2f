#include "simulator/restless/hand.hpp"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "simulator/hardware/device_table.hpp"
#include "simulator/restless/habits.hpp"
#include "simulator/restless/words.hpp"

namespace simulator::restless {

namespace {

// Seconds in which every spring, fling and page that a hand can set off has come to rest.
constexpr std::string_view settling = "wait 2";
constexpr std::string_view stray = "grabber updated 60 200 0";
constexpr std::string_view check = "expect nothing wrong";

constexpr int restPercent = 12;    // of the chances between two things
constexpr int strayPercent = 25;   // of the rests
constexpr int proofPercent = 4;    // likewise
constexpr int goOnPercent = 70;    // of a gesture that is under way
constexpr int welcomePercent = 5;  // of the phones that show it

constexpr std::string_view systems[]{"11.4", "12.4", "13.3", "13.6", "14.2", "14.8"};

std::vector<std::string> introductions(Random& random, const LifeOptions& options,
                                       std::string_view device) {
    std::vector<std::string> lines;
    lines.push_back("device " + std::string(device));
    lines.push_back("system " +
                    (options.system.empty() ? std::string(random.oneOf(systems)) : options.system));
    if (options.real || random.chance(50)) lines.emplace_back("real");
    if (!random.chance(welcomePercent))
        lines.emplace_back(
            "plist /var/mobile/Library/Preferences/com.ferolin.VantoriHistoryVersion.plist "
            "[\"1.2.1\"]");
    for (int count = static_cast<int>(random.below(6)); count > 0; --count)
        lines.push_back(soundSetting(random));
    // All zones, so that most pulls are taken.
    for (const char* zone : {"left", "middle", "right"}) {
        if (random.chance(70))
            lines.push_back(std::string("setting ") + zone + "GestureEnabled true");
    }
    if (random.chance(60)) lines.emplace_back("setting alwaysSpringBoardStyle false");
    if (random.chance(40)) lines.emplace_back("setting replaceCC true");
    if (random.chance(30)) lines.emplace_back("setting reachability true");
    if (random.chance(30)) lines.push_back("dock " + std::to_string(random.below(7)));
    if (random.chance(30)) lines.push_back("recents " + someBundles(random));
    if (random.chance(10)) lines.push_back("connectivity-fails 2");
    if (random.chance(10)) lines.push_back("scene-after com.example.notes 3");
    lines.emplace_back("boot");
    lines.emplace_back("let front = [VNTSBToolBarController sharedInstance]");
    lines.emplace_back("let behind = [VNTToolBarController sharedInstance]");
    return lines;
}

const Habit& drawn(Hand& hand) {
    const auto may = [&](const Habit& habit) { return !(habit.isGesture && hand.isBusy()); };
    int total = 0;
    for (const Habit& habit : habits()) total += may(habit) ? habit.weight : 0;
    int left = static_cast<int>(hand.random.below(static_cast<std::size_t>(total)));
    for (const Habit& habit : habits()) {
        if (!may(habit)) continue;
        left -= habit.weight;
        if (left < 0) return habit;
    }
    return habits().front();
}

const DeviceModel& modelOf(Random& random, const std::string& device) {
    const DeviceModel* named = device.empty() ? nullptr : findDevice(device);
    return named ? *named : random.oneOf(deviceModels());
}

}  // namespace

void Hand::write(std::string_view kind, std::string line) {
    events_.push_back({.line = std::move(line), .kind = kind});
    if (isDone(events_.back())) ++done_;
}

void Hand::begin(std::string line, Gesture gesture) {
    write(gesture.kind, std::move(line));
    events_.back().gesture = ++gestures_;
    gesture_ = std::move(gesture);
    nextMove_ = 0;
}

void Hand::goOn() {
    const bool ends = nextMove_ == gesture_.moves.size();
    write(gesture_.kind, ends ? gesture_.end : gesture_.moves[nextMove_++]);
    events_.back().gesture = gestures_;
    events_.back().isMove = !ends;
    if (ends) gesture_ = {};
}

void Hand::finish() {
    while (isBusy()) goOn();
}

void Hand::comeToRest() {
    finish();
    write(rest, std::string(settling));
    // Whoever believed that a pull were still on its way would now follow it.
    if (random.chance(strayPercent)) write(rest, std::string(stray));
    write(rest, std::string(check));
}

// The lines of a proof go or stay together. What may lie in the way is an open toolbar, which the pull would
// only close: each is sent away as a finger would.
void Hand::showThatItOpens() {
    static constexpr std::string_view lines[]{"unlock",
                                              "toggle orientationlock off",
                                              "rotate portrait",
                                              "home",
                                              "setting leftGestureEnabled true",
                                              "darwin \"VantoriPB/reloadSettings\"",
                                              settling,
                                              "do [behind handleDismissGesture: nil]",
                                              "do [front dismissVNTSB]",
                                              settling,
                                              "pull 20 300 over 0.3",
                                              settling,
                                              "expect [front isEnabled] == YES"};
    ++gestures_;
    for (const std::string_view line : lines) {
        write(proof, std::string(line));
        events_.back().gesture = gestures_;
    }
    turned(false);
    write(rest, std::string(check));
}

std::vector<Event> life(const LifeOptions& options) {
    Random first(options.seed);
    const DeviceModel& model = modelOf(first, options.device);
    Hand hand(first.next(), model.width, model.height);
    for (std::string& line : introductions(first, options, model.identifier))
        hand.write(setUp, std::move(line));
    while (hand.done() < options.events) {
        if (hand.isBusy() && hand.random.chance(goOnPercent))
            hand.goOn();
        else
            drawn(hand).act(hand);
        if (hand.isBusy() || !hand.random.chance(restPercent)) continue;
        hand.comeToRest();
        if (hand.random.chance(proofPercent)) hand.showThatItOpens();
    }
    hand.comeToRest();
    hand.showThatItOpens();
    return hand.takeEvents();
}

std::vector<std::string_view> habitNames() {
    std::vector<std::string_view> names;
    for (const Habit& habit : habits()) names.push_back(habit.name);
    return names;
}

}  // namespace simulator::restless
