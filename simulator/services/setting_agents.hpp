// The objects by which the system's settings are read and switched: Control Center's agent, the
// battery saver, the clients of Night Shift and True Tone, the flashlight, the interface style and
// the do-not-disturb module. All of one kind share the phone's one setting.
#pragma once

namespace simulator {

void registerSettingAgents();
// The module's class comes with its bundle.
void announceDoNotDisturb();

}  // namespace simulator
