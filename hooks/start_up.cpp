#include "hooks/start_up.hpp"

#include "hooks/control_center.hpp"
#include "hooks/hook_report.hpp"
#include "hooks/hook_scene_layout.hpp"
#include "hooks/hook_table.hpp"
#include "hooks/hook_welcome.hpp"
#include "pages/application_host.hpp"
#include "platform/definition.hpp"
#include "platform/loading.hpp"
#include "settings/device_profile.hpp"
#include "settings/settings_file.hpp"
#include "settings/variables.hpp"
#include "toolbar/sb_toolbar_controller.hpp"
#include "toolbar/settings_reload.hpp"
#include "toolbar/welcome_pager.hpp"

namespace vantori {

namespace {

struct Frameworks {
    NSBundle controlCenterUIKit =
        NSBundle::withPath("/System/Library/PrivateFrameworks/ControlCenterUIKit.framework"_ns);
    NSBundle controlCenterUI =
        NSBundle::withPath("/System/Library/PrivateFrameworks/ControlCenterUI.framework"_ns);
    NSBundle doNotDisturb =
        NSBundle::withPath("/System/Library/ControlCenter/Bundles/DoNotDisturbModule.bundle"_ns);
    NSBundle replayKit =
        NSBundle::withPath("/System/Library/ControlCenter/Bundles/ReplayKitModule.bundle"_ns);
};

void loadModules(const Frameworks& frameworks) {
    frameworks.doNotDisturb.load();
    frameworks.replayKit.load();
    openLibrary(
        "/System/Library/PrivateFrameworks/ControlCenterUIKit.framework/ControlCenterUIKit");
    openLibrary("/System/Library/PrivateFrameworks/ControlCenterUI.framework/ControlCenterUI");
}

// The first that does not load decides.
bool areFrameworksLoaded(const Frameworks& frameworks) {
    return frameworks.controlCenterUIKit.load() && frameworks.controlCenterUI.load() &&
           frameworks.doNotDisturb.load();
}

void readFirstSettings() {
    replaceCC = boolSetting("replaceCC"_ns, false);
    reachability = boolSetting("reachability"_ns, false);
    layoutDirection = currentLayoutDirection();
    middleZoneWidth = 0;
}

// Arrangement and middle zone a second time, the tap and the style as reloadSettings() has just read
// them: the settings file is asked in this order. Deliberate.
void readLastSettings() {
    (void)intSetting("gestureLocation"_ns, 0);
    layoutDirection = currentLayoutDirection();
    middleZoneWidth = 0;
    noCornerRadius = boolSetting("noCornerRadius"_ns, false);
    enabledAtLaunch = boolSetting("enabled"_ns, true);
    tapToOpen = boolSetting("tapToOpen"_ns, true);
    alwaysSpringBoardStyle = boolSetting("alwaysSpringBoardStyle"_ns, true);
}

// An alert of the developers'; nothing calls it. The button is added by a message of its own, since
// the initialiser's list of buttons is variadic.
void showTestAlert(Object) {
    Object cls(classObject(objc_getClass("UIAlertView")));
    Object alert = adopted(cls.send<"alloc", Object>().send<"init", Object>()).autoreleased();
    alert.send<"setTitle:">("Gesture"_ns);
    alert.send<"setMessage:">("Test!"_ns);
    const long cancel = alert.send<"addButtonWithTitle:", long>("Okay!"_ns);
    alert.send<"setCancelButtonIndex:">(cancel);
    alert.send<"show">();
}

// What a long press on a module's round button asks of the grid of modules.
void expandModule(UIViewController self, NSString identifier) {
    if (!self.respondsTo(selector<"expandModuleWithIdentifier:">())) return;
    self.send<"expandModuleWithIdentifier:">(identifier);
}

void installSpringBoardHooks() {
    addSceneLayoutAccessors();
    install(springBoardHooks());
    install(otherSpringBoardForms());
    addMethod<"test", &showTestAlert>(objc_getClass("SBFluidSwitcherGestureManager"));
    addMethod<"vntExpandModuleWithIdentifier:", &expandModule>(
        objc_getClass("CCUIModuleCollectionViewController"));
}

void installControlCenterHooks() {
    install(controlCenterHooks());
    install(otherControlCenterForms());
}

}  // namespace

void registerClasses() {
    registerWelcomePager();
    registerHostWindows();
    registerApplicationHost();
    registerPages();
    registerControls();
    registerEverydayPage();
    registerToolBarController();
    registerSBToolBarController();
    registerHookReport();
}

void startUp() {
    AutoreleasePool pool;
    enabled = boolSetting("enabled"_ns, true);
    if (!enabled) return;
    registerClasses();
    install(welcomeHooks());
    addPresentUpdateInfo();

    const Frameworks frameworks;
    loadModules(frameworks);
    readFirstSettings();
    if (!areFrameworksLoaded(frameworks)) return;

    installSpringBoardHooks();
    if (replaceCC || !hasNoHomeButton()) installControlCenterHooks();
    observeSettings();
    reloadSettings();
    settingsLoaded = true;
    readLastSettings();
}

}  // namespace vantori
