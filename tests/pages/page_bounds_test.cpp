// A page keeps the short side of the screen for its width, whatever became of its bounds. W = 375, H = 812.
#include "tests/library_phone.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori::tests {
namespace {

class PageBounds : public LibraryPhone {
  protected:
    static constexpr CGRect strip = platform::rect(0, 0, 375, 100);
    template <class Page>
    static Page page() {
        return VNTSBToolBarController::shared().page<Page>();
    }
    static CGRect laidOut(UIViewController page) {
        page.view().setBounds(rect(5, 6, 7, 8));
        page.send<"viewDidLayoutSubviews">();
        return page.view().bounds();
    }
};

TEST_F(PageBounds, AreTakenAgainAtEachLayout) {
    boot();
    EXPECT_EQ(laidOut(page<VNTConnectivityBarViewController>()), strip);
    EXPECT_EQ(laidOut(page<VNTIconsContainerViewController>()), strip);
    EXPECT_EQ(laidOut(page<VNTDailyToolBarViewController>()), strip);
}

TEST_F(PageBounds, TurnedTheShortSideIsTheHeight) {
    boot();
    phone_->open("com.example.notes");
    phone_->rotate(simulator::Orientation::landscapeRight);
    phone_->wait(1);
    EXPECT_EQ(laidOut(page<VNTConnectivityBarViewController>()), strip);
    EXPECT_EQ(laidOut(page<VNTIconsContainerViewController>()), strip);
}

TEST_F(PageBounds, OfTheEverydayPagesPanelsToo) {
    boot();
    auto everyday = page<VNTDailyToolBarViewController>();
    const UIViewController panels[] = {
        everyday.send<"brightnessSliderContainerVC", UIViewController>(),
        everyday.send<"volumeSliderContainerVC", UIViewController>()};
    for (UIViewController panel : panels) {
        ASSERT_TRUE(panel);
        panel.view().setBounds(rect(5, 6, 7, 8));
    }
    everyday.send<"viewDidLayoutSubviews">();
    for (UIViewController panel : panels) EXPECT_EQ(panel.view().bounds(), strip);
}

}  // namespace
}  // namespace vantori::tests
