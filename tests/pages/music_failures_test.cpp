// The music page where parts of the phone are missing, where callbacks come on another thread, and
// after very many changes.
#include <malloc.h>

#include <thread>

#include "platform/definition.hpp"
#include "tests/pages/music_phone.hpp"

namespace vantori::tests {
namespace {

class MusicWithout : public MusicPhone, public testing::WithParamInterface<const char*> {};

// Everything that can be done to the page, on a phone that lacks one class.
TEST_P(MusicWithout, NothingIsRaised) {
    phone_->missingClass(GetParam());
    boot();
    play("T", "Ar", "Al", "cover", musicApplication);
    turn();
    openToolbar();
    for (const char* name :
         {"leftButton", "middleButton", "rightButton", "nowPlayingApplicationButton"}) {
        auto button = page().send<"valueForKey:", UIControl>(NSString::from(name));
        button.send<"sendActionsForControlEvents:">(1ul);
        button.send<"sendActionsForControlEvents:">(64ul);
    }
    phone_->playing(false);
    phone_->nothingPlaying();
    page().updatePlayingInfo();
    phone_->post("com.ferolin.vantori-nowplayingchange");
    phone_->post("com.ferolin.vantori-stopmarquee");
    phone_->wait(1);
    EXPECT_FALSE(phone_->crashed());
    EXPECT_EQ(page().view().bounds(), (rect(0, 0, 375, 100)));
}

INSTANTIATE_TEST_SUITE_P(Classes, MusicWithout,
                         testing::Values("MPUNowPlayingController", "MPUMarqueeView",
                                         "SBMediaController", "SBIconController", "SBIconModel",
                                         "SBApplicationIcon",
                                         "SBMainDisplaySceneLayoutViewController"));

class MusicFailures : public MusicPhone {};

TEST_F(MusicFailures, WithoutItsSourceThePageShowsNothingPlaying) {
    phone_->missingClass("MPUNowPlayingController");
    boot();
    EXPECT_FALSE(get<"mediaNowPlayingController">());
    play("T", "Ar", "Al", "cover");
    phone_->wait(0.2);
    EXPECT_EQ(title(), "Music");
    EXPECT_TRUE(showsPlay());
    // It counts as not playing, so the button plays.
    get<"middleButton", UIControl>().send<"sendActionsForControlEvents:">(64ul);
    EXPECT_EQ(called("SBMediaController", "playForEventSource:"), 1);
}

TEST_F(MusicFailures, WithoutMarqueesTheTextsAreNotShown) {
    phone_->missingClass("MPUMarqueeView");
    boot();
    EXPECT_FALSE(get<"albumMarqueeView">());
    play("T", "Ar", "Al", "cover");
    EXPECT_EQ(title(), "T     ");
    EXPECT_FALSE((get<"mediaTitle", UIView>().superview()));
    EXPECT_EQ(page().view().subviews().count(), 6u);
}

// A marquee as 11.0 to 11.2 have it: without setAnimationReferenceView:.
struct EarlyMarqueeState {
    Strong<UIView> content, sizing;
    bool enabled;
};
UIView initEarlyMarquee(MPUMarqueeView raw, CGRect frame) {
    auto self = super<MPUMarqueeView, "initWithFrame:", UIView>(raw, frame);
    stateOf<EarlyMarqueeState>(self).content = create<UIView>();
    self.addSubview(stateOf<EarlyMarqueeState>(self).content);
    return self;
}

TEST_F(MusicFailures, TitlesOfTheFirstSystemsScrollWithoutAReferenceView) {
    phone_->missingClass("MPUMarqueeView");
    simulator::setExtensionLoader([] {
        define<MPUMarqueeView, UIView, EarlyMarqueeState>()
            .method<"initWithFrame:", &initEarlyMarquee>()
            .property<"viewForContentSize", &EarlyMarqueeState::sizing>()
            .property<"marqueeEnabled", &EarlyMarqueeState::enabled>();
        startUp();
    });
    boot();
    play("T", "Ar", "Al", "cover");
    EXPECT_EQ((get<"mediaTitle", UIView>().superview()),
              (get<"mediaTitleMarqueeView", UIView>().subviews().at<UIView>(0)));
    phone_->post("com.ferolin.vantori-startmarquee");
    EXPECT_TRUE((get<"mediaTitleMarqueeView">().send<"marqueeEnabled", bool>()));
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(MusicFailures, WithoutIconsThePlaceholderIsEmpty) {
    phone_->missingClass("SBIconController");
    boot();
    EXPECT_FALSE(get<"getImage">());
    EXPECT_FALSE((get<"albumPlaceholderImageView", UIImageView>().image()));
}

TEST_F(MusicFailures, WithoutTheMediaControllerOnlyTheCommandsAreLost) {
    phone_->missingClass("SBMediaController");
    boot();
    play("T", "", "", "");
    get<"middleButton", UIControl>().send<"sendActionsForControlEvents:">(64ul);
    turn();
    EXPECT_TRUE(showsPause());
    phone_->playing(false);
    turn();
    EXPECT_TRUE(showsPlay());  // the callback of the controller comes all the same
    EXPECT_EQ(posted("com.ferolin.vantori-nowplayingchange"), 0);
}

TEST_F(MusicFailures, AButtonWithoutAReadablePictureIsEmpty) {
    for (const char* scale : {"@2x", "@3x"}) {
        phone_->file("/Library/Application Support/Vantori/Pause" + std::string(scale) + ".png",
                     "no picture");
    }
    boot();
    EXPECT_TRUE(showsPlay());
    play("T", "", "", "");
    EXPECT_FALSE(middleImage());
    EXPECT_EQ(title(), "T     ");
    EXPECT_FALSE(phone_->crashed());
}

struct ThreadWitness : Object {
    static constexpr FixedString name{"ThreadWitness"};
    using Object::Object;
};
std::thread::id toldOn;
void noteThread(ThreadWitness, Object, Object) { toldOn = std::this_thread::get_id(); }

TEST_F(MusicFailures, CallbacksMayComeOnAnotherThread) {
    boot();
    define<ThreadWitness, Object>()
        .method<"nowPlayingController:nowPlayingInfoDidChange:", &noteThread>();
    auto witness = create<ThreadWitness>();
    auto controller = create<MPUNowPlayingController>();
    controller.setDelegate(witness);
    play("T", "", "", "cover");
    EXPECT_EQ(toldOn, std::this_thread::get_id());
    phone_->playerCallbacks(true);
    for (int round = 0; round < 100; ++round) {
        const std::string name = "Track " + std::to_string(round);
        play(name.c_str(), "Artist", "", name.c_str());
        ASSERT_NE(toldOn, std::this_thread::get_id());
        ASSERT_EQ(title(), name + "     ");  // done on that thread, without a turn of the main one
        ASSERT_EQ(artworkIdentifier(), name);
        phone_->playing(false);
        ASSERT_TRUE(showsPause());  // this one waits for the main queue
        turn();
        ASSERT_TRUE(showsPlay());
    }
    EXPECT_FALSE(phone_->crashed());
    EXPECT_GT((get<"mediaTitle", UIView>().frame().size.width), 20);
    controller.setDelegate(Object());
}

// Views, observers and memory after very many changes.
class MusicEndurance : public MusicPhone {
  protected:
    static unsigned long viewsIn(UIView view) {
        unsigned long count = 1;
        NSArray parts = view.subviews();
        for (unsigned long i = 0; i < parts.count(); ++i) count += viewsIn(parts.at<UIView>(i));
        return count;
    }
    // How often the observers of one notification act.
    long reactions(const char* notification, const char* cls, const char* message) {
        phone_->clear();
        phone_->post(notification);
        turn();
        return called(cls, message);
    }
    // Two pages of three marquees, and one button each.
    void expectSameObservers() {
        EXPECT_EQ(
            reactions("com.ferolin.vantori-startmarquee", "MPUMarqueeView", "setMarqueeEnabled:"),
            6);
        EXPECT_EQ(
            reactions("com.ferolin.vantori-stopmarquee", "MPUMarqueeView", "setMarqueeEnabled:"),
            6);
        EXPECT_EQ(
            reactions("com.ferolin.vantori-nowplayingchange", "UIButton", "setImage:forState:"), 2);
    }
    template <class Work>
    void expectSteady(int rounds, Work work) {
        for (int i = 0; i < rounds / 4; ++i) work(i);
        const unsigned long views = viewsIn(page().view());
        const auto references = page().send<"retainCount", unsigned long>();
        const std::size_t memory = mallinfo2().uordblks;
        for (int i = 0; i < rounds; ++i) work(i);
        EXPECT_EQ(viewsIn(page().view()), views);
        EXPECT_EQ((page().send<"retainCount", unsigned long>()), references);
        // The smallest leak of an object in each round would be 16 bytes a round.
        EXPECT_LT(mallinfo2().uordblks, memory + 16 * static_cast<std::size_t>(rounds));
        expectSameObservers();
    }
};

TEST_F(MusicEndurance, AThousandFlipsOfThePlayState) {
    boot();
    play("T", "Ar", "Al", "cover");
    expectSteady(1000, [&](int i) {
        phone_->playing(i % 2 == 0);
        phone_->wait(0.02);
    });
    EXPECT_TRUE(showsPlay());
}

TEST_F(MusicEndurance, TenThousandTracks) {
    boot();
    const char* players[] = {musicApplication, otherApplication, "com.example.maps"};
    const char* texts[] = {"One", "", "A text that is so long that it would scroll", "Four"};
    expectSteady(10000, [&](int i) {
        play(texts[i % 4], texts[(i + 1) % 4], texts[(i + 2) % 4], texts[i % 3], players[i % 3]);
        if (i % 100 == 0) phone_->wait(0.02);
    });
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(MusicEndurance, AThousandOpenings) {
    boot();
    play("A text that is so long that it would scroll", "Ar", "Al", "cover");
    expectSteady(1000, [&](int i) {
        phone_->post(i % 2 ? "com.ferolin.vantori-startmarquee"
                           : "com.ferolin.vantori-stopmarquee");
        get<"leftButton", UIControl>().send<"sendActionsForControlEvents:">(1ul);
        get<"leftButton", UIControl>().send<"sendActionsForControlEvents:">(64ul);
        phone_->wait(0.02);
    });
}

}  // namespace
}  // namespace vantori::tests
