#include "pages/modules_page.hpp"

#include "platform/definition.hpp"

namespace vantori {

namespace {

struct ModulesState {
    Strong<UIScrollView> scrollView;
};

void loadView(VNTCCTogglesBarViewController self) {
    super<VNTCCTogglesBarViewController, "loadView">(self);
    auto& state = stateOf<ModulesState>(self);
    state.scrollView = create<UIScrollView>();
    self.view().addSubview(state.scrollView);
}

void ignore(Object) {}

}  // namespace

void registerModulesPage() {
    define<VNTCCTogglesBarViewController, UIViewController, ModulesState>()
        .method<"loadView", &loadView>()
        .method<"setupButtons", &ignore>()
        .property<"scrollView", &ModulesState::scrollView>();
}

}  // namespace vantori
