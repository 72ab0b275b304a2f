// The application switcher's appearing: an application that an open toolbar has lifted goes back to its
// place. Systems have told of it in three ways: the container of its cards moved to a window; from 13 on
// its controller is told when a transition of the layout begins; on 11 and 12 it was told so in other
// words.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

void switcherContainerDidMove(System<void()> system, Object self);
void layoutTransitionBegan(System<void(Object, Object)> system, Object self, Object coordinator,
                           Object context);
void sceneTransitionBegan(System<void(Object, Object)> system, Object self, Object controller,
                          Object context);

}  // namespace vantori
