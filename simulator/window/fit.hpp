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

// With `room` on either side of the screen for the phone around it, in points. Sizes that are not above
// zero give a scale of 1.
Fit fit(rendering::Size screen, rendering::Size window, rendering::Size room = {});
bool contains(rendering::Size screen, rendering::Point place);

// The window that shows the screen on a display of that usable size: never larger than the phone's
// own points, and with room for a title.
rendering::Size windowSize(rendering::Size screen, rendering::Size display,
                           rendering::Size room = {});

}  // namespace simulator::window
