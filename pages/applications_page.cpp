#include "pages/applications_page.hpp"

#include <algorithm>

#include "pages/app_button.hpp"
#include "pages/application_host.hpp"
#include "pages/application_launch.hpp"
#include "pages/icon_image.hpp"
#include "pages/icon_row.hpp"
#include "pages/page_height.hpp"
#include "pages/toolbar_messages.hpp"
#include "platform/definition.hpp"

namespace vantori {

namespace {

struct IconsContainerState {
    Strong<NSMutableArray> icons;
    Strong<VNTApplicationHostViewController> host;
    Strong<Object> resizeNotification;  // these two are kept for the host
    Strong<Object> secondResizeNotification;
};

bool canShowWhileLocked(VNTIconsContainerViewController) { return true; }

// The backdrop is not made yet when the page of the toolbar behind the applications loads its view.
void loadView(VNTIconsContainerViewController self) {
    super<VNTIconsContainerViewController, "loadView">(self);
    auto& host = stateOf<IconsContainerState>(self).host;
    host = create<VNTApplicationHostViewController>();
    toolbars::backdrop().addSubview(host.view());
}

void viewDidLayoutSubviews(VNTIconsContainerViewController self) {
    super<VNTIconsContainerViewController, "viewDidLayoutSubviews">(self);
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    self.view().setBounds(rect(0, 0, std::min(screen.width, screen.height), pageHeight));
}

void hostApplicationInView(VNTIconsContainerViewController self, NSString identifier) {
    stateOf<IconsContainerState>(self).host.launchApplicationWithApplication(
        SBApplicationController::shared().application(identifier));
}

}  // namespace

void registerApplicationsPage() {
    registerAppButton();
    define<VNTIconsContainerViewController, UIViewController, IconsContainerState>()
        .method<"_canShowWhileLocked", &canShowWhileLocked>()
        .method<"loadView", &loadView>()
        .method<"viewDidLayoutSubviews", &viewDidLayoutSubviews>()
        .method<"layoutIconsWithSize:", &layoutIconsWithSize>()
        .method<"layoutIconsWithSize:andIcons:", &layoutIconsWithSizeAndIcons>()
        .method<"layoutIconsWithAppLayouts:", &layoutIconsWithAppLayouts>()
        .method<"layoutIconsWithMutableAppLayouts:", &layoutIconsWithMutableAppLayouts>()
        .method<"generateIconImageForIdentifier:", &generateIconImageForIdentifier>()
        .method<"generateIconImageForIcon:", &generateIconImageForIcon>()
        .method<"launchApplicationWithIdentifier:", &launchTapped>()
        .method<"hostApplicationInView:", &hostApplicationInView>()
        .property<"icons", &IconsContainerState::icons>()
        .property<"hostController", &IconsContainerState::host>()
        .property<"currentApplicationResizeNotification",
                  &IconsContainerState::resizeNotification>()
        .property<"secondApplicationResizeNotification",
                  &IconsContainerState::secondResizeNotification>();
}

}  // namespace vantori
