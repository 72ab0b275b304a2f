// What a toggle shows: a plain view, and in it a round button with two colour layers that cross-fade
// under a glyph. The glyph is a system package with named states or a pair of images.
#pragma once

#include "platform/uikit_controls.hpp"

namespace vantori {

using namespace platform;

struct VNTDailyToggleButton : UIButton {
    static constexpr FixedString name{"VNTDailyToggleButton"};
    using UIButton::UIButton;
    UIView packageView() const { return send<"packageView", UIView>(); }
    UIImageView onImageView() const { return send<"onImageView", UIImageView>(); }
    UIImageView offImageView() const { return send<"offImageView", UIImageView>(); }
    UIView onView() const { return send<"onView", UIView>(); }
    UIView offView() const { return send<"offView", UIView>(); }
    void setOnColor(UIColor color) const { send<"setOnColor:">(color); }
    void setOffColor(UIColor color) const { send<"setOffColor:">(color); }
    void updateState(NSString stateName) const { send<"updateState:">(stateName); }
};

struct VNTDailyToggleView : UIView {
    static constexpr FixedString name{"VNTDailyToggleView"};
    using UIView::UIView;
    void setToggleButton(VNTDailyToggleButton button) const { send<"setToggleButton:">(button); }
};

void registerToggleButton();

}  // namespace vantori
