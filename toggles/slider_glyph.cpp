#include "toggles/slider_glyph.hpp"

#include "platform/package_view.hpp"

namespace vantori {

namespace {

constexpr double side = 30;
constexpr double packageScale = 0.85;

CCUICAPackageView packageOf(VNTSlider slider) {
    return as<CCUICAPackageView>(slider.packageView());
}

}  // namespace

void createGlyph(VNTSlider slider, NSString packagePath) {
    auto package = create<CCUICAPackageView, "initWithFrame:">(slider.bounds());
    slider.setPackageView(package);
    loadGlyph(slider, packagePath);
    package.setFrame(rect(0, 0, side, side));

    auto container = create<UIView, "initWithFrame:">(rect(15, 10, side, side));
    container.setBackgroundColor(UIColor::systemGray());
    container.setAlpha(0.6);
    slider.setGlyphContainerView(container);
    slider.addSubview(container);

    package.setTransform(scaling(packageScale));
    container.layer().setMask(package.layer());
    slider.bringSubviewToFront(container);
}

void loadGlyph(VNTSlider slider, NSString packagePath) {
    packageOf(slider).setPackage(CAPackage::fromBundle(packagePath));
}

void setGlyphState(VNTSlider slider, NSString state) { packageOf(slider).setStateName(state); }

NSString glyphStateFor(float value, const GlyphStates& states) {
    if (value == 0) return states.zero;
    if (value < 0.3) return states.low;
    return value <= 0.6 ? states.middle : states.high;
}

}  // namespace vantori
