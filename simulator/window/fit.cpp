#include "simulator/window/fit.hpp"

#include <algorithm>

namespace simulator::window {

namespace {

constexpr double shareOfDisplay = 0.9;

bool isEmpty(rendering::Size size) { return !(size.width > 0 && size.height > 0); }

rendering::Size grown(rendering::Size size, rendering::Size room) {
    return {size.width + 2 * room.width, size.height + 2 * room.height};
}

double scaleInto(rendering::Size inner, rendering::Size outer) {
    return std::min(outer.width / inner.width, outer.height / inner.height);
}

}  // namespace

Fit fit(rendering::Size screen, rendering::Size window, rendering::Size room) {
    if (isEmpty(screen) || isEmpty(window)) return {};
    const double scale = scaleInto(grown(screen, room), window);
    return {
        scale,
        {(window.width - screen.width * scale) / 2, (window.height - screen.height * scale) / 2}};
}

bool contains(rendering::Size screen, rendering::Point place) {
    return place.x >= 0 && place.y >= 0 && place.x < screen.width && place.y < screen.height;
}

rendering::Size windowSize(rendering::Size screen, rendering::Size display, rendering::Size room) {
    const rendering::Size whole = grown(screen, room);
    if (isEmpty(screen) || isEmpty(display)) return whole;
    const double scale = std::min(1.0, scaleInto(whole, display) * shareOfDisplay);
    return {whole.width * scale, whole.height * scale};
}

}  // namespace simulator::window
