// What the applications page asks of the controller that keeps applications running behind it
// (toolbar/application_host.cpp).
#pragma once

#include "platform/springboard.hpp"

namespace vantori {

using namespace platform;

struct VNTApplicationHostViewController : UIViewController {
    static constexpr FixedString name{"VNTApplicationHostViewController"};
    using UIViewController::UIViewController;
    // Empties the view and starts the application without bringing it to the front.
    void launchApplicationWithApplication(SBApplication application) const {
        send<"launchApplicationWithApplication:">(application);
    }
    // Starts it the same way and comes back once its process has a main scene.
    void launchApplication(SBApplication application) const {
        send<"launchApplication:">(application);
    }
};

}  // namespace vantori
