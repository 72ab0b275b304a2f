// Do not disturb: Control Center's module for it, whose class comes with its bundle; from iOS 12 on the
// services of the process that keeps the state; on 11 the gateway to the notification settings.
#pragma once

namespace simulator {

void registerDoNotDisturb();

}  // namespace simulator
