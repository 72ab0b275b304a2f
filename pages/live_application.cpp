#include "pages/live_application.hpp"

namespace vantori {

namespace {

constexpr long live = 2;  // the mode in which the scene is drawn as it moves
constexpr unsigned long flexibleSize = 2 | 16;

Object allocate(const char* className) {
    return Object(classObject(objc_getClass(className))).send<"alloc", Object>();
}

Strong<Object> makeEntity(SBApplication application) {
    return adopted(SceneEntity::send(allocate("SBDeviceApplicationSceneEntity"), application));
}

Strong<UIViewController> makeController(Object entity) {
    Object made =
        LiveView::send(allocate("SBAppViewController"), "com.ferolin.vantori.host"_ns, entity);
    return adopted(as<UIViewController>(made));
}

}  // namespace

const char* LiveApplication::show(SBApplication application, UIViewController host) {
    end();
    Strong<Object> entity = makeEntity(application);
    if (!entity) return "the system gives the application no scene entity";
    controller_ = makeController(entity);
    if (!controller_) return "the system gives no controller for the application's scene";
    controller_.sendIfAnswered<"setIgnoresOcclusions:">(false);
    controller_.sendIfAnswered<"setRequestedMode:">(live);
    host.send<"addChildViewController:">(UIViewController(controller_));
    UIView view = controller_.view();
    view.setFrame(host.view().bounds());
    view.setAutoresizingMask(flexibleSize);
    host.view().addSubview(view);
    controller_.send<"didMoveToParentViewController:">(host);
    return nullptr;
}

void LiveApplication::end() {
    if (!controller_) return;
    Strong<UIViewController> controller = std::move(controller_);
    controller.sendIfAnswered<"invalidate">();
    controller.send<"willMoveToParentViewController:">(UIViewController());
    controller.view().removeFromSuperview();
    controller.send<"removeFromParentViewController">();
}

}  // namespace vantori
