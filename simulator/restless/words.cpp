#include "simulator/restless/words.hpp"

#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

#include "simulator/scenario/known_names.hpp"

namespace simulator::restless {

namespace {

std::string rounded(double number, int digits) {
    std::array<char, 40> text;
    std::snprintf(text.data(), text.size(), "%.*f", digits, number);
    std::string result = text.data();
    result.erase(result.find_last_not_of('0') + 1);
    if (result.ends_with('.')) result.pop_back();
    return result == "-0" ? "0" : result;
}

// "enabled" is read at the start only, and off there is nothing to see.
constexpr std::string_view switches[]{"replaceCC",
                                      "reachability",
                                      "noCornerRadius",
                                      "tapToOpen",
                                      "alwaysSpringBoardStyle",
                                      "leftGestureEnabled",
                                      "middleGestureEnabled",
                                      "rightGestureEnabled",
                                      "hideGrabber"};

// Of every type that a property list has.
constexpr std::string_view values[]{
    "true",    "0",     "-1",        "3",  "2147483648", "-9.75", "1e300",      "\"\"",
    "\"YES\"", "\"3\"", "\"words\"", "[]", "{}",         "none",  "[1, \"x\"]", "{\"a\": [1]}"};

}  // namespace

std::string points(double number) { return rounded(number, 1); }
std::string seconds(double number) { return rounded(number, 2); }

std::string aBundle(Random& random) {
    static const std::vector<std::string> bundles = knownBundles();
    return random.oneOf(bundles);
}

std::string someBundles(Random& random) {
    std::string text = aBundle(random);
    for (std::size_t count = random.below(5); count > 0; --count) text += " " + aBundle(random);
    return text;
}

std::string soundSetting(Random& random) {
    if (random.chance(25)) return "setting layoutDirection " + std::to_string(random.below(4));
    return "setting " + std::string(random.oneOf(switches)) +
           (random.chance(50) ? " true" : " false");
}

std::string wrongSetting(Random& random) {
    static const std::vector<std::string> keys = knownSettings();
    return "setting " + random.oneOf(keys) + " " + std::string(random.oneOf(values));
}

}  // namespace simulator::restless
