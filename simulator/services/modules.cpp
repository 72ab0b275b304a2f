#include "simulator/services/modules.hpp"

#include <array>

#include "platform/control_center.hpp"
#include "simulator/runtime/stand_in.hpp"
#include "simulator/services/module_contents.hpp"

namespace simulator {

namespace {

constexpr const char* connectivityBundle =
    "/System/Library/ControlCenter/Bundles/ConnectivityModule.bundle";
constexpr const char* replayBundle = "/System/Library/ControlCenter/Bundles/ReplayKitModule.bundle";

constexpr std::array kinds{
    ModuleKind{"com.apple.control-center.ConnectivityModule",
               connectivityBundle,
               "wifi",
               {0, 0, 2, 2},
               &makeConnectivityModule},
    ModuleKind{"com.apple.mediaremote.controlcenter.nowplaying",
               nullptr,
               "note",
               {2, 0, 2, 2},
               &makeMediaModule},
    ModuleKind{"com.apple.control-center.OrientationLockModule",
               nullptr,
               "orientation-lock",
               {0, 2, 1, 1},
               &makeButtonModule},
    ModuleKind{"com.apple.donotdisturb.DoNotDisturbModule",
               nullptr,
               "moon",
               {1, 2, 1, 1},
               &makeButtonModule},
    ModuleKind{
        "com.apple.control-center.DisplayModule", nullptr, "sun", {2, 2, 1, 2}, &makeSliderModule},
    ModuleKind{"com.apple.mediaremote.controlcenter.audio",
               nullptr,
               "speaker",
               {3, 2, 1, 2},
               &makeSliderModule},
    ModuleKind{"com.apple.mediaremote.controlcenter.airplaymirroring",
               nullptr,
               "airplay",
               {0, 3, 2, 1},
               &makeButtonModule},
    ModuleKind{"com.apple.control-center.FlashlightModule",
               nullptr,
               "flashlight",
               {0, 4, 1, 1},
               &makeButtonModule},
    ModuleKind{"com.apple.mobiletimer.controlcenter.timer",
               nullptr,
               "timer",
               {1, 4, 1, 1},
               &makeButtonModule},
    ModuleKind{"com.apple.calculator.controlcenter.calculator",
               nullptr,
               "calculator",
               {2, 4, 1, 1},
               &makeButtonModule},
    ModuleKind{"com.apple.camera.controlcenter.camera",
               nullptr,
               "camera",
               {3, 4, 1, 1},
               &makeButtonModule},
    ModuleKind{"com.apple.replaykit.controlcenter.screencapture",
               replayBundle,
               "record",
               {0, 5, 1, 1},
               &makeRecordingModule},
    ModuleKind{"com.apple.control-center.LowPowerModule",
               nullptr,
               "low-power",
               {1, 5, 1, 1},
               &makeButtonModule},
};

struct InstanceState {
    Strong<UIViewController> content;
    const ModuleKind* kind;
};
struct ManagerState {
    Strong<NSMutableArray> instances;
};

CCUIModuleInstanceManager sharedManager(Class cls) {
    static id shared = Object(classObject(cls)).send<"new", Object>().get();
    return CCUIModuleInstanceManager(shared);
}

NSString moduleIdentifier(CCUIModuleInstance self) {
    const ModuleKind* kind = stateOf<InstanceState>(self).kind;
    return kind ? NSString::from(kind->identifier) : NSString();
}

UIViewController contentViewController(CCUIModuleInstance self) {
    return stateOf<InstanceState>(self).content;
}

bool isThere(NSArray instances, const ModuleKind& kind) {
    for (unsigned long i = 0; i < instances.count(); ++i) {
        if (stateOf<InstanceState>(instances.at(i)).kind == &kind) return true;
    }
    return false;
}

Strong<CCUIModuleInstance> makeInstance(const ModuleKind& kind) {
    if (kind.bundle && !NSBundle::withPath(NSString::from(kind.bundle)).load()) return {};
    Strong<UIViewController> content = kind.make(kind);
    if (!content) return {};
    auto instance = create<CCUIModuleInstance>();
    if (!instance) return {};
    stateOf<InstanceState>(instance).kind = &kind;
    stateOf<InstanceState>(instance).content = std::move(content);
    return instance;
}

NSArray instancesOf(CCUIModuleInstanceManager self) {
    ManagerState& state = stateOf<ManagerState>(self);
    if (!state.instances) state.instances = create<NSMutableArray>();
    for (const ModuleKind& kind : kinds) {
        if (isThere(state.instances, kind)) continue;
        if (auto instance = makeInstance(kind)) state.instances.add(instance);
    }
    return state.instances;
}

CCUIModuleInstance instanceForIdentifier(CCUIModuleInstanceManager self, NSString identifier) {
    NSArray all = self.send<"moduleInstances", NSArray>();
    for (unsigned long i = 0; i < all.count(); ++i) {
        auto instance = all.at<CCUIModuleInstance>(i);
        if (identifier && moduleIdentifier(instance).equals(identifier)) return instance;
    }
    return {};
}

}  // namespace

NSArray moduleInstances() {
    return CCUIModuleInstanceManager::shared().send<"moduleInstances", NSArray>();
}

CCUIModuleInstance instanceOf(NSString identifier) {
    return CCUIModuleInstanceManager::shared()
        .send<"instanceForModuleIdentifier:", CCUIModuleInstance>(identifier);
}

const ModuleKind& kindOf(CCUIModuleInstance instance) {
    return *stateOf<InstanceState>(instance).kind;
}

UIViewController contentOf(CCUIModuleInstance instance) {
    return stateOf<InstanceState>(instance).content;
}

void registerModules() {
    standIn<CCUIModuleInstance, Object, InstanceState>()
        .method<"moduleIdentifier", &moduleIdentifier>()
        .method<"contentViewController", &contentViewController>();
    standIn<CCUIModuleInstanceManager, Object, ManagerState>()
        .classMethod<"sharedInstance", &sharedManager>()
        .method<"moduleInstances", &instancesOf>()
        .method<"instanceForModuleIdentifier:", &instanceForIdentifier>();
}

}  // namespace simulator
