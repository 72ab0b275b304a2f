// Expanding a module on phones as real ones are: Control Center is presented and says so when it pleases.
#include "pages/module_expansion.hpp"

#include <thread>

#include "pages/module_round_button.hpp"
#include "platform/control_center.hpp"
#include "platform/definition.hpp"
#include "tests/library_phone.hpp"

namespace vantori::tests {
namespace {

constexpr const char* connectivityModule = "com.apple.control-center.ConnectivityModule";

// What Control Center keeps of a request to present it, instead of doing so.
KeptBlock<void(bool)> kept;
int requests = 0;

void keepRequest(id, SEL, bool animated, void* completion) {
    EXPECT_FALSE(animated);
    kept = KeptBlock<void(bool)>(BlockRef<void(bool)>(completion));
    ++requests;
}

class RealExpansion : public LibraryPhone {
  protected:
    void bootReal(const char* system) {
        phone_->system(system);
        phone_->real();
        boot();
        button_ = create<VNTCCToggleRoundButton>();
        button_.send<"setModuleIdentifier:">(NSString::from(connectivityModule));
    }
    // From here on Control Center answers only when the test does so for it.
    void holdControlCenter() {
        IMP system = nullptr;
        MSHookMessageEx(objc_getClass("SBControlCenterController"),
                        selector<"presentAnimated:completion:">(),
                        reinterpret_cast<IMP>(&keepRequest), &system);
        ASSERT_NE(system, nullptr);
    }
    static Object collection() {
        Object cls(classObject(objc_getClass("CCUIModularControlCenterViewController")));
        return cls.send<"_sharedCollectionViewController", Object>();
    }
    static bool isExpanded() {
        return collection().send<"isModuleExpandedForIdentifier:", bool>(
            NSString::from(connectivityModule));
    }
    int expansions() {
        return phone_->calledCount("CCUIModuleCollectionViewController",
                                   "expandModuleWithIdentifier:");
    }
    void press() {
        button_.expandModule();
        phone_->wait(0.35);  // longer than any system takes to prepare
    }
    Strong<VNTCCToggleRoundButton> button_;
};

class ExpansionOnSystem : public RealExpansion, public testing::WithParamInterface<const char*> {};

TEST_P(ExpansionOnSystem, TheModuleOpensAfterTheHaptic) {
    bootReal(GetParam());
    button_.expandModule();
    phone_->wait(0.1);
    EXPECT_EQ(phone_->haptics(UIImpactFeedbackGenerator::medium), 0);
    EXPECT_FALSE(isExpanded());
    phone_->wait(1);
    EXPECT_EQ(phone_->haptics(UIImpactFeedbackGenerator::medium), 1);
    EXPECT_TRUE(isExpanded());
    EXPECT_TRUE((SBControlCenterController::shared().send<"isVisible", bool>()));
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(Systems, ExpansionOnSystem,
                         testing::Values("11.0", "11.4", "12.4", "13.3", "13.5", "14.2", "14.8"));

TEST_F(RealExpansion, NothingOpensBeforeControlCenterSaysSo) {
    bootReal("14.2");
    holdControlCenter();
    press();
    phone_->wait(5);
    EXPECT_EQ(requests, 1);
    EXPECT_FALSE(isExpanded());
    kept(true);
    phone_->wait(0.1);
    EXPECT_TRUE(isExpanded());
}

TEST_F(RealExpansion, SaidTwiceItOpensOnce) {
    bootReal("14.2");
    holdControlCenter();
    press();
    kept(true);
    kept(true);
    phone_->wait(0.1);
    kept(false);
    phone_->wait(0.1);
    EXPECT_EQ(expansions(), 1);
    EXPECT_TRUE(isExpanded());
}

TEST_F(RealExpansion, SaidOnAnotherThreadItOpensOnTheMainOne) {
    bootReal("14.2");
    holdControlCenter();
    press();
    std::thread([] {
        AutoreleasePool pool;
        kept(true);
    }).join();
    EXPECT_EQ(expansions(), 0);
    phone_->wait(0.1);
    EXPECT_EQ(expansions(), 1);
}

// A press that Control Center never answered is over once there is another.
TEST_F(RealExpansion, AnAnswerToAnEarlierPressIsTooLate) {
    bootReal("14.2");
    holdControlCenter();
    press();
    KeptBlock<void(bool)> first = kept;
    press();
    first(true);
    phone_->wait(0.1);
    EXPECT_EQ(expansions(), 0);
    kept(true);
    phone_->wait(0.1);
    EXPECT_EQ(expansions(), 1);
}

TEST_F(RealExpansion, WithoutAnIdentifierNothingIsExpanded) {
    bootReal("14.2");
    button_.send<"setModuleIdentifier:">(NSString());
    press();
    phone_->wait(1);
    EXPECT_EQ((collection().send<"expandedModuleCount", unsigned long>()), 0u);
    EXPECT_FALSE(phone_->crashed());
}

// The haptic comes all the same.
TEST_F(RealExpansion, WithoutAnyFormItIsOff) {
    phone_->missingClass("CCUIModularControlCenterViewController");
    bootReal("14.2");
    press();
    press();
    EXPECT_EQ(phone_->haptics(UIImpactFeedbackGenerator::medium), 2);
    EXPECT_FALSE(phone_->crashed());
}

}  // namespace
}  // namespace vantori::tests
