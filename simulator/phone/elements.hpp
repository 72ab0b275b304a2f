// The screen as a screen reader goes through it: elements of the accessibility protocol, from the front
// window back, within each from the top down and along the lines. A view that says itself whether it is
// an element is believed; of the others labels, controls and views with a label of their own are.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simulator/uikit/classes.hpp"

namespace simulator {

struct Element {
    UIView view;
    std::string label;
    std::string value;
    std::string traits;  // words
    CGRect frame;        // on the screen, points of the interface
};

// Those that can be seen.
std::vector<Element> elementsOnScreen();

// A line for each: "Done" button at {16, 44, 60, 30}.
std::string elementList();

// The one element of that label. Throws PhoneError when there is none, or several.
Element elementLabelled(const std::string& label);

// What a double tap of a screen reader does first. False when a finger is to do it, at the point.
bool activate(const Element& element);
CGPoint activationPoint(const Element& element);

}  // namespace simulator
