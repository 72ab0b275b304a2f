// The page controllers, as the toolbars see them. Each lays itself out in a view of one screen width
// by 100 points, which the toolbar places and shows or hides by alpha.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTConnectivityBarViewController : UIViewController {
    static constexpr FixedString name{"VNTConnectivityBarViewController"};
    using UIViewController::UIViewController;
    void setUpConnectivityButtonSet() const { send<"setUpConnectivityButtonSet">(); }
    void layoutConnectivityButton() const { send<"layoutConnectivityButton">(); }
    void reloadTransform() const { send<"reloadTransform">(); }
    void reloadTransformByDevices() const { send<"reloadTransformByDevices">(); }
    void refreshAllToggles() const { send<"refreshAllToggles">(); }
};

struct VNTMediaPlayerViewController : UIViewController {
    static constexpr FixedString name{"VNTMediaPlayerViewController"};
    using UIViewController::UIViewController;
    void setAllowOpenNowPlayingApp(bool allow) const { send<"setAllowOpenNowPlayingApp:">(allow); }
};

struct VNTIconsContainerViewController : UIViewController {
    static constexpr FixedString name{"VNTIconsContainerViewController"};
    using UIViewController::UIViewController;
};

struct VNTCCTogglesBarViewController : UIViewController {
    static constexpr FixedString name{"VNTCCTogglesBarViewController"};
    using UIViewController::UIViewController;
    UIScrollView scrollView() const { return send<"scrollView", UIScrollView>(); }
    void setupButtons() const { send<"setupButtons">(); }
};

void registerPages();

}  // namespace vantori
