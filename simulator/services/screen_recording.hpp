// The screen-recording module of Control Center. It comes with
// /System/Library/ControlCenter/Bundles/ReplayKitModule.bundle. While it is not available (the system
// says so by setAvailable:) it is dim and does nothing; a tap on it starts and stops a recording, and
// expanded it is a menu.
#pragma once

namespace simulator {

// Announces the class; it exists once its bundle is loaded.
void announceScreenRecording();

}  // namespace simulator
