#include "toolbar/host_windows.hpp"

#include "platform/definition.hpp"
#include "toolbar/welcome_pager.hpp"

namespace vantori {

namespace {

bool isSecure(UIWindow) { return true; }
bool isSecureClass(Class) { return true; }

UIView hitTestIn(UIView view, CGPoint point, UIWindow window, Object event) {
    return view.hitTest(view.convertPointFrom(point, window), event);
}

// Back to front, the first view that claims the touch has it. The shadow comes last of all, and only
// while it shows, so that touches beside the toolbar fall through to SpringBoard otherwise. The
// window never answers itself.
UIView hitTest(VNTSBHostWindow self, CGPoint point, Object event) {
    Class shadowClass = objc_getClass("VNTSBShadowView");
    VNTSBShadowView shadow;
    NSArray views = self.subviews();
    for (unsigned long i = 0; i < views.count(); ++i) {
        UIView view = views.at<UIView>(i);
        if (view.isKindOfClass(shadowClass)) {
            shadow = as<VNTSBShadowView>(view);
            continue;
        }
        if (UIView hit = hitTestIn(view, point, self, event)) return hit;
    }
    if (!shadow || shadow.alpha() == 0) return UIView();
    return hitTestIn(shadow, point, self, event);
}

struct UpdateWindowState {
    Strong<VNTUpdateViewController> updateController;
};

VNTUpdateWindow initUpdateWindow(VNTUpdateWindow self, CGRect frame) {
    self = super<VNTUpdateWindow, "initWithFrame:", VNTUpdateWindow>(self, frame);
    if (!self) return self;
    auto& state = stateOf<UpdateWindowState>(self);
    state.updateController = create<VNTUpdateViewController>();
    self.setRootViewController(state.updateController);
    self.setWindowLevel(welcomeWindowLevel);
    self.addSubview(state.updateController.view());
    self.makeKeyAndVisible();
    return self;
}

}  // namespace

void registerHostWindows() {
    define<VNTSBShadowView, UIView>();

    define<VNTSBHostWindow, UIWindow>()
        .method<"_isSecure", &isSecure>()
        .classMethod<"_isSecure", &isSecureClass>()
        .method<"hitTest:withEvent:", &hitTest>();

    define<VNTUpdateWindow, UIWindow, UpdateWindowState>()
        .method<"initWithFrame:", &initUpdateWindow>()
        .property<"updateVC", &UpdateWindowState::updateController>();
}

}  // namespace vantori
