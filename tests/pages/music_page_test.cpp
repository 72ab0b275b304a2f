// The music page as it is built: parts, places, looks, notifications, and what the toolbars send.
#include <array>

#include "tests/pages/music_phone.hpp"

namespace vantori::tests {
namespace {

class MusicPage : public MusicPhone {
  protected:
    static CGRect frameOf(const char* property) {
        return page().send<"valueForKey:", UIView>(NSString::from(property)).frame();
    }
    static long enabledMarquees() {
        long count = 0;
        for (const char* name :
             {"albumMarqueeView", "mediaTitleMarqueeView", "subTitleMarqueeView"}) {
            auto marquee = page().send<"valueForKey:", UIView>(NSString::from(name));
            if (marquee.send<"isMarqueeEnabled", bool>()) ++count;
        }
        return count;
    }
};

struct Place {
    const char* property;
    double fromLeft;   // x, or
    double fromRight;  // W - x when it is not zero
    double y, height;
    double width;  // 0: W - 210
};

std::ostream& operator<<(std::ostream& out, const Place& place) { return out << place.property; }

constexpr Place places[] = {
    {"albumArtworkImageView", 25, 0, 25, 50, 50},
    {"albumPlaceholderImageView", 25, 0, 25, 50, 50},
    {"nowPlayingApplicationButton", 25, 0, 25, 50, 50},
    {"albumMarqueeView", 80, 0, 25, 16, 0},
    {"mediaTitleMarqueeView", 80, 0, 42.5, 16, 0},
    {"subTitleMarqueeView", 80, 0, 60, 16, 0},
    {"leftButton", 0, 125, 36, 27, 27},
    {"middleButton", 0, 88.5, 35, 27, 27},
    {"rightButton", 0, 52, 35, 27, 27},
};

struct Screen {
    const char* device;
    double width;
};
constexpr Screen screens[] = {{"iPhone10,3", 375}, {"iPhone6,1", 320}, {"iPhone11,8", 414}};

class MusicGeometry : public MusicPage,
                      public testing::WithParamInterface<std::tuple<Screen, Place>> {};

TEST_P(MusicGeometry, EveryPartLiesWhereItShould) {
    const auto& [screen, place] = GetParam();
    phone_->device(screen.device);
    boot();
    const double x = place.fromRight > 0 ? screen.width - place.fromRight : place.fromLeft;
    const double width = place.width > 0 ? place.width : screen.width - 210;
    EXPECT_EQ(frameOf(place.property), (rect(x, place.y, width, place.height)));
}

INSTANTIATE_TEST_SUITE_P(All, MusicGeometry,
                         testing::Combine(testing::ValuesIn(screens), testing::ValuesIn(places)));

TEST_F(MusicPage, IsAPageOfEachToolbarAndMayShowWhileLocked) {
    boot();
    EXPECT_TRUE(page().isKindOfClass(objc_getClass("VNTMediaPlayerViewController")));
    EXPECT_TRUE(applicationPage().isKindOfClass(objc_getClass("VNTMediaPlayerViewController")));
    EXPECT_FALSE(page() == applicationPage());
    EXPECT_TRUE((page().send<"_canShowWhileLocked", bool>()));
}

TEST_F(MusicPage, StacksItsPartsWithTheTextsAboveTheButtons) {
    boot();
    NSArray parts = page().view().subviews();
    constexpr std::array order = {"albumPlaceholderImageView",
                                  "albumArtworkImageView",
                                  "nowPlayingApplicationButton",
                                  "leftButton",
                                  "middleButton",
                                  "rightButton",
                                  "albumMarqueeView",
                                  "mediaTitleMarqueeView",
                                  "subTitleMarqueeView"};
    ASSERT_EQ(parts.count(), order.size());
    for (unsigned long i = 0; i < order.size(); ++i) {
        EXPECT_TRUE(parts.at(i) == (page().send<"valueForKey:", Object>(NSString::from(order[i]))))
            << order[i];
    }
}

TEST_F(MusicPage, RoundsAndClipsThePictures) {
    boot();
    for (const char* name : {"albumPlaceholderImageView", "albumArtworkImageView"}) {
        auto picture = page().send<"valueForKey:", UIView>(NSString::from(name));
        EXPECT_EQ(picture.layer().cornerRadius(), 5) << name;
        EXPECT_TRUE(picture.layer().masksToBounds()) << name;
    }
}

TEST_F(MusicPage, WritesWhiteInFifteenPoints) {
    boot();
    for (const char* name : {"album", "mediaTitle", "subTitle"}) {
        auto label = page().send<"valueForKey:", UILabel>(NSString::from(name));
        EXPECT_EQ((label.send<"font", Object>().send<"pointSize", double>()), 15) << name;
        Object color = label.send<"textColor", Object>();
        EXPECT_TRUE((color.send<"isEqual:", bool>(UIColor::white()))) << name;
    }
}

TEST_F(MusicPage, LabelsStandInTheContentOfTheirMarquees) {
    boot();
    constexpr std::array<std::array<const char*, 2>, 3> lines{
        {{"albumMarqueeView", "album"},
         {"mediaTitleMarqueeView", "mediaTitle"},
         {"subTitleMarqueeView", "subTitle"}}};
    for (auto [marqueeName, labelName] : lines) {
        auto marquee = page().send<"valueForKey:", UIView>(NSString::from(marqueeName));
        auto label = page().send<"valueForKey:", UIView>(NSString::from(labelName));
        EXPECT_TRUE(label.superview() == marquee.subviews().at(0)) << labelName;
        EXPECT_TRUE((marquee.send<"animationReferenceView", Object>()) == label) << labelName;
        EXPECT_TRUE((marquee.send<"viewForContentSize", Object>()) == label) << labelName;
    }
    EXPECT_EQ(enabledMarquees(), 0);
}

// What is set up twice stands where it stood: one label in each marquee, at rest, above the buttons.
TEST_F(MusicPage, SettingTheMarqueesUpAgainAddsNothing) {
    boot();
    page().send<"startMarquee">();
    EXPECT_EQ(enabledMarquees(), 3);
    NSArray before = page().view().subviews();
    page().send<"setUpMarqueeView">();
    NSArray after = page().view().subviews();
    ASSERT_EQ(after.count(), before.count());
    for (unsigned long i = 0; i < after.count(); ++i) EXPECT_EQ(after.at(i), before.at(i)) << i;
    EXPECT_EQ(enabledMarquees(), 0);
    for (auto [marqueeName, labelName] : {std::pair{"albumMarqueeView", "album"},
                                          {"mediaTitleMarqueeView", "mediaTitle"},
                                          {"subTitleMarqueeView", "subTitle"}}) {
        auto marquee = page().send<"valueForKey:", UIView>(NSString::from(marqueeName));
        auto label = page().send<"valueForKey:", UIView>(NSString::from(labelName));
        EXPECT_EQ(marquee.subviews().at<UIView>(0).subviews().count(), 1u) << labelName;
        EXPECT_EQ(label.superview(), marquee.subviews().at<UIView>(0)) << labelName;
    }
}

// Its parts are placed by the screen as it is when the page is made; the page itself stays as wide as
// the short side.
TEST_F(MusicPage, LoadedOnATurnedPhoneItsPartsFollowTheLongSide) {
    boot();
    phone_->open("com.example.notes");
    phone_->rotate(simulator::Orientation::landscapeRight);
    phone_->wait(1);
    auto loaded = create<VNTMediaPlayerViewController>();
    UIView view = loaded.view();
    auto frameIn = [&](const char* name) {
        return loaded.send<"valueForKey:", UIView>(NSString::from(name)).frame();
    };
    EXPECT_EQ(frameIn("albumArtworkImageView"), (rect(25, 25, 50, 50)));
    EXPECT_EQ(frameIn("mediaTitleMarqueeView"), (rect(80, 42.5, 812 - 210, 16)));
    EXPECT_EQ(frameIn("leftButton"), (rect(812 - 125, 36, 27, 27)));
    EXPECT_EQ(frameIn("rightButton"), (rect(812 - 52, 35, 27, 27)));
    loaded.send<"viewDidLayoutSubviews">();
    EXPECT_EQ(view.bounds(), (rect(0, 0, 375, 100)));
}

TEST_F(MusicPage, LabelsHaveNoSizeUntilTheFirstChange) {
    boot();
    EXPECT_EQ(frameOf("album"), (rect(0, 0, 0, 0)));
    EXPECT_EQ(frameOf("subTitle"), (rect(0, 0, 0, 0)));
    play("A longer title", "", "", "");
    EXPECT_GT(frameOf("mediaTitle").size.width, frameOf("album").size.width);
    EXPECT_GT(frameOf("album").size.height, 15);
}

TEST_F(MusicPage, TheButtonsHaveTheirPictures) {
    boot();
    EXPECT_TRUE(imageOn(get<"leftButton", UIButton>()) == named("Previous"));
    EXPECT_TRUE(imageOn(get<"rightButton", UIButton>()) == named("Next"));
    EXPECT_TRUE(named("Previous") && named("Next") && named("Play") && named("Pause"));
    EXPECT_TRUE(showsPlay());
    UIButton open = get<"nowPlayingApplicationButton", UIButton>();
    EXPECT_FALSE(imageOn(open));
    EXPECT_FALSE((open.send<"titleForState:", NSString>(0UL)));
}

struct Wiring {
    const char* property;
    unsigned long events;
};
class MusicWiring : public MusicPage, public testing::WithParamInterface<Wiring> {};

TEST_P(MusicWiring, ListensToItsEvents) {
    boot();
    auto button = page().send<"valueForKey:", UIControl>(NSString::from(GetParam().property));
    EXPECT_EQ((button.send<"allControlEvents", unsigned long>()), GetParam().events);
}

// Touch down 1, up inside 64, up outside 128.
INSTANTIATE_TEST_SUITE_P(Buttons, MusicWiring,
                         testing::Values(Wiring{"leftButton", 193}, Wiring{"middleButton", 193},
                                         Wiring{"rightButton", 193},
                                         Wiring{"nowPlayingApplicationButton", 192}));

TEST_F(MusicPage, IsAsWideAsTheShortSideAndAHundredHighHoweverThePhoneIsTurned) {
    boot();
    phone_->open("com.example.notes");
    openToolbar();
    EXPECT_EQ(page().view().bounds(), (rect(0, 0, 375, 100)));
    for (auto orientation :
         {simulator::Orientation::landscapeRight, simulator::Orientation::landscapeLeft,
          simulator::Orientation::portrait}) {
        phone_->rotate(orientation);
        phone_->wait(1);
        EXPECT_EQ(page().view().bounds(), (rect(0, 0, 375, 100)));
        EXPECT_EQ(frameOf("leftButton"), (rect(250, 36, 27, 27)));
        EXPECT_EQ(frameOf("albumMarqueeView"), (rect(80, 25, 165, 16)));
    }
}

TEST_F(MusicPage, AViewOfAnotherSizeIsPutRight) {
    boot();
    page().view().setBounds(rect(0, 0, 500, 300));
    page().view().send<"layoutIfNeeded">();
    EXPECT_EQ(page().view().bounds(), (rect(0, 0, 375, 100)));
}

TEST_F(MusicPage, ScrollsBetweenTheTwoNotifications) {
    boot();
    phone_->post("com.ferolin.vantori-startmarquee");
    EXPECT_EQ(enabledMarquees(), 3);
    phone_->post("com.ferolin.vantori-startmarquee");
    EXPECT_EQ(enabledMarquees(), 3);
    phone_->post("com.ferolin.vantori-stopmarquee");
    EXPECT_EQ(enabledMarquees(), 0);
}

TEST_F(MusicPage, ScrollsWhileTheToolbarIsShown) {
    boot();
    openToolbar();
    EXPECT_EQ(enabledMarquees(), 3);
    VNTSBToolBarController::shared().send<"dismissVNTSB">();
    EXPECT_EQ(enabledMarquees(), 0);
    phone_->wait(1);
    phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
    EXPECT_EQ(enabledMarquees(), 3);
    phone_->grabber(simulator::PullPhase::cancelled, 60, 10, 0);
    EXPECT_EQ(enabledMarquees(), 0);
}

TEST_F(MusicPage, KeepsWhatTheSettingsSayOfOpeningTheApplication) {
    boot();
    set("tapToOpen", false);
    announceSettings();
    EXPECT_FALSE((get<"allowOpenNowPlayingApp", bool>()));
    EXPECT_FALSE((applicationPage().send<"allowOpenNowPlayingApp", bool>()));
    set("tapToOpen", true);
    announceSettings();
    EXPECT_TRUE((get<"allowOpenNowPlayingApp", bool>()));
    EXPECT_TRUE((applicationPage().send<"allowOpenNowPlayingApp", bool>()));
}

struct SystemIcon {
    const char* system;
    const char* message;
};
class MusicPlaceholder : public MusicPage, public testing::WithParamInterface<SystemIcon> {};

// Below 13 by format, from 13 on by size, scale and radius.
TEST_P(MusicPlaceholder, IsTheIconOfTheSystemsMusicApplication) {
    phone_->system(GetParam().system);
    phone_->boot();
    EXPECT_EQ(called("SBIcon", "generateIconImage:") > 0,
              std::string(GetParam().message) == "generateIconImage:");
    EXPECT_EQ(called("SBIcon", "generateIconImageWithInfo:") > 0,
              std::string(GetParam().message) == "generateIconImageWithInfo:");
    UIImage placeholder = get<"albumPlaceholderImageView", UIImageView>().image();
    ASSERT_TRUE(placeholder);
    EXPECT_EQ((placeholder.send<"size", CGSize>()), (CGSize{60, 60}));
    phone_->clear();
    EXPECT_TRUE(get<"getImage">());
    EXPECT_EQ(called("SBIconModel", "expectedIconForDisplayIdentifier:"), 1);
    EXPECT_EQ(called("SBIcon", GetParam().message), 1);
}

INSTANTIATE_TEST_SUITE_P(Systems, MusicPlaceholder,
                         testing::Values(SystemIcon{"12.4", "generateIconImage:"},
                                         SystemIcon{"11.3", "generateIconImage:"},
                                         SystemIcon{"13.0", "generateIconImageWithInfo:"},
                                         SystemIcon{"14.2", "generateIconImageWithInfo:"}));

TEST_F(MusicPage, EveryPropertyCanBeSet) {
    boot();
    auto label = create<UILabel>();
    page().send<"setAlbum:">(label);
    EXPECT_TRUE((get<"album">()) == label);
    page().send<"setCachedArtworkIdentifier:">("seven"_ns);
    EXPECT_EQ(artworkIdentifier(), "seven");
    page().send<"setAllowOpenNowPlayingApp:">(true);
    EXPECT_TRUE((get<"allowOpenNowPlayingApp", bool>()));
    for (const char* setter :
         {"setLeftButton:", "setMiddleButton:", "setRightButton:", "setMediaTitle:", "setSubTitle:",
          "setAlbumMarqueeView:", "setMediaTitleMarqueeView:", "setSubTitleMarqueeView:",
          "setAlbumArtworkImageView:", "setAlbumPlaceholderImageView:",
          "setNowPlayingApplicationButton:", "setMediaNowPlayingController:"}) {
        EXPECT_TRUE(page().respondsTo(sel_registerName(setter))) << setter;
    }
}

}  // namespace
}  // namespace vantori::tests
