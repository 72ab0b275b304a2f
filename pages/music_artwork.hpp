// The picture of the item that plays. It is taken anew only when its identifier changes, when none is
// shown, or always for the system's own player, which keeps the identifier while it changes the
// picture.
#pragma once

#include "pages/music_page.hpp"

namespace vantori {

// No item has this identifier, so the first item always brings its picture. The spelling is
// deliberate.
inline NSString noArtworkIdentifier() { return "Cached Artwork Indentifier."_ns; }

// Takes the picture of the item, unless it is shown already.
void refreshArtwork(VNTMediaPlayerViewController page, NSDictionary info);
// Takes it whatever is shown.
void reloadArtwork(VNTMediaPlayerViewController page, NSDictionary info);

// The icon of the system's music application, 60 by 60 points.
UIImage musicApplicationIcon();

}  // namespace vantori
