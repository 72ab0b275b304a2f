#include "toggles/do_not_disturb_forms.hpp"

#include "platform/dispatch.hpp"
#include "platform/system_settings.hpp"

namespace vantori {

namespace {

void giveUp(const char* reason, Object error);

// Its state is a variable without an accessor.
using CurrentState = InstanceVariable<"DNDUIControlCenterModule", "_currentState">;
using Toggle = InstanceMethod<"DNDUIControlCenterModule", "_toggleStateForActive:", void(bool)>;
using IsActive = InstanceMethod<"DNDState", "isActive", bool()>;

constexpr DoNotDisturbFunctions module{
    [] { return Strong<Object>(create<DNDUIControlCenterModule>()); },
    [](Object held) { return IsActive::send(CurrentState::of(held)); },
    [](Object held, bool active) { Toggle::send(held, active); },
};

// The services know their clients by identifiers; SpringBoard's process may call itself this.
NSString client() { return "com.apple.donotdisturb.control-center.module"_ns; }

using StateService =
    ClassMethod<"DNDStateService", "serviceForClientIdentifier:", Object(NSString)>;
using QueryState = InstanceMethod<"DNDStateService", "queryCurrentStateWithError:", Object(id*)>;

bool isActiveByService(Object) {
    id error = nullptr;
    const Object state = QueryState::send(StateService::send(client()), &error);
    if (!state) giveUp("its state cannot be had", Object(error));
    return IsActive::send(state);
}

using AssertionService =
    ClassMethod<"DNDModeAssertionService", "serviceForClientIdentifier:", Object(NSString)>;
using TakeAssertion = InstanceMethod<"DNDModeAssertionService",
                                     "takeModeAssertionWithDetails:error:", Object(Object, id*)>;
using InvalidateAll = InstanceMethod<"DNDModeAssertionService",
                                     "invalidateAllActiveModeAssertionsWithError:", bool(id*)>;
using MakeDetails =
    ClassMethod<"DNDModeAssertionDetails",
                "userRequestedAssertionDetailsWithIdentifier:modeIdentifier:lifetime:",
                Object(NSString, NSString, Object)>;

// As Control Center's own module does it; without a lifetime it stays on until it is turned off.
void setActiveByService(Object, bool active) {
    const Object service = AssertionService::send(client());
    id error = nullptr;
    if (active) {
        const Object details =
            MakeDetails::send("com.apple.control-center.manual-toggle"_ns,
                              "com.apple.donotdisturb.mode.default"_ns, Object());
        if (!TakeAssertion::send(service, details, &error)) giveUp("refused", Object(error));
    } else if (!InvalidateAll::send(service, &error)) {
        giveUp("refused", Object(error));
    }
}

constexpr DoNotDisturbFunctions services{
    [] { return Strong<Object>(); },
    &isActiveByService,
    &setActiveByService,
};

// iOS 11. The gateway tells of changes and cannot be asked.
using SetStatus = InstanceMethod<"BBSettingsGateway",
                                 "setBehaviorOverrideStatus:source:", void(long, unsigned long)>;
// The block's argument is a flag, or a set of flags: no bit is off.
using ChangeHandler = BlockRef<void(unsigned int)>;
using SetChangeHandler =
    InstanceMethod<"BBSettingsGateway",
                   "setActiveBehaviorOverrideTypesChangeHandler:", void(ChangeHandler)>;

struct BBSettingsGateway : Object {
    static constexpr FixedString name{"BBSettingsGateway"};
    using Object::Object;
};

// What it told last, or was last told: it may not tell its own clients of what they ask for.
bool isOverridden = false;

Strong<Object> createGateway() {
    auto gateway = create<BBSettingsGateway>();
    auto changed = block<void(unsigned int)>(
        [](unsigned int types) { onMainQueue([types] { isOverridden = types != 0; }); });
    SetChangeHandler::send(gateway, changed);
    return Strong<Object>(std::move(gateway));
}

void overrideByGateway(Object held, bool active) {
    constexpr long on = 1, off = 2;
    constexpr unsigned long byHand = 1;
    isOverridden = active;
    SetStatus::send(held, active ? on : off, byHand);
}

constexpr DoNotDisturbFunctions gateway{
    &createGateway,
    [](Object) { return isOverridden; },
    &overrideByGateway,
};

using DoNotDisturb =
    Feature<"do not disturb", Form<"DNDUIControlCenterModule", module, CurrentState, Toggle>,
            Form<"DoNotDisturb services", services, StateService, QueryState, IsActive,
                 AssertionService, TakeAssertion, InvalidateAll, MakeDetails>,
            Form<"BBSettingsGateway", gateway, SetStatus, SetChangeHandler>>;

void giveUp(const char* reason, Object error) { DoNotDisturb::switchOff(reason, error); }

}  // namespace

const DoNotDisturbFunctions* doNotDisturbForm() { return DoNotDisturb::taken(); }

}  // namespace vantori
