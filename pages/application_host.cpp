#include "pages/application_host.hpp"

#include "pages/page_height.hpp"
#include "platform/definition.hpp"
#include "platform/dispatch.hpp"
#include "platform/log.hpp"
#include "platform/springboard_icons.hpp"
#include "platform/subviews.hpp"

namespace vantori {

namespace {

struct HostState {
    Strong<FBSceneHostWrapperView> wrapper;  // declared for a scene's view; nothing fills it here
};

constexpr double retryDelay = 1;  // seconds

void launchSuspended(NSString identifier) {
    SpringBoard::shared().launchApplication(identifier, true);
}

// The process is the manager's; a later creation may give another one.
Strong<FBProcess> createProcess(NSString identifier) {
    return retained(FBProcessManager::shared().createProcess(identifier));
}

// Without an application, or on a system without such a process manager, no scene will ever come.
bool canHost(NSString identifier) {
    constexpr auto creation = &selector<"createApplicationProcessForBundleID:">;
    return identifier && FBProcessManager::shared().respondsTo(creation());
}

// Some systems' processes know nothing of scenes; waiting for one would never end.
bool knowsScenes(FBProcess process) {
    return !process || process.respondsTo(selector<"mainScene">());
}

void viewDidLoad(VNTApplicationHostViewController self) {
    super<VNTApplicationHostViewController, "viewDidLoad">(self);
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    self.view().setFrame(rect(0, (screen.height - pageHeight) / 2 + 7.5, screen.width,
                              (screen.height - stripHeight) / 2));
    self.view().layer().setMasksToBounds(true);
}

void launchApplicationWithApplication(VNTApplicationHostViewController self,
                                      SBApplication application) {
    removeSubviews(self.view());
    launchSuspended(application.bundleIdentifier());
}

// Asks again at once and without end, on the main thread, until the scene is there; each failed test
// also leaves one more attempt for a second later. Deliberate.
void launchApplication(VNTApplicationHostViewController, SBApplication application) {
    Strong<NSString> identifier = retained(application.bundleIdentifier());
    launchSuspended(identifier);
    if (!canHost(identifier)) return;
    Strong<FBProcess> process = createProcess(identifier);
    while (knowsScenes(process) && !process.mainScene()) {
        log("[Vantori] mainScene not found, create process again."_ns);
        launchSuspended(identifier);
        process = createProcess(identifier);
        afterSeconds(retryDelay, [identifier] {
            launchSuspended(identifier);
            FBProcessManager::shared().createProcess(identifier);
        });
    }
}

}  // namespace

void registerApplicationHost() {
    define<VNTApplicationHostViewController, UIViewController, HostState>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"launchApplicationWithApplication:", &launchApplicationWithApplication>()
        .method<"launchApplication:", &launchApplication>()
        .property<"applicationHostWrapperView", &HostState::wrapper>();
}

}  // namespace vantori
