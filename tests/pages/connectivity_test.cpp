// The connectivity page: its row, its two flags, what it makes of missing parts. Buttons are 60 x 60
// unless a test says otherwise. With L the short side and n buttons of width b the gap is
// (L - b n) / (n + 1), and button k stands at b k + gap (k + 1).
#include "pages/connectivity_page.hpp"

#include <nlohmann/json.hpp>

#include "tests/library_phone.hpp"
#include "toolbar/settings_reload.hpp"

namespace vantori::tests {
namespace {

constexpr const char* toggleList =
    "/var/mobile/Library/Preferences/com.ferolin.VNTToggleList.plist";
constexpr const char* moduleBundle =
    "/System/Library/ControlCenter/Bundles/ConnectivityModule.bundle";
constexpr const char* buttonClasses[] = {
    "CCUIConnectivityAirplaneViewController", "CCUIConnectivityCellularDataViewController",
    "CCUIConnectivityHotspotViewController", "CCUIConnectivityWifiViewController",
    "CCUIConnectivityBluetoothViewController"};

class ConnectivityPage : public LibraryPhone {
  protected:
    using Page = VNTConnectivityBarViewController;

    static Page page() {
        return VNTSBToolBarController::shared().page<VNTConnectivityBarViewController>();
    }
    static bool hasSetUp() { return page().send<"hasSetupConnectivityButtonSet", bool>(); }
    static bool hasBeenLaidOut() { return page().send<"hasBeenLayouted", bool>(); }
    static NSArray controllers() { return page().send<"connectivityButtonControllers", NSArray>(); }
    static UIView container() { return page().send<"connectivityContainerView", UIView>(); }
    static CGAffineTransform transform() {
        return container().send<"transform", CGAffineTransform>();
    }
    static CGRect frameAt(unsigned long index) {
        return controllers().at<UIViewController>(index).view().frame();
    }
    static CGAffineTransform scaled(double factor) { return {factor, 0, 0, factor, 0, 0}; }
    static void expectRow(std::initializer_list<double> lefts) {
        ASSERT_EQ(controllers().count(), lefts.size());
        unsigned long index = 0;
        for (double left : lefts) {
            CGRect frame = frameAt(index++);
            EXPECT_NEAR(frame.origin.x, left, 1e-9);
            EXPECT_EQ(frame.origin.y, 25);
            EXPECT_EQ(frame.size, (CGSize{60, 60}));
        }
    }
    void bootAndLayOut() {
        boot();
        page().layoutConnectivityButton();
    }
    // The row with a placeholder between its first two buttons.
    static void putPlaceholder() {
        Object null = Object(classObject(objc_getClass("NSNull"))).send<"null", Object>();
        NSMutableArray mixed = NSMutableArray::empty();
        mixed.add(controllers().at(0));
        mixed.add(null);
        mixed.add(controllers().at(1));
        page().send<"setConnectivityButtonControllers:">(NSArray(mixed));
        page().send<"setHasBeenLayouted:">(false);
    }
};

TEST_F(ConnectivityPage, FiveButtonsStandEvenlyOn375Points) {
    phone_->device("iPhone10,1");
    boot();
    EXPECT_TRUE(hasSetUp());
    EXPECT_FALSE(hasBeenLaidOut());
    page().layoutConnectivityButton();
    EXPECT_TRUE(hasBeenLaidOut());
    expectRow({12.5, 85, 157.5, 230, 302.5});  // gap (375 - 300) / 6 = 12.5
    EXPECT_EQ(container().bounds(), (rect(0, 0, 375, 100)));
    EXPECT_EQ(container().frame(), (rect(18.75, 5, 337.5, 90)));  // 0.9 about the middle
    EXPECT_EQ(page().togglesCount(), 5);
}

// Both glyphs of every button, the one shown while it is on too.
TEST_F(ConnectivityPage, TheGlyphsAreWhite) {
    boot();
    auto glyph = [](unsigned long index, bool selected) {
        Object button =
            controllers().at<UIViewController>(index).view().send<"buttonView", Object>();
        return selected ? button.send<"selectedGlyphView", UIView>()
                        : button.send<"glyphImageView", UIView>();
    };
    for (unsigned long i = 0; i < 5; ++i) {
        for (bool selected : {false, true}) {
            ASSERT_TRUE(glyph(i, selected)) << i;
            glyph(i, selected).send<"setTintColor:">(UIColor::black());
        }
    }
    page().layoutConnectivityButton();
    for (unsigned long i = 0; i < 5; ++i) {
        for (bool selected : {false, true}) {
            UIColor tint = glyph(i, selected).send<"tintColor", UIColor>();
            EXPECT_TRUE((tint.send<"isEqual:", bool>(UIColor::white()))) << i << selected;
        }
    }
}

TEST_F(ConnectivityPage, TheOrderIsFixed) {
    bootAndLayOut();
    ASSERT_EQ(controllers().count(), 5u);
    for (unsigned long i = 0; i < 5; ++i) {
        EXPECT_STREQ(class_getName(object_getClass(controllers().at(i).get())), buttonClasses[i]);
    }
    EXPECT_TRUE((page().send<"airplane", Object>() == controllers().at(0)));
    EXPECT_TRUE((page().send<"cellular", Object>() == controllers().at(1)));
    EXPECT_TRUE((page().send<"hotspot", Object>() == controllers().at(2)));
    EXPECT_TRUE((page().send<"wifi", Object>() == controllers().at(3)));
    EXPECT_TRUE((page().send<"bluetooth", Object>() == controllers().at(4)));
    EXPECT_EQ((page().send<"childViewControllers", NSArray>().count()), 5u);
}

struct ScaledDevice {
    const char* device;
    const char* name;
    double scale;
    double firstGap;
};
class ByDevice : public ConnectivityPage, public testing::WithParamInterface<ScaledDevice> {};

TEST_P(ByDevice, TheRowIsScaledAsAWhole) {
    phone_->device(GetParam().device);
    bootAndLayOut();
    EXPECT_STREQ(page().currentModel().utf8(), GetParam().name);
    EXPECT_EQ(transform(), scaled(GetParam().scale));
    EXPECT_NEAR(frameAt(0).origin.x, GetParam().firstGap, 1e-9);
    page().reloadTransform();
    EXPECT_EQ(transform(), identityTransform);
    page().reloadTransformByDevices();
    EXPECT_EQ(transform(), scaled(GetParam().scale));
}

// Gaps: (320 - 300) / 6, (375 - 300) / 6, (414 - 300) / 6.
INSTANTIATE_TEST_SUITE_P(Devices, ByDevice,
                         testing::Values(ScaledDevice{"iPhone6,1", "iPhone 5s", 0.95, 20.0 / 6},
                                         ScaledDevice{"iPhone8,4", "iPhone SE", 0.95, 20.0 / 6},
                                         ScaledDevice{"iPhone8,1", "iPhone 6s", 0.9, 12.5},
                                         ScaledDevice{"iPhone10,3", "iPhone X", 0.9, 12.5},
                                         ScaledDevice{"iPhone11,6", "iPhone XS Max", 0.9, 19},
                                         ScaledDevice{"iPhone12,1", "unknown device", 0.9, 19}));

struct Named {
    const char* machine;
    const char* name;
};
class ModelName : public testing::TestWithParam<Named> {};

TEST_P(ModelName, IsThePagesOwn) {
    EXPECT_EQ(connectivityModelName(GetParam().machine), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(
    All, ModelName,
    testing::Values(Named{"iPhone6,1", "iPhone 5s"}, Named{"iPhone6,2", "iPhone 5s"},
                    Named{"iPhone7,1", "iPhone 6 Plus"}, Named{"iPhone7,2", "iPhone 6"},
                    Named{"iPhone8,1", "iPhone 6s"}, Named{"iPhone8,2", "iPhone 6s Plus"},
                    Named{"iPhone8,4", "iPhone SE"}, Named{"iPhone9,1", "iPhone 7"},
                    Named{"iPhone9,3", "iPhone 7"}, Named{"iPhone9,2", "iPhone 7 Plus"},
                    Named{"iPhone9,4", "iPhone 7 Plus"}, Named{"iPhone10,1", "iPhone 8"},
                    Named{"iPhone10,4", "iPhone 8"}, Named{"iPhone10,2", "iPhone 8 Plus"},
                    Named{"iPhone10,5", "iPhone 8 Plus"}, Named{"iPhone10,3", "iPhone X"},
                    Named{"iPhone10,6", "iPhone X"}, Named{"iPhone11,2", "iPhone XS"},
                    Named{"iPhone11,4", "iPhone XS Max"}, Named{"iPhone11,6", "iPhone XS Max"},
                    Named{"iPhone11,8", "iPhone XR"}, Named{"i386", "Simulator 32"},
                    Named{"x86_64", "Simulator 64"}, Named{"iPhone5,1", "unknown device"},
                    Named{"iPhone6,10", "unknown device"}, Named{"", "unknown device"}));

TEST_F(ConnectivityPage, TurnedTheRowDoesNotStretch) {
    boot();
    phone_->rotate(simulator::Orientation::landscapeRight);
    ASSERT_EQ(UIScreen::mainScreen().bounds().size.width, 812);
    page().refreshAllToggles();
    expectRow({12.5, 85, 157.5, 230, 302.5});
    phone_->wait(0.1);
    EXPECT_EQ(page().view().bounds(), (rect(0, 0, 375, 100)));
}

TEST_F(ConnectivityPage, ASecondLayoutDoesNothingUntilARefresh) {
    bootAndLayOut();
    UIView first = controllers().at<UIViewController>(0).view();
    first.setFrame(rect(1, 2, 3, 4));
    page().reloadTransform();
    page().layoutConnectivityButton();
    EXPECT_EQ(first.frame(), (rect(1, 2, 3, 4)));
    EXPECT_EQ(transform(), identityTransform);
    page().refreshAllToggles();
    EXPECT_TRUE(hasBeenLaidOut());
    EXPECT_EQ(transform(), scaled(0.9));
    expectRow({12.5, 85, 157.5, 230, 302.5});
    EXPECT_EQ(container().subviews().count(), 5u);
    EXPECT_FALSE(controllers().at<UIViewController>(0).view() == first);
}

TEST_F(ConnectivityPage, ASecondSetUpMakesNothing) {
    boot();
    phone_->clear();
    page().setUpConnectivityButtonSet();
    EXPECT_EQ(phone_->calledCount("UIViewController", "addChildViewController:"), 0);
}

TEST_F(ConnectivityPage, WithoutItsBundleThePageStaysEmpty) {
    phone_->missingBundle(moduleBundle);
    bootAndLayOut();
    EXPECT_FALSE(hasSetUp());
    EXPECT_FALSE(hasBeenLaidOut());
    EXPECT_FALSE(controllers());
    EXPECT_EQ(page().togglesCount(), 0);
    EXPECT_EQ(container().subviews().count(), 0u);
    page().refreshAllToggles();
    EXPECT_FALSE(hasSetUp());
    EXPECT_FALSE(phone_->crashed());
}

class ConnectivityWithoutClass : public ConnectivityPage,
                                 public testing::WithParamInterface<unsigned long> {};

// The row ends where the missing one would stand; the flag follows the airplane controller alone.
TEST_P(ConnectivityWithoutClass, TheRowEndsThere) {
    phone_->missingClass(buttonClasses[GetParam()]);
    bootAndLayOut();
    EXPECT_EQ(controllers().count(), GetParam());
    EXPECT_EQ(page().togglesCount(), static_cast<long>(GetParam()));
    EXPECT_EQ(container().subviews().count(), GetParam());
    EXPECT_EQ(hasSetUp(), GetParam() > 0);
    EXPECT_EQ(hasBeenLaidOut(), GetParam() > 0);
    const double count = static_cast<double>(GetParam());
    if (GetParam() > 0) {
        EXPECT_NEAR(frameAt(0).origin.x, (375 - 60 * count) / (count + 1), 1e-9);
    }
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(EachClass, ConnectivityWithoutClass,
                         testing::Values(0UL, 1UL, 2UL, 3UL, 4UL));

class WithoutPart : public ConnectivityPage, public testing::WithParamInterface<const char*> {};

TEST_P(WithoutPart, ThePageIsQuietAndTheRestWorks) {
    phone_->missingClass(GetParam());
    bootAndLayOut();
    page().refreshAllToggles();
    EXPECT_FALSE(hasBeenLaidOut());  // there is no button with a size
    phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
    phone_->grabber(simulator::PullPhase::ended, 60, 100, 0);
    phone_->wait(1);
    EXPECT_TRUE(VNTSBToolBarController::shared().isEnabled());
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(EachClass, WithoutPart,
                         testing::Values("CCUIRoundButton", "CCUILabeledRoundButton",
                                         "CCUILabeledRoundButtonViewController",
                                         "CCUIConnectivityButtonViewController"));

class WithoutSize : public ConnectivityPage, public testing::WithParamInterface<CGSize> {};

// A button that the module has not produced yet: placed anyway, and again at the next call.
TEST_P(WithoutSize, TheNextCallLaysOutAgain) {
    phone_->connectivityButton(GetParam().width, GetParam().height);
    bootAndLayOut();
    EXPECT_TRUE(hasSetUp());
    EXPECT_FALSE(hasBeenLaidOut());
    // gap (375 - 5 w) / 6
    EXPECT_NEAR(frameAt(0).origin.x, (375 - 5 * GetParam().width) / 6, 1e-9);
    EXPECT_EQ(frameAt(4).size, GetParam());
    EXPECT_EQ(transform(), scaled(0.9));
    phone_->connectivityButton(60, 60);
    page().layoutConnectivityButton();
    EXPECT_TRUE(hasBeenLaidOut());
    expectRow({12.5, 85, 157.5, 230, 302.5});
}

INSTANTIATE_TEST_SUITE_P(Sizes, WithoutSize,
                         testing::Values(CGSize{0, 0}, CGSize{0, 60}, CGSize{60, 0}));

TEST_F(ConnectivityPage, AnAirplaneControllerThatComesLateIsWaitedFor) {
    phone_->connectivityFails(1000);
    bootAndLayOut();
    EXPECT_FALSE(hasSetUp());
    EXPECT_FALSE(hasBeenLaidOut());
    EXPECT_EQ(controllers().count(), 0u);
    EXPECT_TRUE((page().send<"wifi", Object>()));  // made all the same, but not in the row
    phone_->connectivityFails(0);
    page().setUpConnectivityButtonSet();
    page().layoutConnectivityButton();
    EXPECT_TRUE(hasSetUp());
    expectRow({12.5, 85, 157.5, 230, 302.5});
}

TEST_F(ConnectivityPage, APlaceholderIsSkippedWhileTheListExists) {
    phone_->file(toggleList, "whatever it holds");
    bootAndLayOut();
    putPlaceholder();
    EXPECT_EQ(page().togglesCount(), 2);
    page().layoutConnectivityButton();
    // gap (375 - 120) / 3 = 85: at 85 and 60 + 170
    EXPECT_EQ(frameAt(0).origin.x, 85);
    EXPECT_EQ(frameAt(2).origin.x, 230);
}

TEST_F(ConnectivityPage, APlaceholderKeepsItsPlaceWithoutTheList) {
    bootAndLayOut();
    putPlaceholder();
    EXPECT_EQ(page().togglesCount(), 2);
    page().layoutConnectivityButton();
    // It is not counted, yet nothing passes it over: the third stands at 120 + 85 x 3.
    EXPECT_EQ(frameAt(0).origin.x, 85);
    EXPECT_EQ(frameAt(2).origin.x, 375);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(ConnectivityPage, TheListAloneChangesNothing) {
    phone_->plist(toggleList, nlohmann::json::array({"wifi"}));
    bootAndLayOut();
    expectRow({12.5, 85, 157.5, 230, 302.5});
}

TEST_F(ConnectivityPage, BothGlyphsAreWhite) {
    bootAndLayOut();
    UIView labeled = controllers().at<UIViewController>(3).view();
    Object button = labeled.send<"buttonView", Object>();
    UIView glyphs[] = {button.send<"glyphImageView", UIView>(),
                       button.send<"selectedGlyphView", UIView>()};
    for (UIView glyph : glyphs) {
        ASSERT_TRUE(glyph);
        EXPECT_TRUE((glyph.send<"tintColor", Object>().send<"isEqual:", bool>(UIColor::white())));
    }
}

TEST_F(ConnectivityPage, MayBeShownWhileLocked) {
    boot();
    EXPECT_TRUE((page().send<"_canShowWhileLocked", bool>()));
}

TEST_F(ConnectivityPage, ItsUnusedSlotsKeepWhatTheyAreGiven) {
    boot();
    auto controller = create<UIViewController>();
    page().send<"setAirDrop:">(UIViewController(controller));
    EXPECT_TRUE((page().send<"airDrop", UIViewController>() == controller));
    page().send<"setConnectivityReadButtonControllers:">(controllers());
    EXPECT_TRUE((page().send<"connectivityReadButtonControllers", NSArray>() == controllers()));
    EXPECT_FALSE((page().send<"connectivityButtonControllersDic", Object>()));
}

TEST_F(ConnectivityPage, TheToggleSettingsRebuildBothToolbarsPages) {
    bootAndLayOut();
    auto other = VNTToolBarController::shared().page<VNTConnectivityBarViewController>();
    EXPECT_FALSE((other.send<"hasBeenLayouted", bool>()));
    Strong<Object> before = retained(controllers().at(0));
    reloadTogglesSettings(nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_FALSE(controllers().at(0) == before);
    EXPECT_TRUE((other.send<"hasBeenLayouted", bool>()));
}

TEST_F(ConnectivityPage, ATapSwitchesARadioOnBothToolbars) {
    bootAndLayOut();
    phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
    phone_->grabber(simulator::PullPhase::ended, 60, 100, 0);
    phone_->wait(1);
    tapOn(page().send<"airplane", UIViewController>().view());
    auto isOn = [](VNTToolBarController toolbar, unsigned long index) {
        auto all = toolbar.page<VNTConnectivityBarViewController>()
                       .send<"connectivityButtonControllers", NSArray>();
        return all.at<UIViewController>(index)
            .view()
            .send<"buttonView", Object>()
            .send<"isSelected", bool>();
    };
    for (VNTToolBarController toolbar :
         {VNTToolBarController::shared(), VNTToolBarController(VNTSBToolBarController::shared())}) {
        EXPECT_TRUE(isOn(toolbar, 0));
        EXPECT_FALSE(isOn(toolbar, 1));
        EXPECT_FALSE(isOn(toolbar, 3));
        EXPECT_FALSE(isOn(toolbar, 4));
    }
}

// As real systems are: the button stands in a container of the controller's view, which alone answers.
class RealConnectivity : public ConnectivityPage,
                         public testing::WithParamInterface<const char*> {};

TEST_P(RealConnectivity, ButtonsAreFoundInTheirContainers) {
    phone_->system(GetParam());
    phone_->real();
    boot();
    page().setUpConnectivityButtonSet();
    page().layoutConnectivityButton();
    ASSERT_EQ(controllers().count(), 5u);
    EXPECT_FALSE(
        (controllers().at<UIViewController>(0).view().respondsTo(selector<"buttonView">())));
    EXPECT_EQ(frameAt(0), (rect(12.5, 25, 60, 60)));  // as on any other phone
    EXPECT_EQ(frameAt(4), (rect(302.5, 25, 60, 60)));
    EXPECT_TRUE(hasBeenLaidOut());
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(Systems, RealConnectivity,
                         testing::Values("11.0", "12.4", "13.3", "13.5", "14.2", "14.8"));

}  // namespace
}  // namespace vantori::tests
