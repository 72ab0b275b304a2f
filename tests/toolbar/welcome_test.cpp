// The welcome pager: what it shows, turning its pages, leaving it.
#include <cmath>

#include "simulator/runtime/journal.hpp"
#include "tests/order.hpp"
#include "tests/toolbar/welcome_pager.hpp"

namespace vantori::tests {
namespace {

constexpr const char* supportFolder = "/Library/Application Support/Vantori/";

class WelcomePager : public WelcomePhone {
  protected:
    static void scrollTo(double pages) {
        scrollView().send<"setContentOffset:">(CGPoint{375 * pages, 0});
    }
    static void decelerateAt(double pages) {
        scrollTo(pages);
        pager().send<"scrollViewDidEndDecelerating:">(scrollView());
    }
    static long currentDot() {
        return part<UIPageControl>("pageControl").send<"currentPage", long>();
    }
    static UIButton button(unsigned long index) {
        NSArray subviews = scrollView().subviews();
        unsigned long met = 0;
        for (unsigned long i = 0; i < subviews.count(); ++i) {
            UIView view = subviews.at<UIView>(i);
            if (view.isKindOfClass(objc_getClass("UIButton")) && met++ == index) {
                return as<UIButton>(view);
            }
        }
        return {};
    }
    void tap(UIView view) {
        CGPoint middle = homeScreen().convertPointFrom(
            {view.bounds().size.width / 2, view.bounds().size.height / 2}, view);
        phone_->touchDown(middle.x, middle.y);
        phone_->wait(0.05);
        phone_->touchUp();
    }
    static std::string text(NSString string) { return string ? string.utf8() : ""; }
};

TEST_F(WelcomePager, CoversTheHomeScreen) {
    boot();
    ASSERT_TRUE(pager());
    EXPECT_EQ(pager().view().frame(), rect(0, 0, 375, 812));
    EXPECT_EQ(homeScreen().subviews().last(), pager().view());
}

TEST_F(WelcomePager, ItsPartsStandWhereTheyBelong) {
    boot();
    // Below the status bar of 44 points and a gap of 10.
    EXPECT_EQ(part<UILabel>("header").frame(), rect(15, 54, 300, 50));
    EXPECT_EQ(text(part<UILabel>("header").text()), "Vantori Lite");
    UIFont font = part<UILabel>("header").send<"font", UIFont>();
    EXPECT_EQ((font.send<"pointSize", double>()), 30);
    EXPECT_EQ(counter(), "1/4");
    const CGRect label = part<UILabel>("pageLabel").frame();
    EXPECT_EQ(label.origin.y, 54);
    EXPECT_GT(label.origin.x, 375 / 2.0);

    EXPECT_EQ(scrollView().frame(), rect(0, 114, 375, 812 - 114));
    EXPECT_EQ(scrollView().contentSize(), (CGSize{375 * 4, 812 - 114}));
    EXPECT_TRUE((scrollView().send<"isPagingEnabled", bool>()));
    EXPECT_EQ((scrollView().send<"delegate", Object>()), pager());
}

TEST_F(WelcomePager, FourDotsUnderThePictures) {
    boot();
    auto dots = part<UIPageControl>("pageControl");
    const CGRect frame = dots.frame();
    EXPECT_EQ(frame.origin.x, 137.5);  // (375 - 100) / 2
    EXPECT_EQ(frame.size, (CGSize{100, 10}));
    UIView picture = find(scrollView(), "UIImageView");
    EXPECT_GE(frame.origin.y, 114 + picture.frame().origin.y + picture.frame().size.height);
    EXPECT_EQ((dots.send<"numberOfPages", long>()), 4);
    EXPECT_EQ(currentDot(), 0);
    UIColor current = dots.send<"currentPageIndicatorTintColor", UIColor>();
    UIColor others = dots.send<"pageIndicatorTintColor", UIColor>();
    EXPECT_TRUE((current.send<"isEqual:", bool>(UIColor::white())));
    EXPECT_TRUE((others.send<"isEqual:", bool>(UIColor::rgba(0.5, 0.5, 0.5, 0.5))));
}

TEST_F(WelcomePager, EveryPageHasAPictureATitleAndADescription) {
    boot();
    NSArray subviews = scrollView().subviews();
    for (unsigned long page = 0; page < 4; ++page) {
        auto picture = subviews.at<UIView>(page * 3);
        auto title = subviews.at<UILabel>(page * 3 + 1);
        auto description = subviews.at<UILabel>(page * 3 + 2);
        for (UIView view : {picture, UIView(title), UIView(description)}) {
            EXPECT_EQ(std::floor(view.frame().origin.x / 375), page);
        }
        EXPECT_TRUE(picture.isKindOfClass(objc_getClass("UIImageView")));
        EXPECT_EQ((title.send<"font", UIFont>().send<"pointSize", double>()), 25);
        EXPECT_EQ((description.send<"numberOfLines", long>()), 0);
        EXPECT_GT(text(title.text()).size(), 0u);
        EXPECT_GT(text(description.text()).size(), 0u);
    }
}

TEST_F(WelcomePager, ItsPagesAreCalled) {
    boot();
    const char* titles[] = {"Welcome to Vantori", "The Full Edition", "All Your Toggles",
                            "Made to Extend"};
    for (unsigned long page = 0; page < 4; ++page)
        EXPECT_EQ(text(scrollView().subviews().at<UILabel>(page * 3 + 1).text()), titles[page]);
}

TEST_F(WelcomePager, HowItsPartsLook) {
    boot();
    auto dots = part<UIPageControl>("pageControl");
    EXPECT_TRUE((dots.send<"backgroundColor", UIColor>().send<"isEqual:", bool>(
        UIColor::rgba(0, 0, 0, 0.2))));
    EXPECT_EQ(dots.layer().cornerRadius(), 5);  // half of its height
    EXPECT_FALSE((scrollView().send<"showsHorizontalScrollIndicator", bool>()));
    EXPECT_FALSE((scrollView().send<"showsVerticalScrollIndicator", bool>()));
    const auto alignment = [](UIView label) { return label.send<"textAlignment", long>(); };
    EXPECT_EQ(alignment(part<UILabel>("pageLabel")), UILabel::right);
    EXPECT_EQ(alignment(scrollView().subviews().at<UIView>(1)), UILabel::center);
    EXPECT_EQ(alignment(scrollView().subviews().at<UIView>(2)), UILabel::center);
    auto button = scrollView().subviews().last();
    ASSERT_TRUE(button.isKindOfClass(objc_getClass("UIButton")));
    UIView picture = scrollView().subviews().at<UIView>(0);
    EXPECT_EQ((picture.send<"contentMode", long>()), UIImageView::aspectFit);
    Object title = button.send<"titleLabel", Object>();
    EXPECT_EQ((title.send<"font", UIFont>().send<"pointSize", double>()), 17);
    EXPECT_TRUE((title.send<"textColor", UIColor>().send<"isEqual:", bool>(UIColor::white())));
}

// From back to front: the dots lie on the pages.
TEST_F(WelcomePager, ItsPartsLieInOrder) {
    boot();
    NSArray views = pager().view().subviews();
    ASSERT_EQ(views.count(), 4u);
    EXPECT_EQ(views.at<UIView>(0), part<UILabel>("header"));
    EXPECT_EQ(views.at<UIView>(1), part<UILabel>("pageLabel"));
    EXPECT_EQ(views.at<UIView>(2), scrollView());
    EXPECT_EQ(views.at<UIView>(3), part<UIPageControl>("pageControl"));
}

struct Deceleration {
    double pages;
    const char* counter;
    long dot;
};

class Decelerating : public WelcomePager, public testing::WithParamInterface<Deceleration> {};

// The page is the truncated quotient: 2.5 widths are on the third page.
TEST_P(Decelerating, CountsThePage) {
    boot();
    decelerateAt(GetParam().pages);
    EXPECT_EQ(counter(), GetParam().counter);
    EXPECT_EQ(currentDot(), GetParam().dot);
}

INSTANTIATE_TEST_SUITE_P(Places, Decelerating,
                         testing::Values(Deceleration{0, "1/4", 0}, Deceleration{0.99, "1/4", 0},
                                         Deceleration{1, "2/4", 1}, Deceleration{2.5, "3/4", 2},
                                         Deceleration{3, "4/4", 3}, Deceleration{-0.5, "1/4", 0}));

TEST_F(WelcomePager, AScrollViewWithoutWidthTurnsNoPage) {
    boot();
    auto narrow = create<UIScrollView, "initWithFrame:">(rect(0, 0, 0, 100));
    pager().send<"scrollViewDidEndDecelerating:">(narrow);
    EXPECT_EQ(counter(), "1/4");
    narrow.setFrame(rect(0, 0, 1, 100));
    narrow.send<"setContentOffset:">(CGPoint{2, 0});
    pager().send<"scrollViewDidEndDecelerating:">(narrow);
    EXPECT_EQ(counter(), "3/4");
}

TEST_F(WelcomePager, AFingerTurnsThePage) {
    boot();
    phone_->touchDown(300, 400);
    phone_->touchMove(60, 400, 0.2);
    phone_->touchUp();
    phone_->wait(2);
    EXPECT_EQ(scrollView().contentOffset().x, 375);
    EXPECT_EQ(counter(), "2/4");
    EXPECT_EQ(currentDot(), 1);
}

TEST_F(WelcomePager, TheDotsTakeNoTouches) {
    boot();
    tap(part<UIPageControl>("pageControl"));
    EXPECT_EQ(currentDot(), 0);
}

TEST_F(WelcomePager, LeavesOverTheTop) {
    boot();
    UIView view = pager().view();
    Strong<UIView> kept = retained(view);
    pager().send<"backToHome">();
    EXPECT_EQ(view.frame(), rect(0, -862, 375, 812));  // -50 - 812
    phone_->wait(0.4);
    EXPECT_FALSE(view.isHidden());
    EXPECT_TRUE(view.superview());
    // The spring of 1.5 s is at its highest, 1.0949, after 0.534 s: 862 x 1.0949 = 943.8.
    phone_->wait(0.134);
    UIView shown = as<UIView>(Object(phone_->presentation(view.get())));
    EXPECT_NEAR(shown.frame().origin.y, -943.8, 0.5);
    phone_->wait(0.9);
    EXPECT_TRUE(view.superview());  // 1.434 s
    phone_->wait(0.1);
    EXPECT_TRUE(view.isHidden());
    EXPECT_FALSE(view.superview());
    EXPECT_TRUE(pagers().empty());
    EXPECT_EQ(phone_->tree(nullptr).find("UIScrollView"), std::string::npos);
    EXPECT_FALSE(phone_->crashed());
}

// One and a half seconds at once, damped by 0.6, from 0.3, without options.
TEST_F(WelcomePager, LeavesSlowerThanTheToolbar) {
    boot();
    phone_->clear();
    pager().send<"backToHome">();
    const auto spring =
        simulator::Journal::last("UIView",
                                 "animateWithDuration:delay:usingSpringWithDamping:"
                                 "initialSpringVelocity:options:animations:completion:");
    ASSERT_TRUE(spring);
    const double expected[] = {1.5, 0, 0.6, 0.3};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(std::get<double>(spring->at(i)), expected[i], 1e-6) << i;
    EXPECT_EQ(std::get<long>(spring->at(4)), 0);
}

TEST_F(WelcomePager, AnInterruptedDepartureLeavesItInPlace) {
    boot();
    pager().send<"backToHome">();
    phone_->wait(0.4);
    phone_->interrupt(pager().view().get());
    phone_->wait(3);
    ASSERT_TRUE(pager());
    EXPECT_FALSE(pager().view().isHidden());
    EXPECT_EQ(pager().view().superview(), homeScreen());
}

TEST_F(WelcomePager, BackGoesHomeOnly) {
    boot();
    decelerateAt(3);
    UIButton back = button(1);
    EXPECT_EQ(text(back.send<"currentTitle", NSString>()), "Back");
    tap(back);
    phone_->wait(2);
    EXPECT_TRUE(pagers().empty());
    EXPECT_EQ(phone_->calledCount("UIApplication", "openURL:"), 0);
}

TEST_F(WelcomePager, TheAddressIsOpenedBeforeThePagerGoes) {
    boot();
    int opened = -1;
    Spy<"backToHome">::on("VNTUpdateViewController", [&](Object) {
        opened = phone_->calledCount("UIApplication", "openURL:");
    });
    pager().send<"launchApp">();
    EXPECT_EQ(opened, 1);
}

TEST_F(WelcomePager, TheFullVersionOpensItsAddressAndGoesHome) {
    boot();
    decelerateAt(3);
    UIButton get = button(0);
    EXPECT_EQ(text(get.send<"currentTitle", NSString>()), "Get Full Version");
    tap(get);
    EXPECT_EQ(phone_->calledCount("UIApplication", "openURL:"), 1);
    const auto opened = simulator::Journal::last("UIApplication", "openURL:");
    const Object address(std::get<Strong<Object>>(opened->at(0)));
    EXPECT_EQ(text(address.send<"absoluteString", NSString>()),
              "cydia://package/com.ferolin.vantori.full");
    EXPECT_EQ(pager().view().frame(), rect(0, -862, 375, 812));
    phone_->wait(2);
    EXPECT_TRUE(pagers().empty());
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(WelcomePager, ButtonsAnswerOnlyToAFingerLiftedInside) {
    boot();
    decelerateAt(3);
    touch(middleOf(button(0)));
    phone_->touchMove(187, 300, 0.3);
    phone_->touchUp();
    phone_->wait(2);
    EXPECT_TRUE(pager());
}

TEST_F(WelcomePager, ItsButtonsAreRoundAndBlue) {
    boot();
    UIColor blue = sendClass<UIColor, "systemBlueColor", UIColor>();
    for (unsigned long i : {0UL, 1UL}) {
        ASSERT_TRUE(button(i));
        EXPECT_EQ(button(i).layer().cornerRadius(), 20);
        EXPECT_TRUE((button(i).send<"backgroundColor", UIColor>().send<"isEqual:", bool>(blue)));
        EXPECT_EQ(std::floor(button(i).frame().origin.x / 375), 3);
    }
}

TEST_F(WelcomePager, FollowsLightAndDarkFromSystem13On) {
    boot();
    UIColor label = sendClass<UIColor, "labelColor", UIColor>();
    UIColor ground = sendClass<UIColor, "systemBackgroundColor", UIColor>();
    for (const char* key : {"header", "pageLabel"}) {
        EXPECT_TRUE(
            (part<UILabel>(key).send<"textColor", UIColor>().send<"isEqual:", bool>(label)));
    }
    EXPECT_TRUE((pager().view().send<"backgroundColor", UIColor>().send<"isEqual:", bool>(ground)));
}

TEST_F(WelcomePager, IsBlackOnWhiteBeforeSystem13) {
    phone_->system("12.4");
    boot();
    NSArray subviews = scrollView().subviews();
    for (UILabel view : {part<UILabel>("header"), part<UILabel>("pageLabel"),
                         subviews.at<UILabel>(1), subviews.at<UILabel>(2)}) {
        EXPECT_TRUE((view.send<"textColor", UIColor>().send<"isEqual:", bool>(UIColor::black())));
    }
    UIColor ground = pager().view().send<"backgroundColor", UIColor>();
    EXPECT_TRUE((ground.send<"isEqual:", bool>(UIColor::white())));
}

// A point sample of each page and phone: nothing is cut, nothing covers something else.
class WelcomeOn : public WelcomePager, public testing::WithParamInterface<const char*> {
  protected:
    static double right(CGRect frame) { return frame.origin.x + frame.size.width; }
    static double bottom(CGRect frame) { return frame.origin.y + frame.size.height; }
};

TEST_P(WelcomeOn, EveryPageFits) {
    phone_->device(GetParam());
    boot();
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    const CGRect scroll = scrollView().frame();
    const CGRect dots = part<UIPageControl>("pageControl").frame();
    EXPECT_GE(part<UILabel>("header").frame().origin.y,
              UIApplication::shared().statusBarFrame().size.height);
    EXPECT_EQ(bottom(scroll), screen.height);
    NSArray subviews = scrollView().subviews();
    ASSERT_EQ(subviews.count(), 14u);
    for (unsigned long page = 0; page < 4; ++page) {
        const CGRect picture = subviews.at<UIView>(page * 3).frame();
        auto title = subviews.at<UILabel>(page * 3 + 1);
        auto description = subviews.at<UILabel>(page * 3 + 2);
        const double left = screen.width * static_cast<double>(page);
        for (CGRect frame : {picture, title.frame(), description.frame()}) {
            EXPECT_GE(frame.origin.x, left + 15);
            EXPECT_LE(right(frame), left + screen.width - 15);
        }
        EXPECT_GE(dots.origin.y, scroll.origin.y + bottom(picture));
        EXPECT_GE(title.frame().origin.y + scroll.origin.y, bottom(dots));
        EXPECT_GE(description.frame().origin.y, bottom(title.frame()));
        EXPECT_LE(bottom(description.frame()), scroll.size.height - 30);
        EXPECT_LE((title.send<"intrinsicContentSize", CGSize>().width), title.frame().size.width);
        const CGSize room = description.send<"sizeThatFits:", CGSize>(
            CGSize{description.frame().size.width, 10000});
        EXPECT_EQ(description.frame().size.height, room.height);
    }
    const CGRect last = subviews.at<UIView>(11).frame(), get = subviews.at<UIView>(12).frame(),
                 back = subviews.at<UIView>(13).frame();
    EXPECT_GE(get.origin.y, bottom(last) + 5);
    EXPECT_GE(back.origin.y, bottom(get) + 5);
    EXPECT_LE(bottom(back), scroll.size.height - 20);
}

INSTANTIATE_TEST_SUITE_P(Phones, WelcomeOn,
                         testing::Values("iPhone8,4", "iPhone10,1", "iPhone9,2", "iPhone10,3",
                                         "iPhone11,8", "iPhone12,5", "iPhone13,2", "iPhone13,4"));

// On its side the pager can be read, turned by a finger and left.
class WelcomeTurned : public WelcomeOn {
  protected:
    static bool overlap(CGRect a, CGRect b) {
        return a.origin.x < right(b) && b.origin.x < right(a) && a.origin.y < bottom(b) &&
               b.origin.y < bottom(a);
    }
    void turn(simulator::Orientation orientation) {
        phone_->rotate(orientation);
        phone_->wait(1);
    }
    void swipe() {
        const CGSize screen = UIScreen::mainScreen().bounds().size;
        phone_->touchDown(screen.width - 60, screen.height / 2);
        phone_->touchMove(60, screen.height / 2, 0.2);
        phone_->touchUp();
        phone_->wait(2);
    }
    static void expectAllInside(CGRect frame, double left, CGSize room) {
        EXPECT_GE(frame.origin.x, left + 15);
        EXPECT_LE(right(frame), left + room.width - 15);
        EXPECT_GE(frame.origin.y, 0);
        EXPECT_LE(bottom(frame), room.height);
    }
};

TEST_P(WelcomeTurned, EveryPageCanBeRead) {
    phone_->device(GetParam());
    boot();
    turn(simulator::Orientation::landscapeRight);
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    ASSERT_GT(screen.width, screen.height);
    EXPECT_EQ(pager().view().frame(), rect(0, 0, screen.width, screen.height));
    const CGRect scroll = scrollView().frame();
    EXPECT_EQ(right(scroll), screen.width);
    EXPECT_EQ(bottom(scroll), screen.height);
    EXPECT_EQ(scrollView().contentSize(), (CGSize{screen.width * 4, scroll.size.height}));
    CGRect dots = part<UIPageControl>("pageControl").frame();
    EXPECT_EQ(dots.origin.x, (screen.width - 100) / 2);
    dots.origin.y -= scroll.origin.y;
    NSArray subviews = scrollView().subviews();
    for (unsigned long page = 0; page < 4; ++page) {
        const CGRect picture = subviews.at<UIView>(page * 3).frame();
        auto title = subviews.at<UILabel>(page * 3 + 1);
        auto description = subviews.at<UILabel>(page * 3 + 2);
        const double left = screen.width * static_cast<double>(page);
        CGRect dotsHere = dots;
        dotsHere.origin.x += left;
        for (CGRect frame : {picture, title.frame(), description.frame()}) {
            expectAllInside(frame, left, scroll.size);
            EXPECT_FALSE(overlap(frame, dotsHere));
        }
        EXPECT_GE(picture.size.height, 100);
        EXPECT_FALSE(overlap(picture, title.frame()));
        EXPECT_FALSE(overlap(picture, description.frame()));
        EXPECT_FALSE(overlap(title.frame(), description.frame()));
        EXPECT_LE((title.send<"intrinsicContentSize", CGSize>().width), title.frame().size.width);
        const CGSize room = description.send<"sizeThatFits:", CGSize>(
            CGSize{description.frame().size.width, 10000});
        EXPECT_EQ(description.frame().size.height, room.height);
    }
    for (unsigned long i : {0UL, 1UL}) {
        const CGRect frame = button(i).frame();
        expectAllInside(frame, screen.width * 3, scroll.size);
        for (unsigned long view = 9; view < 12; ++view) {
            EXPECT_FALSE(overlap(frame, subviews.at<UIView>(view).frame())) << view;
        }
    }
    EXPECT_FALSE(overlap(button(0).frame(), button(1).frame()));
}

TEST_P(WelcomeTurned, AFingerTurnsThePagesAndLeaves) {
    phone_->device(GetParam());
    boot();
    turn(simulator::Orientation::landscapeLeft);
    for (int i = 0; i < 3; ++i) swipe();
    EXPECT_EQ(counter(), "4/4");
    tap(button(1));
    phone_->wait(2);
    EXPECT_TRUE(pagers().empty());
}

INSTANTIATE_TEST_SUITE_P(Phones, WelcomeTurned,
                         testing::Values("iPhone8,4", "iPhone10,1", "iPhone9,2", "iPhone10,3",
                                         "iPhone12,5"));

TEST_F(WelcomePager, ThePageInFrontStaysThereWhenThePhoneIsTurned) {
    boot();
    decelerateAt(2);
    phone_->rotate(simulator::Orientation::landscapeRight);
    phone_->wait(1);
    EXPECT_EQ(scrollView().contentOffset(), (CGPoint{812 * 2, 0}));
    EXPECT_EQ(counter(), "3/4");
    phone_->rotate(simulator::Orientation::portrait);
    phone_->wait(1);
    EXPECT_EQ(scrollView().contentOffset(), (CGPoint{375 * 2, 0}));
    EXPECT_EQ(pager().view().frame(), rect(0, 0, 375, 812));
    EXPECT_EQ(scrollView().frame(), rect(0, 114, 375, 812 - 114));
}

TEST_F(WelcomePager, ShownOnATurnedPhoneItIsTurned) {
    boot();
    phone_->rotate(simulator::Orientation::landscapeRight);
    phone_->wait(1);
    homeScreen().send<"presentUpdateInfo">();
    EXPECT_EQ(pager().view().frame(), rect(0, 0, 812, 375));
    EXPECT_EQ(scrollView().contentSize().width, 812 * 4);
    EXPECT_EQ(button(1).frame().origin.y, button(0).frame().origin.y);
}

class WelcomePictures : public WelcomePager {
  protected:
    static NSArray pictures() { return part<NSArray>("updatePictures"); }
    static double widthOf(unsigned long index) {
        return pictures().at<UIImage>(index).send<"size", CGSize>().width;
    }
    // The smallest of pictures: one white pixel.
    static std::string onePixel() {
        static constexpr unsigned char png[] = {
            0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a, 0x00, 0x00, 0x00, 0x0d, 0x49, 0x48,
            0x44, 0x52, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x08, 0x00, 0x00, 0x00,
            0x00, 0x3a, 0x7e, 0x9b, 0x55, 0x00, 0x00, 0x00, 0x0a, 0x49, 0x44, 0x41, 0x54, 0x78,
            0x9c, 0x63, 0xf8, 0x0f, 0x00, 0x01, 0x01, 0x01, 0x00, 0xb1, 0x38, 0xf6, 0x14, 0x00,
            0x00, 0x00, 0x00, 0x49, 0x45, 0x4e, 0x44, 0xae, 0x42, 0x60, 0x82};
        return {reinterpret_cast<const char*>(png), sizeof png};
    }
};

TEST_F(WelcomePictures, TheFirstTwoAreTheSame) {
    boot();
    ASSERT_EQ(pictures().count(), 4u);
    for (unsigned long i = 0; i < 4; ++i) EXPECT_EQ(widthOf(i), 340) << i;
    EXPECT_EQ(phone_->crashed(), std::nullopt);
}

TEST_F(WelcomePictures, OneOfTheSystemsOwnBundleComesFirst) {
    phone_->file("/System/Library/CoreServices/SpringBoard.app/update0.png", onePixel());
    boot();
    ASSERT_EQ(pictures().count(), 4u);
    EXPECT_EQ(widthOf(0), 1);
    EXPECT_EQ(widthOf(1), 340);
}

TEST_F(WelcomePictures, WhatIsMissingIsAnEmptyOne) {
    // An empty file is no picture; the package's own files stay away where there is one already.
    for (const char* name : {"update1@2x.png", "update1@3x.png"}) {
        phone_->file(std::string(supportFolder) + name, "");
    }
    boot();
    ASSERT_EQ(pictures().count(), 4u);
    EXPECT_EQ(widthOf(1), 340);
    EXPECT_EQ(widthOf(2), 0);
    EXPECT_EQ(widthOf(3), 340);
}

// Nothing is raised without a class, and the pager can still be left.
class WelcomeWithout : public WelcomePager, public testing::WithParamInterface<const char*> {};

TEST_P(WelcomeWithout, ShowsWhatRemains) {
    phone_->missingClass(GetParam());
    boot();
    ASSERT_TRUE(pager());
    EXPECT_EQ(pager().view().frame(), rect(0, 0, 375, 812));
    pager().send<"launchApp">();
    phone_->wait(2);
    EXPECT_TRUE(pagers().empty());
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(Classes, WelcomeWithout,
                         testing::Values("UILabel", "UIFont", "UIImage", "UIImageView", "UIButton",
                                         "UIScrollView", "UIPageControl"));

class WelcomeTurns : public WelcomePager {
  protected:
    ~WelcomeTurns() override { programVersion = "1.2.1"; }
    static void moveHomeScreen() {
        UIView home = homeScreen();
        Strong<UIView> kept = retained(home);
        UIView window = home.superview();
        home.removeFromSuperview();
        window.addSubview(home);
    }
};

TEST_F(WelcomeTurns, OncePerVersion) {
    boot();
    VNTUpdateViewController first = pager();
    ASSERT_TRUE(first);
    moveHomeScreen();
    EXPECT_EQ(pager(), first);
    pager().send<"backToHome">();
    phone_->wait(2);
    moveHomeScreen();
    EXPECT_FALSE(pager());
}

TEST_F(WelcomeTurns, TheVersionDebugShowsItAtEveryMove) {
    programVersion = "debug";
    boot();
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(pager()) << i;
        pager().send<"backToHome">();
        phone_->wait(2);
        ASSERT_FALSE(pager()) << i;
        moveHomeScreen();
    }
    EXPECT_FALSE(NSArray::withContentsOfFile(
        "/var/mobile/Library/Preferences/com.ferolin.VantoriHistoryVersion.plist"_ns));
}

TEST_F(WelcomeTurns, ADisabledLibraryNeverShowsIt) {
    programVersion = "debug";
    set("enabled", false);
    boot();
    moveHomeScreen();
    EXPECT_FALSE(pager());
}

// The controller of the pager before is released; a screen that nobody can leave must not stay.
TEST_F(WelcomeTurns, APagerTakesThePlaceOfTheOneBefore) {
    boot();
    UIView home = homeScreen();
    home.send<"presentUpdateInfo">();
    EXPECT_EQ(pagers().size(), 1u);
    EXPECT_EQ(home.subviews().last(), pager().view());
    pager().send<"backToHome">();
    phone_->wait(2);
    EXPECT_EQ(find(home, "UIScrollView"), UIView());
}

// Whoever keeps its pages scrolls them without telling one that is gone.
TEST_F(WelcomeTurns, APagerThatGoesIsToldNothingMore) {
    boot();
    Strong<UIScrollView> pages = retained(scrollView());
    {
        AutoreleasePool pool;
        homeScreen().send<"presentUpdateInfo">();
    }
    ASSERT_FALSE(scrollView() == pages);
    EXPECT_EQ((pages.send<"delegate", id>()), nullptr);
}

}  // namespace
}  // namespace vantori::tests
