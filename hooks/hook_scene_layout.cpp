#include "hooks/hook_scene_layout.hpp"

#include "pages/lifted_scene.hpp"
#include "platform/definition.hpp"
#include "platform/log.hpp"
#include "settings/variables.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

namespace {

bool connectivityReady = false;

Object vantoriController(Object self);

// The address of the getter is the key.
const void* associationKey() { return reinterpret_cast<const void*>(&vantoriController); }

Object vantoriController(Object self) {
    return Object(objc_getAssociatedObject(self.get(), associationKey()));
}

void setVantoriController(Object self, Object controller) {
    objc_setAssociatedObject(self.get(), associationKey(), controller.get(),
                             associationRetainNonatomic);
}

bool canCreateConnectivityItem() {
    Object cls(classObject(objc_getClass("CCUIConnectivityAirplaneViewController")));
    Object raw = cls.send<"alloc", Object>();
    return bool(adopted(raw.send<"init", Object>()));
}

// Until the system's connectivity items can be created, each attempt is logged and made again at
// the next layout pass. Once they can, the success line is logged at every pass. Deliberate.
void setUpConnectivity() {
    if (!connectivityReady && !canCreateConnectivityItem()) {
        log("[Vantori]: Could not init CCUIItem!!!"_ns);
        return;
    }
    VNTToolBarController::shared().setUpConnectivityButtonSet();
    VNTSBToolBarController::shared().setUpConnectivityButtonSet();
    connectivityReady = true;
    log("[Vantori]: Init CCUIItem successfully!!!"_ns);
}

void keepSceneLifted() {
    if (VNTToolBarController::shared().isEnabled()) {
        placeScene(sceneContainer(), MAX_SIZE, CORNER_RADIUS);
    }
}

}  // namespace

void sceneLayoutDidLoad(System<void()> system, Object self) {
    system();
    VNTToolBarController toolbar = VNTToolBarController::shared();
    self.send<"setVantoriController:">(toolbar);
    toolbar.setUpConnectivityButtonSet();
    setUpConnectivity();

    const CGSize screen = UIScreen::mainScreen().bounds().size;
    MAX_SIZE = toolbar.maxHeight();
    UIView toolbarView = self.send<"vantoriController", UIViewController>().view();
    toolbarView.setFrame(rect(0, screen.height - MAX_SIZE, screen.width, MAX_SIZE));
    UIView layoutView = as<UIViewController>(self).view();
    layoutView.addSubview(toolbarView);
    layoutView.sendSubviewToBack(toolbarView);
}

void sceneLayoutWillLayout(System<void()> system, Object) {
    system();
    setUpConnectivity();
    keepSceneLifted();
}

void sceneLayoutDidLayout(System<void()> system, Object) {
    system();
    keepSceneLifted();
}

void addSceneLayoutAccessors() {
    Class cls = classOf<SBMainDisplaySceneLayoutViewController>();
    addMethod<"vantoriController", &vantoriController>(cls);
    addMethod<"setVantoriController:", &setVantoriController>(cls);
}

}  // namespace vantori
