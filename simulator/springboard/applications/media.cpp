#include "simulator/springboard/applications/media.hpp"

#include "platform/now_playing.hpp"
#include "simulator/services/media_player.hpp"
#include "simulator/services/media_remote.hpp"
#include "simulator/springboard/applications/applications.hpp"

namespace simulator {

namespace {

SBMediaController sharedInstance(Class cls) {
    static id shared = Object(classObject(cls)).send<"new", Object>().get();
    return SBMediaController(shared);
}

bool isPlaying(SBMediaController) { return MediaPlayer::shared().isPlaying(); }

bool hasTrack(SBMediaController) { return MediaPlayer::shared().track(); }

SBApplication application(SBMediaController) {
    return applicationNamed(MediaPlayer::shared().application());
}

bool changeTrack(SBMediaController, int delta, long) {
    if (!MediaPlayer::shared().track()) return false;
    MediaPlayer::shared().skip(delta);
    return true;
}

bool play(SBMediaController, long) {
    MediaPlayer::shared().resume();
    return true;
}

bool pause(SBMediaController, long) {
    MediaPlayer::shared().pause();
    return true;
}

bool toggle(SBMediaController self, long source) {
    return MediaPlayer::shared().isPlaying() ? pause(self, source) : play(self, source);
}

// The commands of iOS 11 do not say what they come from.
constexpr long noEventSource = 0;
bool changeTrackPlainly(SBMediaController self, int delta) {
    return changeTrack(self, delta, noEventSource);
}
bool playPlainly(SBMediaController self) { return play(self, noEventSource); }
bool pausePlainly(SBMediaController self) { return pause(self, noEventSource); }
bool togglePlainly(SBMediaController self) { return toggle(self, noEventSource); }

bool isPaused(SBMediaController self) { return hasTrack(self) && !isPlaying(self); }

int process(SBMediaController) { return MediaPlayer::shared().process(); }

// SpringBoard's controller hears of what plays; only its clients ask what it is.
void infoDidChange(SBMediaController, Object) {}

Object notification(NSString name, Object sender) {
    Object cls(classObject(objc_getClass("NSNotification")));
    return cls.send<"notificationWithName:object:userInfo:", Object>(name, sender, Object());
}

void playingDidChange(SBMediaController self, Object) {
    NSNotificationCenter::defaultCenter().send<"postNotification:">(
        notification("SBMediaNowPlayingChangedNotification"_ns, self));
}

// What MediaRemote tells SpringBoard reaches it through these of its methods.
void tellSpringBoard(MediaPlayer::Change change) {
    if (realRelease() != 0 && change == MediaPlayer::Change::track) {
        SBMediaController::shared().sendIfAnswered<"_mediaRemoteNowPlayingInfoDidChange:">(
            notification("kMRMediaRemoteNowPlayingInfoDidChangeNotification"_ns, Object()));
    }
    if (change == MediaPlayer::Change::application) {
        SpringBoard springBoard = SpringBoard::shared();
        springBoard.send<"setNowPlayingProcessPID:">(MediaPlayer::shared().process());
        springBoard.send<"_nowPlayingAppDidChangeNotification:">(
            notification("SBNowPlayingApplicationDidChangeNotification"_ns, Object()));
    }
    if (change == MediaPlayer::Change::playState) {
        SBMediaController::shared().send<"_mediaRemoteNowPlayingApplicationIsPlayingDidChange:">(
            notification("kMRMediaRemoteNowPlayingApplicationIsPlayingDidChangeNotification"_ns,
                         Object()));
    }
}

}  // namespace

void registerMedia() {
    standIn<SBMediaController, Object>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"isPlaying", &isPlaying>()
        .method<"hasTrack", &hasTrack>()
        .method<"nowPlayingApplication", &application>()
        .method<"changeTrack:eventSource:", &changeTrack>()
        .method<"playForEventSource:", &play>()
        .method<"pauseForEventSource:", &pause>()
        .realMethod<"togglePlayPauseForEventSource:", &toggle>()
        .realMethod<"changeTrack:", &changeTrackPlainly>()
        .realMethod<"play", &playPlainly>()
        .realMethod<"pause", &pausePlainly>()
        .realMethod<"togglePlayPause", &togglePlainly>()
        .realMethod<"isPaused", &isPaused>()
        .realMethod<"nowPlayingProcessPID", &process>()
        .realMethod<"_mediaRemoteNowPlayingInfoDidChange:", &infoDidChange>()
        .method<"_mediaRemoteNowPlayingApplicationIsPlayingDidChange:", &playingDidChange>();
    MediaPlayer::shared().listen(&tellSpringBoard);
    if (realRelease() != 0) exportMediaRemote();
}

}  // namespace simulator
