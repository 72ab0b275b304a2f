// Start-up: what is installed under which settings, device and missing pieces, and in which order.
#include "hooks/start_up.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "hooks/hook_report.hpp"
#include "hooks/hook_table.hpp"
#include "simulator/runtime/hooking.hpp"
#include "simulator/runtime/journal.hpp"
#include "simulator/runtime/system_log.hpp"
#include "tests/library_phone.hpp"

namespace vantori::tests {
namespace {

class StartUp : public LibraryPhone {
  protected:
    static std::vector<std::string> installed() {
        std::vector<std::string> names;
        for (const auto& hook : simulator::handovers()) {
            names.push_back(hook.className + " " + hook.selector);
        }
        return names;
    }
};

// The whole order, written down once by hand.
const std::vector<std::string> welcomeRow = {"SBHomeScreenView didMoveToWindow"};
const std::vector<std::string> springBoardRows = {
    "UIDevice setOrientation:animated:",
    "SBFluidSwitcherGestureExclusionTrapezoid shouldBeginGestureAtStartingPoint:velocity:bounds:",
    "SBFluidSwitcherGestureExclusionTrapezoid allowHorizontalSwipesOutsideTrapezoid",
    "SpringBoard _postActiveInterfaceOrientationChangedNotificationAnimated:",
    "SpringBoard applicationDidFinishLaunching:",
    "SpringBoard _nowPlayingAppDidChangeNotification:",
    "SpringBoard setNowPlayingProcessPID:",
    "SBMainDisplaySceneLayoutViewController viewDidLoad",
    "SBMainDisplaySceneLayoutViewController viewWillLayoutSubviews",
    "SBMainDisplaySceneLayoutViewController viewDidLayoutSubviews",
    "SBFluidSwitcherGestureManager _shouldBeginReachabilityGesture:",
    "SBFluidSwitcherGestureManager grabberTongueBeganPulling:withDistance:andVelocity:",
    "SBFluidSwitcherGestureManager grabberTongueUpdatedPulling:withDistance:andVelocity:",
    "SBFluidSwitcherGestureManager grabberTongueEndedPulling:withDistance:andVelocity:",
    "SBFluidSwitcherGestureManager grabberTongueCanceledPulling:withDistance:andVelocity:",
    "SBReachabilityManager reachabilityEnabled",
    "SBReachabilityManager toggleReachability",
    "SBReachabilityManager _toggleReachabilityMode",
    "SBBarSwipeAffordanceView _handleReachabilityPanGesture:",
    "SBSwitcherContainerView didMoveToWindow",
    "SBDockView didMoveToWindow",
    "SBDockView layoutSubviews",
    "SBRootFolderDockIconListView visibleIcons",
    "SBRootFolderDockIconListView setEditing:",
    "SBRootFolderDockIconListView didMoveToWindow",
    "SBRootFolderDockIconListView layoutIconsNow",
    "SBFloatingDockIconListView visibleIcons",
    "SBFloatingDockIconListView layoutIconsNow",
    "SBFloatingDockIconListView setEditing:",
    "SBFloatingDockIconListView didMoveToWindow",
    "SBRecentAppLayouts _validateAndUpdateRecents:",
    "SBRecentAppLayouts _saveRecents",
    "MediaControlsVolumeController volumeController:volumeValueDidChange:",
    "RPControlCenterModuleViewController setAvailable:",
    "RPControlCenterModuleViewController available",
    "SBMediaController _mediaRemoteNowPlayingApplicationIsPlayingDidChange:",
    "SBLockScreenManager lockUIFromSource:withOptions:",
};
const std::vector<std::string> controlCenterRows = {
    "SBControlCenterController _handleStatusBarPullDownGesture:",
    "SBControlCenterController grabberTongueBeganPulling:withDistance:andVelocity:",
    "SBControlCenterController grabberTongueUpdatedPulling:withDistance:andVelocity:",
    "SBControlCenterController grabberTongueEndedPulling:withDistance:andVelocity:",
    "SBControlCenterController grabberTongueCanceledPulling:withDistance:andVelocity:",
};

// The later names of the pull's reports, which only systems from 13.4 on have.
std::vector<std::string> otherForms(const std::string& className) {
    std::vector<std::string> names;
    for (const char* stage : {"Began", "Updated", "Ended", "Canceled"}) {
        names.push_back(className + " grabberTongue" + stage +
                        "Pulling:withDistance:andVelocity:andGesture:");
    }
    return names;
}

std::vector<std::string> joined(std::initializer_list<std::vector<std::string>> lists) {
    std::vector<std::string> all;
    for (const auto& list : lists) all.insert(all.end(), list.begin(), list.end());
    return all;
}

TEST_F(StartUp, DisabledLeavesNoTrace) {
    set("enabled", false);
    phone_->boot();
    EXPECT_TRUE(installed().empty());
    EXPECT_FALSE(enabled);
    for (const char* name : {"VNTToolBarController", "VNTSBToolBarController", "VNTSBHostWindow",
                             "VNTUpdateViewController", "VNTHookReport"}) {
        EXPECT_EQ(objc_getClass(name), nullptr) << name;
    }
    for (const auto& [cls, added] :
         {std::pair{"SBHomeScreenView", selector<"presentUpdateInfo">()},
          {"SBMainDisplaySceneLayoutViewController", selector<"vantoriController">()},
          {"SBFluidSwitcherGestureManager", selector<"test">()}}) {
        ASSERT_TRUE(objc_getClass(cls)) << cls;
        EXPECT_FALSE(class_getInstanceMethod(objc_getClass(cls), added)) << cls;
    }
    phone_->clear();
    announceSettings();
    phone_->open("com.example.notes");
    EXPECT_FALSE(phone_->crashed());
    EXPECT_EQ(phone_->loggedCount("[Vantori]"), 0);
}

TEST_F(StartUp, WithoutAHomeButtonTheSystemsControlCenterStays) {
    phone_->boot();
    EXPECT_EQ(installed(), joined({welcomeRow, springBoardRows}));
}

TEST_F(StartUp, ReplacingControlCenterTakesItsGesturesOver) {
    set("replaceCC", true);
    phone_->boot();
    EXPECT_EQ(installed(), joined({welcomeRow, springBoardRows, controlCenterRows}));
}

// Replaced, Control Center's gestures are taken over whatever the phone has, and nobody asks.
TEST_F(StartUp, ReplacingAsksForNoHomeButton) {
    set("replaceCC", true);
    phone_->boot();
    EXPECT_EQ(phone_->calledCount("BSPlatform", "homeButtonType"), 0);
}

TEST_F(StartUp, NotReplacingAsksForTheHomeButton) {
    phone_->boot();
    EXPECT_EQ(phone_->calledCount("BSPlatform", "homeButtonType"), 1);
}

TEST_F(StartUp, WithAHomeButtonItsGesturesAreTakenOverInBothCases) {
    phone_->device("iPhone10,1");
    phone_->boot();
    EXPECT_EQ(installed(), joined({welcomeRow, springBoardRows, controlCenterRows}));
}

TEST_F(StartUp, WithAHomeButtonAndReplacingTheRowsAreTheSame) {
    phone_->device("iPhone10,1");
    set("replaceCC", true);
    phone_->boot();
    EXPECT_EQ(installed(), joined({welcomeRow, springBoardRows, controlCenterRows}));
}

class OnSystem : public StartUp, public testing::WithParamInterface<const char*> {
  protected:
    OnSystem() {
        phone_->system(GetParam());
        phone_->homeButton(true);
    }
};

class OnEarlierSystem : public OnSystem {};
class OnLaterSystem : public OnSystem {};

TEST_P(OnEarlierSystem, ExactlyTheTableIsInstalled) {
    phone_->boot();
    EXPECT_EQ(installed(), joined({welcomeRow, springBoardRows, controlCenterRows}));
    for (auto forms : {otherSpringBoardForms(), otherControlCenterForms()}) {
        for (const OtherForm& form : forms) EXPECT_FALSE(form.row.record->installed);
    }
}

INSTANTIATE_TEST_SUITE_P(Systems, OnEarlierSystem,
                         testing::Values("11.0", "11.4", "12.4", "13.0", "13.2.2", "13.3"));

// The rows whose names are gone are handed over all the same, and install nothing.
TEST_P(OnLaterSystem, TheLaterNamesOfTheReportsAreTakenOver) {
    phone_->boot();
    EXPECT_EQ(installed(),
              joined({welcomeRow, springBoardRows, otherForms("SBFluidSwitcherGestureManager"),
                      controlCenterRows, otherForms("SBControlCenterController")}));
    for (auto forms : {otherSpringBoardForms(), otherControlCenterForms()}) {
        for (const OtherForm& form : forms) {
            // The others stand for rows that are there.
            const bool isReport =
                std::string_view(form.row.selectorName).starts_with("grabberTongue");
            EXPECT_EQ(form.row.record->installed, isReport) << form.row.selectorName;
            if (!isReport) continue;
            EXPECT_TRUE(form.row.record->methodFound) << form.row.selectorName;
            EXPECT_STREQ(form.row.encoding, "v@:@dd@");
            EXPECT_STREQ(form.row.record->encodingMet, "v@:@dd@");
        }
    }
    const std::string text = hookReport().utf8();
    EXPECT_NE(text.find("other -[SBFluidSwitcherGestureManager grabberTongueBeganPulling:"
                        "withDistance:andVelocity:andGesture:] own, expected v@:@dd@, met "
                        "v@:@dd@, calls 0\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("-[SBFluidSwitcherGestureManager grabberTongueBeganPulling:withDistance:"
                        "andVelocity:] method missing, expected v@:@dd, met nothing, calls 0\n"),
              std::string::npos)
        << text;
}

INSTANTIATE_TEST_SUITE_P(Systems, OnLaterSystem,
                         testing::Values("13.4", "13.4.1", "13.5", "13.7", "14.0", "14.2"));

TEST_F(StartUp, OnALaterSystemControlCenterStaysTheSystemsWithoutAHomeButton) {
    phone_->system("14.2");
    phone_->boot();
    EXPECT_EQ(installed(),
              joined({welcomeRow, springBoardRows, otherForms("SBFluidSwitcherGestureManager")}));
}

// As real systems are. Where the table's own class or method is missing, the first form that is there
// takes its place, and only that.
struct RealForms {
    const char* system;
    std::vector<std::string> others;
};
class OnRealSystem : public StartUp, public testing::WithParamInterface<RealForms> {};

TEST_P(OnRealSystem, OneFormStandsForEachMissingRow) {
    phone_->system(GetParam().system);
    phone_->real();
    phone_->boot();
    std::vector<std::string> others;
    for (const OtherForm& form : otherSpringBoardForms()) {
        const std::string name = form.row.selectorName;
        if (!form.row.record->installed || name.starts_with("grabberTongue")) continue;
        others.push_back(form.row.className + (" " + name));
    }
    EXPECT_EQ(others, GetParam().others);
    EXPECT_FALSE(phone_->crashed());
}

const std::string earlierSwitcher =
    "SBMainSwitcherViewController sceneLayoutController:didBeginLayoutStateTransitionWithContext:";
const std::string laterSwitcher =
    "SBMainSwitcherViewController "
    "layoutStateTransitionCoordinator:transitionDidBeginWithTransitionContext:";
const std::vector<std::string> formsOfEleven = {
    "SBReachabilityManager _toggleReachabilityModeWithRequestingObserver:",
    "SBFluidSwitcherGestureManager _activateReachability:", earlierSwitcher};
const std::vector<std::string> formsOfTwelve = {"SBReachabilityManager _activateReachability:",
                                                earlierSwitcher};
const std::vector<std::string> formsSinceThirteen = {"SBReachabilityManager _activateReachability:",
                                                     laterSwitcher};

INSTANTIATE_TEST_SUITE_P(
    Systems, OnRealSystem,
    testing::Values(RealForms{"11.0", formsOfEleven}, RealForms{"11.4", formsOfEleven},
                    RealForms{"12.0", formsOfTwelve}, RealForms{"12.4", formsOfTwelve},
                    RealForms{"13.0", formsSinceThirteen}, RealForms{"13.4", formsSinceThirteen},
                    RealForms{"14.2", formsSinceThirteen}, RealForms{"14.8", formsSinceThirteen}));

class WithoutBundle : public StartUp, public testing::WithParamInterface<const char*> {};

// Only the welcome pager's row and method remain.
TEST_P(WithoutBundle, TheGateStaysShut) {
    phone_->missingBundle(GetParam());
    set("leftGestureEnabled", false);
    phone_->boot();
    EXPECT_EQ(installed(), welcomeRow);
    EXPECT_TRUE(class_getInstanceMethod(objc_getClass("SBHomeScreenView"),
                                        selector<"presentUpdateInfo">()));
    announceSettings();
    EXPECT_TRUE(leftGestureEnabled);  // nothing observes: the initial value stays
    EXPECT_FALSE(settingsLoaded);
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(
    Gated, WithoutBundle,
    testing::Values("/System/Library/PrivateFrameworks/ControlCenterUIKit.framework",
                    "/System/Library/PrivateFrameworks/ControlCenterUI.framework",
                    "/System/Library/ControlCenter/Bundles/DoNotDisturbModule.bundle"));

TEST_F(StartUp, TheReplayBundleIsNotGated) {
    phone_->missingBundle("/System/Library/ControlCenter/Bundles/ReplayKitModule.bundle");
    phone_->boot();
    // The class of its two rows is not there then: they are handed over with none.
    auto expected = joined({welcomeRow, springBoardRows});
    std::ranges::replace(expected,
                         "RPControlCenterModuleViewController setAvailable:", " setAvailable:");
    std::ranges::replace(expected, "RPControlCenterModuleViewController available", " available");
    EXPECT_EQ(installed(), expected);
}

TEST_F(StartUp, AddsItsMethodsWithTheirEncodings) {
    phone_->boot();
    auto encoding = [](const char* cls, SEL message) {
        Method method = class_getInstanceMethod(objc_getClass(cls), message);
        return std::string(method ? method_getTypeEncoding(method) : "");
    };
    EXPECT_EQ(encoding("SBHomeScreenView", selector<"presentUpdateInfo">()), "v@:");
    EXPECT_EQ(encoding("SBMainDisplaySceneLayoutViewController", selector<"vantoriController">()),
              "@@:");
    EXPECT_EQ(
        encoding("SBMainDisplaySceneLayoutViewController", selector<"setVantoriController:">()),
        "v@:@");
    EXPECT_EQ(encoding("SBFluidSwitcherGestureManager", selector<"test">()), "v@:");
}

TEST_F(StartUp, TheTestAlertShows) {
    phone_->boot();
    auto manager = create<SBFluidSwitcherGestureManager>();
    manager.send<"test">();
    phone_->wait(0.5);
    EXPECT_EQ(phone_->calledCount("UIAlertView", "show"), 1);
    auto said = [](const char* message) {
        const auto last = simulator::Journal::last("UIAlertView", message);
        if (!last || last->empty()) return std::string("nothing");
        return std::string(as<NSString>(Object(std::get<Strong<Object>>(last->at(0)))).utf8());
    };
    EXPECT_EQ(said("setTitle:"), "Gesture");
    EXPECT_EQ(said("setMessage:"), "Test!");
    EXPECT_EQ(said("addButtonWithTitle:"), "Okay!");
    EXPECT_EQ(phone_->calledCount("UIAlertView", "addButtonWithTitle:"), 1);
    using Kind = simulator::Event::Kind;
    EXPECT_EQ(phone_
                  ->inOrder({{Kind::called, "UIAlertView", "setCancelButtonIndex:"},
                             {Kind::called, "UIAlertView", "show"}})
                  .met,
              2u);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(StartUp, TheReportTellsWhatEachRowMet) {
    phone_->missingClass("SBSwitcherContainerView");
    phone_->boot();
    for (const HookRow& row : springBoardHooks()) {
        const std::string name = std::string(row.className) + " " + row.selectorName;
        if (std::string(row.className) == "SBSwitcherContainerView") {
            EXPECT_FALSE(row.record->classFound);
            continue;
        }
        EXPECT_TRUE(row.record->methodFound) << name;
        EXPECT_STREQ(row.record->encodingMet, row.encoding) << name;
    }
    const std::string text = hookReport().utf8();
    EXPECT_EQ(text.find("1 -[SBHomeScreenView didMoveToWindow] own"), 0u) << text;
    EXPECT_NE(text.find("\n2 -[UIDevice setOrientation:animated:] "), std::string::npos);
    EXPECT_NE(text.find("-[SBSwitcherContainerView didMoveToWindow] class missing, expected v@:, "
                        "met nothing, calls 0\n"),
              std::string::npos);
    EXPECT_NE(text.find("-[SBMainDisplaySceneLayoutViewController viewDidLayoutSubviews] "
                        "inherited, expected v@:, met v@:"),
              std::string::npos);
    EXPECT_NE(text.find("-[SpringBoard applicationDidFinishLaunching:] own, expected v@:@, met "
                        "v@:@, calls 1\n"),
              std::string::npos);
    const HookRow& first = springBoardHooks().front();
    first.record->installed = false;
    EXPECT_NE(std::string(hookReport().utf8()).find("] not installed, expected"),
              std::string::npos);
}

class Connectivity : public StartUp {
  protected:
    long failures() { return phone_->loggedCount("[Vantori]: Could not init CCUIItem!!!"); }
    long successes() { return phone_->loggedCount("[Vantori]: Init CCUIItem successfully!!!"); }
    // Of exactly that text.
    static long lines(const char* text) {
        return std::ranges::count(simulator::SystemLog::shared().lines(), text);
    }
    // One layout pass of the controller that holds the scenes.
    void layOut() {
        SBMainDisplaySceneLayoutViewController::main().send<"viewWillLayoutSubviews">();
    }
};

TEST_F(Connectivity, ThereFromTheStartIsLoggedAtEveryPass) {
    phone_->boot();
    EXPECT_EQ(failures(), 0);
    EXPECT_GE(successes(), 1);
    phone_->clear();
    layOut();
    layOut();
    EXPECT_EQ(successes(), 2);
    EXPECT_EQ(failures(), 0);
    EXPECT_EQ(lines("[Vantori]: Init CCUIItem successfully!!!"), 2);
    // That they can be made was found out once.
    EXPECT_EQ(phone_->calledCount("CCUIConnectivityAirplaneViewController", "init"), 0);
}

TEST_F(Connectivity, FailingAFewTimesIsTriedAgainAtEachPass) {
    phone_->connectivityFails(1000);
    phone_->boot();
    EXPECT_GE(failures(), 1);
    EXPECT_EQ(successes(), 0);
    phone_->clear();
    layOut();
    EXPECT_EQ(failures(), 1);
    EXPECT_EQ(successes(), 0);
    EXPECT_EQ(lines("[Vantori]: Could not init CCUIItem!!!"), 1);
}

TEST_F(Connectivity, MissingStaysQuietButForTheLog) {
    phone_->missingClass("CCUIConnectivityAirplaneViewController");
    phone_->boot();
    phone_->clear();
    layOut();
    EXPECT_EQ(failures(), 1);
    EXPECT_FALSE(phone_->crashed());
}

class Welcome : public StartUp {
  protected:
    static constexpr const char* history =
        "/var/mobile/Library/Preferences/com.ferolin.VantoriHistoryVersion.plist";
    static NSArray readHistory() { return NSArray::withContentsOfFile(NSString::from(history)); }
    static long pagers() {
        UIView home = phoneHome();
        long count = 0;
        for (unsigned long i = 0; i < home.subviews().count(); ++i) {
            Object responder = home.subviews().at(i).send<"nextResponder", Object>();
            if (responder.isKindOfClass(objc_getClass("VNTUpdateViewController"))) ++count;
        }
        return count;
    }
    static UIView phoneHome() {
        Object application = SpringBoard::shared();
        NSArray all = application.send<"windows", NSArray>();
        for (unsigned long i = 0; i < all.count(); ++i) {
            if (UIView found = find(all.at<UIView>(i))) return found;
        }
        return {};
    }
    static UIView find(UIView view) {
        if (view.isKindOfClass(objc_getClass("SBHomeScreenView"))) return view;
        for (unsigned long i = 0; i < view.subviews().count(); ++i) {
            if (UIView found = find(view.subviews().at<UIView>(i))) return found;
        }
        return {};
    }
};

TEST_F(Welcome, WithoutAHistoryItIsShownAndWrittenDown) {
    boot();
    EXPECT_EQ(pagers(), 1);
    ASSERT_EQ(readHistory().count(), 1u);
    EXPECT_STREQ(readHistory().at<NSString>(0).utf8(), "1.2.1");
}

TEST_F(Welcome, AHistoryThatEndsWithThisVersionShowsNothing) {
    phone_->plist(history, nlohmann::json::array({"1.0", "1.2.1"}));
    boot();
    EXPECT_EQ(pagers(), 0);
    EXPECT_EQ(readHistory().count(), 2u);
}

TEST_F(Welcome, AnOlderHistoryIsContinued) {
    phone_->plist(history, nlohmann::json::array({"1.2.1", "1.2.0"}));
    boot();
    EXPECT_EQ(pagers(), 1);
    ASSERT_EQ(readHistory().count(), 3u);
    EXPECT_STREQ(readHistory().at<NSString>(2).utf8(), "1.2.1");
}

TEST_F(Welcome, ABrokenHistoryIsBegunAgain) {
    phone_->file(history, "no list at all \x01\x02");
    boot();
    EXPECT_EQ(pagers(), 1);
    EXPECT_EQ(readHistory().count(), 1u);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(Welcome, ADisabledLibraryWritesNoHistory) {
    set("enabled", false);
    boot();
    EXPECT_FALSE(readHistory());
}

}  // namespace
}  // namespace vantori::tests
