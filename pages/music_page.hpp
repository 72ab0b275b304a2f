// The page of what is playing: artwork, three scrolling lines of text (album, title, artist), and
// the buttons previous, play or pause, and next. It is a strip as wide as the screen's short side and
// 100 points high, which the toolbar places and shows or hides by alpha.
//
// music_layout has its geometry, music_text the lines, music_artwork the picture and its cache,
// music_transport what the buttons do.
#pragma once

#include "platform/now_playing.hpp"

namespace vantori {

using namespace platform;

struct VNTMediaPlayerViewController : UIViewController {
    static constexpr FixedString name{"VNTMediaPlayerViewController"};
    using UIViewController::UIViewController;
    void setAllowOpenNowPlayingApp(bool allow) const { send<"setAllowOpenNowPlayingApp:">(allow); }
    // Of the system's music application, to lie under the artwork.
    UIImage placeholder() const { return send<"getImage", UIImage>(); }
    // Fills the page once with what is playing.
    void updatePlayingInfo() const { send<"updatePlayingInfo">(); }
    void setUpMarqueeView() const { send<"setUpMarqueeView">(); }
};

void registerMusicPage();

}  // namespace vantori
