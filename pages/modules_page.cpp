#include "pages/modules_page.hpp"

#include "platform/control_center.hpp"
#include "platform/definition.hpp"

namespace vantori {

namespace {

struct ModulesState {
    Strong<CCUIModuleInstanceManager> moduleManager;
    Strong<NSMutableArray> allModuleButtons;
    Strong<NSMutableArray> enabledModuleButtons;
    Strong<NSMutableArray> allInstances;
    Strong<NSArray> allCustomModules;
    Strong<UIScrollView> scrollView;
    // The toolbars outlive the page, which they own: not owned in turn.
    UIViewController appToolBarController;
    UIViewController sbToolBarController;
    double startY;               // top of the first row, in points
    double originalButtonWidth;  // before any scaling, in points
    bool hasSetupButtons;
};

Strong<NSMutableArray> makeList() {
    return retained(sendClass<NSMutableArray, "arrayWithCapacity:", NSMutableArray>(1UL));
}

VNTCCTogglesBarViewController init(VNTCCTogglesBarViewController raw) {
    auto self = super<VNTCCTogglesBarViewController, "init", VNTCCTogglesBarViewController>(raw);
    if (!self) return self;
    auto& state = stateOf<ModulesState>(self);
    state.allModuleButtons = makeList();
    state.enabledModuleButtons = makeList();
    state.allInstances = makeList();
    state.hasSetupButtons = false;
    state.moduleManager = retained(CCUIModuleInstanceManager::shared());
    state.scrollView = create<UIScrollView>();
    return self;
}

bool canShowWhileLocked(VNTCCTogglesBarViewController) { return true; }

void viewDidLoad(VNTCCTogglesBarViewController self) {
    super<VNTCCTogglesBarViewController, "viewDidLoad">(self);
    self.view().addSubview(stateOf<ModulesState>(self).scrollView);
}

void setupButtons(VNTCCTogglesBarViewController self) {
    auto& state = stateOf<ModulesState>(self);
    if (!state.hasSetupButtons) state.hasSetupButtons = true;
}

// How the page is to be filled is not settled; these are its places. Deliberate.
void fillNothing(VNTCCTogglesBarViewController) {}

}  // namespace

void registerModulesPage() {
    define<VNTCCTogglesBarViewController, UIViewController, ModulesState>()
        .method<"init", &init>()
        .method<"_canShowWhileLocked", &canShowWhileLocked>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"setupButtons", &setupButtons>()
        .method<"fillButtons", &fillNothing>()
        .method<"layoutButtons", &fillNothing>()
        .method<"loadCustomModule", &fillNothing>()
        .method<"layoutCustomModule", &fillNothing>()
        .property<"moduleManager", &ModulesState::moduleManager>()
        .property<"allModuleButtons", &ModulesState::allModuleButtons>()
        .property<"enabledModuleButtons", &ModulesState::enabledModuleButtons>()
        .property<"allInstances", &ModulesState::allInstances>()
        .property<"allCustomModules", &ModulesState::allCustomModules>()
        .property<"hasSetupButtons", &ModulesState::hasSetupButtons>()
        .property<"scrollView", &ModulesState::scrollView>()
        .property<"startY", &ModulesState::startY>()
        .property<"appToolBarController", &ModulesState::appToolBarController>()
        .property<"sbToolBarController", &ModulesState::sbToolBarController>()
        .property<"originalButtonWidth", &ModulesState::originalButtonWidth>();
}

}  // namespace vantori
