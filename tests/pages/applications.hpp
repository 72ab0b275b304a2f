// A phone with the library, and what tests of the applications pages look at. W = 375 and H = 812
// unless a test says otherwise.
#pragma once

#include <string>
#include <vector>

#include "pages/app_button.hpp"
#include "pages/applications_page.hpp"
#include "pages/lifted_scene.hpp"
#include "simulator/springboard/applications/recents.hpp"
#include "simulator/springboard/home/icon_lists.hpp"
#include "tests/library_phone.hpp"

namespace vantori::tests {

class Applications : public LibraryPhone {
  protected:
    using Page = VNTIconsContainerViewController;

    static Page springBoardPage() {
        return VNTSBToolBarController::shared().page<VNTIconsContainerViewController>();
    }
    static Page applicationPage() {
        return VNTToolBarController::shared().page<VNTIconsContainerViewController>();
    }

    static unsigned long shown(Page page) { return page.view().subviews().count(); }
    static VNTAppButton at(Page page, unsigned long index) {
        return page.view().subviews().at<VNTAppButton>(index);
    }
    static std::vector<std::string> identifiers(Page page) {
        std::vector<std::string> all;
        for (unsigned long i = 0; i < shown(page); ++i) {
            NSString identifier = at(page, i).applicationIdentifier();
            all.emplace_back(identifier ? identifier.utf8() : "none");
        }
        return all;
    }
    // Where the icons stand from the left, in points.
    static std::vector<double> places(Page page) {
        std::vector<double> all;
        for (unsigned long i = 0; i < shown(page); ++i) {
            all.push_back(at(page, i).frame().origin.x);
        }
        return all;
    }
    static void expectRow(Page page, const std::vector<double>& xs, double side) {
        ASSERT_EQ(shown(page), xs.size());
        for (unsigned long i = 0; i < xs.size(); ++i) {
            const CGRect frame = at(page, i).frame();
            EXPECT_NEAR(frame.origin.x, xs[i], 1e-9) << "icon " << i;
            EXPECT_EQ(frame.origin.y, 20) << "icon " << i;
            EXPECT_NEAR(frame.size.width, side, 1e-9) << "icon " << i;
            EXPECT_NEAR(frame.size.height, side, 1e-9) << "icon " << i;
        }
    }

    static void emptyRow(Page page) {
        page.setIcons({});
        while (shown(page) > 0) at(page, 0).removeFromSuperview();
    }
    // The first icons of the phone, as an array that tests may hand over.
    static NSMutableArray icons(unsigned long count) {
        static const char* const names[] = {"com.apple.mobilephone", "com.apple.mobilesafari",
                                            "com.apple.MobileSMS",   "com.apple.Music",
                                            "com.apple.camera",      "com.apple.Preferences",
                                            "com.example.notes",     "com.example.maps"};
        NSMutableArray all = NSMutableArray::empty();
        for (unsigned long i = 0; i < count; ++i) {
            all.add(SBIconController::shared().model().expectedIcon(NSString::from(names[i])));
        }
        return all;
    }
    static SBRecentAppLayouts recents() {
        return SBRecentAppLayouts(simulator::recentAppLayouts().get());
    }
    static NSArray layouts() { return recents().allRecents(); }

    void openToolbar() {
        phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
        phone_->grabber(simulator::PullPhase::ended, 60, 100, 0);
        phone_->wait(1);
    }
    // In the middle of the icon, with a finger.
    void tapIcon(Page page, unsigned long index) { tapOn(at(page, index)); }
    long backNow() { return phone_->darwinPostedCount("com.ferolin.vantori.Back-Now"); }
};

}  // namespace vantori::tests
