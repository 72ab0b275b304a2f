// Alerts: a panel in a window of its own, above everything, until one of its buttons is pressed.
#pragma once

namespace simulator {

void registerAlerts();

}  // namespace simulator
