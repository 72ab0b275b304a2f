#include "toggles/brightness_slider.hpp"

#include "platform/definition.hpp"
#include "platform/system_levels.hpp"
#include "settings/notifications.hpp"
#include "toggles/brightness_forms.hpp"
#include "toggles/slider_glyph.hpp"

namespace vantori {

namespace {

struct BrightnessState {
    Strong<CCUIDisplayModuleViewController> module;
    Strong<Object> controller;
};

BrightnessState& stateIn(VNTBrightnessSlider self) { return stateOf<BrightnessState>(self); }

void showGlyph(VNTBrightnessSlider self, float brightness) {
    setGlyphState(self, glyphStateFor(brightness, {"min"_ns, "min"_ns, "mid"_ns, "full"_ns}));
}

// The module tells the slider of changes, and is asked for the brightness.
void ensureModule(VNTBrightnessSlider self) {
    Strong<CCUIDisplayModuleViewController>& module = stateIn(self).module;
    if (module) return;
    module = create<CCUIDisplayModuleViewController>();
    module.setDelegate(self);
}

VNTBrightnessSlider initWithFrame(VNTBrightnessSlider raw, CGRect frame) {
    auto self = super<VNTBrightnessSlider, "initWithFrame:", VNTBrightnessSlider>(raw, frame);
    if (!self) return self;
    if (auto* form = brightnessForm()) stateIn(self).controller = retained(form->controller());
    createGlyph(self,
                "/System/Library/ControlCenter/Bundles/DisplayModule.bundle/Brightness.ca"_ns);
    observe(self, selector<"refreshValue">(), local::screenBrightnessDidChange());
    ensureModule(self);
    return self;
}

void show(VNTBrightnessSlider self, float brightness) {
    super<VNTBrightnessSlider, "adjustSlider:">(self, brightness);
    showGlyph(self, brightness);
}

void adjustValue(VNTBrightnessSlider self, float brightness) {
    showGlyph(self, brightness);
    if (auto* form = brightnessForm()) form->setLevel(stateIn(self).controller, brightness);
    ensureModule(self);
}

void refreshValue(VNTBrightnessSlider self) {
    ensureModule(self);
    show(self, stateIn(self).module.currentBrightness());
}

void brightnessDidChange(VNTBrightnessSlider self, Object, float brightness) {
    show(self, brightness);
}

void endSlide() {
    if (auto* form = brightnessForm()) form->slideEnded();
}

void touchesEnded(VNTBrightnessSlider self, Object touches, Object event) {
    super<VNTBrightnessSlider, "touchesEnded:withEvent:">(self, touches, event);
    endSlide();
}

void touchesCancelled(VNTBrightnessSlider self, Object touches, Object event) {
    super<VNTBrightnessSlider, "touchesCancelled:withEvent:">(self, touches, event);
    endSlide();
}

}  // namespace

void registerBrightnessSlider() {
    define<VNTBrightnessSlider, VNTSlider, BrightnessState>()
        .method<"initWithFrame:", &initWithFrame>()
        .method<"adjustValue:", &adjustValue>()
        .method<"refreshValue", &refreshValue>()
        .method<"displayModuleViewController:brightnessDidChange:", &brightnessDidChange>()
        .method<"touchesEnded:withEvent:", &touchesEnded>()
        .method<"touchesCancelled:withEvent:", &touchesCancelled>()
        .property<"ccController", &BrightnessState::module>()
        .property<"brightnessController", &BrightnessState::controller>();
}

}  // namespace vantori
