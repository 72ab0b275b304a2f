#include "toggles/everyday_page.hpp"

#include "platform/definition.hpp"

namespace vantori {

namespace {

struct DailyState {
    Strong<UIView> toggleContainerView;
};

void loadView(VNTDailyToolBarViewController self) {
    super<VNTDailyToolBarViewController, "loadView">(self);
    auto& state = stateOf<DailyState>(self);
    state.toggleContainerView = create<UIView>();
    self.view().addSubview(state.toggleContainerView);
}

void ignore(Object) {}

}  // namespace

void registerEverydayPage() {
    define<VNTDailyToolBarViewController, UIViewController, DailyState>()
        .method<"loadView", &loadView>()
        .method<"refreshAllToggles", &ignore>()
        .property<"toggleContainerView", &DailyState::toggleContainerView>();
}

}  // namespace vantori
