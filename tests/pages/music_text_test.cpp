// The three lines of text and the artwork: what is shown of which item.
#include "platform/definition.hpp"
#include "tests/pages/music_phone.hpp"

namespace vantori::tests {
namespace {

class MusicText : public MusicPhone {};

TEST_F(MusicText, StandsForNothingBeforeTheFirstChange) {
    boot();
    EXPECT_EQ(album(), "Music");
    EXPECT_EQ(title(), "Music");
    EXPECT_EQ(subtitle(), "Music");
    EXPECT_FALSE(artwork());
}

TEST_F(MusicText, TheFirstFillHasNoBlanksBehindIt) {
    boot();
    play("Northbound", "The Quiet Meridian", "", "parallel-roads");
    page().updatePlayingInfo();
    EXPECT_EQ(album(), "Music");
    EXPECT_EQ(title(), "Northbound");
    EXPECT_EQ(subtitle(), "The Quiet Meridian");
    EXPECT_EQ(artworkIdentifier(), "parallel-roads");
}

struct Item {
    const char* name;
    const char *title, *artist, *album;
    const char *albumLine, *titleLine, *artistLine;
};
std::ostream& operator<<(std::ostream& out, const Item& item) { return out << item.name; }

class MusicItem : public MusicText, public testing::WithParamInterface<Item> {};

TEST_P(MusicItem, IsShownWithFiveBlanksBehindEachLine) {
    boot();
    const Item& item = GetParam();
    play(item.title, item.artist, item.album, "");
    EXPECT_EQ(album(), item.albumLine);
    EXPECT_EQ(title(), item.titleLine);
    EXPECT_EQ(subtitle(), item.artistLine);
    EXPECT_EQ(textOf(applicationPage().send<"mediaTitle", UILabel>()), item.titleLine);
}

INSTANTIATE_TEST_SUITE_P(
    Items, MusicItem,
    testing::Values(Item{"whole", "Northbound", "Meridian", "Roads", "Roads     ",
                         "Northbound     ", "Meridian     "},
                    Item{"noAlbum", "T", "Ar", "", "Music     ", "T     ", "Ar     "},
                    Item{"noTitle", "", "Ar", "Al", "Al     ", "Music     ", "Ar     "},
                    Item{"noArtist", "T", "", "Al", "Al     ", "T     ", "Music     "},
                    Item{"onlyTitle", "Lone", "", "", "Music     ", "Lone     ", "Music     "},
                    Item{"onlyArtist", "", "Lone", "", "Music     ", "Music     ", "Lone     "},
                    Item{"onlyAlbum", "", "", "Lone", "Lone     ", "Music     ", "Music     "},
                    // Nine blanks behind the first, five behind the others.
                    Item{"nothingTold", "", "", "", "Vantori         ", "Music     ",
                         "Click the play button to play.     "},
                    Item{"accents", "Ça va — 東京 🎵", "Łódź", "%@ 100%", "%@ 100%     ",
                         "Ça va — 東京 🎵     ", "Łódź     "},
                    Item{"blanks", " ", "a ", " b", " b     ", "      ", "a      "}));

TEST_F(MusicText, NothingLoadedShowsTheIdleTexts) {
    boot();
    phone_->nothingPlaying();
    EXPECT_EQ(album(), "Vantori         ");
    EXPECT_EQ(title(), "Music     ");
    EXPECT_EQ(subtitle(), "Click the play button to play.     ");
    play("T", "Ar", "Al", "x");
    EXPECT_EQ(album(), "Al     ");
    phone_->nothingPlaying();
    EXPECT_EQ(album(), "Vantori         ");
    EXPECT_FALSE(artwork());
    EXPECT_EQ(artworkIdentifier(), "(none)");
}

TEST_F(MusicText, LabelsAreAsLargeAsTheirTexts) {
    boot();
    play("A title that is much wider than the line that it stands in", "Artist", "", "");
    auto label = get<"mediaTitle", UILabel>();
    EXPECT_EQ(label.frame().size, (label.send<"sizeThatFits:", CGSize>(CGSize{0, 0})));
    EXPECT_GT(label.frame().size.width, 165);
    EXPECT_EQ(label.frame().origin, (CGPoint{0, 0}));
    play("A", "", "", "");
    EXPECT_LT(label.frame().size.width, 60);
}

TEST_F(MusicText, AChangeBehindAClosedToolbarIsThereWhenItOpens) {
    boot();
    play("First", "A", "B", "one");
    openToolbar();
    VNTSBToolBarController::shared().send<"dismissVNTSB">();
    phone_->wait(1);
    play("Second", "C", "", "two");
    phone_->playing(false);
    openToolbar();
    EXPECT_EQ(title(), "Second     ");
    EXPECT_EQ(album(), "Music     ");
    EXPECT_EQ(artworkIdentifier(), "two");
    EXPECT_TRUE(showsPlay());
}

// A controller whose entries are of another kind than text.
struct OddController : MPUNowPlayingController {
    static constexpr FixedString name{"OddNowPlayingController"};
    using MPUNowPlayingController::MPUNowPlayingController;
};

NSDictionary numbers(OddController) {
    Object dictionary(classObject(objc_getClass("NSMutableDictionary")));
    auto made = dictionary.send<"dictionary", NSDictionary>();
    made.send<"setObject:forKey:">(NSNumber::fromInt(7), "kMRMediaRemoteNowPlayingInfoAlbum"_ns);
    made.send<"setObject:forKey:">(NSNumber::fromInt(8),
                                   "kMRMediaRemoteNowPlayingInfoArtworkIdentifier"_ns);
    return made;
}

TEST_F(MusicText, EntriesThatAreNoTextAreDescribed) {
    boot();
    define<OddController, MPUNowPlayingController>().method<"currentNowPlayingInfo", &numbers>();
    page().send<"setMediaNowPlayingController:">(create<OddController>());
    page().send<"nowPlayingController:nowPlayingInfoDidChange:">(Object(), Object());
    EXPECT_EQ(album(), "7     ");
    EXPECT_EQ(title(), "Music     ");
    page().updatePlayingInfo();
    EXPECT_EQ(album(), "7");
    EXPECT_FALSE(phone_->crashed());
}

class MusicArtwork : public MusicPhone {
  protected:
    long loads() const { return called("MPUNowPlayingController", "currentNowPlayingArtwork"); }
};

TEST_F(MusicArtwork, TheSeedNamesNoArtworkOnceTheFirstFillIsDone) {
    boot();
    // The first fill, with nothing loaded, has put the seed away already.
    EXPECT_EQ(artworkIdentifier(), "(none)");
    play("T", "", "", "cover");
    EXPECT_EQ(artworkIdentifier(), "cover");
    EXPECT_TRUE(artwork());
}

TEST_F(MusicArtwork, TheSeedItselfIsNeverTakenForAPicture) {
    boot();
    page().send<"setCachedArtworkIdentifier:">("Cached Artwork Indentifier."_ns);
    phone_->clear();
    play("T", "", "", "cover");
    EXPECT_EQ(loads(), 2);  // one for each page
    EXPECT_EQ(artworkIdentifier(), "cover");
}

TEST_F(MusicArtwork, TheSameIdentifierFromAnotherPlayerIsKept) {
    boot();
    play("One", "", "", "cover");
    UIImage shown = artwork();
    phone_->clear();
    play("Two", "", "", "cover");
    EXPECT_TRUE(artwork() == shown);
    EXPECT_EQ(loads(), 0);
    EXPECT_EQ(title(), "Two     ");
}

TEST_F(MusicArtwork, TheSameIdentifierFromTheSystemsPlayerIsLoadedAgain) {
    boot();
    play("One", "", "", "cover", musicApplication);
    auto shown = retained(artwork());
    phone_->clear();
    play("Two", "", "", "cover", musicApplication);
    EXPECT_FALSE(artwork() == shown);
    EXPECT_TRUE(artwork());
    EXPECT_EQ(loads(), 2);  // once for each page
    EXPECT_EQ(artworkIdentifier(), "cover");
}

TEST_F(MusicArtwork, ANewIdentifierFromTheSystemsPlayerIsLoadedTwice) {
    boot();
    play("One", "", "", "cover", musicApplication);
    phone_->clear();
    play("Two", "", "", "other", musicApplication);
    EXPECT_EQ(loads(), 4);  // by the cache test and again for the system's player, on two pages
    EXPECT_EQ(artworkIdentifier(), "other");
}

TEST_F(MusicArtwork, ANewIdentifierBringsAnotherPicture) {
    boot();
    play("One", "", "", "cover");
    auto shown = retained(artwork());
    play("Two", "", "", "other");
    EXPECT_FALSE(artwork() == shown);
    EXPECT_EQ(artworkIdentifier(), "other");
}

TEST_F(MusicArtwork, TheSameIdentifierWithoutAPictureIsLoadedAgain) {
    boot();
    play("One", "", "", "cover");
    get<"albumArtworkImageView", UIImageView>().setImage(UIImage());
    phone_->clear();
    play("Two", "", "", "cover");
    EXPECT_TRUE(artwork());
    EXPECT_EQ(loads(), 1);  // the other page still shows its own
}

TEST_F(MusicArtwork, WithoutAPictureThePlaceholderIsSeen) {
    boot();
    play("One", "", "", "cover");
    play("Two", "", "", "");
    EXPECT_FALSE(artwork());
    EXPECT_EQ(artworkIdentifier(), "(none)");
    EXPECT_TRUE((get<"albumPlaceholderImageView", UIImageView>().image()));
    // Without an identifier nothing is known to be the same.
    phone_->clear();
    play("Three", "", "", "");
    EXPECT_EQ(loads(), 2);
}

TEST_F(MusicArtwork, TheOneShotFillKeepsWhatIsShownAlsoForTheSystemsPlayer) {
    boot();
    play("One", "", "", "cover", musicApplication);
    phone_->clear();
    page().updatePlayingInfo();
    EXPECT_EQ(loads(), 0);
}

}  // namespace
}  // namespace vantori::tests
