// Layout of the system's own furniture.
#include "simulator/rendering/chrome.hpp"

#include <utility>

#include "simulator/rendering/nodes.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

namespace {

constexpr double notchBarHeight = 44;
constexpr double plainBarHeight = 20;
constexpr double earCentre = 54;  // of the time, from the left edge, beside a notch

Colour batteryColour(const StatusBar& state) {
    if (state.lowPower) return hex(0xffcc00);
    if (state.charging) return hex(0x34c759);
    if (state.battery <= 0.2) return hex(0xff3b30);
    return state.colour;
}

// Right to left: battery, wifi, signal. `right` is where the battery ends, `middle` the line's centre.
void addIndicators(Node& bar, const StatusBar& state, double right, double middle) {
    const auto add = [&](const char* name, double side, double raise, Colour colour,
                         double progress, double step) {
        bar.children.push_back(symbolNode({{right - side, middle - side / 2 - raise}, {side, side}},
                                          name, colour, progress));
        right -= step;
    };
    add("battery", 26, 0, batteryColour(state), state.battery, 30);
    if (state.wifiOn) {
        add("wifi", 17, 0.4, state.colour, state.wifi, 21);
    } else if (!state.network.empty()) {
        bar.children.push_back(textNode({{right - 26, middle - 8}, {26, 16}}, state.network, 11.5,
                                        600, state.colour, TextAlignment::right));
        right -= 30;
    }
    if (state.airplane)
        add("airplane", 16, 0, state.colour, 1, 20);
    else
        add("signal", 19, 0, state.colour, state.signal, 23);
}

}  // namespace

Node statusBar(const StatusBar& state, double width, bool notch) {
    const double height = notch ? notchBarHeight : plainBarHeight;
    Node bar = nodeWithFrame("StatusBar", {{0, 0}, {width, height}});
    if (notch) {
        bar.children.push_back(textNode({{earCentre - 34, 13}, {68, 22}}, state.time, 16, 600,
                                        state.colour, TextAlignment::center));
        addIndicators(bar, state, width - 13, 24);
    } else {
        bar.children.push_back(textNode({{width / 2 - 40, 0}, {80, height}}, state.time, 12, 600,
                                        state.colour, TextAlignment::center));
        addIndicators(bar, state, width - 6, height / 2);
    }
    return bar;
}

Node homeIndicator(Size screen, Colour colour) {
    constexpr Size bar{135, 5};
    constexpr double fromBottom = 8;
    Node node =
        fillNode({{(screen.width - bar.width) / 2, screen.height - fromBottom - bar.height}, bar},
                 colour, bar.height / 2);
    node.name = "HomeIndicator";
    return node;
}

Node lockClock(const std::string& time, const std::string& date, Size screen, bool locked) {
    constexpr Colour white{1, 1, 1, 1};
    const double top = screen.height > screen.width ? 52 : 24;
    Node clock = nodeWithFrame("LockClock", {{0, 0}, screen});
    clock.children.push_back(
        symbolNode({{screen.width / 2 - 14, top}, {28, 28}}, locked ? "lock" : "lock.open", white));
    clock.children.push_back(
        textNode({{0, top + 46}, {screen.width, 84}}, time, 76, 300, white, TextAlignment::center));
    clock.children.push_back(textNode({{0, top + 134}, {screen.width, 28}}, date, 21, 400, white,
                                      TextAlignment::center));
    return clock;
}

}  // namespace simulator::rendering
