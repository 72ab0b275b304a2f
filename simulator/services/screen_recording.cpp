#include "simulator/services/screen_recording.hpp"

#include "simulator/foundation/bundles.hpp"
#include "simulator/runtime/stand_in.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

namespace {

#define VANTORI_CLASS(type, base)                 \
    struct type : base {                          \
        static constexpr FixedString name{#type}; \
        using base::base;                         \
    }

VANTORI_CLASS(CCUIButtonModuleViewController, UIViewController);
VANTORI_CLASS(CCUIMenuModuleViewController, CCUIButtonModuleViewController);
VANTORI_CLASS(RPControlCenterModuleViewController, CCUIMenuModuleViewController);

#undef VANTORI_CLASS

struct ModuleState {
    Copied<NSString> glyphState;
};
struct RecordingState {
    bool unavailable;
};

void setGlyphState(CCUIButtonModuleViewController self, NSString glyphState) {
    stateOf<ModuleState>(self).glyphState = Copied<NSString>(glyphState);
}

NSString glyphState(CCUIButtonModuleViewController self) {
    return stateOf<ModuleState>(self).glyphState;
}

// Points of an expanded menu.
double preferredExpandedContentHeight(CCUIMenuModuleViewController) { return 250; }
double preferredExpandedContentWidth(CCUIMenuModuleViewController) { return 300; }

bool available(RPControlCenterModuleViewController self) {
    return !stateOf<RecordingState>(self).unavailable;
}

void setAvailable(RPControlCenterModuleViewController self, bool yes) {
    stateOf<RecordingState>(self).unavailable = !yes;
}

void registerScreenRecording() {
    standIn<RPControlCenterModuleViewController, CCUIMenuModuleViewController, RecordingState>()
        .method<"available", &available>()
        .method<"setAvailable:", &setAvailable>();
}

}  // namespace

void registerModuleControllers() {
    standIn<CCUIButtonModuleViewController, UIViewController, ModuleState>()
        .method<"setGlyphState:", &setGlyphState>()
        .method<"glyphState", &glyphState>();
    standIn<CCUIMenuModuleViewController, CCUIButtonModuleViewController>()
        .method<"preferredExpandedContentHeight", &preferredExpandedContentHeight>()
        .method<"preferredExpandedContentWidth", &preferredExpandedContentWidth>();
}

void announceScreenRecording() {
    onBundleLoad("/System/Library/ControlCenter/Bundles/ReplayKitModule.bundle",
                 &registerScreenRecording);
}

}  // namespace simulator
