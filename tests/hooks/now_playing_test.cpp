// SpringBoard's reports of the application that plays, and what becomes of them.
#include "tests/library_phone.hpp"
#include "tests/order.hpp"

namespace vantori::tests {
namespace {

class NowPlayingHooks : public LibraryPhone {
  protected:
    static Object springBoard() { return SpringBoard::shared(); }
    static Object mediaController() {
        return Object(classObject(objc_getClass("SBMediaController")))
            .send<"sharedInstance", Object>();
    }
    long refreshes() const { return posted("should-refresh-value"); }
    long changes() const { return posted("com.ferolin.vantori-nowplayingchange"); }
};

TEST_F(NowPlayingHooks, AnotherApplicationRefreshesTheValues) {
    boot();
    springBoard().send<"_nowPlayingAppDidChangeNotification:">("a notification"_ns);
    EXPECT_EQ(refreshes(), 1);
    EXPECT_EQ(changes(), 0);
    EXPECT_EQ(phone_->calledCount("SpringBoard", "_nowPlayingAppDidChangeNotification:"), 1);
    auto passed = phone_->lastCall("SpringBoard", "_nowPlayingAppDidChangeNotification:");
    ASSERT_TRUE(passed && passed->size() == 1);
}

TEST_F(NowPlayingHooks, AnotherProcessRefreshesTheValues) {
    boot();
    springBoard().send<"setNowPlayingProcessPID:">(4711);
    EXPECT_EQ(refreshes(), 1);
    EXPECT_EQ(changes(), 0);
    // The system's implementation has run, with the number.
    EXPECT_EQ((springBoard().send<"nowPlayingProcessPID", int>()), 4711);
}

TEST_F(NowPlayingHooks, AnotherPlayStateIsPassedOn) {
    boot();
    mediaController().send<"_mediaRemoteNowPlayingApplicationIsPlayingDidChange:">(Object());
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(refreshes(), 0);
    EXPECT_EQ(phone_->calledCount("SBMediaController",
                                  "_mediaRemoteNowPlayingApplicationIsPlayingDidChange:"),
              1);
    EXPECT_EQ(posted("SBMediaNowPlayingChangedNotification"), 1);
}

TEST_F(NowPlayingHooks, TheSystemIsToldFirst) {
    boot();
    listenTo({"should-refresh-value", "com.ferolin.vantori-nowplayingchange"});
    Order::look() = [this] {
        const int told =
            phone_->calledCount("SpringBoard", "_nowPlayingAppDidChangeNotification:") +
            phone_->calledCount("SpringBoard", "setNowPlayingProcessPID:") +
            phone_->calledCount("SBMediaController",
                                "_mediaRemoteNowPlayingApplicationIsPlayingDidChange:");
        Order::note(std::to_string(told));
    };
    springBoard().send<"_nowPlayingAppDidChangeNotification:">("a notification"_ns);
    springBoard().send<"setNowPlayingProcessPID:">(4711);
    mediaController().send<"_mediaRemoteNowPlayingApplicationIsPlayingDidChange:">(Object());
    EXPECT_EQ(Order::events(),
              (std::vector<std::string>{"should-refresh-value", "1", "should-refresh-value", "2",
                                        "com.ferolin.vantori-nowplayingchange", "3"}));
}

TEST_F(NowPlayingHooks, ThePlayersOwnChangesArriveThroughThem) {
    boot();
    phone_->play({"T", "", "", "", "com.example.maps"});
    EXPECT_EQ(refreshes(), 2);  // its process and the application
    EXPECT_EQ(changes(), 1);
    phone_->play({"Next of the same", "", "", "", "com.example.maps"});
    EXPECT_EQ(refreshes(), 2);
    EXPECT_EQ(changes(), 1);
    phone_->playing(false);
    EXPECT_EQ(changes(), 2);
    phone_->playing(false);
    EXPECT_EQ(changes(), 2);
    phone_->nothingPlaying();
    EXPECT_EQ(refreshes(), 4);
    EXPECT_EQ(changes(), 2);
    EXPECT_EQ((springBoard().send<"nowPlayingProcessPID", int>()), 0);
}

TEST_F(NowPlayingHooks, AMissingMediaControllerIsPassedOver) {
    phone_->missingClass("SBMediaController");
    boot();
    phone_->play({"T", "", "", "", "com.example.maps"});
    EXPECT_EQ(refreshes(), 2);
    EXPECT_EQ(changes(), 0);
    EXPECT_FALSE(phone_->crashed());
}

}  // namespace
}  // namespace vantori::tests
