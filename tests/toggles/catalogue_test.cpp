// Every toggle that is bound to a setting goes through the same cases, on a system before and one
// after 13.0: it reads the setting when it is asked to, writes it at a tap, and lives without it.
#include "toggles/catalogue.hpp"

#include "simulator/scenario/value.hpp"
#include "simulator/services/system_settings.hpp"
#include "tests/order.hpp"
#include "tests/toggles/toggle_phone.hpp"

namespace vantori::tests {
namespace {

enum class Made { withPackage, withImages };

struct Kind {
    const char* className;
    const char* setting;  // by the words of a scenario; the style has none
    Made made;
    const char* onName;
    const char* offName;
    double duration;  // seconds
    const char* systemClass;
    const char* writesOn;
    const char* writesOff;
};

constexpr Kind kinds[]{
    {"VNTAppearanceToggleViewController", nullptr, Made::withPackage, "light", "dark", 1.0,
     "UISUserInterfaceStyleMode", "setModeValue:", "setModeValue:"},
    {"VNTOrientationLockToggleViewController", "orientationlock", Made::withPackage, "locked",
     "unlocked", 0.8, "SBControlCenterSystemAgent", "lockOrientation", "unlockOrientation"},
    {"VNTMuteToggleViewController", "ringermute", Made::withPackage, "silent", "ringer", 0.8,
     "SBControlCenterSystemAgent", "setRingerMuted:", "setRingerMuted:"},
    {"VNTLowPowerToggleViewController", "lowpower", Made::withPackage, "enabled", "*", 1.0,
     "_CDBatterySaver", "setMode:", "setMode:"},
    {"VNTDNDToggleViewController", "donotdisturb", Made::withPackage, "on", "off", 1.0,
     "DNDUIControlCenterModule", "_toggleStateForActive:", "_toggleStateForActive:"},
    {"VNTFlashlightToggleViewController", "flashlight", Made::withImages, "on", "off", 0.6,
     "SBUIFlashlightController", "turnFlashlightOnForReason:", "turnFlashlightOffForReason:"},
    {"VNTNightshiftToggleViewController", "nightshift", Made::withImages, "on", "off", 1.0,
     "CBBlueLightClient", "setEnabled:", "setEnabled:"},
    {"VNTTrueToneToggleViewController", "truetone", Made::withImages, "on", "off", 1.0,
     "CBAdaptationClient", "setEnabled:", "setEnabled:"},
};

class CatalogueBase : public TogglePhone {
  protected:
    Toggle makeToggle(const Kind& kind) {
        return kind.made == Made::withPackage
                   ? makePackageToggle(kind.className, kind.onName, kind.offName)
                   : makeImageToggle(kind.className, kind.onName, kind.offName);
    }
    // Someone else.
    void set(const Kind& kind, bool on) {
        if (kind.setting) {
            phone_->toggle(kind.setting, on);
        } else {
            phone_->appearance(on);
        }
    }
    static void expectGlyph(Toggle toggle, const Kind& kind, bool on) {
        expectNamed(toggle, on ? kind.onName : kind.offName);
        if (kind.made == Made::withPackage) {
            EXPECT_EQ(glyphOf(toggle), on ? kind.onName : kind.offName);
        } else {
            EXPECT_EQ(toggle.toggleButton().onImageView().alpha(), on ? 1 : 0);
            EXPECT_EQ(toggle.toggleButton().offImageView().alpha(), on ? 0 : 1);
        }
    }
    static bool hasStates(const Kind& kind, const char* system) {
        return kind.setting || std::string_view(system) != "12.4";
    }
};

using Case = std::tuple<Kind, const char*>;

class Catalogue : public CatalogueBase, public testing::WithParamInterface<Case> {
  protected:
    const Kind& kind() const { return std::get<0>(GetParam()); }
    const char* system() const { return std::get<1>(GetParam()); }
    bool hasStates() const { return CatalogueBase::hasStates(kind(), system()); }
    void bootSystem() {
        phone_->system(system());
        boot();
    }
    void expectAll(Toggle toggle, bool on) {
        expectShown(toggle, on);
        expectGlyph(toggle, kind(), on);
    }
};

TEST_P(Catalogue, ReadsOffAtFirst) {
    bootSystem();
    Toggle toggle = makeToggle(kind());
    putOnToolbar(toggle);
    toggle.refreshState();
    expectAll(toggle, false);
    EXPECT_FALSE(isAnimating(toggle.toggleButton().offView()));
}

TEST_P(Catalogue, FollowsSomeoneElseOnlyWhenItIsRefreshed) {
    bootSystem();
    Toggle toggle = makeToggle(kind());
    putOnToolbar(toggle);
    set(kind(), true);
    phone_->wait(1);
    expectAll(toggle, false);
    refreshAll();
    expectAll(toggle, hasStates());
    EXPECT_FALSE(isAnimating(toggle.toggleButton().onView()));
    set(kind(), false);
    expectAll(toggle, hasStates());
    refreshAll();
    expectAll(toggle, false);
}

TEST_P(Catalogue, FadesItsColoursWhileATapIsWritten) {
    bootSystem();
    Toggle toggle = makeToggle(kind());
    putOnToolbar(toggle);
    tap(toggle);
    EXPECT_EQ(phone_->haptics(0), 1);
    EXPECT_EQ(phone_->calledCount(kind().systemClass, kind().writesOn), 1);
    expectShown(toggle, true);
    expectNamed(toggle, kind().onName);
    phone_->wait(kind().duration - 0.05);
    EXPECT_TRUE(isAnimating(toggle.toggleButton().onView()));
    phone_->wait(0.1);
    EXPECT_FALSE(isAnimating(toggle.toggleButton().onView()));
    expectShown(toggle, true);
    refreshAll();
    expectAll(toggle, hasStates());
}

TEST_P(Catalogue, TurnsOffAtTheSecondTap) {
    bootSystem();
    Toggle toggle = makeToggle(kind());
    tap(toggle);
    phone_->clear();
    tap(toggle);
    EXPECT_EQ(phone_->calledCount(kind().systemClass, kind().writesOff), 1);
    expectShown(toggle, false);
    expectNamed(toggle, kind().offName);
    refreshAll();
    expectAll(toggle, false);
}

TEST_P(Catalogue, TellsAnotherToggleOfItsKindAtTheNextRefresh) {
    bootSystem();
    Toggle one = makeToggle(kind());
    Toggle other = makeToggle(kind());
    tap(one);
    expectAll(other, false);
    refreshAll();
    expectAll(other, hasStates());
}

TEST_P(Catalogue, FlipsItsLookWithoutTheSystemClass) {
    phone_->missingClass(kind().systemClass);
    bootSystem();
    Toggle toggle = makeToggle(kind());
    if (kind().setting) set(kind(), true);
    refreshAll();
    EXPECT_FALSE(toggle.isOn());
    EXPECT_EQ(toggle.currentState(), 0);
    tap(toggle);
    EXPECT_EQ(phone_->haptics(0), 1);
    expectShown(toggle, true);
    expectNamed(toggle, kind().onName);
    tap(toggle);
    expectShown(toggle, false);
    expectNamed(toggle, kind().offName);
    EXPECT_EQ(phone_->haptics(0), 2);
    EXPECT_FALSE(phone_->crashed());
}

std::string caseName(const testing::TestParamInfo<Case>& info) {
    std::string text = std::get<0>(info.param).className;
    const std::string tail = "ToggleViewController";
    text = text.substr(3, text.size() - 3 - tail.size());
    return text + (std::string_view(std::get<1>(info.param)) == "12.4" ? "On12" : "On13");
}

INSTANTIATE_TEST_SUITE_P(Kinds, Catalogue,
                         testing::Combine(testing::ValuesIn(kinds),
                                          testing::Values("12.4", "13.3")),
                         caseName);

class CatalogueDetails : public CatalogueBase {
  protected:
    static UIColor tint(UIView view) { return view.send<"tintColor", UIColor>(); }
    std::vector<std::string> lastCall(const char* className, const char* selector) {
        std::vector<std::string> texts;
        auto call = phone_->lastCall(className, selector);
        if (!call) return {"never"};
        for (const auto& value : *call) texts.push_back(simulator::scenario::printed(value));
        return texts;
    }
    using Calls = std::vector<std::string>;
};

TEST_F(CatalogueDetails, TheAppearanceToggleTurnsThePhoneDarkAndLight) {
    boot();
    Toggle toggle = makeToggle(kinds[0]);
    tap(toggle);
    EXPECT_EQ(lastCall("UISUserInterfaceStyleMode", "setModeValue:"), Calls{"2"});
    EXPECT_EQ(UITraitCollection::current().userInterfaceStyle(), 2);
    EXPECT_EQ(glyphOf(toggle), "light");
    tap(toggle);
    EXPECT_EQ(lastCall("UISUserInterfaceStyleMode", "setModeValue:"), Calls{"1"});
    EXPECT_EQ(UITraitCollection::current().userInterfaceStyle(), 1);
    EXPECT_EQ(glyphOf(toggle), "dark");
}

TEST_F(CatalogueDetails, TheAppearanceToggleIsOnInDarkModeFromTheStart) {
    boot();
    phone_->appearance(true);
    Toggle toggle = makeToggle(kinds[0]);
    expectShown(toggle, true);
    EXPECT_EQ(glyphOf(toggle), "light");
}

TEST_F(CatalogueDetails, WritesWithTheirArguments) {
    boot();
    tap(makeToggle(kinds[2]));
    EXPECT_EQ(lastCall("SBControlCenterSystemAgent", "setRingerMuted:"), Calls{"YES"});
    Toggle power = makeToggle(kinds[3]);
    tap(power);
    EXPECT_EQ(lastCall("_CDBatterySaver", "setMode:"), Calls{"1"});
    tap(power);
    EXPECT_EQ(lastCall("_CDBatterySaver", "setMode:"), Calls{"0"});
    tap(makeToggle(kinds[4]));
    EXPECT_EQ(lastCall("DNDUIControlCenterModule", "_toggleStateForActive:"), Calls{"YES"});
    Toggle torch = makeToggle(kinds[5]);
    tap(torch);
    EXPECT_EQ(lastCall("SBUIFlashlightController", "turnFlashlightOnForReason:"),
              Calls{"\"Vantori_turn_on\""});
    tap(torch);
    EXPECT_EQ(lastCall("SBUIFlashlightController", "turnFlashlightOffForReason:"),
              Calls{"\"Vantori_turn_off\""});
    tap(makeToggle(kinds[6]));
    EXPECT_EQ(lastCall("CBBlueLightClient", "setEnabled:"), Calls{"YES"});
    tap(makeToggle(kinds[7]));
    EXPECT_EQ(lastCall("CBAdaptationClient", "setEnabled:"), Calls{"YES"});
}

TEST_F(CatalogueDetails, TheOrientationLockReadsTheSettingAsSoonAsItIsMade) {
    boot();
    phone_->toggle("orientationlock", true);
    Toggle toggle = makeToggle(kinds[1]);
    expectShown(toggle, true);
    EXPECT_TRUE((toggle.send<"ccAgent", Object>()));
}

TEST_F(CatalogueDetails, TheMuteToggleShowsOffUntilItsNextRefresh) {
    boot();
    phone_->toggle("ringermute", true);
    Toggle toggle = makeToggle(kinds[2]);
    EXPECT_TRUE((toggle.send<"ccAgent", Object>()));
    expectShown(toggle, false);
    expectNamed(toggle, "ringer");
    toggle.refreshState();
    expectShown(toggle, true);
    expectNamed(toggle, "silent");
}

TEST_F(CatalogueDetails, DoNotDisturbReadsWithTheModuleThatItsFirstRefreshMakes) {
    boot();
    phone_->toggle("donotdisturb", true);
    Toggle toggle = makeToggle(kinds[4]);
    expectShown(toggle, true);
    toggle.send<"setCcDND:">(Object());
    toggle.setIsOn(false);
    EXPECT_TRUE((toggle.send<"ccDND", Object>()));
    toggle.send<"setCcDND:">(Object());
    toggle.refreshState();
    EXPECT_TRUE((toggle.send<"ccDND", Object>()));
    expectShown(toggle, false);
}

TEST_F(CatalogueDetails, ATorchThatIsNotAvailableReadsOff) {
    boot();
    phone_->toggle("flashlight", true);
    Toggle toggle = makeToggle(kinds[5]);
    expectShown(toggle, true);
    phone_->flashlightAvailable(false);
    expectShown(toggle, true);
    refreshAll();
    expectShown(toggle, false);
    EXPECT_EQ((SBUIFlashlightController::shared().level()), 4u);
    phone_->flashlightAvailable(true);
    refreshAll();
    expectShown(toggle, true);
}

TEST_F(CatalogueDetails, TheFlashlightIsLookedUpAtARefreshOnly) {
    boot();
    Toggle toggle = makeToggle(kinds[5]);
    toggle.send<"setFlashlightController:">(Object());
    tap(toggle);
    EXPECT_FALSE((toggle.send<"flashlightController", Object>()));
    EXPECT_EQ(phone_->calledCount("SBUIFlashlightController", "turnFlashlightOnForReason:"), 0);
    toggle.refreshState();
    EXPECT_TRUE((toggle.send<"flashlightController", Object>()));
}

// After a tap the images take the light of the layers, 0.7 and 0; a refresh shows them whole again.
TEST_F(CatalogueDetails, ImagesFadeWithTheirLayers) {
    boot();
    for (int i = 5; i <= 7; ++i) {
        Toggle toggle = makeToggle(kinds[i]);
        tap(toggle);
        EXPECT_NEAR(toggle.toggleButton().onImageView().alpha(), 0.7, 1e-6) << kinds[i].className;
        EXPECT_EQ(toggle.toggleButton().offImageView().alpha(), 0) << kinds[i].className;
        toggle.refreshState();
        EXPECT_EQ(toggle.toggleButton().onImageView().alpha(), 1) << kinds[i].className;
        tap(toggle);
        EXPECT_EQ(toggle.toggleButton().onImageView().alpha(), 0) << kinds[i].className;
        EXPECT_NEAR(toggle.toggleButton().offImageView().alpha(), 0.7, 1e-6) << kinds[i].className;
    }
}

TEST_F(CatalogueDetails, NightShiftAndTrueToneColourThemselvesAtEveryRefresh) {
    boot();
    for (int i : {6, 7}) {
        Toggle toggle = makeToggle(kinds[i]);
        UIColor on = i == 6 ? UIColor::systemOrange() : UIColor::systemBlue();
        EXPECT_TRUE(equal(tint(toggle.toggleButton().onImageView()), on));
        EXPECT_TRUE(equal(tint(toggle.toggleButton().offImageView()), UIColor::white()));
        toggle.toggleButton().setOnColor(UIColor::black());
        toggle.refreshState();
        EXPECT_TRUE(equal(tint(toggle.toggleButton().onImageView()), on));
    }
}

TEST_F(CatalogueDetails, NightShiftStaysAsItIsWhenItsStatusCannotBeHad) {
    phone_->missingClass("CBBlueLightClient");
    boot();
    Toggle toggle = makeToggle(kinds[6]);
    EXPECT_TRUE(equal(tint(toggle.toggleButton().onImageView()), UIColor::systemOrange()));
    EXPECT_FALSE(toggle.currentStateName());
    tap(toggle);
    toggle.refreshState();
    expectShown(toggle, true);
}

TEST_F(CatalogueDetails, NightShiftStaysAsItIsWhenItsStatusIsRefused) {
    boot();
    Toggle toggle = makeToggle(kinds[6]);
    phone_->toggle("nightshift", true);
    simulator::setNightShiftAnswers(false);
    toggle.refreshState();
    expectShown(toggle, false);
    simulator::setNightShiftAnswers(true);
    toggle.refreshState();
    expectShown(toggle, true);
}

// Whether it tints the display now is not whether it is switched on.
TEST_F(CatalogueDetails, NightShiftIsOffWhileItIsOnlyActive) {
    boot();
    Toggle toggle = makeToggle(kinds[6]);
    toggle.refreshState();
    expectShown(toggle, false);
    simulator::setNightShiftActive(false);
    phone_->toggle("nightshift", true);
    toggle.refreshState();
    expectShown(toggle, true);
}

TEST_F(CatalogueDetails, LoadingTheViewOfNightShiftAndTrueToneKeepsOneCallForATap) {
    boot();
    for (int i : {6, 7}) {
        Toggle toggle = makeToggle(kinds[i]);
        phone_->clear();
        toggle.send<"viewDidLoad">();
        tap(toggle);
        EXPECT_EQ(phone_->haptics(0), 1);
        expectShown(toggle, true);
    }
    EXPECT_TRUE((makeToggle(kinds[6]).send<"blueLightClient", Object>()));
    EXPECT_TRUE((makeToggle(kinds[7]).send<"adaptationClient", Object>()));
}

TEST_F(CatalogueDetails, LoadingTheViewOfNightShiftAndTrueToneMakesANewClient) {
    boot();
    Toggle nightShift = makeToggle(kinds[6]);
    Toggle trueTone = makeToggle(kinds[7]);
    Strong<Object> first = retained(nightShift.send<"blueLightClient", Object>());
    Strong<Object> second = retained(trueTone.send<"adaptationClient", Object>());
    nightShift.send<"viewDidLoad">();
    trueTone.send<"viewDidLoad">();
    EXPECT_FALSE((nightShift.send<"blueLightClient", Object>() == first));
    EXPECT_FALSE((trueTone.send<"adaptationClient", Object>() == second));
}

TEST_F(CatalogueDetails, LoadingTheViewOfNightShiftAndTrueToneReadsTheSetting) {
    boot();
    for (int i : {6, 7}) {
        Toggle toggle = makeToggle(kinds[i]);
        phone_->toggle(kinds[i].setting, true);
        expectShown(toggle, false);
        toggle.send<"viewDidLoad">();
        expectShown(toggle, true);
    }
}

// True Tone shows the image that fits before the name of the state does so.
TEST_F(CatalogueDetails, TrueToneShowsItsImagesByItself) {
    boot();
    Toggle toggle = makeToggle(kinds[7]);
    std::vector<std::pair<double, double>> images;
    Spy<"updateState:", id>::on("VNTDailyToggleButton", [&](Object raw, id) {
        auto button = as<VNTDailyToggleButton>(raw);
        images.emplace_back(button.onImageView().alpha(), button.offImageView().alpha());
    });
    phone_->toggle("truetone", true);
    toggle.refreshState();
    phone_->toggle("truetone", false);
    toggle.refreshState();
    EXPECT_EQ(images, (std::vector<std::pair<double, double>>{{1, 0}, {0, 1}}));
}

class Switch : public CatalogueBase {
  protected:
    VNTSwitchModuleToggleViewController makeSwitch() {
        auto made = as<VNTSwitchModuleToggleViewController>(
            makeImageToggle("VNTSwitchModuleToggleViewController", "full", "min"));
        made.setOnMessage("please-show"_ns);
        made.setOffMessage("please-hide"_ns);
        return made;
    }
};

TEST_F(Switch, PostsItsOnMessageAtEveryTapWhileItIsOff) {
    boot();
    auto toggle = makeSwitch();
    putOnToolbar(toggle);
    toggle.setIsOn(false);
    phone_->wait(1);
    const double off = toggle.toggleButton().offView().alpha();
    for (int taps = 1; taps <= 3; ++taps) {
        tap(toggle);
        EXPECT_EQ(posted("please-show"), taps);
        EXPECT_EQ(phone_->haptics(0), taps);
        EXPECT_FALSE(toggle.isOn());
        EXPECT_EQ(toggle.currentState(), 1);
        EXPECT_EQ(toggle.toggleButton().offView().alpha(), off);
        EXPECT_FALSE(isAnimating(toggle.toggleButton().offView()));
    }
    EXPECT_EQ(posted("please-hide"), 0);
    EXPECT_FALSE(toggle.currentStateName());
}

TEST_F(Switch, PostsItsOffMessageAtEveryTapWhileItIsOn) {
    boot();
    auto toggle = makeSwitch();
    toggle.setIsOn(true);
    tap(toggle);
    tap(toggle);
    EXPECT_EQ(posted("please-hide"), 2);
    EXPECT_EQ(posted("please-show"), 0);
    EXPECT_TRUE(toggle.isOn());
    EXPECT_EQ(toggle.currentState(), 0);
}

// Who hears the message finds the toggle as it was before the tap.
TEST_F(Switch, TakesItsNewStateAfterItsMessage) {
    boot();
    auto toggle = makeSwitch();
    listenTo({"please-show", "please-hide"});
    std::vector<long> states;
    Order::look() = [&] { states.push_back(toggle.currentState()); };
    toggle.setIsOn(false);
    toggle.setCurrentState(7);
    tap(toggle);
    toggle.setIsOn(true);
    toggle.setCurrentState(8);
    tap(toggle);
    EXPECT_EQ(states, (std::vector<long>{7, 8}));
}

TEST_F(Switch, FadesItsColoursOverEightTenthsOfASecond) {
    boot();
    auto toggle = makeSwitch();
    putOnToolbar(toggle);
    phone_->wait(1);
    toggle.setIsOn(true);
    expectShown(toggle, true);
    phone_->wait(0.75);
    EXPECT_TRUE(isAnimating(toggle.toggleButton().onView()));
    phone_->wait(0.1);
    EXPECT_FALSE(isAnimating(toggle.toggleButton().onView()));
    EXPECT_FALSE(toggle.currentStateName());
    EXPECT_EQ(toggle.toggleButton().onImageView().alpha(), 1);
    EXPECT_EQ(toggle.toggleButton().offImageView().alpha(), 1);
}

TEST_F(Switch, TakesItsStateBackFromItsFlagAtARefresh) {
    boot();
    auto toggle = makeSwitch();
    tap(toggle);
    EXPECT_EQ(toggle.currentState(), 1);
    refreshAll();
    EXPECT_EQ(toggle.currentState(), 0);
    expectShown(toggle, false);
    tap(toggle);
    EXPECT_EQ(toggle.currentState(), 1);
    toggle.send<"viewDidLoad">();
    EXPECT_EQ(toggle.currentState(), 0);
    expectShown(toggle, false);
}

}  // namespace
}  // namespace vantori::tests
