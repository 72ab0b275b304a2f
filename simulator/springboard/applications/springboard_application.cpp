#include "simulator/springboard/applications/springboard_application.hpp"

#include "simulator/services/brightness.hpp"
#include "simulator/services/media_player.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/springboard/display/orientation.hpp"

namespace simulator {

namespace {

struct SpringBoardState {
    int nowPlayingProcess;
};

SBApplication frontMost(SpringBoard) { return frontMostApplication(); }

long orientation(SpringBoard) { return activeOrientation(); }

void addObserver(SpringBoard, Object observer) { addOrientationObserver(observer); }

void postOrientationChanged(SpringBoard self, bool) {
    NSNotificationCenter::defaultCenter().send<"postNotificationName:object:">(
        "SBActiveInterfaceOrientationDidChangeNotification"_ns, self);
}

void didFinishLaunching(SpringBoard, Object) {}

void nowPlayingApplicationDidChange(SpringBoard, Object) {}

void setNowPlayingProcess(SpringBoard self, int process) {
    stateOf<SpringBoardState>(self).nowPlayingProcess = process;
}

int nowPlayingProcess(SpringBoard self) {
    return stateOf<SpringBoardState>(self).nowPlayingProcess;
}

bool isNowPlayingApplicationPlaying(SpringBoard) { return MediaPlayer::shared().isPlaying(); }

constexpr const char* brightnessVariable = "_displayBrightnessController";

bool launch(SpringBoard, NSString identifier, bool suspended) {
    return identifier && launchApplication(identifier.utf8(), suspended);
}

}  // namespace

void registerSpringBoardApplication() {
    standIn<SpringBoard, UIApplication, SpringBoardState>(Variables{}.andReal({brightnessVariable}))
        .method<"_accessibilityFrontMostApplication", &frontMost>()
        .method<"_frontMostAppOrientation", &orientation>()
        .method<"activeInterfaceOrientation", &orientation>()
        .method<"addActiveOrientationObserver:", &addObserver>()
        .method<"_postActiveInterfaceOrientationChangedNotificationAnimated:",
                &postOrientationChanged>()
        .method<"applicationDidFinishLaunching:", &didFinishLaunching>()
        .method<"_nowPlayingAppDidChangeNotification:", &nowPlayingApplicationDidChange>()
        .method<"setNowPlayingProcessPID:", &setNowPlayingProcess>()
        .method<"nowPlayingProcessPID", &nowPlayingProcess>()
        .method<"isNowPlayingAppPlaying", &isNowPlayingApplicationPlaying>()
        .method<"launchApplicationWithIdentifier:suspended:", &launch>();
}

void fillVariables(SpringBoard springBoard) {
    setVariable(springBoard, brightnessVariable, displayBrightnessController());
}

}  // namespace simulator
