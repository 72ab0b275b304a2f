// The phone's switches by themselves: the objects that know them, who is told, and what they do to
// the rest of the phone.
#include "simulator/services/system_settings.hpp"

#include <gtest/gtest.h>

#include "platform/package_view.hpp"
#include "platform/system_settings.hpp"
#include "simulator/phone/screen_picture.hpp"
#include "simulator/rendering/symbols.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/services/packages.hpp"
#include "simulator/services/setting_agents.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/uikit/layer/layer.hpp"

namespace {

using namespace simulator;

class Switches : public testing::Test {
  protected:
    void boot() {
        phone_->withoutExtension();
        phone_->boot();
        phone_->clear();
    }
    AutoreleasePool pool_;
    std::unique_ptr<Phone> phone_ = makePhone({});
};

TEST_F(Switches, AreAllOffAtFirst) {
    boot();
    for (const char* word : {"orientationlock", "ringermute", "lowpower", "donotdisturb",
                             "flashlight", "nightshift", "truetone"}) {
        auto setting = settingNamed(word);
        ASSERT_TRUE(setting) << word;
        EXPECT_FALSE(isOn(*setting)) << word;
        phone_->toggle(word, true);
        EXPECT_TRUE(isOn(*setting)) << word;
    }
    EXPECT_THROW(phone_->toggle("gravity", true), PhoneError);
    for (const char* word : {"", "true", "truetoned", "orientationlock|ringermute"}) {
        EXPECT_FALSE(settingNamed(word)) << word;
    }
}

TEST_F(Switches, TellListenersOfRealChangesOnly) {
    int told = 0;
    onSettingChange([&](Setting setting) { told += setting == Setting::trueTone ? 1 : 0; });
    setOn(Setting::trueTone, true);
    setOn(Setting::trueTone, true);
    EXPECT_EQ(told, 1);
}

TEST_F(Switches, TheAgentsOfOneSettingAgree) {
    boot();
    auto one = create<SBControlCenterSystemAgent>();
    auto other = create<SBControlCenterSystemAgent>();
    one.lockOrientation();
    one.setRingerMuted(true);
    EXPECT_TRUE(other.isOrientationLocked());
    EXPECT_TRUE(other.isRingerMuted());
    other.unlockOrientation();
    EXPECT_FALSE(one.isOrientationLocked());
}

// That it is switched on and that it is active are two flags; the service may not answer.
TEST_F(Switches, NightShiftTellsActiveFromEnabled) {
    boot();
    auto client = create<CBBlueLightClient>();
    BlueLightStatus status{};
    ASSERT_TRUE(client.getStatus(&status));
    EXPECT_TRUE(status.active);
    EXPECT_FALSE(status.enabled);
    client.setEnabled(true);
    client.send<"setActive:", bool>(false);
    ASSERT_TRUE(client.getStatus(&status));
    EXPECT_FALSE(status.active);
    EXPECT_TRUE(status.enabled);
    setNightShiftAnswers(false);
    status = {};
    EXPECT_FALSE(client.getStatus(&status));
    EXPECT_FALSE(status.enabled);
}

TEST_F(Switches, LowPowerIsAnnouncedAndTurnsTheBatteryYellow) {
    boot();
    const auto before = screenPicture(1);
    CDBatterySaver::shared().setMode(CDBatterySaver::low);
    EXPECT_EQ(CDBatterySaver::shared().powerMode(), 1);
    EXPECT_EQ(phone_->postedCount("NSProcessInfoPowerStateDidChangeNotification"), 1);
    const auto after = screenPicture(1);
    // The battery's middle, in the right ear: yellow has no blue.
    const auto blueAt = [](const rendering::Surface& picture, int x, int y) {
        const unsigned char* pixels = cairo_image_surface_get_data(picture.get());
        return int{pixels[y * cairo_image_surface_get_stride(picture.get()) + 4 * x]};
    };
    EXPECT_GT(blueAt(before, 347, 24), 200);
    EXPECT_LT(blueAt(after, 347, 24), 40);
}

TEST_F(Switches, NightShiftTakesBlueOutOfTheWholeScreen) {
    boot();
    const auto blueOf = [](const rendering::Surface& picture) {
        const unsigned char* pixels = cairo_image_surface_get_data(picture.get());
        const int stride = cairo_image_surface_get_stride(picture.get());
        long sum = 0;
        for (int y = 0; y < picture.height(); y += 10) {
            for (int x = 0; x < picture.width(); x += 10) sum += pixels[y * stride + 4 * x];
        }
        return sum;
    };
    const double plain = static_cast<double>(blueOf(screenPicture(1)));
    auto client = create<CBBlueLightClient>();
    client.setEnabled(true);
    EXPECT_NEAR(static_cast<double>(blueOf(screenPicture(1))) / plain, 0.66, 0.01);
    client.setEnabled(false);
    EXPECT_EQ(static_cast<double>(blueOf(screenPicture(1))), plain);
}

TEST_F(Switches, TheBlueLightStatusHasItsFlagInTheSecondByte) {
    boot();
    auto client = create<CBBlueLightClient>();
    int told = 0;
    client.send<"setStatusNotificationBlock:">(BlockRef<void()>(block([&] { ++told; })));
    phone_->toggle("nightshift", true);
    BlueLightStatus status{};
    ASSERT_TRUE(client.getStatus(&status));
    EXPECT_EQ(reinterpret_cast<const unsigned char*>(&status)[1], 1);
    EXPECT_FALSE(client.getStatus(nullptr));
    EXPECT_EQ(told, 1);
}

TEST_F(Switches, TheFlashlightDoesNotTurnOnWhileItIsNotAvailable) {
    phone_->flashlightAvailable(false);
    boot();
    SBUIFlashlightController flashlight = SBUIFlashlightController::shared();
    flashlight.send<"turnFlashlightOnForReason:">("test"_ns);
    EXPECT_EQ(flashlight.level(), 0u);
    EXPECT_FALSE(flashlight.isAvailable());
    phone_->flashlightAvailable(true);
    flashlight.send<"turnFlashlightOnForReason:">("test"_ns);
    EXPECT_NE(flashlight.level(), 0u);
    flashlight.send<"turnFlashlightOffForReason:">("test"_ns);
    EXPECT_EQ(flashlight.level(), 0u);
}

TEST_F(Switches, TheStyleModeTurnsThePhoneDark) {
    boot();
    auto mode = create<UISUserInterfaceStyleMode>();
    mode.setModeValue(2);
    EXPECT_EQ(UITraitCollection::current().userInterfaceStyle(), 2);
    mode.setModeValue(7);
    EXPECT_EQ(UITraitCollection::current().userInterfaceStyle(), 2);
    mode.setModeValue(1);
    EXPECT_EQ(UITraitCollection::current().userInterfaceStyle(), 1);
}

TEST_F(Switches, TheStyleModeDoesNothingBeforeThereAreStyles) {
    phone_->system("12.4");
    boot();
    create<UISUserInterfaceStyleMode>().setModeValue(2);
    EXPECT_EQ(UITraitCollection::current().userInterfaceStyle(), 1);
}

TEST_F(Switches, ALockedInterfaceDoesNotTurnAndCatchesUpWhenUnlocked) {
    boot();
    phone_->rotate(Orientation::landscapeLeft);
    phone_->toggle("orientationlock", true);
    phone_->rotate(Orientation::portrait);
    phone_->rotate(Orientation::landscapeRight);
    EXPECT_EQ(activeOrientation(), 4);
    phone_->toggle("orientationlock", false);
    EXPECT_EQ(activeOrientation(), 3);
    phone_->toggle("orientationlock", true);
    phone_->toggle("orientationlock", false);
    EXPECT_EQ(activeOrientation(), 3);
}

TEST_F(Switches, DoNotDisturbComesWithItsModule) {
    boot();
    EXPECT_FALSE(objc_getClass("DNDUIControlCenterModule"));
    NSBundle::withPath("/System/Library/ControlCenter/Bundles/DoNotDisturbModule.bundle"_ns).load();
    auto module = create<DNDUIControlCenterModule>();
    auto isActive = [&module] {
        return module.send<"valueForKey:", Object>("_currentState"_ns).send<"isActive", bool>();
    };
    EXPECT_FALSE(isActive());
    module.send<"_toggleStateForActive:">(true);
    EXPECT_TRUE(isActive());
    EXPECT_TRUE(isOn(Setting::doNotDisturb));
}

TEST_F(Switches, EveryStateOfEveryPackageHasADrawing) {
    for (const GlyphPackage& package : glyphPackages()) {
        EXPECT_FALSE(package.states.empty()) << package.path;
        for (const GlyphState& state : package.states) {
            EXPECT_FALSE(state.parts.empty()) << package.path << " " << state.name;
            for (const GlyphPart& part : state.parts) {
                EXPECT_TRUE(rendering::hasSymbol(part.symbol)) << part.symbol;
            }
        }
    }
}

TEST_F(Switches, APackageStandsInTheMiddleInItsOwnSize) {
    boot();
    auto view = create<CCUICAPackageView, "initWithFrame:">(rect(0, 0, 100, 60));
    CAPackage package = CAPackage::fromBundle(
        "/System/Library/ControlCenter/Bundles/DisplayModule.bundle/Brightness.ca"_ns);
    ASSERT_TRUE(package);
    view.setPackage(package);
    CALayer root = package.send<"rootLayer", CALayer>();
    EXPECT_EQ((root.send<"frame", CGRect>()), rect(35, 15, 30, 30));
    EXPECT_TRUE((root.send<"superlayer", CALayer>()) == view.layer());
    const Object dim = root.send<"contents", Object>();
    view.setStateName("full"_ns);
    EXPECT_FALSE((root.send<"contents", Object>()) == dim);
    view.setStateName("never heard of"_ns);
    EXPECT_TRUE((root.send<"contents", Object>()) == dim);
    view.setPackage(CAPackage());
    EXPECT_FALSE((root.send<"superlayer", Object>()));
}

}  // namespace
