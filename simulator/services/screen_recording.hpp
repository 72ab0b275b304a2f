// The screen-recording module of Control Center and the module classes that it is made of. It comes
// with /System/Library/ControlCenter/Bundles/ReplayKitModule.bundle.
#pragma once

namespace simulator {

void registerModuleControllers();
// Announces the class; it exists once its bundle is loaded.
void announceScreenRecording();

}  // namespace simulator
