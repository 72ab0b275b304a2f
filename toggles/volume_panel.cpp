#include "toggles/volume_panel.hpp"

#include "platform/definition.hpp"

namespace vantori {

void registerVolumePanel() { define<VNTVolumeSliderContainerViewController, UIViewController>(); }

}  // namespace vantori
