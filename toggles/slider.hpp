// The fill slider: a rounded bar whose lighter fill is as large as the bar and moved sideways, so
// that its place says the value: the fill's left edge runs from minus the width (0) to 0 (1).
// Lengths are points, values 32-bit floats. Dragging is relative: the fill moves by as much as the
// finger does. Subclasses apply a value (adjustValue:) and read one (refreshValue).
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTSlider : UIView {
    static constexpr FixedString name{"VNTSlider"};
    using UIView::UIView;

    UIView frontView() const { return send<"frontView", UIView>(); }
    UIView containerView() const { return send<"containerView", UIView>(); }
    UIView glyphContainerView() const { return send<"glyphContainerView", UIView>(); }
    void setGlyphContainerView(UIView view) const { send<"setGlyphContainerView:">(view); }
    UIView packageView() const { return send<"packageView", UIView>(); }
    void setPackageView(UIView view) const { send<"setPackageView:">(view); }

    // Gives a value to the system; the base does nothing.
    void adjustValue(float value) const { send<"adjustValue:">(value); }
    // Shows a value, without giving it to the system. Beyond 0 and 1 the fill leaves the bar.
    void adjustSlider(float value) const { send<"adjustSlider:">(value); }
    // Reads the system's value and shows it; the base does nothing.
    void refreshValue() const { send<"refreshValue">(); }
    // Tints the layer and every layer below it. Nothing happens without a layer.
    void updateGlyphColor(UIColor color, CALayer layer) const {
        send<"updateGlyphColor:forLayer:">(color, layer);
    }
};

void registerSlider();

}  // namespace vantori
