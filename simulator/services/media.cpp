#include "simulator/services/media.hpp"

#include "simulator/springboard/classes.hpp"

namespace simulator {

namespace {

struct MediaState {
    bool playing;
};

SBMediaController sharedInstance(Class cls) {
    static id shared = Object(classObject(cls)).send<"new", Object>().get();
    return SBMediaController(shared);
}

bool isPlaying(SBMediaController self) { return stateOf<MediaState>(self).playing; }

bool changeTrack(SBMediaController, int, long) { return true; }

bool play(SBMediaController self, long) { return stateOf<MediaState>(self).playing = true; }

bool pause(SBMediaController self, long) {
    stateOf<MediaState>(self).playing = false;
    return true;
}

void playingDidChange(SBMediaController, Object) {}

}  // namespace

void registerMedia() {
    standIn<SBMediaController, Object, MediaState>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"isPlaying", &isPlaying>()
        .method<"changeTrack:eventSource:", &changeTrack>()
        .method<"playForEventSource:", &play>()
        .method<"pauseForEventSource:", &pause>()
        .method<"_mediaRemoteNowPlayingApplicationIsPlayingDidChange:", &playingDidChange>();
}

}  // namespace simulator
