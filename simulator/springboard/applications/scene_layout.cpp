#include "simulator/springboard/applications/scene_layout.hpp"

#include <algorithm>
#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/parts.hpp"

#include "simulator/hardware/display.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/springboard/applications/settings_application.hpp"
#include "simulator/springboard/display/artwork.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/springboard/home/home_screen.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(SBSceneLayoutViewController, UIViewController);
VANTORI_CLASS(SBApplicationSceneView, UIView);

struct LayoutState {
    Strong<UIView> container;
    Strong<SBApplicationSceneView> scene;
};
struct SceneState {
    Copied<NSString> identifier;
};

constexpr double openingDuration = 0.4;
constexpr double closingDuration = 0.35;
constexpr unsigned long flexibleSize = 2 | 16;  // width and height

LayoutState& layoutState() { return stateOf<LayoutState>(sceneLayoutController()); }

SBMainDisplaySceneLayoutViewController mainDisplaySceneLayoutViewController(Class) {
    return sceneLayoutController();
}

UIView sceneContainerView(SBMainDisplaySceneLayoutViewController self) {
    self.view();
    return stateOf<LayoutState>(self).container;
}

void viewDidLoad(SBMainDisplaySceneLayoutViewController self) {
    super<SBMainDisplaySceneLayoutViewController, "viewDidLoad">(self);
    UIView view = self.view();
    auto container = create<UIView, "initWithFrame:">(view.bounds());
    container.send<"setAutoresizingMask:">(flexibleSize);
    addPart(view, container);
    stateOf<LayoutState>(self).container = std::move(container);
}

void animate(double duration, BlockRef<void()> changes, BlockRef<void(bool)> completion) {
    UIView::animateWithSpring(duration, 0, 1.0, 0, 0, changes, completion);
}

// Small and where the icon stands.
void placeAtIcon(SBApplicationSceneView scene, const std::string& identifier) {
    CGRect icon = iconFrame(identifier);
    CGRect full = layoutState().container.bounds();
    double scale = icon.size.width / full.size.width;
    scene.setCenter({icon.origin.x + icon.size.width / 2, icon.origin.y + icon.size.height / 2});
    scene.setTransform({scale, 0, 0, scale, 0, 0});
    scene.setAlpha(0);
}

void placeInFull(UIView scene) {
    CGRect full = layoutState().container.bounds();
    scene.setTransform(identityTransform);
    scene.setBounds(full);
    scene.setCenter({full.size.width / 2, full.size.height / 2});
    scene.setAlpha(1);
}

// Applications are pictures; the one of the settings has what packages add to it.
void dress(SBApplicationSceneView scene, const std::string& identifier) {
    dressAsApplication(scene, identifier);
    if (identifier == settingsApplication) showSettings(scene);
}

Strong<SBApplicationSceneView> makeScene(const std::string& identifier) {
    auto scene = create<SBApplicationSceneView, "initWithFrame:">(layoutState().container.bounds());
    if (!scene) return scene;
    stateOf<SceneState>(scene).identifier = Copied<NSString>(NSString::from(identifier.c_str()));
    scene.send<"setAutoresizingMask:">(flexibleSize);
    scene.setClipsToBounds(true);
    dress(scene, identifier);
    return scene;
}

// Takes a scene off the container in the end, and the window away when nothing is left in front.
void retire(Strong<SBApplicationSceneView> scene) {
    scene.removeFromSuperview();
    if (frontMostIdentifier().empty() && !layoutState().scene) {
        windows().scenes.setHidden(true);
    }
}

}  // namespace

SBMainDisplaySceneLayoutViewController sceneLayoutController() {
    static auto& shared = *new Strong<SBMainDisplaySceneLayoutViewController>;
    if (!shared) shared = create<SBMainDisplaySceneLayoutViewController>();
    return shared;
}

void showScene(const std::string& identifier) {
    if (!sceneLayoutController()) return;
    UIView container = sceneContainerView(sceneLayoutController());
    LayoutState& state = layoutState();
    Strong<SBApplicationSceneView> old = std::move(state.scene);
    state.scene = makeScene(identifier);
    if (!state.scene) return;
    windows().scenes.setHidden(false);
    addPart(container, state.scene);
    placeAtIcon(state.scene, identifier);
    Strong<SBApplicationSceneView> scene = state.scene;
    animate(openingDuration, block([scene] { placeInFull(scene); }),
            block<void(bool)>([old](bool) { old.removeFromSuperview(); }));
}

void hideScene() {
    if (!sceneLayoutController()) return;
    LayoutState& state = layoutState();
    if (!state.scene) return;
    Strong<SBApplicationSceneView> scene = std::move(state.scene);
    std::string identifier = stateOf<SceneState>(scene).identifier.utf8();
    animate(closingDuration, block([scene, identifier] { placeAtIcon(scene, identifier); }),
            block<void(bool)>([scene](bool) { retire(scene); }));
}

void trackScene(double distance) {
    if (!sceneLayoutController()) return;
    LayoutState& state = layoutState();
    if (!state.scene) return;
    CGRect full = state.container.bounds();
    double pulled = std::clamp(distance / full.size.height, 0.0, 1.0);
    double scale = 1 - pulled * 0.6;
    state.scene.setTransform({scale, 0, 0, scale, 0, -distance / 2});
}

void restoreScene() {
    if (!sceneLayoutController()) return;
    LayoutState& state = layoutState();
    if (!state.scene) return;
    Strong<SBApplicationSceneView> scene = state.scene;
    animate(closingDuration, block([scene] { placeInFull(scene); }), {});
}

void refreshScene() {
    if (!sceneLayoutController() || !layoutState().scene) return;
    SBApplicationSceneView scene = layoutState().scene;
    if (isAnimating(layerOf(scene))) return;  // it is dressed for where it goes
    placeInFull(scene);
    dress(scene, stateOf<SceneState>(scene).identifier.utf8());
}

void registerSceneLayout() {
    standIn<SBSceneLayoutViewController, UIViewController>()
        .classMethod<"mainDisplaySceneLayoutViewController",
                     &mainDisplaySceneLayoutViewController>();
    standIn<SBMainDisplaySceneLayoutViewController, SBSceneLayoutViewController, LayoutState>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"sceneContainerView", &sceneContainerView>();
    standIn<SBApplicationSceneView, UIView, SceneState>();
}

}  // namespace simulator
