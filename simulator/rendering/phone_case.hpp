// The phone around its screen: metal, glass, buttons, the notch or the home button. Points; the screen's
// corner is that of a phone with a 5.8 inch screen, or nearly square above a home button.
#pragma once

#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

struct PhoneCase {
    bool homeButton = false;
    int quarterTurns = 0;  // clockwise, from upright

    friend bool operator==(const PhoneCase&, const PhoneCase&) = default;
};

// The metal's edge around an upright screen at that place, and the radius of its corners.
Rect caseAround(Rect screen, bool homeButton);
double caseCorner(bool homeButton);

// The upright case, as if it had no screen.
void drawCase(cairo_t* context, Rect screen, bool homeButton);
void drawNotch(cairo_t* context, Rect screen);
void addScreenOutline(cairo_t* context, Rect screen, bool homeButton);

// How far the case reaches beyond the screen, as it lies: to each side, and above and below. Its buttons
// and a little air are in it.
Size roomAround(const PhoneCase& phone);
// The case on a ground of that colour, with a hole for a screen of that size, as it lies, to be laid over
// the screen: nothing else of it is seen through.
Surface casePicture(const PhoneCase& phone, Size screen, double scale, Colour ground);

}  // namespace simulator::rendering
