// Controls: targets with event masks, tracking, and the kinds built on them.
#pragma once

#include "simulator/uikit/view/view.hpp"

namespace simulator {

enum ControlEvent : unsigned long {
    touchDown = 1 << 0,
    touchDownRepeat = 1 << 1,
    touchDragInside = 1 << 2,
    touchDragOutside = 1 << 3,
    touchDragEnter = 1 << 4,
    touchDragExit = 1 << 5,
    touchUpInside = 1 << 6,
    touchUpOutside = 1 << 7,
    touchCancel = 1 << 8,
    valueChanged = 1 << 12,
};

void sendControlEvents(UIControl control, unsigned long events, Object event);

void registerControl();
void registerButton();
void registerPageControl();
void registerSwitch();

}  // namespace simulator
