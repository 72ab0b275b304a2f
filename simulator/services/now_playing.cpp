#include "simulator/services/now_playing.hpp"

#include <algorithm>
#include <vector>

#include "platform/now_playing.hpp"
#include "simulator/hardware/uikit_bridge.hpp"
#include "simulator/rendering/cover_art.hpp"
#include "simulator/services/callback_thread.hpp"
#include "simulator/services/media_player.hpp"
#include "simulator/uikit/raise.hpp"

namespace simulator {

namespace {

using Controller = MPUNowPlayingController;
using Change = MediaPlayer::Change;

bool onOtherThread = false;

std::vector<Controller>& controllers() {
    static auto& all = *new std::vector<Controller>;
    return all;
}

struct NowPlayingState {
    Controller self;  // while it is told of changes
    Object delegate;  // not owned
    Strong<UIImage> artwork;
    std::uint64_t artworkGeneration;

    ~NowPlayingState() { std::erase(controllers(), self); }
};

NowPlayingState& nowPlaying(Controller controller) { return stateOf<NowPlayingState>(controller); }

Controller init(Controller raw) {
    auto self = super<Controller, "init", Controller>(raw);
    if (!self) return self;
    nowPlaying(self).self = self;
    controllers().push_back(self);
    return self;
}

void addEntry(NSDictionary entries, NSString key, const std::string& value) {
    if (!value.empty()) entries.send<"setObject:forKey:">(string(value), key);
}

NSDictionary currentInfo(Controller) {
    const Track* track = MediaPlayer::shared().track();
    if (!track) return {};
    Object mutableDictionary(classObject(objc_getClass("NSMutableDictionary")));
    auto info = mutableDictionary.send<"dictionary", NSDictionary>();
    addEntry(info, "kMRMediaRemoteNowPlayingInfoAlbum"_ns, track->album);
    addEntry(info, "kMRMediaRemoteNowPlayingInfoTitle"_ns, track->title);
    addEntry(info, "kMRMediaRemoteNowPlayingInfoArtist"_ns, track->artist);
    addEntry(info, "kMRMediaRemoteNowPlayingInfoArtworkIdentifier"_ns, track->artworkId);
    return info;
}

// Decoded anew for every track, also when the picture is that of the one before.
UIImage currentArtwork(Controller self) {
    const MediaPlayer& player = MediaPlayer::shared();
    NowPlayingState& state = nowPlaying(self);
    if (state.artworkGeneration != player.generation()) {
        state.artworkGeneration = player.generation();
        const Track* track = player.track();
        bool has = track && !track->artworkId.empty();
        state.artwork =
            has ? retained(imageOfPicture(rendering::coverPicture(track->artworkId, artworkSide)))
                : Strong<UIImage>();
    }
    return state.artwork;
}

bool isPlaying(Controller) { return MediaPlayer::shared().isPlaying(); }

NSString applicationId(Controller) {
    const std::string& application = MediaPlayer::shared().application();
    return application.empty() ? NSString() : string(application);
}

bool isSystemApplication(Controller) {
    return MediaPlayer::shared().application() == MediaPlayer::systemApplication;
}

void tellDelegate(Controller controller, Change change) {
    Object delegate = nowPlaying(controller).delegate;
    constexpr FixedString track{"nowPlayingController:nowPlayingInfoDidChange:"};
    constexpr FixedString playState{"nowPlayingController:playbackStateDidChange:"};
    if (change == Change::track && delegate.respondsTo(selector<track>())) {
        delegate.send<track>(controller, currentInfo(controller));
    }
    if (change == Change::playState && delegate.respondsTo(selector<playState>())) {
        delegate.send<playState>(controller, MediaPlayer::shared().isPlaying());
    }
}

void tellDelegates(Change change) {
    std::vector<Strong<Controller>> told;
    for (Controller controller : controllers()) told.push_back(retained(controller));
    for (const auto& controller : told) {
        if (onOtherThread) {
            onCallbackThread([&] { tellDelegate(controller, change); });
        } else {
            tellDelegate(controller, change);
        }
    }
}

}  // namespace

void setNowPlayingOnOtherThread(bool other) { onOtherThread = other; }

void registerNowPlaying() {
    standIn<Controller, Object, NowPlayingState>()
        .method<"init", &init>()
        .property<"delegate", &NowPlayingState::delegate>()
        .method<"currentNowPlayingInfo", &currentInfo>()
        .method<"currentNowPlayingArtwork", &currentArtwork>()
        .method<"isPlaying", &isPlaying>()
        .method<"nowPlayingAppDisplayID", &applicationId>()
        .method<"nowPlayingAppIsSystemMediaApp", &isSystemApplication>();
    MediaPlayer::shared().listen(&tellDelegates);
}

}  // namespace simulator
