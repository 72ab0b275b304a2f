// The lock screen: a window that covers everything but what is allowed above it.
#pragma once

#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

VANTORI_CLASS(SBLockScreenManager, Object);

bool isLocked();
SBLockScreenManager lockScreenManager();
void registerLockScreen();

// Where a lock or an unlock comes from, as SpringBoard numbers it.
inline constexpr int lockButton = 1;

}  // namespace simulator
