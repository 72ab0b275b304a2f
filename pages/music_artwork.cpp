#include "pages/music_artwork.hpp"

#include "core/device_profile.hpp"
#include "pages/music_state.hpp"
#include "platform/springboard.hpp"

namespace vantori {

namespace {

constexpr int iconFormat = 999;
constexpr CGSize iconSize{60, 60};
constexpr double iconCornerRadius = 12;

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
    SBIcon icon = SBIcon::ofApplication("com.apple.Music"_ns);
    if (!isSystem13OrLater()) return icon.send<"generateIconImage:", UIImage>(iconFormat);
    return icon.send<"generateIconImageWithInfo:", UIImage>(
        SBIconImageInfo{iconSize, UIScreen::mainScreen().scale(), iconCornerRadius});
}

}  // namespace vantori
