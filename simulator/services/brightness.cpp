#include "simulator/services/brightness.hpp"

#include <algorithm>
#include <vector>

#include "platform/system_levels.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

struct SBBrightnessController : Object {
    static constexpr FixedString name{"SBBrightnessController"};
    using Object::Object;
};
struct CCUIDisplayModuleViewController : UIViewController {
    static constexpr FixedString name{"CCUIDisplayModuleViewController"};
    using UIViewController::UIViewController;
};

// Those that live; none is kept alive by standing here.
std::vector<id>& modules() {
    static auto& all = *new std::vector<id>;
    return all;
}

struct DisplayModuleState {
    Object delegate;  // not owned
    id self;

    ~DisplayModuleState() { std::erase(modules(), self); }
};

SBBrightnessController sharedController(Class) {
    static id shared = create<SBBrightnessController>().leak();
    return SBBrightnessController(shared);
}

void setLevel(SBBrightnessController, float level, bool) { setBrightness(level); }
void setPlainLevel(SBBrightnessController, float level) { setBrightness(level); }

CCUIDisplayModuleViewController initModule(CCUIDisplayModuleViewController raw) {
    auto self =
        super<CCUIDisplayModuleViewController, "init", CCUIDisplayModuleViewController>(raw);
    if (!self) return self;
    stateOf<DisplayModuleState>(self).self = self.get();
    modules().push_back(self.get());
    return self;
}

float currentBrightness(CCUIDisplayModuleViewController) {
    return static_cast<float>(screen().brightness);
}

void tell(CCUIDisplayModuleViewController module) {
    constexpr FixedString message{"displayModuleViewController:brightnessDidChange:"};
    Object delegate = stateOf<DisplayModuleState>(module).delegate;
    if (!delegate.respondsTo(selector<message>())) return;
    delegate.send<message>(module, currentBrightness(module));
}

}  // namespace

void setBrightness(double level) {
    setScreenBrightness(level);
    // A delegate may make or drop modules.
    const std::vector<id> told = modules();
    for (id module : told) {
        const auto& living = modules();
        if (std::find(living.begin(), living.end(), module) == living.end()) continue;
        tell(CCUIDisplayModuleViewController(module));
    }
}

void registerBrightness() {
    standIn<SBBrightnessController, Object>()
        .classMethod<"sharedBrightnessController", &sharedController>()
        .method<"_setBrightnessLevel:showHUD:", &setLevel>()
        .method<"setBrightnessLevel:", &setPlainLevel>();
    standIn<CCUIDisplayModuleViewController, UIViewController, DisplayModuleState>()
        .method<"init", &initModule>()
        .method<"currentBrightness", &currentBrightness>()
        .property<"delegate", &DisplayModuleState::delegate>();
}

}  // namespace simulator
