// Do not disturb on real phones: Control Center's module, the services behind it, or iOS 11's gateway.
// The services may refuse; the gateway tells late, again, on another thread or not at all.
#include "hooks/hook_report.hpp"
#include "simulator/runtime/journal.hpp"
#include "simulator/scenario/value.hpp"
#include "simulator/services/answers.hpp"
#include "simulator/services/system_settings.hpp"
#include "tests/toggles/toggle_phone.hpp"

namespace vantori::tests {
namespace {

using simulator::isOn;
using simulator::serviceManner;
using simulator::Setting;

class DoNotDisturbOnReal : public TogglePhone {
  protected:
    void bootReal(const char* system) {
        phone_->system(system);
        phone_->real();
        boot();
    }
    Toggle makeToggle() {
        Toggle toggle = makePackageToggle("VNTDNDToggleViewController", "on", "off");
        phone_->wait(0.1);
        return toggle;
    }
    // Also after what other processes have to do first.
    void tapAndWait(Toggle toggle) {
        tap(toggle);
        phone_->wait(0.1);
    }
    void refresh(Toggle toggle) {
        phone_->wait(0.1);
        toggle.refreshState();
    }
    static bool isQuiet() { return isOn(Setting::doNotDisturb); }
    int called(const char* cls, const char* message) { return phone_->calledCount(cls, message); }
};

class DoNotDisturbForm : public DoNotDisturbOnReal,
                         public testing::WithParamInterface<const char*> {};

TEST_P(DoNotDisturbForm, IsTurnedOnAndOff) {
    bootReal(GetParam());
    Toggle toggle = makeToggle();
    tapAndWait(toggle);
    EXPECT_TRUE(isQuiet());
    refresh(toggle);
    expectShown(toggle, true);
    tapAndWait(toggle);
    EXPECT_FALSE(isQuiet());
    refresh(toggle);
    expectShown(toggle, false);
    EXPECT_FALSE(phone_->crashed());
    EXPECT_EQ(phone_->loggedCount("do not disturb"), 0);
}

TEST_P(DoNotDisturbForm, FollowsTheSystem) {
    bootReal(GetParam());
    Toggle toggle = makeToggle();
    phone_->toggle("donotdisturb", true);
    refresh(toggle);
    expectShown(toggle, true);
    phone_->toggle("donotdisturb", false);
    refresh(toggle);
    expectShown(toggle, false);
}

TEST_P(DoNotDisturbForm, IsReadWhenTheToggleIsMade) {
    bootReal(GetParam());
    phone_->toggle("donotdisturb", true);
    Toggle toggle = makeToggle();
    refresh(toggle);
    expectShown(toggle, true);
}

INSTANTIATE_TEST_SUITE_P(Systems, DoNotDisturbForm,
                         testing::Values("11.0", "11.4", "12.0", "12.4", "13.0", "13.3", "13.4",
                                         "13.5", "13.6", "14.0", "14.2", "14.6", "14.8"));

TEST_F(DoNotDisturbOnReal, TheModuleIsToldWhereItCanBe) {
    bootReal("13.5");
    Toggle toggle = makeToggle();
    tapAndWait(toggle);
    EXPECT_EQ(called("DNDUIControlCenterModule", "_toggleStateForActive:"), 1);
    EXPECT_EQ(called("DNDStateService", "queryCurrentStateWithError:"), 0);
}

TEST_F(DoNotDisturbOnReal, OnFourteenOnlyTheServicesAreAsked) {
    bootReal("14.2");
    Toggle toggle = makeToggle();
    tapAndWait(toggle);
    EXPECT_EQ(called("DNDModeAssertionService", "takeModeAssertionWithDetails:error:"), 1);
    tapAndWait(toggle);
    EXPECT_EQ(called("DNDModeAssertionService", "invalidateAllActiveModeAssertionsWithError:"), 1);
    EXPECT_FALSE((toggle.send<"ccDND", Object>()));
}

// As the switch of Control Center itself does: the system keeps who turned it on, and for which mode.
TEST_F(DoNotDisturbOnReal, TheServiceIsToldWhoAsksForWhichMode) {
    bootReal("14.2");
    tapAndWait(makeToggle());
    auto call =
        phone_->lastCall("DNDModeAssertionDetails",
                         "userRequestedAssertionDetailsWithIdentifier:modeIdentifier:lifetime:");
    ASSERT_TRUE(call);
    const auto argument = [&](std::size_t index) {
        return NSString(*simulator::scenario::asObject((*call)[index]));
    };
    EXPECT_EQ(text(argument(0)), "com.apple.control-center.manual-toggle");
    EXPECT_EQ(text(argument(1)), "com.apple.donotdisturb.mode.default");
}

TEST_F(DoNotDisturbOnReal, TheReportNamesTheFormThatIsTaken) {
    bootReal("14.2");
    tapAndWait(makeToggle());
    EXPECT_NE(text(hookReport()).find("\nform do not disturb: DoNotDisturb services\n"),
              std::string::npos);
}

TEST_F(DoNotDisturbOnReal, ARefusingServiceIsNotAskedAgain) {
    bootReal("12.4");
    Toggle toggle = makeToggle();
    serviceManner().failing = true;
    phone_->clear();
    refresh(toggle);
    refresh(toggle);
    tapAndWait(toggle);
    refresh(toggle);
    expectShown(toggle, false);
    EXPECT_EQ(called("DNDStateService", "queryCurrentStateWithError:"), 1);
    EXPECT_EQ(called("DNDModeAssertionService", "takeModeAssertionWithDetails:error:"), 0);
    EXPECT_EQ(phone_->loggedCount("[Vantori] do not disturb is off: its state cannot be had: "), 1);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(DoNotDisturbOnReal, ARefusedTapTurnsTheFeatureOff) {
    bootReal("12.4");
    Toggle toggle = makeToggle();
    serviceManner().failing = true;
    phone_->clear();
    tapAndWait(toggle);
    tapAndWait(toggle);
    EXPECT_FALSE(isQuiet());
    EXPECT_EQ(called("DNDModeAssertionService", "takeModeAssertionWithDetails:error:"), 1);
    EXPECT_EQ(phone_->loggedCount("[Vantori] do not disturb is off: refused: "), 1);
}

TEST_F(DoNotDisturbOnReal, SoDoesARefusedTapThatEndsIt) {
    bootReal("12.4");
    Toggle toggle = makeToggle();
    tapAndWait(toggle);
    ASSERT_TRUE(isQuiet());
    serviceManner().failing = true;
    tapAndWait(toggle);
    EXPECT_TRUE(isQuiet());
    EXPECT_EQ(phone_->loggedCount("[Vantori] do not disturb is off: refused: "), 1);
}

class DoNotDisturbGateway : public DoNotDisturbOnReal {
  protected:
    Toggle makeToggleOn11() {
        bootReal("11.4");
        return makeToggle();
    }
};

TEST_F(DoNotDisturbGateway, MayTellTwiceAndOnAnotherThread) {
    Toggle toggle = makeToggleOn11();
    serviceManner() = {.times = 2, .onOtherThread = true};
    phone_->toggle("donotdisturb", true);
    refresh(toggle);
    expectShown(toggle, true);
    phone_->toggle("donotdisturb", false);
    refresh(toggle);
    expectShown(toggle, false);
    EXPECT_FALSE(phone_->crashed());
}

// 1 is on and 2 is off, both by hand, which is 1.
TEST_F(DoNotDisturbGateway, IsToldThatItIsByHand) {
    Toggle toggle = makeToggleOn11();
    for (const long status : {1L, 2L}) {
        tapAndWait(toggle);
        const auto told =
            simulator::Journal::last("BBSettingsGateway", "setBehaviorOverrideStatus:source:");
        ASSERT_TRUE(told);
        EXPECT_EQ(std::get<long>(told->at(0)), status);
        EXPECT_EQ(std::get<long>(told->at(1)), 1);
    }
}

TEST_F(DoNotDisturbGateway, MayTellLate) {
    Toggle toggle = makeToggleOn11();
    serviceManner().after = 3;
    phone_->toggle("donotdisturb", true);
    refresh(toggle);
    expectShown(toggle, false);
    phone_->wait(3);
    refresh(toggle);
    expectShown(toggle, true);
}

// What was written last counts then: otherwise the toggle could only ever turn it on.
TEST_F(DoNotDisturbGateway, MayNeverTell) {
    serviceManner().times = 0;
    Toggle toggle = makeToggleOn11();
    tapAndWait(toggle);
    EXPECT_TRUE(isQuiet());
    refresh(toggle);
    expectShown(toggle, true);
    tapAndWait(toggle);
    EXPECT_FALSE(isQuiet());
    refresh(toggle);
    expectShown(toggle, false);
}

TEST_F(DoNotDisturbGateway, OfAToggleThatIsGoneTellsNobody) {
    bootReal("11.4");
    {
        AutoreleasePool pool;
        Toggle toggle = makePackageToggle("VNTDNDToggleViewController", "on", "off");
        toggle.send<"setCcDND:">(Object());
    }
    phone_->toggle("donotdisturb", true);
    phone_->wait(0.1);
    EXPECT_FALSE(phone_->crashed());
}

}  // namespace
}  // namespace vantori::tests
