// The phone's screen and the device around it: size in points in portrait, scale, the interface
// orientation that turns its bounds, the interface style. The phone sets them up; UIScreen, UIDevice
// and UITraitCollection answer from here.
#pragma once

#include <string>

#include "simulator/uikit/classes.hpp"

namespace simulator {

struct Screen {
    CGSize portrait{375, 812};
    double scale = 3;
    long orientation = orientationPortrait;  // of the interface
    long style = 1;                          // UIUserInterfaceStyle: light 1, dark 2
    std::string systemVersion = "13.3";
    double brightness = 0.5;  // of the backlight, 0 to 1

    CGRect bounds() const;
    // Pixels of the panel in portrait: fewer than those that are drawn on the plus models.
    CGSize nativeSize() const;
};

Screen& screen();

// What a trait collection holds that changes: UIUserInterfaceStyle, UIUserInterfaceSizeClass (compact
// 1, regular 2).
struct Traits {
    long style;
    long horizontal;
    long vertical;
    friend constexpr bool operator==(const Traits&, const Traits&) = default;
};
// In that style, as the interface is turned.
Traits traitsNow(long style);

// Changes the style of the whole phone and tells views and controllers, from each window down.
void setInterfaceStyle(long style);
// Turns the interface: the screen's bounds and the size classes change.
void setInterfaceOrientation(long orientation);

// Clamped to 0 to 1; tells all who listen, also when it is the same.
void setScreenBrightness(double level);

void registerScreen();
void registerDevice();
void registerTraits();

UITraitCollection collectionOf(const Traits& traits);
UITraitCollection traitsOf(long style);

}  // namespace simulator
