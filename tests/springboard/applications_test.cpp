// The phone's icons, dock, recents and processes by themselves, without the extension.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "simulator/foundation/device_root.hpp"
#include "simulator/phone/temporary_root.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/springboard/applications/processes.hpp"
#include "simulator/springboard/applications/recents.hpp"
#include "simulator/springboard/home/icon_lists.hpp"
#include "simulator/springboard/home/icons.hpp"

namespace {

using namespace simulator;

class BareApplications : public testing::Test {
  protected:
    void start(const std::filesystem::path& root = {}) { phone_ = makePhone({root}); }
    void boot() {
        phone_->withoutExtension();
        phone_->boot();
    }
    static std::vector<std::string> recentIdentifiers() {
        std::vector<std::string> all;
        NSArray layouts = recentAppLayouts().send<"valueForKey:", NSArray>("_allRecents"_ns);
        for (unsigned long i = 0; i < layouts.count(); ++i) {
            platform::SBAppLayout layout(layouts.at(i).get());
            all.emplace_back(
                layout.send<"allItems", NSArray>().at<SBDisplayItem>(0).bundleIdentifier().utf8());
        }
        return all;
    }
    AutoreleasePool pool_;
    std::unique_ptr<Phone> phone_;
};

TEST_F(BareApplications, IconsAreRenderedInTheAskedSize) {
    start();
    boot();
    platform::SBIcon icon =
        platform::SBIconController::shared().model().expectedIcon("com.apple.Music"_ns);
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon.generateIconImage(999).size(), (CGSize{60, 60}));
    EXPECT_EQ(icon.generateIconImageWithInfo({{30, 30}, 3, 6}).size(), (CGSize{30, 30}));
    EXPECT_STREQ(icon.applicationBundleId().utf8(), "com.apple.Music");
    EXPECT_FALSE(platform::SBIconController::shared().model().expectedIcon("com.example.gone"_ns));
}

TEST_F(BareApplications, RecentsAreSavedAndComeBack) {
    TemporaryRoot root({});
    // One process is one phone: the second switching on is what the file says.
    start(root.path());
    boot();
    phone_->open("com.example.notes");
    phone_->open("com.example.maps");
    phone_->open("com.example.notes");
    const std::vector<std::string> used{"com.example.notes", "com.example.maps"};
    EXPECT_EQ(recentIdentifiers(), used);
    phone_->recents({"com.example.mail"});  // saves nothing
    EXPECT_EQ(recentIdentifiers(), std::vector<std::string>{"com.example.mail"});
    phone_->recents({});
    restoreRecents();
    EXPECT_EQ(recentIdentifiers(), used);
}

TEST_F(BareApplications, ABrokenSavedListReadsAsNone) {
    start();
    const char* saved = "/var/mobile/Library/SpringBoard/RecentAppLayouts.plist";
    phone_->plist(saved, {{"not", "a list"}});
    boot();
    EXPECT_TRUE(recentIdentifiers().empty());
    phone_->plist(saved, nlohmann::json::array({1, "com.example.maps", true}));
    restoreRecents();
    EXPECT_EQ(recentIdentifiers(), std::vector<std::string>{"com.example.maps"});
    phone_->file(saved, "\x01\x02 nothing");
    restoreRecents();
    EXPECT_TRUE(recentIdentifiers().empty());
}

TEST_F(BareApplications, SavingForeignObjectsLeavesThemOut) {
    start();
    boot();
    recentAppLayouts().send<"_validateAndUpdateRecents:">(NSArray::with("no layout"_ns));
    recentAppLayouts().send<"_saveRecents">();
    restoreRecents();
    EXPECT_TRUE(recentIdentifiers().empty());
}

TEST_F(BareApplications, AProcessIsMadeOnceAndGetsItsSceneInTime) {
    start();
    phone_->sceneAfter("com.example.notes", 3);
    boot();
    auto manager = FBProcessManager::shared();
    FBApplicationProcess process = manager.createProcess("com.example.notes"_ns);
    ASSERT_TRUE(process);
    EXPECT_FALSE(process.mainScene());
    EXPECT_EQ(manager.createProcess("com.example.notes"_ns), process);
    EXPECT_FALSE(process.mainScene());
    manager.createProcess("com.example.notes"_ns);
    Object scene = process.mainScene();
    ASSERT_TRUE(scene);
    EXPECT_STREQ((scene.send<"identifier", NSString>().utf8()), "com.example.notes");
    EXPECT_EQ((scene.send<"clientProcess", Object>()), process);
    EXPECT_EQ(processCreations("com.example.notes"), 3);
    EXPECT_FALSE(manager.createProcess("com.example.gone"_ns));
    EXPECT_FALSE(manager.createProcess({}));
    EXPECT_TRUE(manager.createProcess("com.example.maps"_ns).mainScene());
    EXPECT_EQ((manager.send<"allApplicationProcesses", NSArray>().count()), 2u);
}

TEST_F(BareApplications, AHostedSceneShowsItsApplication) {
    start();
    boot();
    Object scene = FBProcessManager::shared().createProcess("com.example.notes"_ns).mainScene();
    auto wrapper = create<FBSceneHostWrapperView, "initWithScene:requester:">(scene, "vantori"_ns);
    ASSERT_TRUE(wrapper);
    EXPECT_EQ((wrapper.send<"scene", Object>()), scene);
    EXPECT_EQ(wrapper.subviews().count(), 1u);
}

TEST_F(BareApplications, RefusesScenesOfWhatThereIsNot) {
    start();
    EXPECT_THROW(phone_->sceneAfter("com.example.gone", 2), PhoneError);
    EXPECT_THROW(phone_->sceneAfter("com.example.notes", 0), PhoneError);
    EXPECT_THROW(phone_->sceneAfter("com.example.notes", 1001), PhoneError);
    boot();
    EXPECT_THROW(phone_->sceneAfter("com.example.notes", 2), PhoneError);
    EXPECT_THROW(phone_->floatingDock(), PhoneError);
}

// A loop on the main thread that lets no time pass does not hang the phone.
TEST_F(BareApplications, TheWatchdogEndsAHang) {
    start();
    boot();
    EXPECT_ANY_THROW({
        for (int i = 0; i < 5001; ++i) FBProcessManager::shared().createProcess("none"_ns);
    });
    phone_->wait(0.1);
    EXPECT_FALSE(FBProcessManager::shared().createProcess("none"_ns));
}

TEST_F(BareApplications, AFloatingDockHasAFloatingList) {
    start();
    phone_->dock(3);
    phone_->floatingDock();
    boot();
    EXPECT_FALSE(phone_->crashed());
    EXPECT_GT(phone_->calledCount("SBFloatingDockIconListView", "layoutIconsNow"), 0);
    EXPECT_EQ(phone_->calledCount("SBRootFolderDockIconListView", "layoutIconsNow"), 0);
}

}  // namespace
