// The connectivity module by itself: its classes come with its bundle, its glyphs have no colour of
// their own.
#include <gtest/gtest.h>

#include "platform/control_center.hpp"
#include "platform/uikit_controls.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/uikit/classes.hpp"

namespace {

using namespace simulator;

class ConnectivityModule : public testing::Test {
  protected:
    void boot() {
        phone_->withoutExtension();
        phone_->boot();
    }
    static Strong<UIViewController> wifi() {
        Object cls(classObject(objc_getClass("CCUIConnectivityWifiViewController")));
        return adopted(cls.send<"new", UIViewController>());
    }
    static UIView glyphOf(UIViewController controller) {
        return controller.view().send<"buttonView", UIView>().send<"glyphImageView", UIView>();
    }
    static bool isWhite(UIView glyph) {
        return glyph.send<"tintColor", UIColor>().send<"isEqual:", bool>(UIColor::white());
    }
    AutoreleasePool pool_;
    std::unique_ptr<Phone> phone_ = makePhone({});
};

TEST_F(ConnectivityModule, ItsClassesComeWithItsBundle) {
    boot();
    EXPECT_NE(objc_getClass("CCUIConnectivityWifiViewController"), nullptr);
    EXPECT_TRUE(wifi());
}

TEST_F(ConnectivityModule, WithoutItsBundleItHasNoClasses) {
    phone_->missingBundle("/System/Library/ControlCenter/Bundles/ConnectivityModule.bundle");
    boot();
    EXPECT_EQ(objc_getClass("CCUIConnectivityWifiViewController"), nullptr);
    EXPECT_EQ(objc_getClass("CCUIConnectivityModuleViewController"), nullptr);
    EXPECT_NE(objc_getClass("CCUIRoundButton"), nullptr);  // of Control Center itself
}

TEST_F(ConnectivityModule, ItsGlyphsTakeTheTintAroundThem) {
    boot();
    auto button = wifi();
    UIView glyph = glyphOf(button);
    ASSERT_TRUE(glyph);
    EXPECT_FALSE(isWhite(glyph));
    auto around = create<UIView, "initWithFrame:">(rect(0, 0, 100, 100));
    around.send<"setTintColor:">(UIColor::white());
    around.addSubview(button.view());
    EXPECT_TRUE(isWhite(glyph));
    Object cls(classObject(objc_getClass("CCUIConnectivityModuleViewController")));
    auto module = adopted(cls.send<"new", UIViewController>());
    EXPECT_TRUE(isWhite(module.view()));
}

// What a long press asks of the grid is added by the extension.
TEST_F(ConnectivityModule, TheGridHasNothingOfTheExtensions) {
    boot();
    Class grid = objc_getClass("CCUIModuleCollectionViewController");
    EXPECT_TRUE(class_getInstanceMethod(grid, sel_registerName("expandModuleWithIdentifier:")));
    EXPECT_FALSE(class_getInstanceMethod(grid, sel_registerName("vntExpandModuleWithIdentifier:")));
}

}  // namespace
