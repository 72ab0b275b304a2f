// The row of icons: how many, how large, where.
#include "pages/icon_row.hpp"

#include "tests/pages/applications.hpp"

namespace vantori::tests {
namespace {

struct Row {
    unsigned long icons;
    double size;
    std::vector<double> xs;
};
void PrintTo(const Row& row, std::ostream* out) { *out << row.icons << " icons of " << row.size; }

class StoredIcons : public Applications, public testing::WithParamInterface<Row> {};

TEST_P(StoredIcons, StandWithEqualGapsAndAreFiveAtMost) {
    boot();
    const Row& row = GetParam();
    springBoardPage().setIcons(icons(row.icons));
    springBoardPage().layoutIconsWithSize(row.size);
    expectRow(springBoardPage(), row.xs, row.size - 5);
}

// g = (375 - s n) / (n + 1), icon i at s i + g (i + 1).
INSTANTIATE_TEST_SUITE_P(
    Rows, StoredIcons,
    testing::Values(Row{0, 60, {}}, Row{1, 60, {160}},   // s 55: (375 - 55) / 2
                    Row{2, 45, {295.0 / 3, 710.0 / 3}},  // s 40: g 295/3; 40 + 590/3
                    Row{4, 60, {31, 117, 203, 289}},     // s 55: g 31
                    Row{5,
                        60,  // s 55: g 100/6
                        {50.0 / 3, 55 + 100.0 / 3, 160, 165 + 200.0 / 3, 220 + 250.0 / 3}},
                    Row{6, 65, {12.5, 85, 157.5, 230, 302.5}},  // s 60, n 5: g 75/6
                    Row{8, 65, {12.5, 85, 157.5, 230, 302.5}}));

class GivenIcons : public Applications, public testing::WithParamInterface<Row> {};

TEST_P(GivenIcons, AreFourAtMost) {
    boot();
    const Row& row = GetParam();
    NSMutableArray given = icons(row.icons);
    springBoardPage().setIcons(icons(1));
    springBoardPage().send<"layoutIconsWithSize:andIcons:">(row.size, given);
    expectRow(springBoardPage(), row.xs, row.size - 5);
    EXPECT_EQ(given.count(), row.icons);  // its own copy is trimmed
    EXPECT_EQ(springBoardPage().icons().count(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, GivenIcons,
    testing::Values(Row{0, 60, {}}, Row{1, 60, {160}}, Row{3, 50, {60, 165, 270}},  // s 45: g 240/4
                    Row{4, 60, {31, 117, 203, 289}}, Row{5, 60, {31, 117, 203, 289}},
                    Row{6, 60, {31, 117, 203, 289}}, Row{8, 60, {31, 117, 203, 289}}));

class IconRow : public Applications {};

TEST_F(IconRow, TheSameSixIconsAreFiveStoredAndFourGiven) {
    phone_->dock(6);
    boot();
    springBoardPage().layoutIconsWithSize(60);
    EXPECT_EQ(
        identifiers(springBoardPage()),
        (std::vector<std::string>{"com.apple.mobilephone", "com.apple.mobilesafari",
                                  "com.apple.MobileSMS", "com.apple.Music", "com.apple.camera"}));
    springBoardPage().send<"layoutIconsWithSize:andIcons:">(60.0, springBoardPage().icons());
    EXPECT_EQ(identifiers(springBoardPage()),
              (std::vector<std::string>{"com.apple.mobilephone", "com.apple.mobilesafari",
                                        "com.apple.MobileSMS", "com.apple.Music"}));
}

TEST_F(IconRow, WithoutStoredIconsNothingIsLaidOut) {
    boot();
    const auto before = identifiers(springBoardPage());
    springBoardPage().setIcons({});
    springBoardPage().layoutIconsWithSize(60);
    springBoardPage().send<"layoutIconsWithSize:andIcons:">(60.0, icons(2));
    EXPECT_EQ(identifiers(springBoardPage()), before);
}

TEST_F(IconRow, IsBuiltAnewEachTime) {
    boot();
    Strong<VNTAppButton> first = retained(at(springBoardPage(), 0));
    auto stranger = create<UIView>();
    springBoardPage().view().addSubview(stranger);
    springBoardPage().layoutIconsWithSize(60);
    EXPECT_EQ(shown(springBoardPage()), 4u);
    EXPECT_FALSE(first.superview());
    EXPECT_FALSE(stranger.superview());
}

TEST_F(IconRow, EachIconIsASquareButtonWithThePageAsItsTarget) {
    boot();
    VNTAppButton icon = at(springBoardPage(), 1);
    UIButton button = icon.appButton();
    EXPECT_EQ(button.superview(), icon);
    EXPECT_EQ(button.frame(), (rect(0, 0, 55, 55)));
    EXPECT_EQ((button.send<"allControlEvents", unsigned long>()), 192u);
    EXPECT_EQ((button.send<"currentImage", Object>()), (icon.send<"appImage", Object>()));
    EXPECT_TRUE((icon.send<"appImage", Object>()));
    EXPECT_STREQ(icon.applicationIdentifier().utf8(), "com.apple.mobilesafari");
}

TEST_F(IconRow, TheButtonIsSquareOnTheWidthOfAnyView) {
    boot();
    auto icon = create<VNTAppButton, "initWithFrame:">(rect(0, 0, 40, 90));
    icon.loadImageView(UIImage());
    EXPECT_EQ(icon.appButton().frame(), (rect(0, 0, 40, 40)));
    EXPECT_FALSE((icon.send<"appImage", Object>()));
}

TEST_F(IconRow, FollowsTheWidthOfTheScreen) {
    phone_->device("iPhone11,8");  // 414 wide
    boot();
    // s 55: g = (414 - 220) / 5 = 38.8
    expectRow(springBoardPage(), {38.8, 132.6, 226.4, 320.2}, 55);
    expectRow(applicationPage(), {38.8, 132.6, 226.4, 320.2}, 55);
}

TEST_F(IconRow, ThePageIsAsWideAsTheShortSideInBothOrientations) {
    boot();
    EXPECT_EQ(springBoardPage().view().bounds(), (rect(0, 0, 375, 100)));
    phone_->open("com.example.notes");
    phone_->rotate(simulator::Orientation::landscapeRight);
    phone_->wait(1);
    for (Page page : {springBoardPage(), applicationPage()}) {
        page.view().setBounds(rect(5, 5, 20, 20));
        page.send<"viewDidLayoutSubviews">();
        EXPECT_EQ(page.view().bounds(), (rect(0, 0, 375, 100)));
    }
}

class RecentRow : public Applications {
  protected:
    void bootWith(const std::vector<std::string>& bundles, const char* system = "13.3") {
        phone_->system(system);
        phone_->recents(bundles);
        boot();
    }
    inline static const std::vector<std::string> seven{
        "com.example.photos", "com.example.mail",      "com.example.maps",      "com.example.notes",
        "com.apple.camera",   "com.apple.Preferences", "com.apple.mobilesafari"};
    inline static const std::vector<std::string> firstFour{seven.begin(), seven.begin() + 4};
};

TEST_F(RecentRow, OfSevenTheFirstFourAreShown) {
    bootWith(seven);
    springBoardPage().layoutIconsWithAppLayouts(layouts());
    EXPECT_EQ(identifiers(springBoardPage()), firstFour);
    expectRow(springBoardPage(), {31, 117, 203, 289}, 55);  // pictures are 60 points wide
    EXPECT_EQ(layouts().count(), 7u);
}

TEST_F(RecentRow, FourAreAllShownAndTwoAsWell) {
    bootWith(firstFour);
    springBoardPage().layoutIconsWithAppLayouts(layouts());
    EXPECT_EQ(identifiers(springBoardPage()), firstFour);
    phone_->recents({"com.example.maps", "com.example.mail"});
    springBoardPage().layoutIconsWithAppLayouts(layouts());
    // s 55, n 2: g = 265 / 3
    expectRow(springBoardPage(), {265.0 / 3, 55 + 530.0 / 3}, 55);
}

TEST_F(RecentRow, NoneEmptyTheRowWhenTheyAreHandedOver) {
    bootWith({});
    springBoardPage().layoutIconsWithAppLayouts(layouts());
    EXPECT_EQ(shown(springBoardPage()), 0u);
    springBoardPage().layoutIconsWithMutableAppLayouts({});
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(RecentRow, NeedsNoStoredIcons) {
    bootWith(seven);
    springBoardPage().setIcons({});
    springBoardPage().layoutIconsWithAppLayouts(layouts());
    EXPECT_EQ(shown(springBoardPage()), 4u);
}

struct Generation {
    const char* system;
    bool mutableLayouts;
    const char* asked;
    const char* notAsked;
};
class RecentIdentifiers : public RecentRow, public testing::WithParamInterface<Generation> {};

TEST_P(RecentIdentifiers, ComeFromTheItemInTheWayOfTheSystem) {
    bootWith(seven, GetParam().system);
    NSArray given = layouts();
    phone_->clear();
    if (GetParam().mutableLayouts) {
        springBoardPage().layoutIconsWithMutableAppLayouts(given);
    } else {
        springBoardPage().layoutIconsWithAppLayouts(given);
    }
    EXPECT_EQ(identifiers(springBoardPage()), firstFour);
    EXPECT_EQ(phone_->calledCount("SBDisplayItem", GetParam().asked), 4);
    EXPECT_EQ(phone_->calledCount("SBDisplayItem", GetParam().notAsked), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Generations, RecentIdentifiers,
    testing::Values(Generation{"11.4", true, "displayIdentifier", "bundleIdentifier"},
                    Generation{"12.4", true, "displayIdentifier", "bundleIdentifier"},
                    Generation{"13.0", true, "bundleIdentifier", "displayIdentifier"},
                    Generation{"14.2", true, "bundleIdentifier", "displayIdentifier"},
                    Generation{"13.0", false, "bundleIdentifier", "displayIdentifier"},
                    Generation{"12.4", false, "bundleIdentifier", "displayIdentifier"}));

TEST_F(RecentRow, AnIconWithoutAnImageHasANegativeSide) {
    bootWith({"com.example.gone", "com.example.maps"});
    springBoardPage().layoutIconsWithAppLayouts(layouts());
    ASSERT_EQ(shown(springBoardPage()), 2u);
    // s = min(0, 60) - 5 = -5, g = (375 + 10) / 3 = 385 / 3; its neighbour has s 55, g 265 / 3.
    const CGRect gone = at(springBoardPage(), 0).frame();
    EXPECT_NEAR(gone.origin.x, 385.0 / 3, 1e-9);
    EXPECT_EQ(gone.size, (CGSize{-5, -5}));
    EXPECT_NEAR(at(springBoardPage(), 1).frame().origin.x, 55 + 530.0 / 3, 1e-9);
    EXPECT_EQ(identifiers(springBoardPage()),
              (std::vector<std::string>{"com.example.gone", "com.example.maps"}));
    openToolbar();
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(RecentRow, ALayoutWithoutItemsIsAnIconOfNothing) {
    bootWith({});
    auto layout = create<SBAppLayout>();
    springBoardPage().layoutIconsWithAppLayouts(NSArray::with(layout));
    EXPECT_EQ(identifiers(springBoardPage()), std::vector<std::string>{"none"});
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(IconRow, AnIconWithoutAnImageKeepsItsPlaceInTheDocksRow) {
    boot();
    NSMutableArray with = icons(3);
    auto blank = create<SBIcon>();
    with.send<"insertObject:atIndex:">(blank, 1UL);
    springBoardPage().setIcons(with);
    springBoardPage().layoutIconsWithSize(60);
    expectRow(springBoardPage(), {31, 117, 203, 289}, 55);
    EXPECT_FALSE((at(springBoardPage(), 1).send<"appImage", Object>()));
    EXPECT_TRUE(at(springBoardPage(), 1).appButton());
    EXPECT_FALSE(at(springBoardPage(), 1).applicationIdentifier());
    openToolbar();
    EXPECT_FALSE(phone_->crashed());
}

class IconImage : public Applications {};

TEST_F(IconImage, BeforeThirteenIsOfFormat999) {
    phone_->system("12.4");
    boot();
    UIImage image = springBoardPage().generateIconImageForIdentifier("com.apple.Music"_ns);
    EXPECT_EQ(image.size(), (CGSize{60, 60}));
    EXPECT_EQ(phone_->calledCount("SBIcon", "generateIconImage:"), 1);
    EXPECT_EQ(phone_->calledCount("SBIcon", "generateIconImageWithInfo:"), 0);
    auto format = phone_->lastCall("SBIcon", "generateIconImage:");
    ASSERT_TRUE(format);
    EXPECT_EQ(simulator::scenario::printed(format->at(0)), "999");
}

TEST_F(IconImage, FromThirteenOnSaysSizeScaleAndCorners) {
    phone_->device("iPhone10,1");  // scale 2
    phone_->system("13.0");
    boot();
    UIImage image = springBoardPage().generateIconImageForIdentifier("com.apple.Music"_ns);
    EXPECT_EQ(image.size(), (CGSize{60, 60}));
    EXPECT_EQ(phone_->calledCount("SBIcon", "generateIconImage:"), 0);
    auto info = phone_->lastCall("SBIcon", "generateIconImageWithInfo:");
    ASSERT_TRUE(info);
    EXPECT_EQ(simulator::scenario::printed(info->at(0)), "{60, 60, 2, 12}");
}

TEST_F(IconImage, IsACopyOfWhatSpringBoardRenders) {
    boot();
    EXPECT_EQ(phone_->calledCount("UIImage", "copyWithZone:"), 0);
    EXPECT_TRUE(springBoardPage().generateIconImageForIdentifier("com.apple.Music"_ns));
    EXPECT_EQ(phone_->calledCount("UIImage", "copyWithZone:"), 1);
}

TEST_F(IconImage, OfNothingIsNothing) {
    boot();
    EXPECT_FALSE(springBoardPage().generateIconImageForIdentifier("com.example.gone"_ns));
    EXPECT_FALSE(springBoardPage().generateIconImageForIdentifier({}));
    EXPECT_FALSE(springBoardPage().generateIconImageForIcon({}));
}

}  // namespace
}  // namespace vantori::tests
