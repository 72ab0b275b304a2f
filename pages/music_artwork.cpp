#include "pages/music_artwork.hpp"

#include "pages/icon_image.hpp"
#include "pages/music_state.hpp"

namespace vantori {

namespace {

NSString identifierIn(NSDictionary info) {
    return as<NSString>(info.at("kMRMediaRemoteNowPlayingInfoArtworkIdentifier"_ns));
}

}  // namespace

void refreshArtwork(VNTMediaPlayerViewController page, NSDictionary info) {
    MusicState& state = musicState(page);
    const bool same = state.artworkIdentifier.send<"isEqual:", bool>(identifierIn(info));
    if (same && state.artwork.image()) return;
    reloadArtwork(page, info);
}

void reloadArtwork(VNTMediaPlayerViewController page, NSDictionary info) {
    MusicState& state = musicState(page);
    state.artworkIdentifier = Copied<NSString>(identifierIn(info));
    state.artwork.setImage(state.controller.artwork());
}

UIImage musicApplicationIcon() {
    return renderedIcon(SBIconController::shared().model().expectedIcon("com.apple.Music"_ns));
}

}  // namespace vantori
