// UIDevice: what the machine says of itself. Turning it posts only when the orientation changes.
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

struct DeviceState {
    long orientation;
    bool generating;
};

void turn(UIDevice device, long orientation) {
    long& current = stateOf<DeviceState>(device).orientation;
    if (current == orientation) return;
    current = orientation;
    NSNotificationCenter::defaultCenter().send<"postNotificationName:object:">(
        "UIDeviceOrientationDidChangeNotification"_ns, device);
}

}  // namespace

void registerDevice() {
    table<UIDevice, Object, DeviceState>()
        .classMethod<"currentDevice">([](Class) -> UIDevice {
            static id shared = [] {
                auto device = create<UIDevice>();
                stateOf<DeviceState>(device).orientation = 1;
                return device.leak();
            }();
            return UIDevice(shared);
        })
        .method<"systemVersion">([](UIDevice) { return string(screen().systemVersion); })
        .method<"systemName">([](UIDevice) { return "iOS"_ns; })
        .method<"model">([](UIDevice) { return "iPhone"_ns; })
        .method<"localizedModel">([](UIDevice) { return "iPhone"_ns; })
        .method<"name">([](UIDevice) { return "iPhone"_ns; })
        .method<"userInterfaceIdiom">([](UIDevice) -> long { return 0; })
        .readonly<"orientation", &DeviceState::orientation>()
        .method<"setOrientation:animated:">(
            [](UIDevice self, long orientation, bool) { turn(self, orientation); })
        .method<"setOrientation:">([](UIDevice self, long orientation) { turn(self, orientation); })
        .method<"beginGeneratingDeviceOrientationNotifications">([](UIDevice) {})
        .method<"endGeneratingDeviceOrientationNotifications">([](UIDevice) {});
}

}  // namespace simulator
