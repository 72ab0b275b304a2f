// The buttons: the play state that they show, the spring under the finger, the commands, opening the
// application that plays.
#include "pages/lifted_scene.hpp"
#include "simulator/runtime/history.hpp"
#include "tests/order.hpp"
#include "tests/pages/music_phone.hpp"

namespace vantori::tests {
namespace {

class MusicTransport : public MusicPhone {
  protected:
    static UIControl button(const char* property) {
        return page().send<"valueForKey:", UIControl>(NSString::from(property));
    }
    static void press(UIControl control, unsigned long events) {
        control.send<"sendActionsForControlEvents:">(events);
    }
    long skips() const { return called("SBMediaController", "changeTrack:eventSource:"); }
    std::vector<simulator::scenario::Value> lastSkip() const {
        return phone_->lastCall("SBMediaController", "changeTrack:eventSource:").value();
    }
    long numberAt(std::size_t argument) const {
        return static_cast<long>(simulator::scenario::asNumber(lastSkip()[argument]).value().value);
    }
};

TEST_F(MusicTransport, FollowsThePlayStateInTheNextTurn) {
    boot();
    play("T", "", "", "");
    EXPECT_TRUE(showsPause());
    phone_->playing(false);
    EXPECT_TRUE(showsPause());  // it has been told, and waits for its turn
    turn();
    EXPECT_TRUE(showsPlay());
    phone_->playing(true);
    turn();
    EXPECT_TRUE(showsPause());
    EXPECT_TRUE(imageOn(applicationPage().send<"middleButton", UIButton>()) == named("Pause"));
}

TEST_F(MusicTransport, TheNotificationAloneRefreshesTheButton) {
    boot();
    play("T", "", "", "");
    turn();
    get<"middleButton", UIButton>().setImage(named("Next"));
    phone_->post("com.ferolin.vantori-nowplayingchange");
    EXPECT_TRUE(middleImage() == named("Next"));
    turn();
    EXPECT_TRUE(showsPause());
}

TEST_F(MusicTransport, TheCallbackAloneRefreshesTheButtonFromTheController) {
    boot();
    play("T", "", "", "");
    turn();
    get<"middleButton", UIButton>().setImage(named("Next"));
    // What it says is not taken: the controller is asked.
    page().send<"nowPlayingController:playbackStateDidChange:">(Object(), false);
    turn();
    EXPECT_TRUE(showsPause());
}

TEST_F(MusicTransport, AnInfoChangeAsksSpringBoardAndAllElseTheController) {
    boot();
    Method method =
        class_getInstanceMethod(objc_getClass("SpringBoard"), selector<"isNowPlayingAppPlaying">());
    method_setImplementation(method, reinterpret_cast<IMP>(+[](id, SEL) -> bool { return false; }));
    play("T", "", "", "");
    EXPECT_TRUE(showsPlay());  // SpringBoard says so
    turn();
    EXPECT_TRUE(showsPause());  // the controller says so
    page().send<"nowPlayingController:nowPlayingInfoDidChange:">(Object(), Object());
    EXPECT_TRUE(showsPlay());
    page().updatePlayingInfo();
    EXPECT_TRUE(showsPause());
}

struct Command {
    const char* property;
    const char* action;
    long delta;
};
class MusicSkip : public MusicTransport,
                  public testing::WithParamInterface<std::tuple<Command, unsigned long>> {};

TEST_P(MusicSkip, GoesOutForAReleaseInsideAndOutside) {
    const auto& [command, events] = GetParam();
    boot();
    play("T", "", "", "");
    press(button(command.property), events);
    ASSERT_EQ(skips(), 1);
    ASSERT_EQ(lastSkip().size(), 2u);
    EXPECT_EQ(numberAt(0), command.delta);
    EXPECT_EQ(numberAt(1), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, MusicSkip,
    testing::Combine(testing::Values(Command{"leftButton", "leftButtonTouchUpInside:", -1},
                                     Command{"rightButton", "rightButtonTouchUpInside:", 1}),
                     testing::Values(64ul, 128ul)));

TEST_F(MusicTransport, TheMiddleButtonPausesWhatPlaysAndPlaysWhatRests) {
    boot();
    play("T", "", "", "");
    press(button("middleButton"), 64);
    EXPECT_EQ(called("SBMediaController", "pauseForEventSource:"), 1);
    EXPECT_TRUE(showsPause());  // the picture follows later
    turn();
    turn();
    EXPECT_TRUE(showsPlay());
    press(button("middleButton"), 128);
    EXPECT_EQ(called("SBMediaController", "playForEventSource:"), 1);
    EXPECT_EQ(called("SBMediaController", "pauseForEventSource:"), 1);
    turn();
    turn();
    EXPECT_TRUE(showsPause());
}

TEST_F(MusicTransport, PlayWithNothingLoadedBringsThePhonesOwnMusic) {
    boot();
    press(button("middleButton"), 64);
    turn();
    turn();
    EXPECT_TRUE(showsPause());
    EXPECT_EQ(title(), "Harbour Lights at Half Past Four     ");
    press(button("rightButton"), 64);
    turn();
    EXPECT_EQ(title(), "Paper Lanterns     ");
    press(button("leftButton"), 64);
    turn();
    EXPECT_EQ(title(), "Harbour Lights at Half Past Four     ");
}

constexpr const char* transportButtons[] = {"leftButton", "middleButton", "rightButton"};

class MusicFeedback : public MusicTransport, public testing::WithParamInterface<const char*> {};

// The shared spring after 0.1 s has gone 0.858 of its way: 1 - 0.5 * 0.858 = 0.571.
TEST_P(MusicFeedback, SpringsToHalfItsSizeAndBack) {
    boot();
    openToolbar();
    UIControl pressed = button(GetParam());
    press(pressed, 1);
    EXPECT_EQ(transformOf(pressed), (CGAffineTransform{0.5, 0, 0, 0.5, 0, 0}));
    phone_->wait(0.1);
    Object shown(phone_->presentation(pressed.get()));
    EXPECT_NEAR((shown.send<"transform", CGAffineTransform>().a), 0.571, 0.001);
    phone_->wait(0.5);
    press(pressed, 64);
    EXPECT_EQ(transformOf(pressed), identityTransform);
    phone_->wait(0.1);
    Object later(phone_->presentation(pressed.get()));
    EXPECT_NEAR((later.send<"transform", CGAffineTransform>().a), 0.929, 0.001);
}

TEST_P(MusicFeedback, AnInterruptedPressIsPutRightWhenTheMarqueesStart) {
    boot();
    UIControl pressed = button(GetParam());
    press(pressed, 1);
    press(pressed, 256);  // cancelled: nobody listens
    phone_->wait(1);
    phone_->post("com.ferolin.vantori-stopmarquee");
    EXPECT_EQ(transformOf(pressed), (CGAffineTransform{0.5, 0, 0, 0.5, 0, 0}));
    phone_->post("com.ferolin.vantori-startmarquee");
    EXPECT_EQ(transformOf(pressed), identityTransform);
}

INSTANTIATE_TEST_SUITE_P(Buttons, MusicFeedback, testing::ValuesIn(transportButtons));

// In front of an application, where no pan of the toolbar takes the finger.
TEST_F(MusicTransport, AFingerThatLeavesTheButtonStillSkips) {
    set("alwaysSpringBoardStyle", false);
    boot();
    play("T", "", "", "");
    phone_->open("com.example.maps");
    openToolbar();
    ASSERT_TRUE(VNTToolBarController::shared().isEnabled());
    UIView next = applicationPage().send<"rightButton", UIView>();
    const CGPoint start = middleOf(next);
    touch(start);
    phone_->wait(0.3);
    EXPECT_EQ(transformOf(next), (CGAffineTransform{0.5, 0, 0, 0.5, 0, 0}));
    phone_->touchMove(120, start.y, 0.5);
    phone_->touchUp();
    EXPECT_EQ(skips(), 1);
    EXPECT_EQ(transformOf(next), identityTransform);
}

TEST_F(MusicTransport, ATapOnTheButtonInTheOpenToolbarPauses) {
    boot();
    play("T", "", "", "");
    openToolbar();
    tapOn(get<"middleButton", UIView>());
    phone_->wait(1);
    EXPECT_EQ(called("SBMediaController", "pauseForEventSource:"), 1);
    EXPECT_TRUE(showsPlay());
}

class MusicOpen : public MusicTransport {
  protected:
    void openFromPage(unsigned long events) {
        press(button("nowPlayingApplicationButton"), events);
    }
};

TEST_F(MusicOpen, DoesNothingWhileNothingPlays) {
    boot();
    openFromPage(64);
    EXPECT_EQ(called("SpringBoard", "launchApplicationWithIdentifier:suspended:"), 0);
    EXPECT_EQ(called("UIApplication", "launchApplicationWithIdentifier:suspended:"), 0);
    play("T", "", "", "", otherApplication);
    phone_->playing(false);
    VNTToolBarController::shared().setIsEnabled(true);
    openFromPage(64);
    EXPECT_EQ(phone_->launchedCount(otherApplication), 0);
    EXPECT_TRUE(VNTToolBarController::shared().isEnabled());
}

class MusicOpenBy : public MusicOpen, public testing::WithParamInterface<unsigned long> {};

TEST_P(MusicOpenBy, LaunchesWhatPlaysAndPutsTheLiftBack) {
    set("alwaysSpringBoardStyle", false);
    boot();
    play("T", "", "", "", "com.example.mail");
    phone_->open("com.example.maps");
    openToolbar();
    ASSERT_TRUE(VNTToolBarController::shared().isEnabled());
    EXPECT_EQ(sceneContainer().frame(),
              rect(0, -VNTToolBarController::shared().maxHeight(), 375, 812));
    phone_->clear();
    applicationPage()
        .send<"nowPlayingApplicationButton", UIControl>()
        .send<"sendActionsForControlEvents:">(GetParam());
    EXPECT_EQ(phone_->launchedCount("com.example.mail"), 1);
    EXPECT_EQ(phone_->launchedSuspendedCount("com.example.mail"), 0);
    EXPECT_EQ(sceneContainer().frame(), (rect(0, 0, 375, 812)));
    EXPECT_EQ(sceneContainer().layer().cornerRadius(), 0);
    EXPECT_FALSE(VNTToolBarController::shared().isEnabled());
    phone_->wait(1);
    EXPECT_EQ(sceneContainer().frame(), (rect(0, 0, 375, 812)));
    NSString front = SpringBoard::shared().frontMostApplication().bundleIdentifier();
    EXPECT_STREQ(front.utf8(), "com.example.mail");
}

INSTANTIATE_TEST_SUITE_P(Releases, MusicOpenBy, testing::Values(64ul, 128ul));

// The application is asked for while the one in front is lifted still; it is lowered when the toolbar behind it
// counts as closed.
TEST_F(MusicOpen, GoesInOrder) {
    set("alwaysSpringBoardStyle", false);
    boot();
    play("T", "", "", "", "com.example.mail");
    phone_->open("com.example.maps");
    openToolbar();
    const double lifted = -VNTToolBarController::shared().maxHeight();
    std::vector<double> tops;
    const auto look = [&] { tops.push_back(sceneContainer().frame().origin.y); };
    simulator::History::shared().watch({simulator::Happening::launched},
                                       [&](simulator::Happening, const std::string&) { look(); });
    Spy<"setIsEnabled:", bool>::on("VNTToolBarController", [&](Object, bool) { look(); });
    applicationPage().send<"openNowPlayingApplication">();
    EXPECT_EQ(tops, (std::vector<double>{lifted, 0}));
}

// It lowers the scene and clears one flag: the toolbar above stays, and nobody is told.
TEST_F(MusicOpen, LeavesTheToolbarAboveAndPostsNothing) {
    boot();
    play("T", "", "", "", otherApplication);
    openToolbar();
    ASSERT_TRUE(VNTSBToolBarController::shared().isEnabled());
    phone_->clear();
    page().send<"openNowPlayingApplication">();
    phone_->wait(1);
    EXPECT_EQ(phone_->launchedCount(otherApplication), 1);
    EXPECT_EQ(phone_->launchedSuspendedCount(otherApplication), 0);
    EXPECT_TRUE(VNTSBToolBarController::shared().isEnabled());
    const auto toolbar = VNTSBToolBarController::shared();
    EXPECT_EQ(toolbar.view().frame().origin.y, 812 - toolbar.suggestedY());
    for (const char* name : {"com.ferolin.vantori-stopmarquee", "com.ferolin.vantori-ccback",
                             "com.ferolin.vantori-finish-launching", "should-refresh-state"}) {
        EXPECT_EQ(posted(name), 0) << name;
    }
    EXPECT_EQ(phone_->darwinPostedCount("com.ferolin.vantori.Back-Now"), 0);
    EXPECT_EQ(phone_->haptics(0) + phone_->haptics(1), 0);
}

// The flag of the settings is only kept; the tap opens whatever it says.
TEST_F(MusicOpen, DoesNotAskTheFlag) {
    set("tapToOpen", false);
    boot();
    announceSettings();
    play("T", "", "", "", otherApplication);
    openFromPage(64);
    EXPECT_EQ(phone_->launchedCount(otherApplication), 1);
}

}  // namespace
}  // namespace vantori::tests
