#include "toggles/brightness_forms.hpp"

#include <utility>

#include "platform/core_foundation.hpp"
#include "platform/springboard.hpp"

namespace vantori {

namespace {

using SharedController =
    ClassMethod<"SBBrightnessController", "sharedBrightnessController", Object()>;
using SetLevel =
    InstanceMethod<"SBBrightnessController", "_setBrightnessLevel:showHUD:", void(float, bool)>;

constexpr bool withoutHUD = false;

constexpr BrightnessFunctions sharedController{
    [] { return SharedController::send(); },
    [](Object controller, float level) { SetLevel::send(controller, level, withoutHUD); },
    [] {},
};

// SpringBoard has made it, not only room for it.
using Variable = InstanceVariable<"SpringBoard", "_displayBrightnessController">;
struct DisplayController : Variable {
    static Object current() { return of(SpringBoard::shared()); }
    static bool isThere() { return Variable::isThere() && static_cast<bool>(current()); }
};
using SetDisplayLevel = InstanceMethod<"SBDisplayBrightnessController",
                                       "_setBrightnessLevel:showHUD:", void(float, bool)>;

constexpr BrightnessFunctions displayController{
    &DisplayController::current,
    [](Object controller, float level) { SetDisplayLevel::send(controller, level, withoutHUD); },
    [] {},
};

constexpr FixedString service{
    "/System/Library/PrivateFrameworks/BackBoardServices.framework/BackBoardServices"};
using ServiceSet = LibraryFunction<service, "BKSDisplayBrightnessSet", void(float, long)>;
using BeginTransaction =
    LibraryFunction<service, "BKSDisplayBrightnessTransactionCreate", CFTypeRef(const void*)>;

constexpr long always = 1;  // what everybody passes on with a level
constexpr const void* noAllocator = nullptr;

// While it lives the display does not adapt itself. One, as there is one display and one finger.
CFTypeRef transaction = nullptr;

void setServiceLevel(Object, float level) {
    if (!transaction) transaction = BeginTransaction::call(noAllocator);
    ServiceSet::call(level, always);
}

void endTransaction() {
    if (CFTypeRef ended = std::exchange(transaction, nullptr)) CFRelease(ended);
}

constexpr BrightnessFunctions displayService{
    [] { return Object(); },
    &setServiceLevel,
    &endTransaction,
};

using Brightness = Feature<
    "brightness", Form<"SBBrightnessController", sharedController, SharedController, SetLevel>,
    Form<"SBDisplayBrightnessController", displayController, DisplayController, SetDisplayLevel>,
    Form<"BackBoardServices", displayService, ServiceSet, BeginTransaction>>;

}  // namespace

const BrightnessFunctions* brightnessForm() { return Brightness::taken(); }

}  // namespace vantori
