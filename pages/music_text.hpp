// The three lines of text: what is said of an item, of an item that lacks something, and of nothing.
#pragma once

#include "pages/music_page.hpp"

namespace vantori {

// As they are, for the first look at the page.
void showPlainText(VNTMediaPlayerViewController page, NSDictionary info);

// For scrolling: every text ends in blanks, so that there is a gap before it comes round again, and
// the labels take the size of their texts. With neither album, title nor artist, the idle texts.
void showScrollingText(VNTMediaPlayerViewController page, NSDictionary info);

}  // namespace vantori
