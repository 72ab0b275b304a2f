#include "simulator/springboard/applications/applications.hpp"

#include <map>

#include "simulator/hardware/configuration.hpp"
#include "simulator/runtime/history.hpp"
#include "simulator/springboard/applications/recents.hpp"
#include "simulator/springboard/applications/scene_layout.hpp"
#include "simulator/springboard/applications/switcher.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(SBApplicationController, Object);

struct ApplicationState {
    Copied<NSString> identifier;
};

struct Applications {
    std::map<std::string, Strong<SBApplication>> made;
    std::string front;
    std::map<std::pair<std::string, bool>, long> launches;
    long launchesSoFar = 0;  // in front
};

Applications& applications() {
    static auto& kept = *new Applications;
    return kept;
}

NSString bundleIdentifier(SBApplication self) { return stateOf<ApplicationState>(self).identifier; }

NSString displayName(SBApplication self) {
    return NSString::from(titleOf(bundleIdentifier(self).utf8()).c_str());
}

SBApplicationController sharedInstance(Class cls) {
    static id shared = Object(classObject(cls)).send<"new", Object>().get();
    return SBApplicationController(shared);
}

SBApplication applicationWithBundleIdentifier(SBApplicationController, NSString identifier) {
    return identifier ? applicationNamed(identifier.utf8()) : SBApplication();
}

NSArray allApplications(SBApplicationController) {
    NSMutableArray all = NSMutableArray::empty();
    for (const auto& installed : installedApplications()) {
        all.add(applicationNamed(installed.identifier));
    }
    return all;
}

}  // namespace

SBApplication applicationNamed(const std::string& identifier) {
    if (!isInstalled(identifier)) return {};
    Strong<SBApplication>& application = applications().made[identifier];
    if (!application) {
        application = create<SBApplication>();
        if (application) {
            stateOf<ApplicationState>(application).identifier =
                Copied<NSString>(NSString::from(identifier.c_str()));
        }
    }
    return application;
}

SBApplication frontMostApplication() {
    return applications().front.empty() ? SBApplication() : applicationNamed(applications().front);
}

std::string frontMostIdentifier() { return applications().front; }

void openApplication(const std::string& identifier) {
    if (identifier == applications().front) return;
    applications().front = identifier;
    beginTransition(applicationInFront);
    showScene(identifier);
    noteRecent(identifier);
}

void goHome() {
    if (applications().front.empty()) return;
    applications().front.clear();
    beginTransition(homeScreenInFront);
    hideScene();
}

bool launchApplication(const std::string& identifier, bool suspended) {
    ++applications().launches[{identifier, suspended}];
    if (!suspended) ++applications().launchesSoFar;
    History::shared().happened(suspended ? Happening::launchedSuspended : Happening::launched,
                               identifier);
    if (!isInstalled(identifier)) return false;
    if (!suspended) openApplication(identifier);
    return true;
}

long launches(const std::string& identifier, bool suspended) {
    auto found = applications().launches.find({identifier, suspended});
    return found == applications().launches.end() ? 0 : found->second;
}

long launchesSoFar() { return applications().launchesSoFar; }

void clearLaunches() { applications().launches.clear(); }

void registerApplications() {
    standIn<SBApplication, Object, ApplicationState>()
        .method<"bundleIdentifier", &bundleIdentifier>()
        .method<"displayName", &displayName>();
    standIn<SBApplicationController, Object>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"applicationWithBundleIdentifier:", &applicationWithBundleIdentifier>()
        .method<"allApplications", &allApplications>();
}

}  // namespace simulator
