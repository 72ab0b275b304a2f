#include "pages/music_transport.hpp"

#include "pages/lifted_scene.hpp"
#include "pages/music_state.hpp"
#include "pages/player_commands.hpp"
#include "pages/toolbar_messages.hpp"
#include "platform/dispatch.hpp"
#include "platform/springboard.hpp"

namespace vantori {

namespace {

// Also when the finger was dragged out of the button before it was lifted.
constexpr unsigned long released = UIControl::touchUpInside | UIControl::touchUpOutside;

constexpr CGAffineTransform halfSize{0.5, 0, 0, 0.5, 0, 0};

void springTo(UIView button, CGAffineTransform transform) {
    auto changes =
        block([button = retained(button), transform] { button.setTransform(transform); });
    animateWithSharedSpring(changes);
}

void springBack(UIView button) { springTo(button, identityTransform); }

void wire(VNTMediaPlayerViewController page, UIButton button, SEL action) {
    button.addTarget(page, action, released);
    button.addTarget(page, selector<"buttonAnimation:">(), UIControl::touchDown);
}

}  // namespace

void showPlaying(VNTMediaPlayerViewController page, bool playing) {
    NSString path = playing ? "/Library/Application Support/Vantori/Pause.png"_ns
                            : "/Library/Application Support/Vantori/Play.png"_ns;
    musicState(page).middle.setImage(UIImage::named(path));
}

void showPlayingLater(VNTMediaPlayerViewController page) {
    onMainQueue(
        [page = retained(page)] { showPlaying(page, musicState(page).controller.isPlaying()); });
}

void wireButtons(VNTMediaPlayerViewController page) {
    MusicState& state = musicState(page);
    state.left.setImage(UIImage::named("/Library/Application Support/Vantori/Previous.png"_ns));
    state.right.setImage(UIImage::named("/Library/Application Support/Vantori/Next.png"_ns));
    wire(page, state.left, selector<"leftButtonTouchUpInside:">());
    wire(page, state.middle, selector<"middleButtonTouchUpInside:">());
    wire(page, state.right, selector<"rightButtonTouchUpInside:">());
}

void shrink(VNTMediaPlayerViewController, UIView button) { springTo(button, halfSize); }

void previousReleased(VNTMediaPlayerViewController, UIView button) {
    springBack(button);
    player::changeTrack(-1);
}

// The picture stays: it follows when the player says that its state has changed.
void playReleased(VNTMediaPlayerViewController page, UIView button) {
    springBack(button);
    if (musicState(page).controller.isPlaying()) {
        player::pause();
    } else {
        player::play();
    }
}

void nextReleased(VNTMediaPlayerViewController, UIView button) {
    springBack(button);
    player::changeTrack(1);
}

void openNowPlayingApplication(VNTMediaPlayerViewController page) {
    MPUNowPlayingController player = musicState(page).controller;
    if (!player.isPlaying()) return;
    SpringBoard::shared().launchApplication(player.applicationId(), false);
    lowerLiftedScene();
    toolbars::noteApplicationSideClosed();
}

}  // namespace vantori
