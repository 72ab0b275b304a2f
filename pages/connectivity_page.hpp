// The page of connectivity buttons. It lays itself out in a view of one screen width by 100 points,
// which the toolbar places and shows or hides by alpha.
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

void registerConnectivityPage();

}  // namespace vantori
