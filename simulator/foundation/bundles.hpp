// The system's bundles and frameworks: bundleWithPath: for a system path gives a stand-in whose
// load answers YES, unless the scenario says that it does not load. The first successful load
// brings the bundle's classes.
#pragma once

#include <functional>
#include <string>

namespace simulator {

void installBundles();
// "/System/Library/ControlCenter/Bundles/ReplayKitModule.bundle" and the like.
void setMissingBundle(const std::string& path);
bool isMissingBundle(const std::string& path);
void onBundleLoad(const std::string& path, std::function<void()> bringClasses);
// Loads it as the system does, without a message that anyone counts; false when it is missing.
bool bringBundle(const std::string& path);

}  // namespace simulator
