// What the recent applications hand over: only while the settings have not been loaded.
#include "hooks/hook_recents.hpp"

#include "tests/pages/applications.hpp"

namespace vantori::tests {
namespace {

class Recents : public Applications {
  protected:
    // As before the first reading of the settings: the rows empty, nothing remembered.
    void bootUnloaded(const char* system, const std::vector<std::string>& bundles) {
        phone_->system(system);
        phone_->recents(bundles);
        boot();
        settingsLoaded = false;
        recentAppLayouts = {};
        emptyRow(springBoardPage());
        emptyRow(applicationPage());
    }
    static void save() { recents().send<"_saveRecents">(); }
    inline static const std::vector<std::string> three{"com.example.mail", "com.example.maps",
                                                       "com.apple.Music"};
};

struct Generation {
    const char* system;
    const char* list;
    const char* other;
    const char* identifier;
};
class SavingRecents : public Recents, public testing::WithParamInterface<Generation> {};

TEST_P(SavingRecents, LaysThemOutOnBothPages) {
    bootUnloaded(GetParam().system, three);
    phone_->clear();
    save();
    EXPECT_EQ(identifiers(applicationPage()), three);
    EXPECT_EQ(identifiers(springBoardPage()), three);
    EXPECT_EQ(recentAppLayouts, recents());
    EXPECT_EQ(phone_->calledCount("SBRecentAppLayouts", "_saveRecents"), 1);
    EXPECT_EQ(phone_->calledCount("SBRecentAppLayouts", GetParam().list), 1);
    EXPECT_EQ(phone_->calledCount("SBRecentAppLayouts", GetParam().other), 0);
    EXPECT_EQ(phone_->calledCount("SBDisplayItem", GetParam().identifier), 6);  // three, twice
}

TEST_P(SavingRecents, AnEmptyListLeavesTheOldRow) {
    bootUnloaded(GetParam().system, three);
    save();
    phone_->recents({});
    save();
    EXPECT_EQ(identifiers(springBoardPage()), three);
    EXPECT_EQ(identifiers(applicationPage()), three);
}

INSTANTIATE_TEST_SUITE_P(
    Generations, SavingRecents,
    testing::Values(Generation{"11.4", "_recents", "_allRecents", "displayIdentifier"},
                    Generation{"12.4", "_recents", "_allRecents", "displayIdentifier"},
                    Generation{"13.0", "_allRecents", "_recents", "bundleIdentifier"},
                    Generation{"14.2", "_allRecents", "_recents", "bundleIdentifier"}));

TEST_F(Recents, OnceTheSettingsAreLoadedTheDockRules) {
    phone_->recents(three);
    boot();
    phone_->open("com.example.photos");
    EXPECT_EQ(phone_->calledCount("SBRecentAppLayouts", "_saveRecents"), 1);
    EXPECT_STREQ(at(springBoardPage(), 0).applicationIdentifier().utf8(), "com.apple.mobilephone");
    EXPECT_FALSE(recentAppLayouts);
}

TEST_F(Recents, AnApplicationThatOpensHandsThemOver) {
    bootUnloaded("13.3", three);
    phone_->open("com.example.photos");
    EXPECT_EQ(identifiers(applicationPage()),
              (std::vector<std::string>{"com.example.photos", "com.example.mail",
                                        "com.example.maps", "com.apple.Music"}));
    EXPECT_EQ(identifiers(springBoardPage()), identifiers(applicationPage()));
}

TEST_F(Recents, TheFirstObjectIsTheOneRemembered) {
    bootUnloaded("13.3", three);
    save();
    auto other = create<SBRecentAppLayouts>();
    other.send<"_saveRecents">();
    EXPECT_EQ(recentAppLayouts, recents());
}

TEST_F(Recents, NotWhileTheSwitcherIsTheKeyWindow) {
    bootUnloaded("13.3", three);
    auto window = create<SBMainSwitcherWindow, "initWithFrame:">(rect(0, 0, 375, 812));
    window.makeKeyAndVisible();
    save();
    EXPECT_EQ(shown(springBoardPage()), 0u);
    EXPECT_FALSE(recentAppLayouts);
    window.send<"resignKeyWindow">();
}

TEST_F(Recents, ValidatingOnlyPassesOn) {
    bootUnloaded("13.3", three);
    NSArray fresh = NSArray::with(layouts().at(2));
    phone_->clear();
    recents().send<"_validateAndUpdateRecents:">(fresh);
    EXPECT_EQ(phone_->calledCount("SBRecentAppLayouts", "_validateAndUpdateRecents:"), 1);
    EXPECT_EQ(layouts().count(), 1u);
    EXPECT_EQ(shown(springBoardPage()), 0u);
    EXPECT_FALSE(recentAppLayouts);
}

// The pull asks the remembered object to save, but only over an application.
TEST_F(Recents, APullOverAnApplicationRefreshesThem) {
    bootUnloaded("13.3", three);
    save();
    phone_->open("com.example.photos");
    phone_->clear();
    phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
    EXPECT_EQ(phone_->calledCount("SBRecentAppLayouts", "_saveRecents"), 1);
    phone_->grabber(simulator::PullPhase::updated, 60, 50, 0);
    EXPECT_EQ(phone_->calledCount("SBRecentAppLayouts", "_saveRecents"), 2);
}

TEST_F(Recents, APullOnTheHomeScreenDoesNot) {
    bootUnloaded("13.3", three);
    save();
    phone_->clear();
    phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
    EXPECT_EQ(phone_->calledCount("SBRecentAppLayouts", "_saveRecents"), 0);
}

// As real systems are: 14 gives no dictionary of the items by role, and each keeps its list in one variable.
class RealRecents : public Recents, public testing::WithParamInterface<const char*> {};

TEST_P(RealRecents, AreShownWhateverTheLayoutsAnswer) {
    phone_->real();
    bootUnloaded(GetParam(), three);
    save();
    EXPECT_EQ(identifiers(applicationPage()), three);
    EXPECT_EQ(identifiers(springBoardPage()), three);
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(Systems, RealRecents,
                         testing::Values("11.0", "11.4", "12.4", "13.3", "13.5", "14.0", "14.2",
                                         "14.8"));

TEST_F(Recents, OfFourteenAreAskedByTheirRole) {
    phone_->real();
    bootUnloaded("14.2", three);
    phone_->clear();
    save();
    EXPECT_EQ(phone_->calledCount("SBAppLayout", "itemForLayoutRole:"), 6);  // three, twice
    EXPECT_EQ(phone_->calledCount("SBAppLayout", "allItems"), 0);
}

// One whose applications have other roles shows the first of them, one without any its place.
long itemsAsked = 0;
id noItem(id, SEL, long) {
    ++itemsAsked;
    return nullptr;
}

TEST_F(Recents, OfFourteenWithoutAPrimaryItemShowTheFirst) {
    phone_->real();
    bootUnloaded("14.2", three);
    IMP system = nullptr;
    MSHookMessageEx(objc_getClass("SBAppLayout"), selector<"itemForLayoutRole:">(),
                    reinterpret_cast<IMP>(&noItem), &system);
    save();
    EXPECT_EQ(itemsAsked, 6);
    EXPECT_EQ(identifiers(springBoardPage()), three);
}

// A list under another name than the system's version has it: nothing is asked for that is not there.
TEST_F(Recents, WithoutTheirListShowNothing) {
    phone_->missingClass("SBRecentAppLayouts");
    boot();
    settingsLoaded = false;
    emptyRow(springBoardPage());
    auto stranger = create<Object>();
    recentsSave({nullptr, nullptr, nullptr}, stranger);
    EXPECT_EQ(shown(springBoardPage()), 0u);
    EXPECT_FALSE(phone_->crashed());
}

}  // namespace
}  // namespace vantori::tests
