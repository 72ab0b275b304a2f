// What `expect nothing wrong` tells of: each thing that must hold, broken from outside, and each that the
// library leaves so on purpose.
#include "simulator/phone/soundness.hpp"

#include <gtest/gtest.h>

#include "pages/lifted_scene.hpp"
#include "simulator/foundation/observers.hpp"
#include "tests/library_phone.hpp"

namespace vantori::tests {
namespace {

using simulator::Orientation;
using simulator::PhoneError;
using simulator::PullPhase;
using std::nullopt;

class SoundPhone : public LibraryPhone {
  protected:
    VNTSBToolBarController front() const { return VNTSBToolBarController::shared(); }
    void pull(PullPhase end = PullPhase::ended) {
        phone_->grabber(PullPhase::began, 60, 10, 0);
        phone_->grabber(PullPhase::updated, 60, 300, 0);
        phone_->grabber(end, 60, 300, 0);
        phone_->wait(1);
    }
    std::string wrong() { return phone_->wrong().value_or("nothing"); }
};

TEST_F(SoundPhone, NothingIsWrongWithAToolbarThatOpensAndCloses) {
    boot();
    EXPECT_EQ(wrong(), "nothing");
    pull();
    EXPECT_TRUE(front().isEnabled());
    EXPECT_EQ(wrong(), "nothing");
    pull();
    EXPECT_FALSE(front().isEnabled());
    EXPECT_EQ(wrong(), "nothing");
}

TEST_F(SoundPhone, NorWithoutTheLibrary) {
    phone_->withoutExtension();
    boot();
    EXPECT_EQ(wrong(), "nothing");
}

TEST_F(SoundPhone, IsNotAskedInTheMiddle) {
    boot();
    phone_->touchDown(100, 300);
    EXPECT_THROW(phone_->wrong(), PhoneError);
    phone_->touchUp();
    phone_->statusBar(PullPhase::began, 300, 10, 0);
    EXPECT_THROW(phone_->wrong(), PhoneError);
    phone_->statusBar(PullPhase::ended, 300, 10, 0);
    phone_->wait(1);
    EXPECT_EQ(wrong(), "nothing");
}

TEST_F(SoundPhone, TellsOfAToolbarInBetween) {
    boot();
    pull();
    front().updateYValue(600);
    EXPECT_EQ(wrong(), "the toolbar is neither up nor away: 212 points of it are up");
    // As high as a strip or a grid, which this one never was.
    front().updateYValue(812 - 115);
    EXPECT_EQ(wrong(), "the toolbar is neither up nor away: 115 points of it are up");
    front().updateYValue(812 - 215);
    EXPECT_EQ(wrong(), "the toolbar is neither up nor away: 215 points of it are up");
    front().updateYValue(812 - front().suggestedY());
    EXPECT_EQ(wrong(), "nothing");
    front().updateYValue(812 - front().suggestedY() - 1);
    EXPECT_NE(wrong(), "nothing");
}

TEST_F(SoundPhone, TellsOfOneThatIsUpAndClosed) {
    boot();
    pull();
    front().setIsEnabled(false);
    EXPECT_EQ(wrong(), "the toolbar is up and counts as closed");
}

TEST_F(SoundPhone, TellsOfOneThatIsOpenAndAway) {
    boot();
    front().setIsEnabled(true);
    EXPECT_EQ(wrong(), "the toolbar counts as open and is away");
}

TEST_F(SoundPhone, TellsOfOneThatIsNotSeen) {
    boot();
    pull();
    front().view().setAlpha(0);
    EXPECT_EQ(wrong(), "the toolbar is open and not seen: it is transparent");
    front().view().setAlpha(1);
    front().vantoriHostWindow().setHidden(true);
    EXPECT_EQ(wrong(), "the toolbar is open and not seen: its window is hidden");
}

TEST_F(SoundPhone, TellsOfOneThatTakesNoTouch) {
    boot();
    pull();
    front().view().setUserInteractionEnabled(false);
    EXPECT_EQ(wrong(), "the toolbar is open and takes no touch");
}

TEST_F(SoundPhone, TellsOfASecondWindow) {
    boot();
    pull();
    const auto other = create<VNTSBHostWindow, "initWithFrame:">(rect(0, 0, 10, 10));
    EXPECT_EQ(wrong(), "2 windows VNTSBHostWindow");
}

TEST_F(SoundPhone, TellsOfPagesThatCannotBeTurned) {
    boot();
    phone_->post("should-lock-ScrollView");
    EXPECT_EQ(wrong(), "the pages of VNTSBToolBarController cannot be turned");
    phone_->post("should-unlock-ScrollView");
    EXPECT_EQ(wrong(), "nothing");
}

TEST_F(SoundPhone, TellsOfAnApplicationInBetween) {
    boot();
    phone_->open("com.example.notes");
    placeScene(sceneContainer(), 100, 0);
    EXPECT_EQ(wrong(), "the application is neither lifted nor in its place: 100 points above it");
    placeScene(sceneContainer(), VNTToolBarController::shared().maxHeight(), 0);
    EXPECT_EQ(wrong(), "the application is lifted for a toolbar that counts as closed");
    VNTToolBarController::shared().setIsEnabled(true);
    EXPECT_EQ(wrong(), "nothing");
    placeScene(sceneContainer(), 0, 0);
    EXPECT_EQ(wrong(),
              "the toolbar behind the application counts as open, and the application is in its "
              "place");
}

TEST_F(SoundPhone, TellsWhatWasRaised) {
    boot();
    const auto observer = create<UIView>();
    NSNotificationCenter::defaultCenter().addObserver(observer, selector<"doNonsense">(),
                                                      "something"_ns);
    EXPECT_THROW(phone_->post("something"), PhoneError);
    EXPECT_TRUE(wrong().starts_with("raised: ")) << wrong();
}

TEST_F(SoundPhone, TellsOfViewsThatBecomeMore) {
    boot();
    pull();
    std::string said;
    for (int check = 0; check < 1000 && (said.empty() || said == "nothing"); ++check) {
        front().view().addSubview(create<UIView>());
        said = wrong();
    }
    EXPECT_TRUE(said.starts_with("more and more views: ")) << said;
}

TEST_F(SoundPhone, TellsOfObserversThatBecomeMore) {
    boot();
    pull();
    std::string said;
    const auto observer = create<UIView>();
    for (int check = 0; check < 1000 && (said.empty() || said == "nothing"); ++check) {
        NSNotificationCenter::defaultCenter().addObserver(observer, selector<"layoutSubviews">(),
                                                          "nobody posts it"_ns);
        said = wrong();
    }
    EXPECT_TRUE(said.starts_with("more and more observers: ")) << said;
}

// On purpose.

TEST_F(SoundPhone, RearrangedWhileItIsOpenTheToolbarKeepsTheHeightThatItHad) {
    boot();
    pull();
    const double stack = front().suggestedY();
    set("layoutDirection", 1);
    announceSettings();
    ASSERT_EQ(front().suggestedY(), 115);
    EXPECT_EQ(front().view().frame().origin.y, 812 - stack);
    EXPECT_EQ(wrong(), "nothing");
    front().updateYValue(812 - 115);
    EXPECT_EQ(wrong(), "nothing");
    front().updateYValue(812 - 215);
    EXPECT_EQ(wrong(), "the toolbar is neither up nor away: 215 points of it are up");
}

TEST_F(SoundPhone, APullThatIsTakenBackStaysWhereTheFingerHadIt) {
    boot();
    pull(PullPhase::cancelled);
    EXPECT_EQ(front().view().frame().origin.y, 812 - 300);
    EXPECT_EQ(wrong(), "nothing");
    pull();
    EXPECT_EQ(wrong(), "nothing");
    front().updateYValue(600);
    EXPECT_EQ(wrong(), "the toolbar is neither up nor away: 212 points of it are up");
}

TEST_F(SoundPhone, TurnedTheToolbarIsLaidOutBelowTheEdgeAndCountsAsOpen) {
    boot();
    phone_->open("com.example.notes");
    pull();
    phone_->rotate(Orientation::landscapeLeft);
    phone_->wait(1);
    EXPECT_TRUE(front().isEnabled());
    EXPECT_EQ(wrong(), "nothing");
    front().setIsEnabled(false);
    EXPECT_EQ(wrong(), "nothing");
    front().setIsEnabled(true);
    EXPECT_EQ(wrong(), "the toolbar counts as open and is away");
}

// Told that applications are no longer lifted, in the middle of a pull or just before it.
class StyleChanged : public SoundPhone, public testing::WithParamInterface<bool> {};

TEST_P(StyleChanged, TheApplicationStaysWhereTheFingerHadIt) {
    set("alwaysSpringBoardStyle", false);
    boot();
    phone_->open("com.example.notes");
    const auto begin = [this] { phone_->grabber(PullPhase::began, 60, 100, 0); };
    const auto change = [this] {
        set("alwaysSpringBoardStyle", true);
        phone_->postDarwin("VantoriPB/reloadSettings");
    };
    if (GetParam()) change();
    begin();
    if (!GetParam()) change();
    phone_->wait(0.1);
    phone_->grabber(PullPhase::ended, 60, 100, 0);
    phone_->wait(1);
    EXPECT_EQ(sceneContainer().frame().origin.y, -100);
    EXPECT_EQ(wrong(), "nothing");
}

INSTANTIATE_TEST_SUITE_P(Times, StyleChanged, testing::Values(false, true));

TEST_F(SoundPhone, ToldLongBeforeAPullTheStyleExcusesNothing) {
    set("alwaysSpringBoardStyle", false);
    boot();
    phone_->open("com.example.notes");
    announceSettings();
    phone_->grabber(PullPhase::began, 60, 100, 0);
    phone_->grabber(PullPhase::ended, 60, 100, 0);
    phone_->wait(1);
    sceneContainer().setFrame(rect(0, -50, 375, 812));
    EXPECT_EQ(wrong(), "the application is neither lifted nor in its place: 50 points above it");
}

TEST(Observers, AreCountedUntilTheyAreRemoved) {
    const auto phone = simulator::makePhone({});
    AutoreleasePool pool;
    const auto center = NSNotificationCenter::defaultCenter();
    const long before = simulator::registeredObservers();
    {
        const auto observer = create<Object>();
        center.addObserver(observer, selector<"description">(), "one"_ns);
        center.addObserver(observer, selector<"description">(), "two"_ns);
        center.addObserver(observer, selector<"description">(), "two"_ns);
        EXPECT_EQ(simulator::registeredObservers(), before + 3);
        center.send<"removeObserver:name:object:">(Object(observer), "two"_ns, Object());
        EXPECT_EQ(simulator::registeredObservers(), before + 1);
        center.send<"removeObserver:">(Object(observer));
        EXPECT_EQ(simulator::registeredObservers(), before);
        center.addObserver(observer, selector<"description">(), "one"_ns);
        EXPECT_EQ(simulator::registeredObservers(), before + 1);
    }
    EXPECT_EQ(simulator::registeredObservers(), before);
}

}  // namespace
}  // namespace vantori::tests
