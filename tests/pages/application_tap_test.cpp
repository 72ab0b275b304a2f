// A tap on an icon of the open toolbar, in both styles, and what the page asks of the host.
#include "pages/application_host.hpp"
#include "platform/definition.hpp"
#include "tests/order.hpp"
#include "tests/pages/applications.hpp"

namespace vantori::tests {
namespace {

class Tap : public Applications {
  protected:
    void openInApplicationStyle() {
        set("alwaysSpringBoardStyle", false);
        boot();
        phone_->open("com.example.notes");
        openToolbar();
        phone_->clear();
        ASSERT_TRUE(VNTToolBarController::shared().isEnabled());
        ASSERT_EQ(sceneContainer().frame(),
                  rect(0, -VNTToolBarController::shared().maxHeight(), 375, 812));
        ASSERT_EQ(sceneContainer().layer().cornerRadius(), 30);
    }
    void openOnTheHomeScreen() {
        boot();
        openToolbar();
        phone_->clear();
        ASSERT_TRUE(VNTSBToolBarController::shared().isEnabled());
    }
    void expectAtRest() {
        EXPECT_EQ(sceneContainer().frame(), (rect(0, 0, 375, 812)));
        EXPECT_EQ(sceneContainer().layer().cornerRadius(), 0);
    }
    int launched(const char* identifier) { return phone_->launchedCount(identifier); }
};

TEST_F(Tap, InApplicationStyleLowersTheSceneThenLaunches) {
    openInApplicationStyle();
    tapIcon(applicationPage(), 1);
    expectAtRest();
    EXPECT_EQ(launched("com.apple.mobilesafari"), 0);
    EXPECT_TRUE(VNTToolBarController::shared().isEnabled());
    phone_->wait(0.4);
    EXPECT_EQ(launched("com.apple.mobilesafari"), 0);  // the spring takes half a second
    phone_->wait(0.2);
    EXPECT_EQ(launched("com.apple.mobilesafari"), 1);
    EXPECT_EQ(phone_->launchedSuspendedCount("com.apple.mobilesafari"), 0);
    EXPECT_FALSE(VNTToolBarController::shared().isEnabled());
    EXPECT_STREQ(SpringBoard::shared().frontMostApplication().bundleIdentifier().utf8(),
                 "com.apple.mobilesafari");
    EXPECT_EQ(backNow(), 1);
    phone_->wait(1);
    expectAtRest();
    EXPECT_FALSE(phone_->crashed());
}

// The scene is lowered, then the toolbar above goes, then the system hears of it; once the spring ends the
// application comes, and only then does the toolbar behind it count as closed.
TEST_F(Tap, GoesInOrder) {
    openInApplicationStyle();
    Spy<"dismissVNTSB">::on("VNTSBToolBarController", [&](Object) {
        Order::note(sceneContainer().frame().origin.y == 0 ? "lowered" : "lifted");
        Order::note(backNow() == 0 ? "dismissed" : "dismissed late");
    });
    Spy<"setIsEnabled:", bool>::on("VNTToolBarController", [&](Object, bool) {
        Order::note(launched("com.apple.mobilesafari") == 1 ? "closed" : "closed too early");
    });
    tapIcon(applicationPage(), 1);
    EXPECT_EQ(backNow(), 1);
    phone_->wait(1);
    EXPECT_EQ(Order::events(), (std::vector<std::string>{"lowered", "dismissed", "closed"}));
}

TEST_F(Tap, InterruptedLaunchesNothingButDismisses) {
    openInApplicationStyle();
    tapIcon(applicationPage(), 1);
    phone_->wait(0.1);
    phone_->interrupt(sceneContainer().get());
    phone_->wait(2);
    expectAtRest();
    EXPECT_EQ(launched("com.apple.mobilesafari"), 0);
    EXPECT_FALSE(VNTSBToolBarController::shared().isEnabled());
    EXPECT_TRUE(VNTToolBarController::shared().isEnabled());  // cleared only by a spring that ends
    EXPECT_EQ(backNow(), 1);
    EXPECT_EQ(posted("com.ferolin.vantori-stopmarquee"), 1);
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), 1);
}

