// How the display's brightness is written: SpringBoard's controller up to iOS 13.5; from then on another
// one, which SpringBoard keeps in a variable, or the display service below it. Levels from 0 to 1.
#pragma once

#include "platform/form.hpp"

namespace vantori {

using namespace platform;

struct BrightnessFunctions {
    // The system's controller, which the slider holds. May be empty.
    Object (*controller)();
    void (*setLevel)(Object controller, float level);
    // The finger has left the slider.
    void (*slideEnded)();
};

// Of the form that this system has; none: brightness cannot be written.
const BrightnessFunctions* brightnessForm();

}  // namespace vantori
