#include "pages/application_host.hpp"

#include "pages/live_application.hpp"
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
    LiveApplication live;
};

constexpr double retryDelay = 1;  // seconds

void launchSuspended(NSString identifier) {
    SpringBoard::shared().launchApplication(identifier, true);
}

// The process is the manager's; a later creation may give another one.
Strong<FBApplicationProcess> createProcess(NSString identifier) {
    return retained(FBProcessManager::shared().createProcess(identifier));
}

// Asks again at once and without end, on the main thread, until the scene is there; each failed test
// also leaves one more attempt for a second later. Deliberate.
void waitForScene(VNTApplicationHostViewController, SBApplication, NSString of) {
    Strong<NSString> identifier = retained(of);
    Strong<FBApplicationProcess> process = createProcess(identifier);
    while (!process.mainScene()) {
        log("[Vantori] mainScene not found, create process again."_ns);
        launchSuspended(identifier);
        process = createProcess(identifier);
        afterSeconds(retryDelay, [identifier] {
            launchSuspended(identifier);
            FBProcessManager::shared().createProcess(identifier);
        });
    }
}

void showLive(VNTApplicationHostViewController self, SBApplication application, NSString);

struct Hosting {
    void (*host)(VNTApplicationHostViewController self, SBApplication application,
                 NSString identifier);
};
constexpr Hosting inProcess{&waitForScene};
constexpr Hosting inView{&showLive};

using CreateProcess =
    InstanceMethod<"FBProcessManager",
                   "createApplicationProcessForBundleID:", FBApplicationProcess(NSString)>;
using MainScene = InstanceMethod<"FBApplicationProcess", "mainScene", Object()>;

// Where processes know nothing of scenes, waiting for one would never end.
using HostingForms =
    Feature<"hosting an application",  //
            Form<"a process with a main scene", inProcess, CreateProcess, MainScene>,
            Form<"a live view of its scene", inView, SceneEntity, LiveView>>;

void showLive(VNTApplicationHostViewController self, SBApplication application, NSString) {
    const char* problem = stateOf<HostState>(self).live.show(application, self);
    if (problem) HostingForms::switchOff(problem);
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
    stateOf<HostState>(self).live.end();
    removeSubviews(self.view());
    launchSuspended(application.bundleIdentifier());
}

void launchApplication(VNTApplicationHostViewController self, SBApplication application) {
    NSString identifier = application.bundleIdentifier();
    launchSuspended(identifier);
    if (!identifier) return;
    if (const Hosting* hosting = HostingForms::taken()) {
        hosting->host(self, application, identifier);
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
