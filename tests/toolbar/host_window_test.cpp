// Who takes a touch in the toolbar's window: the toolbar first, the shadow last and only while it
// shows, the window itself never.
#include "toolbar/host_windows.hpp"

#include "tests/library_phone.hpp"

namespace vantori::tests {
namespace {

class HostWindow : public LibraryPhone {
  protected:
    void SetUp() override {
        boot();
        window_ = create<VNTSBHostWindow, "initWithFrame:">(rect(0, 0, 375, 812));
        window_.setHidden(false);
    }
    void addShadow(double alpha) {
        shadow_ = create<VNTSBShadowView, "initWithFrame:">(rect(0, 0, 375, 812));
        shadow_.setAlpha(alpha);
        window_.addSubview(shadow_);
    }
    void addToolbar() {
        toolbar_ = create<UIView, "initWithFrame:">(rect(0, 600, 375, 212));
        control_ = create<UIView, "initWithFrame:">(rect(20, 20, 50, 50));
        toolbar_.addSubview(control_);
        window_.addSubview(toolbar_);
    }
    UIView hit(double x, double y) { return window_.hitTest({x, y}, Object()); }

    Strong<VNTSBHostWindow> window_;
    Strong<VNTSBShadowView> shadow_;
    Strong<UIView> toolbar_, control_;
};

TEST_F(HostWindow, WithoutSubviewsTakesNothing) { EXPECT_FALSE(hit(100, 100)); }

TEST_F(HostWindow, ATouchAboveTheToolbarPassesThroughAnInvisibleShadow) {
    addShadow(0);
    addToolbar();
    EXPECT_FALSE(hit(100, 100));
}

TEST_F(HostWindow, AnyShadowThatShowsTakesIt) {
    addShadow(0.01);
    addToolbar();
    EXPECT_EQ(hit(100, 100), shadow_);
}

TEST_F(HostWindow, SoDoesOneThatIsQuiteBlack) {
    addShadow(1);
    EXPECT_EQ(hit(100, 100), shadow_);
}

TEST_F(HostWindow, AControlOfTheToolbarComesBeforeTheShadow) {
    addToolbar();
    addShadow(0.5);  // in front of the toolbar
    EXPECT_EQ(hit(30, 630), control_);
    EXPECT_EQ(hit(200, 700), toolbar_);
}

TEST_F(HostWindow, TheLastShadowWins) {
    addShadow(0.5);
    VNTSBShadowView first = shadow_;
    Strong<VNTSBShadowView> kept = retained(first);
    addShadow(0);
    EXPECT_FALSE(hit(100, 100));
    shadow_.setAlpha(0.3);
    EXPECT_EQ(hit(100, 100), shadow_);
}

TEST_F(HostWindow, TheBackmostClaimantDecides) {
    addToolbar();
    auto front = create<UIView, "initWithFrame:">(rect(0, 0, 375, 812));
    window_.addSubview(front);
    EXPECT_EQ(hit(30, 630), control_);
    EXPECT_EQ(hit(30, 30), front);
}

TEST_F(HostWindow, IsSecure) {
    EXPECT_TRUE((window_.send<"_isSecure", bool>()));
    EXPECT_TRUE((sendClass<VNTSBHostWindow, "_isSecure", bool>()));
}

TEST_F(HostWindow, TheWelcomeWindowShowsItself) {
    auto window = create<VNTUpdateWindow, "initWithFrame:">(rect(0, 0, 375, 812));
    ASSERT_TRUE(window);
    UIViewController pager = window.send<"updateVC", UIViewController>();
    EXPECT_TRUE(pager.isKindOfClass(objc_getClass("VNTUpdateViewController")));
    EXPECT_EQ((window.send<"rootViewController", UIViewController>()), pager);
    EXPECT_EQ((window.send<"windowLevel", double>()), 1999);
    EXPECT_EQ(pager.view().superview(), window);
    EXPECT_FALSE(window.isHidden());
    EXPECT_TRUE((window.send<"isKeyWindow", bool>()));
}

}  // namespace
}  // namespace vantori::tests
