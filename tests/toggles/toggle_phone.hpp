// A phone with the library, and ways to make toggles and to look at them.
#pragma once

#include "platform/definition.hpp"
#include "platform/package_view.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/view/view.hpp"
#include "tests/library_phone.hpp"
#include "toggles/catalogue.hpp"

namespace vantori::tests {

class TogglePhone : public LibraryPhone {
  protected:
    using Toggle = VNTDailyToggleViewController;

    static NSString text(const char* utf8) { return NSString::from(utf8); }
    static std::string text(NSString string) {
        const char* utf8 = string.utf8();
        return utf8 ? utf8 : "(nil)";
    }
    static NSString mutePackage() {
        return "/System/Library/ControlCenter/Bundles/MuteModule.bundle/Mute.ca"_ns;
    }
    static UIImage picture() {
        return UIImage::named("/Library/Application Support/Vantori/nightshift.png"_ns);
    }
    // Toggles live as long as the phone: nobody takes them out of the notification centre.
    template <Handle T = Toggle, FixedString initialiser, class... A>
    T make(A... arguments) {
        Object raw = Object(classObject(objc_getClass(className_))).send<"alloc", Object>();
        return raw.send<initialiser, T>(arguments...);
    }
    Toggle makePackageToggle(const char* className, const char* on, const char* off) {
        className_ = className;
        return make<Toggle, "initWithPackageContentsPath:onString:offString:">(mutePackage(),
                                                                               text(on), text(off));
    }
    Toggle makeImageToggle(const char* className, const char* on, const char* off) {
        className_ = className;
        return make<Toggle, "initWithOnImage:offImage:onString:offString:">(picture(), picture(),
                                                                            text(on), text(off));
    }
    void openToolbar() {
        phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
        phone_->grabber(simulator::PullPhase::ended, 60, 100, 0);
        phone_->wait(1);
        phone_->clear();
    }
    // Only what is in a window moves.
    void putOnToolbar(Toggle toggle) {
        openToolbar();
        VNTSBToolBarController::shared().view().addSubview(toggle.view());
    }
    void refreshAll() { phone_->post("should-refresh-state"); }
    // As a finger does.
    static void tap(Toggle toggle) {
        toggle.toggleButton().send<"sendActionsForControlEvents:">(UIControl::touchUpInside);
    }
    static bool isAnimating(UIView view) {
        return simulator::isAnimating(simulator::layerOf(view));
    }
    static std::string glyphOf(Toggle toggle) {
        return text(toggle.toggleButton().packageView().send<"stateName", NSString>());
    }
    static bool equal(Object a, Object b) { return a.send<"isEqual:", bool>(b); }

    static void expectShown(Toggle toggle, bool on) {
        VNTDailyToggleButton button = toggle.toggleButton();
        EXPECT_EQ(toggle.isOn(), on);
        EXPECT_EQ(toggle.currentState(), on ? 1 : 0);
        EXPECT_NEAR(button.onView().alpha(), on ? 0.7 : 0, 1e-6);
        EXPECT_NEAR(button.offView().alpha(), on ? 0 : 0.7, 1e-6);
    }
    static void expectNamed(Toggle toggle, const char* name) {
        EXPECT_EQ(text(toggle.currentStateName()), name);
    }

    const char* className_ = "VNTDailyToggleViewController";
};

}  // namespace vantori::tests
