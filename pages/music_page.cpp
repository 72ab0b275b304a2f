#include "pages/music_page.hpp"

#include <algorithm>

#include "pages/music_artwork.hpp"
#include "pages/music_layout.hpp"
#include "pages/music_state.hpp"
#include "pages/music_text.hpp"
#include "pages/music_transport.hpp"
#include "pages/now_playing_forms.hpp"
#include "pages/page_height.hpp"
#include "platform/springboard.hpp"
#include "settings/notifications.hpp"

namespace vantori {

namespace {

using Page = VNTMediaPlayerViewController;

constexpr Strong<UIButton> MusicState::* buttons[] = {&MusicState::left, &MusicState::middle,
                                                      &MusicState::right};

CGSize screenSize() { return UIScreen::mainScreen().bounds().size; }

bool canShowWhileLocked(Page) { return true; }

void createParts(Page self) {
    MusicState& state = musicState(self);
    state.artwork = create<UIImageView, "initWithFrame:">(music::artworkFrame());
    state.placeholder = create<UIImageView, "initWithFrame:">(music::artworkFrame());
    state.placeholder.setImage(self.placeholder());
    state.openButton = create<UIButton, "initWithFrame:">(music::artworkFrame());
    for (int i = 0; i < 3; ++i) {
        const MusicLine& line = musicLines()[static_cast<std::size_t>(i)];
        state.*line.label = create<UILabel>();
        state.*line.marquee =
            create<MPUMarqueeView, "initWithFrame:">(music::lineFrame(screenSize().width, i));
        state.*buttons[i] =
            create<UIButton, "initWithFrame:">(music::buttonFrame(screenSize().width, i));
    }
}

void loadView(Page self) {
    super<Page, "loadView">(self);
    createParts(self);
    MusicState& state = musicState(self);
    state.controller = createNowPlayingSource();
    state.controller.setDelegate(self);
    state.openButton.addTarget(self, selector<"openNowPlayingApplication">(),
                               UIControl::touchUpInside | UIControl::touchUpOutside);
    observe(self, selector<"stopMarquee">(), local::stopMarquee());
    observe(self, selector<"startMarquee">(), local::startMarquee());
}

void addSubviews(Page self, const MusicState& state) {
    UIView view = self.view();
    const UIView parts[] = {state.placeholder, state.artwork, state.openButton,
                            state.left,        state.middle,  state.right};
    for (UIView part : parts) view.addSubview(part);
}

void style(const MusicState& state) {
    for (UIImageView picture : {UIImageView(state.placeholder), UIImageView(state.artwork)}) {
        picture.layer().setCornerRadius(music::artworkRadius);
        picture.layer().setMasksToBounds(true);
    }
    for (const MusicLine& line : musicLines()) {
        (state.*line.label).setTextColor(UIColor::white());
        (state.*line.label).setFont(UIFont::system(music::fontSize));
    }
}

void viewDidLoad(Page self) {
    super<Page, "viewDidLoad">(self);
    MusicState& state = musicState(self);
    addSubviews(self, state);
    style(state);
    wireButtons(self);
    state.artworkIdentifier = Copied<NSString>(noArtworkIdentifier());
    observe(self, selector<"updateButton">(), local::nowPlayingChange());
    self.updatePlayingInfo();
    self.setUpMarqueeView();
}

void viewDidLayoutSubviews(Page self) {
    super<Page, "viewDidLayoutSubviews">(self);
    const CGSize screen = screenSize();
    self.view().setBounds(rect(0, 0, std::min(screen.width, screen.height), pageHeight));
}

UIImage getImage(Page) { return musicApplicationIcon(); }

// The labels keep their size: only texts that scroll make them fit.
void updatePlayingInfo(Page self) {
    MPUNowPlayingController player = musicState(self).controller;
    NSDictionary info = player.info();
    showPlainText(self, info);
    refreshArtwork(self, info);
    showPlaying(self, player.isPlaying());
}

// On the thread that it comes on. Unlike everywhere else on the page, the play state is SpringBoard's
// here and not the controller's: deliberate.
void infoDidChange(Page self, Object, Object) {
    MPUNowPlayingController player = musicState(self).controller;
    NSDictionary info = player.info();
    refreshArtwork(self, info);
    if (player.isSystemMediaApplication()) reloadArtwork(self, info);
    showScrollingText(self, info);
    showPlaying(self, SpringBoard::shared().isNowPlayingApplicationPlaying());
}

void playbackStateDidChange(Page self, Object, bool) { showPlayingLater(self); }

void updateButton(Page self) { showPlayingLater(self); }

void setUpMarqueeView(Page self) {
    const MusicState& state = musicState(self);
    for (const MusicLine& line : musicLines()) {
        MPUMarqueeView marquee = state.*line.marquee;
        UILabel label = state.*line.label;
        NSArray parts = marquee.subviews();
        if (parts.count() > 0) parts.at<UIView>(0).addSubview(label);
        marquee.setAnimationReferenceView(label);
        marquee.setViewForContentSize(label);
        marquee.setMarqueeEnabled(false);
    }
    for (const MusicLine& line : musicLines()) self.view().addSubview(state.*line.marquee);
}

void setMarqueesEnabled(Page self, bool enabled) {
    for (const MusicLine& line : musicLines()) {
        (musicState(self).*line.marquee).setMarqueeEnabled(enabled);
    }
}

// A press that was interrupted may have left a button small.
void startMarquee(Page self) {
    for (auto button : buttons) (musicState(self).*button).setTransform(identityTransform);
    setMarqueesEnabled(self, true);
}

void stopMarquee(Page self) { setMarqueesEnabled(self, false); }

}  // namespace

void registerMusicPage() {
    define<Page, UIViewController, MusicState>()
        .method<"_canShowWhileLocked", &canShowWhileLocked>()
        .method<"loadView", &loadView>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"viewDidLayoutSubviews", &viewDidLayoutSubviews>()
        .method<"getImage", &getImage>()
        .method<"updatePlayingInfo", &updatePlayingInfo>()
        .method<"nowPlayingController:nowPlayingInfoDidChange:", &infoDidChange>()
        .method<"nowPlayingController:playbackStateDidChange:", &playbackStateDidChange>()
        .method<"updateButton", &updateButton>()
        .method<"setUpMarqueeView", &setUpMarqueeView>()
        .method<"startMarquee", &startMarquee>()
        .method<"stopMarquee", &stopMarquee>()
        .method<"buttonAnimation:", &shrink>()
        .method<"leftButtonTouchUpInside:", &previousReleased>()
        .method<"middleButtonTouchUpInside:", &playReleased>()
        .method<"rightButtonTouchUpInside:", &nextReleased>()
        .method<"openNowPlayingApplication", &openNowPlayingApplication>()
        .property<"leftButton", &MusicState::left>()
        .property<"middleButton", &MusicState::middle>()
        .property<"rightButton", &MusicState::right>()
        .property<"album", &MusicState::album>()
        .property<"mediaTitle", &MusicState::title>()
        .property<"subTitle", &MusicState::subtitle>()
        .property<"albumMarqueeView", &MusicState::albumMarquee>()
        .property<"mediaTitleMarqueeView", &MusicState::titleMarquee>()
        .property<"subTitleMarqueeView", &MusicState::subtitleMarquee>()
        .property<"albumArtworkImageView", &MusicState::artwork>()
        .property<"albumPlaceholderImageView", &MusicState::placeholder>()
        .property<"nowPlayingApplicationButton", &MusicState::openButton>()
        .property<"mediaNowPlayingController", &MusicState::controller>()
        .property<"cachedArtworkIdentifier", &MusicState::artworkIdentifier>()
        .property<"allowOpenNowPlayingApp", &MusicState::allowOpenNowPlayingApp>();
}

}  // namespace vantori
