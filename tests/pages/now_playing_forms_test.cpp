// What the music page shows on real phones, and on 14, where MediaRemote is asked: answers that come
// late, twice, out of order, on another thread, with nothing in them, or never.
#include "pages/now_playing_forms.hpp"

#include <algorithm>

#include "simulator/runtime/system_log.hpp"
#include "simulator/services/answers.hpp"
#include "simulator/services/media_player.hpp"
#include "simulator/services/media_remote.hpp"
#include "tests/pages/music_phone.hpp"

namespace vantori::tests {
namespace {

using simulator::MediaPlayer;
using simulator::questionsToMediaRemote;
using simulator::serviceManner;

constexpr const char* idleAlbum = "Vantori         ";

class NowPlayingOnReal : public MusicPhone {
  protected:
    void bootReal(const char* system) {
        phone_->system(system);
        phone_->real();
        boot();
        turn();
    }
    static std::string shownIdentifier() {
        NSString identifier =
            get<"mediaNowPlayingController", MPUNowPlayingController>().applicationId();
        return identifier ? identifier.utf8() : "(none)";
    }
};

class NowPlayingForm : public NowPlayingOnReal, public testing::WithParamInterface<const char*> {};

TEST_P(NowPlayingForm, ThePageShowsWhatPlays) {
    bootReal(GetParam());
    play("Title", "Artist", "Album", "cover");
    turn();
    EXPECT_EQ(album(), "Album     ");
    EXPECT_EQ(title(), "Title     ");
    EXPECT_EQ(subtitle(), "Artist     ");
    EXPECT_TRUE(artwork());
    EXPECT_EQ(artworkIdentifier(), "cover");
    EXPECT_TRUE(showsPause());
    EXPECT_EQ(shownIdentifier(), otherApplication);
    phone_->playing(false);
    turn();
    EXPECT_TRUE(showsPlay());
    phone_->nothingPlaying();
    turn();
    EXPECT_EQ(album(), idleAlbum);
    EXPECT_FALSE(artwork());
    EXPECT_FALSE(phone_->crashed());
    EXPECT_EQ(phone_->loggedCount("now playing"), 0);
}

TEST_P(NowPlayingForm, TheArtworkOpensWhoPlays) {
    bootReal(GetParam());
    play("Title", "", "", "");
    turn();
    get<"nowPlayingApplicationButton", UIControl>().send<"sendActionsForControlEvents:">(64ul);
    phone_->wait(1);
    EXPECT_EQ(phone_->launchedCount(otherApplication), 1);
}

INSTANTIATE_TEST_SUITE_P(Systems, NowPlayingForm,
                         testing::Values("11.0", "11.4", "12.4", "13.3", "13.6", "14.0", "14.2",
                                         "14.6", "14.8"));

class MediaRemoteForm : public NowPlayingOnReal {
  protected:
    static constexpr const char* system = "14.2";
    void bootOn14() { bootReal(system); }
};

TEST_F(MediaRemoteForm, WhatPlayedBeforeIsShownToo) {
    phone_->system(system);
    phone_->real();
    MediaPlayer::shared().play(otherApplication, {"Title", "Artist", "Album", "cover"});
    boot();
    turn();
    EXPECT_EQ(title(), "Title     ");
}

TEST_F(MediaRemoteForm, WithNothingLoadedThePageStaysAsItWasMade) {
    bootOn14();
    EXPECT_EQ(title(), "Music");
    EXPECT_TRUE(showsPlay());
}

TEST_F(MediaRemoteForm, TheSystemsPlayerIsKnown) {
    bootOn14();
    auto source = get<"mediaNowPlayingController", MPUNowPlayingController>();
    play("Title", "", "", "cover", musicApplication);
    turn();
    EXPECT_TRUE(source.isSystemMediaApplication());
    play("Title", "", "", "cover");
    turn();
    EXPECT_FALSE(source.isSystemMediaApplication());
}

// The flag decides, where there is one.
TEST_F(MediaRemoteForm, TheSystemsPlayerIsKnownByTheFlagThenByName) {
    bootOn14();
    auto source = get<"mediaNowPlayingController", MPUNowPlayingController>();
    const auto flag = [&](NSNumber value) {
        auto info = source.send<"currentNowPlayingInfo", NSDictionary>();
        constexpr auto key = "kMRMediaRemoteNowPlayingInfoIsMusicApp";
        if (value) info.send<"setObject:forKey:">(value, NSString::from(key));
        if (!value) info.send<"removeObjectForKey:">(NSString::from(key));
    };
    play("Title", "", "", "cover");
    turn();
    flag(NSNumber::fromInt(1));
    EXPECT_TRUE(source.isSystemMediaApplication());
    flag({});
    EXPECT_FALSE(source.isSystemMediaApplication());
    play("Title", "", "", "cover", musicApplication);
    turn();
    flag(NSNumber::fromInt(0));
    EXPECT_FALSE(source.isSystemMediaApplication());
    flag({});
    EXPECT_TRUE(source.isSystemMediaApplication());
}

TEST_F(MediaRemoteForm, AnotherSongHasAnotherPicture) {
    bootOn14();
    play("First", "", "", "one");
    turn();
    UIImage first = artwork();
    ASSERT_TRUE(first);
    play("Second", "", "", "two");
    turn();
    ASSERT_TRUE(artwork());
    EXPECT_FALSE(artwork() == first);
    play("Third", "", "", "");
    turn();
    EXPECT_FALSE(artwork());
}

// Made of its bytes once.
TEST_F(MediaRemoteForm, TheSameSongKeepsItsPicture) {
    bootOn14();
    play("First", "", "", "one");
    turn();
    auto source = get<"mediaNowPlayingController">();
    const Object picture = source.send<"currentNowPlayingArtwork", Object>();
    ASSERT_TRUE(picture);
    EXPECT_EQ((source.send<"currentNowPlayingArtwork", Object>()), picture);
}

TEST_F(MediaRemoteForm, ALateAnswerIsShownWhenItComes) {
    bootOn14();
    serviceManner().after = 2;
    play("Title", "", "", "");
    turn();
    EXPECT_EQ(title(), "Music");
    phone_->wait(2);
    EXPECT_EQ(title(), "Title     ");
}

// The second question is answered at once, the first one afterwards.
TEST_F(MediaRemoteForm, AnAnswerThatWasOvertakenChangesNothing) {
    bootOn14();
    serviceManner().after = 2;
    play("First", "", "", "");
    turn();
    serviceManner().after = 0;
    play("Second", "", "", "");
    turn();
    EXPECT_EQ(title(), "Second     ");
    phone_->wait(3);
    EXPECT_EQ(title(), "Second     ");
}

TEST_F(MediaRemoteForm, ASecondAnswerChangesNothing) {
    bootOn14();
    serviceManner().times = 2;
    play("Title", "", "", "cover");
    phone_->wait(1);
    EXPECT_EQ(title(), "Title     ");
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(MediaRemoteForm, AnswersMayComeOnAnotherThread) {
    bootOn14();
    serviceManner().onOtherThread = true;
    play("Title", "Artist", "Album", "cover");
    turn();
    EXPECT_EQ(title(), "Title     ");
    EXPECT_TRUE(artwork());
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(MediaRemoteForm, AnAnswerWithNothingInItShowsThatNothingPlays) {
    bootOn14();
    play("Title", "", "", "cover");
    turn();
    serviceManner().failing = true;
    play("Second", "", "", "cover");
    turn();
    EXPECT_EQ(album(), idleAlbum);
    EXPECT_FALSE(phone_->crashed());
    serviceManner().failing = false;
    play("Third", "", "", "");
    turn();
    EXPECT_EQ(title(), "Third     ");
}

// Each of the two pages has a source, and each asked once when it was made.
TEST_F(MediaRemoteForm, WhoNeverAnswersIsNotAskedForEver) {
    bootOn14();
    serviceManner().times = 0;
    const int before = questionsToMediaRemote();
    for (int i = 0; i < 20; ++i) {
        play("Title", "", "", "");
        turn();
    }
    EXPECT_EQ(questionsToMediaRemote() - before, 2 * 8);
    constexpr auto line = "[Vantori] now playing is off: MediaRemote does not answer";
    EXPECT_EQ(std::ranges::count(simulator::SystemLog::shared().lines(), line), 1);
    EXPECT_EQ(title(), "Music");
    EXPECT_FALSE(phone_->crashed());
}

// The answers come when it has been given up: they are shown, and it is not asked again.
TEST_F(MediaRemoteForm, WhoWasGivenUpIsNotAskedAgain) {
    bootOn14();
    serviceManner().after = 30;
    for (int i = 0; i < 9; ++i) {
        play("Title", "", "", "");
        turn();
    }
    phone_->wait(40);
    EXPECT_EQ(title(), "Title     ");
    serviceManner().after = 0;
    const int before = questionsToMediaRemote();
    play("Second", "", "", "");
    turn();
    EXPECT_EQ(questionsToMediaRemote(), before);
    EXPECT_EQ(title(), "Title     ");
}

TEST_F(MediaRemoteForm, AnAnswerBringsBackThePatience) {
    bootOn14();
    for (int round = 0; round < 3; ++round) {
        serviceManner().times = 0;
        for (int i = 0; i < 7; ++i) {
            play("Unheard", "", "", "");
            turn();
        }
        serviceManner().times = 1;
        play("Heard", "", "", "");
        turn();
        EXPECT_EQ(title(), "Heard     ");
    }
    EXPECT_EQ(phone_->loggedCount("now playing"), 0);
}

TEST_F(MediaRemoteForm, WithoutTheMediaControllerThePageShowsNothingPlaying) {
    phone_->system(system);
    phone_->real();
    phone_->missingClass("SBMediaController");
    phone_->boot();
    play("Title", "", "", "");
    turn();
    EXPECT_FALSE(get<"mediaNowPlayingController">());
    EXPECT_EQ(title(), "Music");
    EXPECT_EQ(phone_->loggedCount("is off"), 0);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(MediaRemoteForm, APhoneThatIsNotRealIsNeverAsked) {
    phone_->system(system);
    boot();
    play("Title", "", "", "");
    turn();
    EXPECT_EQ(title(), "Title     ");
    EXPECT_EQ(questionsToMediaRemote(), 0);
    EXPECT_EQ(objc_getClass("VNTMediaRemoteSource"), nullptr);
}

}  // namespace
}  // namespace vantori::tests
