// Keeps an application's process running, suspended, with a main scene, so that it can be shown in
// the toolbar's area instead of coming to the front. The view that shows the scene is the caller's.
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

void registerApplicationHost();

}  // namespace vantori