TEST_F(Tap, OnTheHomeScreenLaunchesAndSendsTheToolbarAway) {
    openOnTheHomeScreen();
    tapIcon(springBoardPage(), 2);
    EXPECT_FALSE(VNTSBToolBarController::shared().isEnabled());
    EXPECT_EQ(VNTSBToolBarController::shared().view().frame().origin.y, 812);
    EXPECT_EQ(posted("com.ferolin.vantori-stopmarquee"), 1);
    phone_->wait(1);
    EXPECT_EQ(launched("com.apple.MobileSMS"), 1);
    EXPECT_EQ(backNow(), 1);
    EXPECT_STREQ(SpringBoard::shared().frontMostApplication().bundleIdentifier().utf8(),
                 "com.apple.MobileSMS");
}

TEST_F(Tap, OverAnApplicationInSpringBoardStyleLaunchesAsWell) {
    boot();
    phone_->open("com.example.notes");
    openToolbar();
    tapIcon(springBoardPage(), 0);
    phone_->wait(1);
    EXPECT_EQ(launched("com.apple.mobilephone"), 1);
    EXPECT_FALSE(VNTSBToolBarController::shared().isEnabled());
}

// Both ways of letting go count: mask 64 + 128. Behind an application no pan of the toolbar takes the
// finger, and its swipe goes down only.
TEST_F(Tap, CountsWhenTheFingerLeavesTheIcon) {
    openInApplicationStyle();
    const CGPoint from = middleOf(at(applicationPage(), 0));
    phone_->touchDown(from.x, from.y);
    phone_->touchMove(from.x + 200, from.y, 0.3);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_EQ(launched("com.apple.mobilephone"), 1);
}

TEST_F(Tap, ATouchThatIsTakenAwayLaunchesNothing) {
    openInApplicationStyle();
    const CGPoint from = middleOf(at(applicationPage(), 0));
    phone_->touchDown(from.x, from.y);
    phone_->wait(0.05);
    phone_->touchCancel();
    phone_->wait(1);
    EXPECT_EQ(launched("com.apple.mobilephone"), 0);
    EXPECT_TRUE(VNTToolBarController::shared().isEnabled());
}

TEST_F(Tap, SurvivesARowThatIsBuiltAnewMeanwhile) {
    openInApplicationStyle();
    tapIcon(applicationPage(), 3);
    applicationPage().setIcons(icons(1));
    applicationPage().layoutIconsWithSize(60);
    phone_->wait(1);
    EXPECT_EQ(launched("com.apple.Music"), 1);
}

// Kept for the spring, and no longer.
TEST_F(Tap, AnIconOfAnOldRowGoesWithTheSpring) {
    openInApplicationStyle();
    int gone = 0;
    Spy<"dealloc">::on("VNTAppButton", [&](Object) { ++gone; });
    {
        AutoreleasePool pool;
        tapIcon(applicationPage(), 3);
        applicationPage().setIcons(icons(1));
        applicationPage().layoutIconsWithSize(60);
    }
    const int before = gone;
    phone_->wait(1);
    EXPECT_EQ(launched("com.apple.Music"), 1);
    phone_->clear();  // the journal holds the latest arguments
    EXPECT_EQ(gone, before + 1);
}

TEST_F(Tap, OnAnIconOfNothingLaunchesNothing) {
    openOnTheHomeScreen();
    at(springBoardPage(), 0).setApplicationIdentifier({});
    tapIcon(springBoardPage(), 0);
    phone_->wait(1);
    EXPECT_FALSE(VNTSBToolBarController::shared().isEnabled());
    EXPECT_FALSE(SpringBoard::shared().frontMostApplication());
    springBoardPage().send<"launchApplicationWithIdentifier:">(Object());
    phone_->wait(1);
    EXPECT_EQ(backNow(), 2);
    EXPECT_FALSE(phone_->crashed());
}

