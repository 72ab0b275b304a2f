#include "simulator/phone/launch.hpp"

#include <array>
#include <filesystem>
#include <utility>

#include "simulator/foundation/bundles.hpp"
#include "simulator/foundation/conversions.hpp"
#include "simulator/foundation/dates.hpp"
#include "simulator/foundation/device_root.hpp"
#include "simulator/foundation/files.hpp"
#include "simulator/foundation/first_use.hpp"
#include "simulator/foundation/language.hpp"
#include "simulator/foundation/notification_counts.hpp"
#include "simulator/foundation/notification_order.hpp"
#include "simulator/foundation/observers.hpp"
#include "simulator/foundation/user_defaults.hpp"
#include "simulator/hardware/configuration.hpp"
#include "simulator/hardware/uikit_bridge.hpp"
#include "simulator/phone/extension.hpp"
#include "simulator/phone/hook_report_notes.hpp"
#include "simulator/rendering/found_fonts.hpp"
#include "simulator/runtime/associations.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/crash.hpp"
#include "simulator/runtime/date.hpp"
#include "simulator/runtime/machine.hpp"
#include "simulator/runtime/system_log.hpp"
#include "simulator/services/brightness.hpp"
#include "simulator/services/connectivity.hpp"
#include "simulator/services/do_not_disturb.hpp"
#include "simulator/services/marquee_view.hpp"
#include "simulator/services/module_contents.hpp"
#include "simulator/services/now_playing.hpp"
#include "simulator/services/packages.hpp"
#include "simulator/services/screen_recording.hpp"
#include "simulator/services/setting_agents.hpp"
#include "simulator/services/volume.hpp"
#include "simulator/springboard/applications/addresses.hpp"
#include "simulator/springboard/applications/app_hosting.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/springboard/applications/media.hpp"
#include "simulator/springboard/applications/processes.hpp"
#include "simulator/springboard/applications/recents.hpp"
#include "simulator/springboard/applications/scene_layout.hpp"
#include "simulator/springboard/applications/settings_application.hpp"
#include "simulator/springboard/applications/springboard_application.hpp"
#include "simulator/springboard/applications/switcher.hpp"
#include "simulator/springboard/control_center/control_center.hpp"
#include "simulator/springboard/display/interface_style.hpp"
#include "simulator/springboard/display/lock_screen.hpp"
#include "simulator/springboard/display/platform_parts.hpp"
#include "simulator/springboard/display/setting_effects.hpp"
#include "simulator/springboard/display/time_of_day.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/springboard/gestures/reachability.hpp"
#include "simulator/springboard/gestures/switcher_gestures.hpp"
#include "simulator/springboard/home/home_screen.hpp"
#include "simulator/springboard/home/icon_lists.hpp"
#include "simulator/springboard/home/icons.hpp"
#include "simulator/uikit/application/application.hpp"
#include "simulator/uikit/image/image.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/uikit.hpp"
#include "simulator/uikit/view/effect/material.hpp"

