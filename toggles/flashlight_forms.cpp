#include "toggles/flashlight_forms.hpp"

#include "platform/form.hpp"

namespace vantori {

namespace {

struct FlashlightFunctions {
    void (*turnOn)(SBUIFlashlightController);
    void (*turnOff)(SBUIFlashlightController);
};

using OnForReason =
    InstanceMethod<"SBUIFlashlightController", "turnFlashlightOnForReason:", void(NSString)>;
using OffForReason =
    InstanceMethod<"SBUIFlashlightController", "turnFlashlightOffForReason:", void(NSString)>;

constexpr FlashlightFunctions withReason{
    [](SBUIFlashlightController controller) {
        OnForReason::send(controller, "Vantori_turn_on"_ns);
    },
    [](SBUIFlashlightController controller) {
        OffForReason::send(controller, "Vantori_turn_off"_ns);
    },
};

// iOS 11.
using On = InstanceMethod<"SBUIFlashlightController", "turnFlashlightOn", void()>;
using Off = InstanceMethod<"SBUIFlashlightController", "turnFlashlightOff", void()>;

constexpr FlashlightFunctions withoutReason{
    [](SBUIFlashlightController controller) { On::send(controller); },
    [](SBUIFlashlightController controller) { Off::send(controller); },
};

using Flashlight =
    Feature<"flashlight", Form<"with a reason", withReason, OnForReason, OffForReason>,
            Form<"without a reason", withoutReason, On, Off>>;

}  // namespace

void turnFlashlight(SBUIFlashlightController controller, bool on) {
    const FlashlightFunctions* form = Flashlight::taken();
    if (!form) return;
    (on ? form->turnOn : form->turnOff)(controller);
}

}  // namespace vantori
