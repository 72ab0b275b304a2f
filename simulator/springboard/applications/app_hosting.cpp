#include "simulator/springboard/applications/app_hosting.hpp"

#include "platform/dispatch.hpp"
#include "simulator/runtime/stand_in.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/springboard/display/artwork.hpp"
#include "simulator/uikit/parts.hpp"
#include "simulator/uikit/raise.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(SBDeviceApplicationSceneEntity, Object);
VANTORI_CLASS(SBAppViewController, UIViewController);

struct EntityState {
    Strong<SBApplication> application;
};
struct AppViewState {
    Copied<NSString> identifier;
    Strong<SBDeviceApplicationSceneEntity> entity;
    Strong<UIView> scene;
    long requested;
    long current;
    bool ignoresOcclusions;
    bool invalid;
};

constexpr long liveMode = 2;
constexpr double sceneTime = 0.2;  // seconds until a process has made its scene

AppViewState& stateIn(SBAppViewController self) { return stateOf<AppViewState>(self); }

// None for an application that is not there.
SBDeviceApplicationSceneEntity initEntity(SBDeviceApplicationSceneEntity raw,
                                          SBApplication application) {
    auto self = super<SBDeviceApplicationSceneEntity, "init", SBDeviceApplicationSceneEntity>(raw);
    if (!application) {
        self.send<"release">();
        return {};
    }
    stateOf<EntityState>(self).application = retained(application);
    return self;
}

SBAppViewController initAppView(SBAppViewController raw, NSString identifier,
                                SBDeviceApplicationSceneEntity entity) {
    if (!entity.isKindOfClass(classOf<SBDeviceApplicationSceneEntity>())) {
        raise("NSInvalidArgumentException"_ns,
              "SBAppViewController without an application's scene");
    }
    auto self = super<SBAppViewController, "init", SBAppViewController>(raw);
    stateIn(self).identifier = Copied<NSString>(identifier);
    stateIn(self).entity = retained(entity);
    return self;
}

void takeSceneAway(SBAppViewController self) {
    AppViewState& state = stateIn(self);
    state.scene.removeFromSuperview();
    state.scene = {};
    state.current = 0;
}

// Scenes are made on the main queue, a while after they are asked for; whoever asked may have changed
// their mind.
void makeScene(SBAppViewController self) {
    AppViewState& state = stateIn(self);
    if (state.invalid || state.requested != liveMode || state.scene) return;
    UIView whole = self.view();
    state.scene = create<UIView, "initWithFrame:">(whole.bounds());
    state.scene.setAutoresizingMask(flexibleSize);
    state.scene.setClipsToBounds(true);
    SBApplication application = stateOf<EntityState>(state.entity).application;
    dressAsApplication(state.scene, text(application.bundleIdentifier()));
    addPart(whole, state.scene);
    state.current = liveMode;
}

void setRequestedMode(SBAppViewController self, long mode) {
    AppViewState& state = stateIn(self);
    state.requested = mode;
    if (mode != liveMode) return takeSceneAway(self);
    afterSeconds(sceneTime, [kept = retained(self)] { makeScene(kept); });
}

bool isHostingAnApp(SBAppViewController self) { return bool(stateIn(self).scene); }

void invalidate(SBAppViewController self) {
    stateIn(self).invalid = true;
    takeSceneAway(self);
}

}  // namespace

void registerAppHosting() {
    realStandIn<SBDeviceApplicationSceneEntity, Object, EntityState>()
        .method<"initWithApplicationForMainDisplay:", &initEntity>()
        .readonly<"application", &EntityState::application>();
    realStandIn<SBAppViewController, UIViewController, AppViewState>()
        .method<"initWithIdentifier:andApplicationSceneEntity:", &initAppView>()
        .readonly<"requestedMode", &AppViewState::requested>()
        .readonly<"currentMode", &AppViewState::current>()
        .method<"setRequestedMode:", &setRequestedMode>()
        .property<"ignoresOcclusions", &AppViewState::ignoresOcclusions>()
        .method<"isHostingAnApp", &isHostingAnApp>()
        .method<"invalidate", &invalidate>();
}

}  // namespace simulator