namespace simulator {

namespace {

constexpr double launchingTime = 10;  // seconds, at most

void setUpScreen() {
    const Configuration& phone = configuration();
    setMachine(phone.machine);
    screen().portrait = phone.screen;
    screen().scale = phone.scale;
    screen().systemVersion = phone.systemVersion;
}

// What the extension's package puts on a phone beside the library: pictures, and the settings pane. Each
// lies where the program was installed, or in the sources.
struct SupportFile {
    const char* installed;  // below share/vantori
    const char* source;
    const char* phone;
};
constexpr std::array<SupportFile, 2> supportFiles{{
    {"assets", "assets", "/Library/Application Support/Vantori"},
    {"settings.plist", "device/package/settings.plist",
     "/Library/PreferenceLoader/Preferences/Vantori.plist"},
}};

// A copy brings the permissions of what it is of.
void makeOwnersOnly(const std::filesystem::path& place) {
    namespace fs = std::filesystem;
    std::error_code error;
    const bool folder = fs::is_directory(place, error);
    fs::permissions(place,
                    folder ? fs::perms::owner_all : fs::perms::owner_read | fs::perms::owner_write,
                    error);
    if (!folder) return;
    for (const auto& entry : fs::directory_iterator(place, error)) makeOwnersOnly(entry.path());
}

void installSupportFiles() {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path share = program.parent_path().parent_path() / "share/vantori";
    for (const SupportFile& file : supportFiles) {
        const fs::path target = DeviceRoot::shared().locate(file.phone);
        for (const fs::path& source :
             {share / file.installed, fs::path(VANTORI_SOURCE_DIR) / file.source}) {
            if (!fs::exists(source, error)) continue;
            fs::create_directories(target.parent_path(), error);
            fs::copy(source, target, fs::copy_options::recursive | fs::copy_options::skip_existing,
                     error);
            makeOwnersOnly(target);
            break;
        }
    }
}

void takeMissingFilesAway() {
    std::error_code error;
    for (const std::string& path : configuration().missingFiles)
        std::filesystem::remove_all(DeviceRoot::shared().locate(path), error);
}

// A plain name is one of SpringBoard's own bundle.
std::string imagePath(const std::string& path) {
    const bool named = !path.starts_with('/');
    return DeviceRoot::shared().map(named ? "/System/Library/CoreServices/SpringBoard.app/" + path
                                          : path);
}

void startSpringBoard() {
    loadConnectivityModule();
    auto application = create<SpringBoard>();
    if (application) setSharedApplication(UIApplication(application.get()));
    fillVariables(application);
    makeWindows();
    makeHomeScreen();
    moveHomeScreenToWindow();
    restoreRecents();
    gestureManager();
    if (SBMainDisplaySceneLayoutViewController layout = sceneLayoutController()) {
        layout.view();
        windows().scenes.setRootViewController(layout);
        windows().scenes.setHidden(false);
    }
    application.send<"applicationDidFinishLaunching:">(Object(application.get()));
}

}  // namespace

void prepareProcess() {
    static bool prepared = false;
    if (std::exchange(prepared, true)) return;
    AutoreleasePool pool;
    installUserDefaults();
    makeFirstUses();
    SystemLog::shared().install();
    installCrashReport();
    installAssociations();
    installFiles();
    installBundles();
    installConversions();
    installDates();
    installNotificationOrder();
    installNotificationCounts();
    installObservers();
}

void warmUp() {
    prepareProcess();
    rendering::findFonts();
}

void registerSpringBoard() {
    AutoreleasePool pool;
    registerSystemPan();
    registerWindows();
    registerApplications();
    registerSceneLayout();
    registerSettingsApplication();
    registerIcons();
    registerIconLists();
    registerHomeScreen();
    registerSwitcherGestures();
    registerReachability();
    registerSwitcher();
    registerRecents();
    registerProcesses();
    registerAppHosting();
    registerLockScreen();
    registerControlCenter();
    registerPlatformParts();
    registerMedia();
    registerNowPlaying();
    registerMarqueeView();
    registerMaterials();
    registerVolume();
    registerBrightness();
    registerModuleControllers();
    registerModules();
    announceScreenRecording();
    registerConnectivity();
    registerSettingAgents();
    registerInterfaceStyle();
    registerDoNotDisturb();
    registerPackages();
    followSettings();
    followTime();
    registerSpringBoardApplication();
}

void launchPhone(Extension extension) {
    AutoreleasePool pool;
    setUpScreen();
    speak(configuration().language);
    installSupportFiles();
    takeMissingFilesAway();
    registerUIKit();
    setImagePaths(&imagePath);
    registerSpringBoard();
    installAddresses();
    if (extension == Extension::load) loadExtension();
    noteInHookReport();
    startSpringBoard();
    settle(launchingTime);
    // With the home screen in front no application's scenes are on the display.
    if (frontMostIdentifier().empty()) windows().scenes.setHidden(true);
}

void settle(double atMost) {
    Clock& clock = Clock::shared();
    double end = clock.now() + atMost;
    do clock.advance(Clock::frame);
    while (anythingMoves() && clock.now() < end);
}

}  // namespace simulator
