// The phone's player, without the library: queue, time, commands, and whom it tells what.
#include <gtest/gtest.h>

#include "platform/now_playing.hpp"
#include "platform/springboard.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/services/media_player.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator::tests {
namespace {

class Player : public ::testing::Test {
  protected:
    Player() : phone_(makePhone({})) {
        phone_->withoutExtension();
        phone_->boot();
        player().listen([this](MediaPlayer::Change change) { told_.push_back(change); });
    }
    static MediaPlayer& player() { return MediaPlayer::shared(); }
    static std::string title() { return player().track() ? player().track()->title : ""; }
    static Object media() { return SBMediaController::shared(); }
    bool isToldOf(std::vector<MediaPlayer::Change> changes) {
        return std::exchange(told_, {}) == changes;
    }

    AutoreleasePool pool_;
    std::unique_ptr<Phone> phone_;
    std::vector<MediaPlayer::Change> told_;
};

using enum MediaPlayer::Change;

TEST_F(Player, BeginsEmpty) {
    EXPECT_EQ(player().track(), nullptr);
    EXPECT_EQ(player().application(), "");
    EXPECT_EQ(player().process(), 0);
    EXPECT_FALSE(player().isPlaying());
    EXPECT_FALSE((media().send<"hasTrack", bool>()));
    EXPECT_FALSE((media().send<"nowPlayingApplication", Object>()));
}

TEST_F(Player, TellsTheApplicationThenThePlayStateThenTheTrack) {
    phone_->play({"A", "", "", "", "com.example.maps"});
    EXPECT_TRUE(isToldOf({application, playState, track}));
    phone_->play({"B", "", "", "", "com.example.maps"});
    EXPECT_TRUE(isToldOf({track}));
    phone_->playing(false);
    EXPECT_TRUE(isToldOf({playState}));
    phone_->playing(false);
    EXPECT_TRUE(isToldOf({}));
    phone_->nothingPlaying();
    EXPECT_TRUE(isToldOf({application, track}));
}

TEST_F(Player, CommandsActAtOnceAndAreToldInTheNextTurn) {
    phone_->play({"A", "", "", "", "com.example.maps"});
    told_.clear();
    EXPECT_TRUE((media().send<"pauseForEventSource:", bool>(0L)));
    EXPECT_FALSE(player().isPlaying());
    EXPECT_TRUE(isToldOf({}));
    phone_->wait(0.05);
    EXPECT_TRUE(isToldOf({playState}));
    media().send<"playForEventSource:", bool>(0L);
    media().send<"pauseForEventSource:", bool>(0L);
    phone_->wait(0.05);
    EXPECT_TRUE(isToldOf({}));
}

TEST_F(Player, SkipsRoundTheQueueOfTheApplication) {
    EXPECT_FALSE((media().send<"changeTrack:eventSource:", bool>(1, 0L)));
    for (const char* name : {"A", "B", "C"}) {
        phone_->play({name, "", "", "", "com.example.maps"});
    }
    EXPECT_EQ(title(), "C");
    EXPECT_TRUE((media().send<"changeTrack:eventSource:", bool>(-1, 0L)));
    EXPECT_EQ(title(), "B");
    player().skip(2);
    EXPECT_EQ(title(), "A");
    player().skip(-1);
    EXPECT_EQ(title(), "C");
    player().skip(-7);  // seven back from the third of three: the second
    EXPECT_EQ(title(), "B");
    phone_->play({"Other", "", "", "", "com.example.mail"});
    player().skip(1);
    EXPECT_EQ(title(), "Other");
}

TEST_F(Player, TheQueueForgetsItsOldestTracks) {
    for (int i = 0; i < 60; ++i) {
        phone_->play({std::to_string(i), "", "", "", "com.example.maps"});
    }
    player().skip(1);
    EXPECT_EQ(title(), "10");  // the last fifty are 10 to 59
}

TEST_F(Player, TracksOfTheLibraryEndInTheirTime) {
    media().send<"playForEventSource:", bool>(0L);
    EXPECT_EQ(player().application(), "com.apple.Music");
    EXPECT_EQ(title(), "Harbour Lights at Half Past Four");  // 214 s
    phone_->wait(200);
    EXPECT_NEAR(player().position(), 200, 0.02);
    player().pause();
    phone_->wait(100);
    EXPECT_NEAR(player().position(), 200, 0.02);
    player().resume();
    phone_->wait(13.9);
    EXPECT_EQ(title(), "Harbour Lights at Half Past Four");
    told_.clear();
    phone_->wait(0.2);
    EXPECT_EQ(title(), "Paper Lanterns");
    EXPECT_TRUE(isToldOf({track}));
    EXPECT_LT(player().position(), 0.2);
    // 187 + 242 + 168 + 259 s later the first comes round again.
    phone_->wait(187 + 242 + 168 + 259);
    EXPECT_EQ(title(), "Harbour Lights at Half Past Four");
}

TEST_F(Player, WhatAScenarioPlaysDoesNotEndByItself) {
    phone_->play({"A", "", "", "", "com.example.maps"});
    phone_->play({"B", "", "", "", "com.example.maps"});
    phone_->wait(3600);
    EXPECT_EQ(title(), "B");
    EXPECT_NEAR(player().position(), 3600, 0.02);
}

TEST_F(Player, PlayingWithoutATrackIsAnApplicationThatTellsNothing) {
    phone_->playing(true);
    auto controller = create<MPUNowPlayingController>();
    EXPECT_TRUE(controller.isPlaying());
    EXPECT_FALSE(controller.info());
    EXPECT_FALSE(controller.artwork());
    EXPECT_FALSE(controller.applicationId());
    phone_->wait(10);
}

TEST_F(Player, ControllersTellWhatPlays) {
    auto controller = create<MPUNowPlayingController>();
    phone_->play({"T", "", "Al", "cover", "com.apple.Music"});
    EXPECT_EQ((controller.info().send<"count", unsigned long>()), 3u);
    EXPECT_STREQ(as<NSString>(controller.info().at("kMRMediaRemoteNowPlayingInfoAlbum"_ns)).utf8(),
                 "Al");
    EXPECT_FALSE(controller.info().at("kMRMediaRemoteNowPlayingInfoArtist"_ns));
    EXPECT_TRUE(controller.isSystemMediaApplication());
    EXPECT_STREQ(controller.applicationId().utf8(), "com.apple.Music");
    auto shown = retained(controller.artwork());
    ASSERT_TRUE(shown);
    EXPECT_TRUE(controller.artwork() == shown);
    phone_->play({"U", "", "Al", "cover", "com.apple.Music"});
    EXPECT_FALSE(controller.artwork() == shown);
    phone_->play({"V", "", "Al", "", "com.example.maps"});
    EXPECT_FALSE(controller.artwork());
    EXPECT_FALSE(controller.isSystemMediaApplication());
}

TEST_F(Player, ControllersThatAreGoneAreNotTold) {
    {
        auto controller = create<MPUNowPlayingController>();
    }
    phone_->play({"T", "", "", "", "com.apple.Music"});
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(Player, AProcessKeepsItsNumber) {
    phone_->play({"T", "", "", "", "com.example.maps"});
    const int maps = player().process();
    phone_->play({"T", "", "", "", "com.example.mail"});
    EXPECT_NE(player().process(), maps);
    phone_->play({"T", "", "", "", "com.example.maps"});
    EXPECT_EQ(player().process(), maps);
    EXPECT_EQ((SpringBoard::shared().send<"nowPlayingProcessPID", int>()), maps);
    EXPECT_TRUE(SpringBoard::shared().isNowPlayingApplicationPlaying());
}

}  // namespace
}  // namespace simulator::tests
