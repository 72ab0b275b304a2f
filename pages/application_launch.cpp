#include "pages/application_launch.hpp"

#include "pages/app_button.hpp"
#include "pages/lifted_scene.hpp"
#include "pages/toolbar_messages.hpp"
#include "settings/notifications.hpp"

namespace vantori {

void launchTapped(VNTIconsContainerViewController, UIView tapped) {
    // The row may be built anew before the spring is done: the icon is kept until then.
    auto open =
        block<void(bool)>([icon = retained(as<VNTAppButton>(tapped.superview()))](bool finished) {
            if (!finished) return;
            SpringBoard::shared().launchApplication(icon.applicationIdentifier(), false);
            toolbars::noteApplicationSideClosed();
        });
    lowerLiftedScene(open);
    toolbars::dismissSpringBoardSide();
    postDarwin(darwin::backNow());
}

}  // namespace vantori
