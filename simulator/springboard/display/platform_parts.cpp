#include "simulator/springboard/display/platform_parts.hpp"

#include "platform/springboard.hpp"
#include "simulator/hardware/configuration.hpp"
#include "simulator/uikit/parts.hpp"

namespace simulator {

namespace {

constexpr long physicalHomeButton = 0;

BSPlatform sharedInstance(Class cls) {
    static id shared = Object(classObject(cls)).send<"new", Object>().get();
    return BSPlatform(shared);
}

long homeButtonType(BSPlatform) {
    return configuration().homeButton ? physicalHomeButton : BSPlatform::noHomeButton;
}

struct WallpaperEffectState {
    Strong<UIVisualEffectView> blur;
    Strong<UIView> tint;
    long style;
    long variant;
};

void fill(UIView view, UIView part) {
    part.setFrame(view.bounds());
    part.send<"setAutoresizingMask:">(flexibleSize);
}

SBWallpaperEffectView initWithVariant(SBWallpaperEffectView raw, long variant) {
    auto self = super<SBWallpaperEffectView, "initWithFrame:", SBWallpaperEffectView>(
        raw, rect(0, 0, 0, 0));
    if (!self) return self;
    WallpaperEffectState& state = stateOf<WallpaperEffectState>(self);
    state.variant = variant;
    state.blur =
        create<UIVisualEffectView, "initWithEffect:">(UIBlurEffect::withStyle(UIBlurEffect::light));
    fill(self, state.blur);
    addPart(self, state.blur);
    return self;
}

long style(SBWallpaperEffectView self) { return stateOf<WallpaperEffectState>(self).style; }

// Styles from 1 on blur; 0 shows nothing.
void setStyle(SBWallpaperEffectView self, long style) {
    WallpaperEffectState& state = stateOf<WallpaperEffectState>(self);
    state.style = style;
    if (state.blur) state.blur.setHidden(style == 0);
}

// Over the blur, below what others add.
void setColorTintView(SBWallpaperEffectView self, UIView tint) {
    WallpaperEffectState& state = stateOf<WallpaperEffectState>(self);
    if (state.tint) state.tint.removeFromSuperview();
    state.tint = retained(tint);
    if (!tint) return;
    fill(self, tint);
    self.send<"insertSubview:atIndex:">(tint, 1L);
}

}  // namespace

void registerPlatformParts() {
    standIn<BSPlatform, Object>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"homeButtonType", &homeButtonType>();
    standIn<SBWallpaperEffectView, UIView, WallpaperEffectState>()
        .method<"initWithWallpaperVariant:", &initWithVariant>()
        .method<"wallpaperStyle", &style>()
        .method<"setStyle:", &setStyle>()
        .method<"setColorTintView:", &setColorTintView>();
}

}  // namespace simulator
