#include "pages/music_page.hpp"

#include "platform/definition.hpp"

namespace vantori {

namespace {

struct MediaPlayerState {
    bool allowOpenNowPlayingApp;
};

}  // namespace

void registerMusicPage() {
    define<VNTMediaPlayerViewController, UIViewController, MediaPlayerState>()
        .property<"allowOpenNowPlayingApp", &MediaPlayerState::allowOpenNowPlayingApp>();
}

}  // namespace vantori
