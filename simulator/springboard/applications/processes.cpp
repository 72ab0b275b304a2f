#include "simulator/springboard/applications/processes.hpp"

#include <map>

#include "platform/springboard_icons.hpp"
#include "simulator/hardware/configuration.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/springboard/display/artwork.hpp"
#include "simulator/uikit/raise.hpp"

namespace simulator {

namespace {

struct FBScene : Object {
    static constexpr FixedString name{"FBScene"};
    using Object::Object;
};
struct FBProcess : Object {
    static constexpr FixedString name{"FBProcess"};
    using Object::Object;
};

struct SceneState {
    Copied<NSString> identifier;
    Object process;  // its owner
};
struct ProcessState {
    Copied<NSString> identifier;
    Strong<FBScene> scene;
    int pid;
};
struct HostState {
    Strong<FBScene> scene;
};

struct Kept {
    Strong<FBApplicationProcess> process;
    int creations = 0;
    int sceneAfter = 1;
};

constexpr int firstPid = 300;

// A main thread that asks so often without letting any time pass hangs: the system ends it.
constexpr int mostCreationsAtOnce = 5000;

struct Processes {
    std::map<std::string, Kept> of;
    int nextPid = firstPid;
    double askedAt = -1;
    int askedAtOnce = 0;
};

Processes& processes() {
    static auto& kept = *new Processes;
    return kept;
}

void watch() {
    Processes& all = processes();
    if (all.askedAt != Clock::shared().now()) {
        all.askedAt = Clock::shared().now();
        all.askedAtOnce = 0;
    }
    if (++all.askedAtOnce > mostCreationsAtOnce) {
        all.askedAtOnce = 0;
        raise("SBWatchdogException"_ns, "the main thread hangs: no scene after " +
                                            std::to_string(mostCreationsAtOnce) +
                                            " process creations");
    }
}

void giveScene(FBApplicationProcess process) {
    ProcessState& state = stateOf<ProcessState>(process);
    if (state.scene) return;
    state.scene = create<FBScene>();
    if (!state.scene) return;
    stateOf<SceneState>(state.scene).identifier = Copied<NSString>(state.identifier);
    stateOf<SceneState>(state.scene).process = process;
}

FBProcessManager sharedInstance(Class cls) {
    static id shared = Object(classObject(cls)).send<"new", Object>().get();
    return FBProcessManager(shared);
}

// One process for an application: later creations give the same. None for what is not installed.
FBApplicationProcess createProcess(FBProcessManager, NSString identifier) {
    watch();
    if (!identifier || !isInstalled(text(identifier))) return {};
    Kept& kept = processes().of[text(identifier)];
    ++kept.creations;
    if (!kept.process) {
        kept.process = create<FBApplicationProcess>();
        if (!kept.process) return {};
        stateOf<ProcessState>(kept.process).identifier = Copied<NSString>(identifier);
        stateOf<ProcessState>(kept.process).pid = processes().nextPid++;
    }
    if (kept.creations >= kept.sceneAfter) giveScene(kept.process);
    return kept.process;
}

NSArray allProcesses(FBProcessManager) {
    NSMutableArray all = NSMutableArray::empty();
    for (const auto& [identifier, kept] : processes().of) {
        if (kept.process) all.add(kept.process);
    }
    return all;
}

// Shows the application's screen, whatever the size it is given.
FBSceneHostWrapperView initWithScene(FBSceneHostWrapperView raw, FBScene scene, NSString) {
    auto self = super<FBSceneHostWrapperView, "initWithFrame:", FBSceneHostWrapperView>(
        raw, UIScreen::mainScreen().bounds());
    if (!self) return self;
    stateOf<HostState>(self).scene = retained(scene);
    self.setClipsToBounds(true);
    if (scene) dressAsApplication(self, text(stateOf<SceneState>(scene).identifier));
    return self;
}

}  // namespace

void setSceneAfter(const std::string& identifier, int creation) {
    processes().of[identifier].sceneAfter = creation;
}

int processCreations(const std::string& identifier) { return processes().of[identifier].creations; }

void registerProcesses() {
    standIn<FBScene, Object, SceneState>()
        .readonly<"identifier", &SceneState::identifier>()
        .readonly<"clientProcess", &SceneState::process>();
    standIn<FBProcess, Object>();
    standIn<FBApplicationProcess, FBProcess, ProcessState>()
        .readonly<"bundleIdentifier", &ProcessState::identifier>()
        .readonly<"pid", &ProcessState::pid>()
        .readonly<"mainScene", &ProcessState::scene>();
    standIn<FBProcessManager, Object>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"createApplicationProcessForBundleID:", &createProcess>()
        .method<"allApplicationProcesses", &allProcesses>();
    standIn<FBSceneHostWrapperView, UIView, HostState>()
        .method<"initWithScene:requester:", &initWithScene>()
        .readonly<"scene", &HostState::scene>();
}

}  // namespace simulator
