// A round button that shows a Control Center module's own small view; a long press has Control Center
// open the module. Lengths in points.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTCCToggleRoundButton : UIView {
    static constexpr FixedString name{"VNTCCToggleRoundButton"};
    using UIView::UIView;
    // Takes the view in and remembers where it was.
    void addToggleView(UIView view) const { send<"addToggleView:">(view); }
    void enableToggle() const { send<"enableToggle">(); }
    void expandModule() const { send<"expandModule">(); }
};

void registerModuleRoundButton();

}  // namespace vantori
