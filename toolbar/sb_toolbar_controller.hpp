// The toolbar as it runs above SpringBoard: in a window of its own, sliding up from below the bottom
// edge over a dimming shadow, following the finger, laid out again when the interface turns.
#pragma once

#include "toolbar/host_windows.hpp"
#include "toolbar/toolbar_controller.hpp"

namespace vantori {

struct VNTSBToolBarController : VNTToolBarController {
    static constexpr FixedString name{"VNTSBToolBarController"};
    using VNTToolBarController::VNTToolBarController;

    static VNTSBToolBarController shared() {
        return sendClass<VNTSBToolBarController, "sharedInstance", VNTSBToolBarController>();
    }
    static bool exists() {
        return sendClass<VNTSBToolBarController, "sharedInstanceIfExisted", bool>();
    }

    VNTSBHostWindow vantoriHostWindow() const {
        return send<"vantoriHostWindow", VNTSBHostWindow>();
    }
    VNTCCTogglesBarViewController ccTogglesViewController() const {
        return send<"ccTogglesViewController", VNTCCTogglesBarViewController>();
    }
    // Height of the toolbar when shown, in points.
    double suggestedY() const { return send<"suggestedY", double>(); }
    void setSuggestedY(double points) const { send<"setSuggestedY:">(points); }
    void setSuggestedFrame(CGRect frame) const { send<"setSuggestedFrame:">(frame); }
    void setShouldAllowAutoRotate(bool allow) const { send<"setShouldAllowAutoRotate:">(allow); }

    // Makes the host window on its first call; later calls do nothing.
    void makeKeyWindow() const { send<"makeKeyWindow">(); }
    // Puts the toolbar's top edge at y (points from the top of the screen), and the shadow's alpha
    // with it: at once, or with the shared spring.
    void updateYValue(double y) const { send<"updateYValue:">(y); }
    void updateYValueWithAnimation(double y) const { send<"updateYValueWithAnimation:">(y); }
    void dismiss() const { send<"dismissVNTSB">(); }
    void didChangeOrientation() const { send<"didChangeOritation">(); }
    void layoutForOrientation(long orientation) const { send<"layoutForOritations:">(orientation); }
};

void registerSBToolBarController();

}  // namespace vantori
