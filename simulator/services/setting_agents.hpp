// The objects by which the system's settings are read and switched: Control Center's agent, the
// battery saver, the clients of Night Shift and True Tone, the flashlight and the interface style. All
// of one kind share the phone's one setting.
#pragma once

namespace simulator {

void registerSettingAgents();

}  // namespace simulator
