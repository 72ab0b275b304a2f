// Colours: not premultiplied components from 0 to 1. A dynamic colour has a light and a dark form
// (iOS 13 and later; the dark ones of the system colours differ).
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

struct Rgba {
    double red, green, blue, alpha;
    friend constexpr bool operator==(const Rgba&, const Rgba&) = default;
};

struct ColorState {
    Rgba light;
    Rgba dark;
    bool dynamic;
    bool grey;  // of white and alpha: never equal to one of red, green and blue
};

UIColor makeColor(Rgba rgba);
UIColor makeColor(Rgba light, Rgba dark);
UIColor makeGrey(double white, double alpha);
// What a layer is given: the form of that style.
UIColor resolved(UIColor color, long style);

// In the style that is current now; transparent black for no colour.
Rgba rgbaOf(UIColor color);
Rgba rgbaOf(UIColor color, long style);

// A CGColor is a UIColor without a dark form, under another type.
inline CGColorRef cgColor(UIColor color) { return reinterpret_cast<CGColorRef>(color.get()); }
inline UIColor colorOf(CGColorRef color) { return UIColor(reinterpret_cast<id>(color)); }

void registerColor();

}  // namespace simulator
