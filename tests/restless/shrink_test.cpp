// A failure is made as small as it can be: only what it needs stays, gestures stay whole, and the line at
// which it fails is the last.
#include "simulator/restless/shrink.hpp"

#include <gtest/gtest.h>

#include <set>

namespace simulator::restless {
namespace {

bool nothingKept(const Event&) { return false; }

std::vector<Event> numbered(int count) {
    std::vector<Event> events;
    for (int i = 0; i < count; ++i) events.push_back({.line = std::to_string(i), .kind = "x"});
    events.push_back({.line = "check", .kind = rest});
    return events;
}

std::vector<std::string> lines(const std::vector<Event>& events) {
    std::vector<std::string> text;
    for (const Event& event : events) text.push_back(event.line);
    return text;
}

// Fails while these lines are there, in whatever company.
Fails needing(std::set<std::string> needed, int* asked = nullptr) {
    return [needed, asked](const std::vector<Event>& events) {
        if (asked) ++*asked;
        std::set<std::string> missing = needed;
        for (const Event& event : events) missing.erase(event.line);
        return missing.empty() && events.back().line == "check";
    };
}

using Texts = std::vector<std::string>;

TEST(Shrink, LeavesOnlyWhatIsNeeded) {
    EXPECT_EQ(lines(shrunk(numbered(200), needing({"17", "18", "150"}), 1000, nothingKept)),
              (Texts{"17", "18", "150", "check"}));
    EXPECT_EQ(lines(shrunk(numbered(200), needing({}), 1000, nothingKept)), (Texts{"check"}));
    EXPECT_EQ(lines(shrunk(numbered(0), needing({}), 1000, nothingKept)), (Texts{"check"}));
}

TEST(Shrink, AsksFewTimes) {
    int asked = 0;
    (void)shrunk(numbered(1000), needing({"500"}, &asked), 1000, nothingKept);
    EXPECT_LT(asked, 60);
}

TEST(Shrink, StopsAfterSoManyTries) {
    int asked = 0;
    const auto events = shrunk(numbered(100), needing({"3", "77"}, &asked), 5, nothingKept);
    EXPECT_LE(asked, 5);
    EXPECT_TRUE(needing({"3", "77"})(events));
}

TEST(Shrink, KeepsWhatItIsTold) {
    const auto isKept = [](const Event& event) { return event.line == "2"; };
    EXPECT_EQ(lines(shrunk(numbered(9), needing({"5"}), 1000, isKept)), (Texts{"2", "5", "check"}));
}

TEST(Shrink, LeavesOutAWholeKindAtOnce) {
    std::vector<Event> events = numbered(40);
    for (int i = 0; i < 40; i += 2) events[static_cast<std::size_t>(i)].kind = "even";
    int asked = 0;
    EXPECT_EQ(lines(shrunk(events, needing({"1"}, &asked), 1000, nothingKept)),
              (Texts{"1", "check"}));
    EXPECT_LT(asked, 20);
}

// down, something else, move, move, up: what is in between may go, the beginning and the end not alone.
std::vector<Event> withAGesture() {
    return {{.line = "down", .kind = "touch", .gesture = 1},
            {.line = "other", .kind = "x"},
            {.line = "move 1", .kind = "touch", .gesture = 1, .isMove = true},
            {.line = "move 2", .kind = "touch", .gesture = 1, .isMove = true},
            {.line = "up", .kind = "touch", .gesture = 1},
            {.line = "check", .kind = rest}};
}

TEST(Shrink, KeepsAGestureWholeButForItsMoves) {
    EXPECT_EQ(lines(shrunk(withAGesture(), needing({"down"}), 1000, nothingKept)),
              (Texts{"down", "up", "check"}));
    EXPECT_EQ(lines(shrunk(withAGesture(), needing({"move 2"}), 1000, nothingKept)),
              (Texts{"down", "move 2", "up", "check"}));
    EXPECT_EQ(lines(shrunk(withAGesture(), needing({"other"}), 1000, nothingKept)),
              (Texts{"other", "check"}));
}

// What belongs to the line at which it fails stays with it.
TEST(Shrink, KeepsTheGestureThatFails) {
    std::vector<Event> events = withAGesture();
    events.push_back({.line = "pull", .kind = proof, .gesture = 2});
    events.push_back({.line = "check", .kind = proof, .gesture = 2});
    EXPECT_EQ(lines(shrunk(events, needing({}), 1000, nothingKept)), (Texts{"pull", "check"}));
}

}  // namespace
}  // namespace simulator::restless
