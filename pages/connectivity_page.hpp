// The page of connectivity buttons: the system's own airplane, cellular data, hotspot, Wi-Fi and
// Bluetooth buttons in one evenly spaced row. The system may produce them late, so both making and
// laying out are asked for again and again until they succeed. Lengths in points.
#pragma once

#include <string_view>

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTConnectivityBarViewController : UIViewController {
    static constexpr FixedString name{"VNTConnectivityBarViewController"};
    using UIViewController::UIViewController;
    // Makes the controllers, until the airplane controller is among them.
    void setUpConnectivityButtonSet() const { send<"setUpConnectivityButtonSet">(); }
    // Places the row, until the buttons have had a size.
    void layoutConnectivityButton() const { send<"layoutConnectivityButton">(); }
    long togglesCount() const { return send<"getTogglesCount", long>(); }
    NSString currentModel() const { return send<"currentModel", NSString>(); }
    // The container is scaled as a whole; the toolbar takes the scale off while it places the page.
    void reloadTransform() const { send<"reloadTransform">(); }
    void reloadTransformByDevices() const { send<"reloadTransformByDevices">(); }
    // Takes the row down and builds it again.
    void refreshAllToggles() const { send<"refreshAllToggles">(); }
};

// The page's own marketing name of a machine identifier: shorter than the device profile's, and
// without a name for what it does not know.
std::string_view connectivityModelName(std::string_view machine);

void registerConnectivityPage();

}  // namespace vantori
