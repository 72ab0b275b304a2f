// The flashlight on real phones: iOS 11 turns it on without a reason, later systems with one.
#include "simulator/services/system_settings.hpp"
#include "tests/toggles/toggle_phone.hpp"

namespace vantori::tests {
namespace {

using simulator::isOn;
using simulator::Setting;

class FlashlightForm : public TogglePhone, public testing::WithParamInterface<const char*> {
  protected:
    FlashlightForm() {
        phone_->system(GetParam());
        phone_->real();
    }
};

TEST_P(FlashlightForm, TurnsTheTorchOnAndOff) {
    boot();
    Toggle toggle = makeImageToggle("VNTFlashlightToggleViewController", "on", "off");
    tap(toggle);
    EXPECT_TRUE(isOn(Setting::flashlight));
    refreshAll();
    expectShown(toggle, true);
    tap(toggle);
    EXPECT_FALSE(isOn(Setting::flashlight));
    refreshAll();
    expectShown(toggle, false);
    EXPECT_FALSE(phone_->crashed());
    EXPECT_EQ(phone_->loggedCount("flashlight"), 0);
}

INSTANTIATE_TEST_SUITE_P(Systems, FlashlightForm,
                         testing::Values("11.0", "11.4", "12.0", "12.4", "13.3", "13.6", "14.2",
                                         "14.8"));

class TorchWithoutAForm : public TogglePhone {};

TEST_F(TorchWithoutAForm, LooksOnForTheTapAndIsOff) {
    phone_->missingClass("SBUIFlashlightController");
    boot();
    Toggle toggle = makeImageToggle("VNTFlashlightToggleViewController", "on", "off");
    tap(toggle);
    EXPECT_TRUE(toggle.isOn());
    refreshAll();
    expectShown(toggle, false);
    tap(toggle);
    EXPECT_EQ(phone_->loggedCount("is off"), 0);
}

}  // namespace
}  // namespace vantori::tests
