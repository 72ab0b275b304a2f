// SpringBoard's launch and turns, as the library hooks them.
#include "simulator/runtime/journal.hpp"
#include "tests/library_phone.hpp"
#include "tests/order.hpp"

namespace vantori::tests {
namespace {

class SpringBoardHooks : public LibraryPhone {
  protected:
    static Object springBoard() { return SpringBoard::shared(); }
    static UIDevice device() { return UIDevice::currentDevice(); }
    static constexpr const char* rotated = "com.ferolin.vantori.did-rotated";
    static constexpr const char* turned =
        "_postActiveInterfaceOrientationChangedNotificationAnimated:";
};

TEST_F(SpringBoardHooks, TheSystemFinishesLaunchingAndTellsTheToolbarOfTurns) {
    phone_->boot();
    EXPECT_EQ(phone_->calledCount("SpringBoard", "applicationDidFinishLaunching:"), 1);
    const auto told = simulator::Journal::last("SpringBoard", "addActiveOrientationObserver:");
    ASSERT_TRUE(told);
    EXPECT_EQ(std::get<Strong<Object>>(told->at(0)), Object(VNTSBToolBarController::shared()));
}

TEST_F(SpringBoardHooks, ATurnOfTheInterfaceIsPassedOnOnceTheSystemKnows) {
    boot();
    listenTo({rotated});
    Order::look() = [this] {
        Order::note(std::to_string(phone_->calledCount("SpringBoard", turned)));
    };
    springBoard().send<"_postActiveInterfaceOrientationChangedNotificationAnimated:">(true);
    EXPECT_EQ(Order::events(), (std::vector<std::string>{rotated, "1"}));
}

TEST_F(SpringBoardHooks, SoIsATurnOfTheDevice) {
    boot();
    listenTo({rotated});
    Order::look() = [this] {
        Order::note(std::to_string(phone_->calledCount("UIDevice", "setOrientation:animated:")));
    };
    device().setOrientation(3, true);
    EXPECT_EQ(Order::events(), (std::vector<std::string>{rotated, "1"}));
}

TEST_F(SpringBoardHooks, UnderAnOpenToolbarTheDeviceIsNotTurned) {
    boot();
    VNTSBToolBarController::shared().setIsEnabled(true);
    device().setOrientation(3, true);
    EXPECT_EQ(phone_->calledCount("UIDevice", "setOrientation:animated:"), 0);
    EXPECT_EQ(posted(rotated), 0);
}

TEST_F(SpringBoardHooks, TheHomeScreenMovesBeforeAnythingIsShownOnIt) {
    boot();
    Object cls(classObject(objc_getClass("SBHomeScreenView")));
    auto home = adopted(cls.send<"new", Object>());
    phone_->clear();
    home.send<"didMoveToWindow">();
    EXPECT_EQ(phone_->calledCount("SBHomeScreenView", "didMoveToWindow"), 1);
}

bool madeByATurn = true;

// Before SpringBoard has finished launching there is no toolbar, and none is made for a turn.
TEST_F(SpringBoardHooks, ATurnMakesNoToolbar) {
    simulator::setExtensionLoader(+[] {
        vantori::startUp();
        UIDevice::currentDevice().setOrientation(3, true);
        madeByATurn = VNTSBToolBarController::exists();
    });
    boot();
    EXPECT_FALSE(madeByATurn);
}

}  // namespace
}  // namespace vantori::tests
