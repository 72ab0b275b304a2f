// What the files of the music page share: the page's own objects.
#pragma once

#include "pages/music_page.hpp"
#include "platform/definition.hpp"

namespace vantori {

struct MusicState {
    Strong<UIButton> left, middle, right;
    Strong<UILabel> album, title, subtitle;
    Strong<MPUMarqueeView> albumMarquee, titleMarquee, subtitleMarquee;
    Strong<UIImageView> artwork, placeholder;
    Strong<UIButton> openButton;  // over the artwork
    Strong<MPUNowPlayingController> controller;
    // Names the artwork that the artwork view shows.
    Copied<NSString> artworkIdentifier;
    bool allowOpenNowPlayingApp;
};

inline MusicState& musicState(VNTMediaPlayerViewController page) {
    return stateOf<MusicState>(page);
}

}  // namespace vantori
