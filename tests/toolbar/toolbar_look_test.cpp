// How the toolbars look and where their parts stand once SpringBoard has launched. W = 375, H = 812.
#include "simulator/runtime/journal.hpp"
#include "tests/library_phone.hpp"
#include "toolbar/arrangement.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori::tests {
namespace {

using simulator::Journal;

class ToolbarLook : public LibraryPhone {
  protected:
    static VNTToolBarController behind() { return VNTToolBarController::shared(); }
    static VNTSBToolBarController above() { return VNTSBToolBarController::shared(); }
    void bootWithDirection(int direction) {
        set("layoutDirection", direction);
        phone_->boot();
    }
    static bool isColor(UIView view, UIColor color) {
        return view.send<"backgroundColor", UIColor>().send<"isEqual:", bool>(color);
    }
    template <class T>
    static T lastArgument(const char* cls, const char* message) {
        const auto told = Journal::last(cls, message);
        return told ? std::get<T>(told->at(0)) : T();
    }
    static UIPageControl dots(VNTToolBarController toolbar) {
        return toolbar.scrollViewPageController();
    }
};

TEST_F(ToolbarLook, TheOneBehindStandsAtTheBottom) {
    bootWithDirection(3);
    EXPECT_EQ(behind().view().frame(), (rect(0, 812 - 515, 375, 515)));
    EXPECT_EQ(behind().vantoriScrollView().frame(), (rect(0, 0, 375, 515)));
    EXPECT_EQ(behind().vantoriScrollView().contentSize(), (CGSize{375, 515}));
    VNTCCTogglesBarViewController modules = behind().ccTogglesViewControllerForApp();
    EXPECT_EQ(modules.scrollView().frame(), modules.view().bounds());
}

TEST_F(ToolbarLook, ItsGrabberIsAWhiteBar) {
    bootWithDirection(3);
    UIView grabber = behind().grabberView();
    EXPECT_EQ(grabber.frame(), (rect(137.5, 10, 100, 5)));
    EXPECT_TRUE(isColor(grabber, UIColor::white()));
    EXPECT_EQ(grabber.layer().cornerRadius(), 2.5);
    EXPECT_TRUE(grabber.layer().masksToBounds());
    EXPECT_EQ(grabber.alpha(), 0.5);
}

TEST_F(ToolbarLook, ItsPagesScrollWithoutIndicators) {
    bootWithDirection(1);
    for (VNTToolBarController toolbar : {behind(), VNTToolBarController(above())}) {
        UIScrollView pages = toolbar.vantoriScrollView();
        EXPECT_TRUE((pages.send<"isPagingEnabled", bool>()));
        EXPECT_FALSE((pages.send<"showsHorizontalScrollIndicator", bool>()));
        EXPECT_FALSE((pages.send<"showsVerticalScrollIndicator", bool>()));
        EXPECT_EQ((pages.send<"delegate", Object>()), toolbar);
    }
}

TEST_F(ToolbarLook, ItsPagesKeepTheirSizes) {
    bootWithDirection(3);
    for (const Page& page : allPages()) {
        UIView view = page.controller(behind()).view();
        EXPECT_EQ((view.send<"autoresizingMask", unsigned long>()), 0u);
    }
}

TEST_F(ToolbarLook, TheDotsShowThePagesOfAStripOnly) {
    bootWithDirection(1);
    UIPageControl control = dots(behind());
    EXPECT_EQ(control.alpha(), 1);
    EXPECT_EQ((control.send<"numberOfPages", long>()), 5);
    EXPECT_TRUE((control.send<"hidesForSinglePage", bool>()));
    EXPECT_EQ(control.frame(), (rect(137.5, 100, 100, 10)));
    EXPECT_TRUE(isColor(control, UIColor::clear()));
    const UIColor current = control.send<"currentPageIndicatorTintColor", UIColor>();
    const UIColor others = control.send<"pageIndicatorTintColor", UIColor>();
    EXPECT_TRUE((current.send<"isEqual:", bool>(UIColor::white())));
    EXPECT_TRUE((others.send<"isEqual:", bool>(UIColor::rgba(0.5, 0.5, 0.5, 0.5))));
}

TEST_F(ToolbarLook, AStackHasNoDots) {
    bootWithDirection(3);
    EXPECT_EQ(dots(behind()).alpha(), 0);
    EXPECT_EQ(dots(above()).alpha(), 0);
}

// Told of a change the dots of the one behind are a little fainter than from the start.
TEST_F(ToolbarLook, ToldOfAChangeEachShowsWhatItsArrangementHas) {
    bootWithDirection(3);
    set("layoutDirection", 1);
    announceSettings();
    EXPECT_NEAR(dots(behind()).alpha(), 0.9, 1e-6);
    EXPECT_EQ(dots(above()).alpha(), 1);
    EXPECT_EQ(above().ccTogglesViewController().view().alpha(), 0);
    set("layoutDirection", 3);
    announceSettings();
    EXPECT_EQ(dots(behind()).alpha(), 0);
    EXPECT_EQ(dots(above()).alpha(), 0);
    EXPECT_EQ(above().ccTogglesViewController().view().alpha(), 1);
    EXPECT_EQ(behind().vantoriScrollView().contentSize(), (CGSize{375, 515}));
    EXPECT_EQ(behind().view().frame(), (rect(0, 812 - 515, 375, 515)));
    above().layoutForOrientation(1);
    EXPECT_EQ(above().ccTogglesViewController().view().alpha(), 1);
    EXPECT_EQ(above().vantoriScrollView().frame(), (rect(0, 0, 375, 515)));
}

TEST_F(ToolbarLook, TheBackdropsAreOfTheirKinds) {
    bootWithDirection(3);
    EXPECT_EQ(lastArgument<long>("SBWallpaperEffectView", "setStyle:"), 7);
    UIView backdrop = above().send<"backgroundBackdropView", UIView>();
    EXPECT_EQ((backdrop.send<"style", long>()), -2);
    EXPECT_EQ((backdrop.send<"blurRadius", double>()), 10);
    EXPECT_FALSE((backdrop.send<"blurRadiusSetOnce", bool>()));
}

TEST_F(ToolbarLook, TheShadowIsBlackAndNotSeenYet) {
    bootWithDirection(3);
    UIView shadow = above().send<"backgroundShadowView", UIView>();
    EXPECT_EQ(shadow.frame(), (rect(0, 0, 375, 812)));
    EXPECT_TRUE(isColor(shadow, UIColor::black()));
    EXPECT_EQ(shadow.alpha(), 0);
}

TEST_F(ToolbarLook, TheModulesPageOfTheOneAboveIsInItsScrollView) {
    bootWithDirection(3);
    UIView modules = above().ccTogglesViewController().view();
    EXPECT_EQ(modules.superview(), above().vantoriScrollView());
    EXPECT_EQ((modules.send<"autoresizingMask", unsigned long>()), 0u);
}

struct Kept {
    double x;
    double expected;
};
class PageKept : public ToolbarLook, public testing::WithParamInterface<Kept> {};

// Content of 750 in a view of 375: nothing is further than 375.
TEST_P(PageKept, AsFarAsTheContentGoes) {
    bootWithDirection(1);
    UIScrollView pages = behind().vantoriScrollView();
    pages.setContentSize({750, 115});
    pages.setContentOffset({0, 0});
    keepPageInFront(behind(), {{750, 115}, {GetParam().x, 0}});
    EXPECT_EQ(pages.contentOffset().x, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Offsets, PageKept,
                         testing::Values(Kept{0, 0}, Kept{375, 375}, Kept{375.5, 0}, Kept{750, 0}));

TEST_F(ToolbarLook, AnotherHeightKeepsNoPage) {
    bootWithDirection(1);
    UIScrollView pages = behind().vantoriScrollView();
    pages.setContentSize({750, 115});
    pages.setContentOffset({375, 0});
    dots(behind()).setCurrentPage(1);
    keepPageInFront(behind(), {{750, 515}, {375, 0}});
    EXPECT_EQ(pages.contentOffset().x, 0);
    EXPECT_EQ((dots(behind()).send<"currentPage", long>()), 0);
}

}  // namespace
}  // namespace vantori::tests
