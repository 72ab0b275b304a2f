// What the system draws around applications, as scene trees: status bar, home indicator and the lock
// screen's clock. Places are those of a phone with a 5.8 inch screen; lengths are points.
#pragma once

#include <string>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

struct StatusBar {
    std::string time = "9:41";
    double signal = 1;   // 0 to 1
    double wifi = 1;     // 0 to 1
    double battery = 1;  // 0 to 1
    bool charging = false;
    bool lowPower = false;
    bool airplane = false;
    bool wifiOn = true;
    std::string network{};  // of cellular data, shown where the waves of Wi-Fi are not
    Colour colour{1, 1, 1, 1};
};

// 44 points high beside a notch (time and indicators in the ears), 20 without one.
Node statusBar(const StatusBar& state, double width, bool notch);

// The bar at the bottom of the screen, placed for a screen of `screen` points.
Node homeIndicator(Size screen, Colour colour);

// Padlock, time and date as on the lock screen of `screen` points; the texts are drawn as given.
Node lockClock(const std::string& time, const std::string& date, Size screen, bool locked = true);

}  // namespace simulator::rendering
