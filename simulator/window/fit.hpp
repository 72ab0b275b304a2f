// How the phone's screen lies in the window: as large as fits, in the middle, upright.
#pragma once

#include "simulator/rendering/scene.hpp"

namespace simulator::window {

struct Fit {
    double scale = 1;         // of the window's units per point
    rendering::Point origin;  // of the screen in the window

    rendering::Point toPhone(rendering::Point place) const {
        return {(place.x - origin.x) / scale, (place.y - origin.y) / scale};
    }
};

// Sizes that are not above zero give a scale of 1.
Fit fit(rendering::Size screen, rendering::Size window);
bool contains(rendering::Size screen, rendering::Point place);

// The window that shows the screen on a display of that usable size: never larger than the screen's
// own points, and with room for a title.
rendering::Size windowSize(rendering::Size screen, rendering::Size display);

}  // namespace simulator::window