// The container is the second of the layout's views. With no layout there is nothing to lower.
TEST_F(Tap, WithoutASceneLayoutStillLaunches) {
    phone_->missingClass("SBMainDisplaySceneLayoutViewController");
    boot();
    openToolbar();
    tapIcon(springBoardPage(), 0);
    phone_->wait(1);
    EXPECT_EQ(launched("com.apple.mobilephone"), 1);
    EXPECT_EQ(backNow(), 1);
    EXPECT_FALSE(phone_->crashed());
}

class PageAndHost : public Applications {
  protected:
    static VNTApplicationHostViewController host(Page page) {
        return page.send<"hostController", VNTApplicationHostViewController>();
    }
};

TEST_F(PageAndHost, ThePageMayShowWhileLocked) {
    boot();
    EXPECT_TRUE((springBoardPage().send<"_canShowWhileLocked", bool>()));
    EXPECT_TRUE((applicationPage().send<"_canShowWhileLocked", bool>()));
}

TEST_F(PageAndHost, EachPageHasAHostOfItsOwn) {
    boot();
    EXPECT_TRUE(host(springBoardPage()));
    EXPECT_TRUE(host(applicationPage()));
    EXPECT_FALSE(host(springBoardPage()) == host(applicationPage()));
}

// The backdrop of the toolbar behind the applications does not exist yet when that toolbar's page
// loads; the other page's host goes into it.
TEST_F(PageAndHost, TheSpringBoardPagesHostStandsInTheBackdrop) {
    boot();
    UIView backdrop = VNTToolBarController::shared().backgroundWallpaperView();
    EXPECT_EQ(host(springBoardPage()).view().superview(), backdrop);
    EXPECT_FALSE(host(applicationPage()).view().superview());
}

TEST_F(PageAndHost, HostingStartsTheApplicationWithoutShowingIt) {
    boot();
    springBoardPage().send<"hostApplicationInView:">("com.example.maps"_ns);
    EXPECT_EQ(phone_->launchedSuspendedCount("com.example.maps"), 1);
    EXPECT_EQ(phone_->launchedCount("com.example.maps"), 0);
    EXPECT_FALSE(SpringBoard::shared().frontMostApplication());
    springBoardPage().send<"hostApplicationInView:">("com.example.gone"_ns);
    springBoardPage().send<"hostApplicationInView:">(NSString());
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(PageAndHost, HostingWithoutAnApplicationControllerIsSilent) {
    phone_->missingClass("SBApplicationController");
    boot();
    springBoardPage().send<"hostApplicationInView:">("com.example.maps"_ns);
    EXPECT_EQ(phone_->launchedSuspendedCount("com.example.maps"), 0);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(PageAndHost, KeepsWhatIsSetOnIt) {
    boot();
    Page page = springBoardPage();
    auto kept = create<Object>();
    auto mine = create<VNTApplicationHostViewController>();
    page.send<"setCurrentApplicationResizeNotification:">(kept);
    page.send<"setSecondApplicationResizeNotification:">(kept);
    page.send<"setHostController:">(mine);
    EXPECT_EQ((page.send<"currentApplicationResizeNotification", Object>()), kept);
    EXPECT_EQ((page.send<"secondApplicationResizeNotification", Object>()), kept);
    EXPECT_EQ(host(page), mine);
    auto icon = create<VNTAppButton>();
    icon.send<"setApplication:">(kept);
    EXPECT_EQ((icon.send<"application", Object>()), kept);
    EXPECT_EQ((icon.send<"valueForKey:", Object>("application"_ns)), kept);
}

}  // namespace
}  // namespace vantori::tests
