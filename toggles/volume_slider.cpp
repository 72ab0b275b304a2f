#include "toggles/volume_slider.hpp"

#include "platform/definition.hpp"
#include "platform/springboard.hpp"
#include "platform/system_levels.hpp"
#include "settings/notifications.hpp"
#include "toggles/slider_glyph.hpp"

namespace vantori {

namespace {

constexpr double movingTime = 0.15;  // seconds

struct VolumeState {
    Strong<AVSystemController> systemController;
    Strong<NSDictionary> packageViews;  // stored only
    Strong<NSString> route;
};

VolumeState& stateIn(VNTVolumeSlider self) { return stateOf<VolumeState>(self); }

NSString plainPackage() {
    return "/System/Library/PrivateFrameworks/MediaControls.framework/Volume.ca"_ns;
}

NSString packageFor(NSString route) {
    if (!route.equals("HeadphonesBT"_ns)) return plainPackage();
    return "/System/Library/PrivateFrameworks/MediaControls.framework/VolumeAirPods.ca"_ns;
}

void showGlyph(VNTVolumeSlider self, float volume) {
    setGlyphState(self, glyphStateFor(volume, {"mute"_ns, "min"_ns, "half"_ns, "full"_ns}));
}

NSString routeNow(VNTVolumeSlider self) {
    return stateIn(self).systemController.routeForCategory(self.currentVolumeCategory());
}

NSString currentVolumeCategory(VNTVolumeSlider) {
    const int player = SpringBoard::shared().send<"nowPlayingProcessPID", int>();
    return player != 0 ? "Audio/Video"_ns : "Ringtone"_ns;
}

VNTVolumeSlider initWithFrame(VNTVolumeSlider raw, CGRect frame) {
    auto self = super<VNTVolumeSlider, "initWithFrame:", VNTVolumeSlider>(raw, frame);
    if (!self) return self;
    observe(self, selector<"refreshValue">(), local::systemVolumeDidChange());
    createGlyph(self, plainPackage());
    // One more occasion to read the volume again; deliberate.
    observe(self, selector<"refreshValue">(), local::screenBrightnessDidChange());
    // Asked before there is a controller, so that the first route is none, and the first refresh
    // loads the package of the route. Deliberate.
    self.setCurrentName(routeNow(self));
    Strong<AVSystemController>& controller = stateIn(self).systemController;
    if (!controller) controller = retained(AVSystemController::shared());
    return self;
}

void adjustValue(VNTVolumeSlider self, float volume) {
    showGlyph(self, volume);
    self.setCurrentName(routeNow(self));
    stateIn(self).systemController.setActiveCategoryVolume(volume);
}

void adjustSlider(VNTVolumeSlider self, float volume) {
    auto move = block([self, volume] { super<VNTVolumeSlider, "adjustSlider:">(self, volume); });
    UIView::animate(movingTime, move);
}

void refreshValue(VNTVolumeSlider self) {
    const float volume = stateIn(self).systemController.activeCategoryVolume();
    const NSString route = routeNow(self);
    self.adjustSlider(volume);
    if (route && !route.equals(self.currentName())) {
        self.setCurrentName(route);
        loadGlyph(self, packageFor(route));
    }
    showGlyph(self, volume);
}

}  // namespace

void registerVolumeSlider() {
    define<VNTVolumeSlider, VNTSlider, VolumeState>()
        .method<"initWithFrame:", &initWithFrame>()
        .method<"adjustValue:", &adjustValue>()
        .method<"adjustSlider:", &adjustSlider>()
        .method<"refreshValue", &refreshValue>()
        .method<"getCurrentVolumeCategory", &currentVolumeCategory>()
        .property<"systemController", &VolumeState::systemController>()
        .property<"packageViews", &VolumeState::packageViews>()
        .property<"currentName", &VolumeState::route>();
}

}  // namespace vantori
