// The player's buttons on real phones: each system gets its own messages, and the song really changes.
#include "simulator/services/media_player.hpp"
#include "tests/pages/music_phone.hpp"

namespace vantori::tests {
namespace {

using simulator::MediaPlayer;

struct SystemCommands {
    const char* system;
    const char* change;
    const char* play;
    const char* pause;
};

class PlayerCommands : public MusicPhone, public testing::WithParamInterface<SystemCommands> {
  protected:
    PlayerCommands() {
        phone_->system(GetParam().system);
        phone_->real();
    }
    static void release(const char* button) {
        auto control = page().send<"valueForKey:", UIControl>(NSString::from(button));
        control.send<"sendActionsForControlEvents:">(64ul);  // up inside
    }
    static std::string song() {
        const simulator::Track* track = MediaPlayer::shared().track();
        return track ? track->title : "nothing";
    }
    long sent(const char* message) const { return called("SBMediaController", message); }
};

TEST_P(PlayerCommands, ChangeTheSong) {
    boot();
    play("First", "", "", "");
    play("Second", "", "", "");
    turn();
    release("leftButton");
    turn();
    EXPECT_EQ(song(), "First");
    release("rightButton");
    turn();
    EXPECT_EQ(song(), "Second");
    EXPECT_EQ(sent(GetParam().change), 2);
    EXPECT_FALSE(phone_->crashed());
}

TEST_P(PlayerCommands, PauseAndPlay) {
    boot();
    play("First", "", "", "");
    turn();
    release("middleButton");
    turn();
    EXPECT_FALSE(MediaPlayer::shared().isPlaying());
    release("middleButton");
    turn();
    EXPECT_TRUE(MediaPlayer::shared().isPlaying());
    EXPECT_EQ(sent(GetParam().pause), 1);
    EXPECT_EQ(sent(GetParam().play), 1);
}

constexpr SystemCommands plain(const char* system) {
    return {system, "changeTrack:", "play", "pause"};
}
constexpr SystemCommands withSource(const char* system) {
    return {system, "changeTrack:eventSource:", "playForEventSource:", "pauseForEventSource:"};
}

INSTANTIATE_TEST_SUITE_P(Systems, PlayerCommands,
                         testing::Values(plain("11.0"), plain("11.1"), plain("11.4"),
                                         withSource("12.0"), withSource("12.4"), withSource("13.3"),
                                         withSource("13.6"), withSource("14.2"),
                                         withSource("14.8")));

}  // namespace
}  // namespace vantori::tests
