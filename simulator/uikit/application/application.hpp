// The application object. The phone's SpringBoard is a subclass of UIApplication: the first
// application that is made is the shared one.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

void setSharedApplication(UIApplication application);
void registerApplication();

}  // namespace simulator
