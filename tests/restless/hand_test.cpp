// The hand writes the same for the same seed, nothing that the language does not know, and every gesture
// from its beginning to its end.
#include "simulator/restless/hand.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "simulator/scenario/parser.hpp"

namespace simulator::restless {
namespace {

std::string textOf(const std::vector<Event>& events) {
    std::string text;
    for (const Event& event : events) text += event.line + "\n";
    return text;
}

long done(const std::vector<Event>& events) { return std::ranges::count_if(events, isDone); }

TEST(Random, IsTheSameEverywhere) {
    // The first numbers of SplitMix64 from 1234567.
    Random random(1234567);
    EXPECT_EQ(random.next(), 6457827717110365317u);
    EXPECT_EQ(random.next(), 3203168211198807973u);
}

TEST(Random, KeepsWithinItsBounds) {
    Random random(1);
    std::set<std::size_t> met;
    for (int i = 0; i < 200; ++i) {
        met.insert(random.below(3));
        const double number = random.between(-2, 5);
        EXPECT_GE(number, -2);
        EXPECT_LT(number, 5);
    }
    EXPECT_EQ(met, (std::set<std::size_t>{0, 1, 2}));
    EXPECT_FALSE(random.chance(0));
    EXPECT_TRUE(random.chance(100));
}

TEST(Hand, TheSameSeedDoesTheSame) {
    EXPECT_EQ(textOf(life({.seed = 7, .events = 300})), textOf(life({.seed = 7, .events = 300})));
    EXPECT_NE(textOf(life({.seed = 7, .events = 300})), textOf(life({.seed = 8, .events = 300})));
}

TEST(Hand, WritesWhatTheLanguageKnows) {
    for (std::uint64_t seed = 0; seed < 40; ++seed) {
        const std::string text = textOf(life({.seed = seed, .events = 200}));
        EXPECT_NO_THROW(scenario::parse(text)) << "seed " << seed;
    }
}

TEST(Hand, DoesAsMuchAsItIsToldAndComesToRest) {
    for (const int events : {0, 1, 10, 500}) {
        const std::vector<Event> lines = life({.seed = 3, .events = events});
        EXPECT_GE(done(lines), events);
        EXPECT_LT(done(lines), events + 8);  // the gesture under way is brought to its end
        EXPECT_EQ(lines.back().line, "expect nothing wrong");
    }
}

TEST(Hand, HasEveryHabit) {
    std::set<std::string_view> met;
    for (const Event& event : life({.seed = 5, .events = 5000})) met.insert(event.kind);
    for (const std::string_view name : habitNames()) EXPECT_TRUE(met.contains(name)) << name;
}

TEST(Hand, TakesThePhoneThatItIsTold) {
    const std::string text = textOf(
        life({.seed = 2, .events = 1, .device = "iPhone8,4", .system = "12.4", .real = true}));
    EXPECT_TRUE(text.starts_with("device iPhone8,4\nsystem 12.4\nreal\n")) << text;
}

TEST(Hand, ShowsAtTheEndThatAPullOpens) {
    const std::vector<Event> lines = life({.seed = 3, .events = 20});
    ASSERT_GT(lines.size(), 5u);
    EXPECT_EQ(lines[lines.size() - 2].line, "expect [front isEnabled] == YES");
    EXPECT_EQ(lines[lines.size() - 2].kind, proof);
}

// One finger: a gesture ends before another begins, and nothing is checked in between.
TEST(Hand, FinishesEveryGesture) {
    int underWay = 0;
    std::set<int> over;
    std::map<int, std::string> word;
    for (const Event& event : life({.seed = 11, .events = 3000})) {
        if (event.kind == rest) {
            EXPECT_EQ(underWay, 0);
        }
        if (event.gesture == 0 || event.kind == proof) continue;
        EXPECT_FALSE(over.contains(event.gesture)) << event.line;
        if (underWay == 0) {
            EXPECT_FALSE(event.isMove) << event.line;
            word[event.gesture] = event.line.substr(0, event.line.find(' '));
            underWay = event.gesture;
            continue;
        }
        EXPECT_EQ(event.gesture, underWay) << event.line;
        EXPECT_TRUE(event.line.starts_with(word[underWay])) << event.line;
        if (event.isMove) continue;
        over.insert(underWay);
        underWay = 0;
    }
    EXPECT_EQ(underWay, 0);
    EXPECT_GT(over.size(), 200u);
}

}  // namespace
}  // namespace simulator::restless
