#include "simulator/services/brightness.hpp"

#include <algorithm>
#include <vector>

#include "platform/system_levels.hpp"
#include "simulator/runtime/system_libraries.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

struct SBBrightnessController : Object {
    static constexpr FixedString name{"SBBrightnessController"};
    using Object::Object;
};
// From iOS 13.6 on; SpringBoard keeps the one that there is.
VANTORI_CLASS(SBDisplayBrightnessController, Object);
// The display stays as it is set while one lives.
VANTORI_CLASS(BKSDisplayBrightnessTransaction, Object);
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
void setDisplayLevel(SBDisplayBrightnessController, float level, bool) { setBrightness(level); }
void setPlainDisplayLevel(SBDisplayBrightnessController, float level) { setBrightness(level); }

int transactions = 0;

struct TransactionState {
    bool isOpen;
    ~TransactionState() {
        if (isOpen) --transactions;
    }
};

long besideLevel = 0;

// The display's own service, by C functions. The number beside the level is remembered, no more.
void serviceSet(float level, long number) {
    besideLevel = number;
    setBrightness(level);
}
float serviceLevel() { return static_cast<float>(screen().brightness); }
const void* serviceTransaction(const void*) {
    auto transaction = create<BKSDisplayBrightnessTransaction>();
    stateOf<TransactionState>(transaction).isOpen = true;
    ++transactions;
    return transaction.leak();
}

void exportDisplayService() {
    constexpr const char* library =
        "/System/Library/PrivateFrameworks/BackBoardServices.framework/BackBoardServices";
    platform::define<BKSDisplayBrightnessTransaction, Object, TransactionState>();
    exportFunction(library, "BKSDisplayBrightnessSet", &serviceSet);
    exportFunction(library, "BKSDisplayBrightnessGetCurrent", &serviceLevel);
    exportFunction(library, "BKSDisplayBrightnessTransactionCreate", &serviceTransaction);
}

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

int openBrightnessTransactions() { return transactions; }
long numberBesideBrightness() { return besideLevel; }

Object displayBrightnessController() {
    static id shared = create<SBDisplayBrightnessController>().leak();
    return Object(shared);
}

void registerBrightness() {
    realStandIn<SBDisplayBrightnessController, Object>()
        .realMethod<"_setBrightnessLevel:showHUD:", &setDisplayLevel>()
        .realMethod<"setBrightnessLevel:", &setPlainDisplayLevel>();
    if (realRelease() != 0) exportDisplayService();
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
