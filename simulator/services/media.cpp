#include "simulator/services/media.hpp"

#include "simulator/springboard/classes.hpp"

namespace simulator {

namespace {

struct MediaControlsVolumeController : Object {
    static constexpr FixedString name{"MediaControlsVolumeController"};
    using Object::Object;
};

struct MediaState {
    bool playing;
};
struct VolumeState {
    float value;
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

void volumeDidChange(MediaControlsVolumeController self, Object, float value) {
    stateOf<VolumeState>(self).value = value;
}

float volumeValue(MediaControlsVolumeController self) { return stateOf<VolumeState>(self).value; }

}  // namespace

void registerMedia() {
    standIn<SBMediaController, Object, MediaState>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"isPlaying", &isPlaying>()
        .method<"changeTrack:eventSource:", &changeTrack>()
        .method<"playForEventSource:", &play>()
        .method<"pauseForEventSource:", &pause>()
        .method<"_mediaRemoteNowPlayingApplicationIsPlayingDidChange:", &playingDidChange>();
    standIn<MediaControlsVolumeController, Object, VolumeState>()
        .method<"volumeController:volumeValueDidChange:", &volumeDidChange>()
        .method<"volumeValue", &volumeValue>();
}

}  // namespace simulator
