// The page of what is playing. It lays itself out in a view of one screen width by 100 points,
// which the toolbar places and shows or hides by alpha.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTMediaPlayerViewController : UIViewController {
    static constexpr FixedString name{"VNTMediaPlayerViewController"};
    using UIViewController::UIViewController;
    void setAllowOpenNowPlayingApp(bool allow) const { send<"setAllowOpenNowPlayingApp:">(allow); }
};

void registerMusicPage();

}  // namespace vantori
