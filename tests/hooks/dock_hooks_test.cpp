// What the dock hands over to the pages of both toolbars, call by call.
#include "hooks/hook_dock.hpp"

#include "tests/order.hpp"
#include "tests/pages/applications.hpp"

namespace vantori::tests {
namespace {

class Dock : public Applications {
  protected:
    void bootWith(const char* system, int icons = 4) {
        phone_->system(system);
        phone_->dock(icons);
        boot();
        emptyRow(springBoardPage());
        emptyRow(applicationPage());
    }
    // A list of its own, beside the phone's dock.
    template <class List>
    static Strong<List> listOf(const std::vector<std::string>& identifiers) {
        auto list = create<List, "initWithFrame:">(rect(0, 0, 375, 96));
        if (list) simulator::fillIconList(list, identifiers, {4, 18, 0, false});
        emptyRow(springBoardPage());
        emptyRow(applicationPage());
        return list;
    }
    static void expectFed(Page page, unsigned long count, const char* first) {
        EXPECT_EQ(page.icons().count(), count);
        ASSERT_GE(shown(page), 1u);
        EXPECT_STREQ(at(page, 0).applicationIdentifier().utf8(), first);
    }
    static void expectUntouched(Page page) {
        EXPECT_FALSE(page.icons());
        EXPECT_EQ(shown(page), 0u);
    }
    inline static const std::vector<std::string> two{"com.example.maps", "com.example.mail"};
};
using Root = simulator::SBRootFolderDockIconListView;
using Floating = simulator::SBFloatingDockIconListView;
using Suggestions = simulator::SBDockSuggestionsIconListView;

struct Count {
    int dock;
    unsigned long shown;
};
class DockAtBoot : public Applications, public testing::WithParamInterface<Count> {};

TEST_P(DockAtBoot, FeedsBothPages) {
    phone_->dock(GetParam().dock);
    boot();
    for (Page page : {springBoardPage(), applicationPage()}) {
        EXPECT_EQ(page.icons().count(), static_cast<unsigned long>(GetParam().dock));
        EXPECT_EQ(shown(page), GetParam().shown);
    }
    EXPECT_FALSE(springBoardPage().icons() == applicationPage().icons());  // each its own copy
}

INSTANTIATE_TEST_SUITE_P(Icons, DockAtBoot,
                         testing::Values(Count{0, 0}, Count{1, 1}, Count{4, 4}, Count{5, 5},
                                         Count{6, 5}, Count{10, 5}));

class Refreshing : public Dock, public testing::WithParamInterface<const char*> {};

TEST_P(Refreshing, LayingOutFeedsBothPages) {
    bootWith(GetParam());
    auto list = listOf<Root>(two);
    list.send<"layoutIconsNow">();
    expectFed(springBoardPage(), 2, "com.example.maps");
    expectFed(applicationPage(), 2, "com.example.maps");
}

TEST_P(Refreshing, EditingFeedsBothPages) {
    bootWith(GetParam());
    auto list = listOf<Root>(two);
    list.send<"setEditing:">(true);
    EXPECT_TRUE((list.send<"isEditing", bool>()));
    expectFed(springBoardPage(), 2, "com.example.maps");
    expectFed(applicationPage(), 2, "com.example.maps");
}

// Only the laying out asks whether the settings are loaded.
TEST_P(Refreshing, BeforeTheSettingsAreLoadedOnlyEditingFeeds) {
    bootWith(GetParam());
    auto list = listOf<Root>(two);
    settingsLoaded = false;
    list.send<"layoutIconsNow">();
    expectUntouched(springBoardPage());
    expectUntouched(applicationPage());
    list.send<"setEditing:">(false);
    expectFed(springBoardPage(), 2, "com.example.maps");
    expectFed(applicationPage(), 2, "com.example.maps");
}

TEST_P(Refreshing, TheFloatingDockFeedsBothPagesAsWell) {
    bootWith(GetParam());
    auto list = listOf<Floating>(two);
    for (int way = 0; way < 3; ++way) {
        emptyRow(springBoardPage());
        emptyRow(applicationPage());
        if (way == 0) list.send<"layoutIconsNow">();
        if (way == 1) list.send<"setEditing:">(true);
        if (way == 2) list.send<"didMoveToWindow">();
        expectFed(springBoardPage(), 2, "com.example.maps");
        expectFed(applicationPage(), 2, "com.example.maps");
    }
}

TEST_P(Refreshing, TheFloatingDockWaitsForTheSettings) {
    bootWith(GetParam());
    auto list = listOf<Floating>(two);
    settingsLoaded = false;
    list.send<"layoutIconsNow">();
    list.send<"setEditing:">(true);
    list.send<"didMoveToWindow">();
    list.send<"visibleIcons", Object>();
    expectUntouched(springBoardPage());
    expectUntouched(applicationPage());
}

TEST_P(Refreshing, SuggestionsNeverFeed) {
    bootWith(GetParam());
    auto list = listOf<Suggestions>(two);
    list.send<"layoutIconsNow">();
    list.send<"setEditing:">(true);
    list.send<"didMoveToWindow">();
    EXPECT_EQ((list.send<"visibleIcons", NSArray>().count()), 2u);
    expectUntouched(springBoardPage());
    expectUntouched(applicationPage());
}

INSTANTIATE_TEST_SUITE_P(Systems, Refreshing, testing::Values("11.4", "12.4", "13.0", "14.2"));

TEST_F(Dock, BeforeThirteenItsIconsAndDefaultSizeAreAsked) {
    bootWith("12.4");
    auto list = listOf<Root>(two);
    phone_->clear();
    list.send<"layoutIconsNow">();
    EXPECT_EQ(phone_->calledCount("SBIconListView", "icons"), 1);
    EXPECT_EQ(phone_->calledCount("SBIconListView", "defaultIconSize"), 1);
    EXPECT_EQ(phone_->calledCount("SBIconListView", "visibleIcons"), 0);
    EXPECT_EQ(phone_->calledCount("SBIconListView", "alignmentIconSize"), 0);
}

TEST_F(Dock, FromThirteenOnItsVisibleIconsAndAlignmentSizeAreAsked) {
    bootWith("13.0");
    auto list = listOf<Root>(two);
    springBoardPage().setIcons(NSMutableArray::empty());  // so that asking is not a hand-over
    phone_->clear();
    list.send<"layoutIconsNow">();
    EXPECT_EQ(phone_->calledCount("SBIconListView", "visibleIcons"), 1);
    EXPECT_EQ(phone_->calledCount("SBIconListView", "alignmentIconSize"), 1);
    EXPECT_EQ(phone_->calledCount("SBIconListView", "icons"), 0);
    EXPECT_EQ(phone_->calledCount("SBIconListView", "defaultIconSize"), 0);
}

// Only the SpringBoard side's page, and only as long as it has no icons.
TEST_F(Dock, AskingForVisibleIconsFeedsAPageThatHasNone) {
    bootWith("13.3");
    auto list = listOf<Root>(two);
    NSArray answered = list.send<"visibleIcons", NSArray>();
    EXPECT_EQ(answered.count(), 2u);
    expectFed(springBoardPage(), 2, "com.example.maps");
    expectUntouched(applicationPage());
    EXPECT_FALSE(springBoardPage().icons() == answered);

    auto other = create<Root, "initWithFrame:">(rect(0, 0, 375, 96));
    EXPECT_EQ((other.send<"visibleIcons", NSArray>().count()), 0u);
    expectFed(springBoardPage(), 2, "com.example.maps");
}

TEST_F(Dock, AskingTheFloatingDockForVisibleIconsFeedsAPageThatHasNone) {
    bootWith("13.3");
    auto list = listOf<Floating>(two);
    EXPECT_EQ((list.send<"visibleIcons", NSArray>().count()), 2u);
    expectFed(springBoardPage(), 2, "com.example.maps");
    expectUntouched(applicationPage());
}

TEST_F(Dock, TheFloatingDockIsLaidOutByTheSystemToo) {
    bootWith("13.3");
    auto list = listOf<Floating>(two);
    phone_->clear();
    list.send<"layoutIconsNow">();
    EXPECT_EQ(phone_->calledCount("SBFloatingDockIconListView", "layoutIconsNow"), 1);
}

TEST_F(Dock, EditingBeginsBeforeThePagesAreFed) {
    bootWith("13.3");
    auto list = listOf<Root>(two);
    int fed = 0;
    Spy<"setIcons:", id>::on("VNTIconsContainerViewController", [&](Object, id) {
        ++fed;
        EXPECT_TRUE((list.send<"isEditing", bool>()));
    });
    list.send<"setEditing:">(true);
    EXPECT_GE(fed, 2);
}

TEST_F(Dock, TheFloatingDockIsEditedByTheSystemToo) {
    bootWith("13.3");
    auto list = listOf<Floating>(two);
    list.send<"setEditing:">(true);
    EXPECT_TRUE((list.send<"isEditing", bool>()));
}

TEST_F(Dock, ThePageAboveIsFedFirst) {
    bootWith("13.3");
    auto list = listOf<Root>(two);
    springBoardPage().setIcons(NSMutableArray::empty());  // so that asking is not a hand-over
    Spy<"setIcons:", id>::on("VNTIconsContainerViewController", [](Object page, id) {
        Order::note(page == springBoardPage() ? "above" : "behind");
    });
    list.send<"layoutIconsNow">();
    EXPECT_EQ(Order::events(), (std::vector<std::string>{"above", "behind"}));
}

TEST_F(Dock, AskingForVisibleIconsDoesNotWaitForTheSettings) {
    bootWith("13.3");
    auto list = listOf<Root>(two);
    settingsLoaded = false;
    list.send<"visibleIcons", Object>();
    expectFed(springBoardPage(), 2, "com.example.maps");
}

TEST_F(Dock, TheListInTheWindowIsRememberedOnceTheSettingsAreLoaded) {
    bootWith("13.3");
    ASSERT_TRUE(dockIconListView.isKindOfClass(classOf<Root>()));
    Strong<Object> first = retained(Object(dockIconListView.get()));
    auto list = listOf<Root>(two);
    settingsLoaded = false;
    list.send<"didMoveToWindow">();
    EXPECT_EQ(dockIconListView, first);
    settingsLoaded = true;
    list.send<"didMoveToWindow">();
    EXPECT_EQ(dockIconListView, list);
    expectUntouched(springBoardPage());
}

TEST_F(Dock, AFloatingListIsNotRemembered) {
    phone_->floatingDock();
    boot();
    EXPECT_FALSE(dockIconListView);
    EXPECT_EQ(shown(springBoardPage()), 4u);
    EXPECT_EQ(shown(applicationPage()), 4u);
    openToolbar();
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(Dock, APullOnTheHomeScreenRefillsAnEmptyPage) {
    bootWith("13.3");
    phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
    expectFed(springBoardPage(), 4, "com.apple.mobilephone");
    expectUntouched(applicationPage());
}

class DockView : public Dock {
  protected:
    static SBDockView dockView() { return dockIconListView.send<"superview", SBDockView>(); }
};

TEST_F(DockView, MovingAndLayingOutLayTheListAndTheSpringBoardPageOut) {
    bootWith("13.3");
    for (int way = 0; way < 2; ++way) {
        emptyRow(springBoardPage());
        emptyRow(applicationPage());
        phone_->clear();
        if (way == 0) dockView().send<"didMoveToWindow">();
        if (way == 1) dockView().send<"layoutSubviews">();
        EXPECT_EQ(phone_->calledCount("SBRootFolderDockIconListView", "layoutIconsNow"), 1);
        // The list's own laying out feeds both; the row is 60 - 5 wide.
        EXPECT_EQ(shown(springBoardPage()), 4u);
        EXPECT_EQ(shown(applicationPage()), 4u);
        expectRow(springBoardPage(), {31, 117, 203, 289}, 55);
    }
}

TEST_F(DockView, BeforeTheSettingsAreLoadedOnlyTheSpringBoardPageIsLaidOut) {
    bootWith("13.3");
    springBoardPage().setIcons(icons(3));
    settingsLoaded = false;
    dockView().send<"didMoveToWindow">();
    EXPECT_EQ(shown(springBoardPage()), 3u);
    expectUntouched(applicationPage());
}

TEST_F(DockView, ItsListIsLaidOutBeforeThePage) {
    bootWith("13.3");
    settingsLoaded = false;
    phone_->clear();
    std::vector<int> laidOut;
    Spy<"layoutIconsWithSize:", double>::on("VNTIconsContainerViewController", [&](Object, double) {
        laidOut.push_back(phone_->calledCount("SBRootFolderDockIconListView", "layoutIconsNow"));
    });
    dockView().send<"didMoveToWindow">();
    EXPECT_EQ(laidOut, (std::vector<int>{1}));
    EXPECT_EQ(phone_->calledCount("SBDockView", "didMoveToWindow"), 1);
    dockIconListView.send<"didMoveToWindow">();
    EXPECT_EQ(phone_->calledCount("SBRootFolderDockIconListView", "didMoveToWindow"), 1);
}

class DockWithoutClass : public Applications, public testing::WithParamInterface<const char*> {};

// The rest of the toolbar opens and closes as ever.
TEST_P(DockWithoutClass, ThePageStaysQuiet) {
    phone_->missingClass(GetParam());
    phone_->recents({"com.example.maps", "com.example.mail"});
    boot();
    openToolbar();
    EXPECT_TRUE(VNTSBToolBarController::shared().isEnabled());
    const auto toolbar = VNTSBToolBarController::shared();
    EXPECT_EQ(toolbar.view().frame().origin.y, 812 - toolbar.suggestedY());
    for (Page page : {springBoardPage(), applicationPage()}) {
        page.layoutIconsWithAppLayouts(layouts());
        page.layoutIconsWithMutableAppLayouts(layouts());
        page.layoutIconsWithSize(60);
        page.send<"layoutIconsWithSize:andIcons:">(60.0, page.icons());
        EXPECT_FALSE(page.generateIconImageForIdentifier("com.example.gone"_ns));
    }
    phone_->open("com.example.notes");
    phone_->home();
    VNTSBToolBarController::shared().dismiss();
    phone_->wait(1);
    EXPECT_FALSE(VNTSBToolBarController::shared().isEnabled());
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(
    Classes, DockWithoutClass,
    testing::Values("SBDockView", "SBRootFolderDockIconListView", "SBFloatingDockIconListView",
                    "SBDockSuggestionsIconListView", "SBDockIconListView", "SBIconListView",
                    "SBIconController", "SBIconModel", "SBIcon", "SBLeafIcon", "SBApplicationIcon",
                    "SBRecentAppLayouts", "SBAppLayout", "SBDisplayItem", "SBMainSwitcherWindow",
                    "SBApplicationController", "SBApplication", "FBProcessManager", "FBProcess",
                    "FBScene", "FBSceneHostWrapperView", "UIButton", "UIImage",
                    "SBWallpaperEffectView", "SBMainDisplaySceneLayoutViewController"));

}  // namespace
}  // namespace vantori::tests
