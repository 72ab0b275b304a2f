// The three lines of text: what is said of an item, of an item that lacks something, and of nothing.
#pragma once

#include <span>

#include "pages/music_state.hpp"

namespace vantori {

// A label in a marquee, and what it says: the item's own text under the key, or while nothing is
// loaded the idle text.
struct MusicLine {
    Strong<UILabel> MusicState::* label;
    Strong<MPUMarqueeView> MusicState::* marquee;
    NSString (*key)();
    NSString (*idle)();
};

// From the top.
std::span<const MusicLine, 3> musicLines();

// As they are, for the first look at the page.
void showPlainText(VNTMediaPlayerViewController page, NSDictionary info);

// For scrolling: every text ends in blanks, so that there is a gap before it comes round again, and
// the labels take the size of their texts. With neither album, title nor artist, the idle texts.
void showScrollingText(VNTMediaPlayerViewController page, NSDictionary info);

}  // namespace vantori
