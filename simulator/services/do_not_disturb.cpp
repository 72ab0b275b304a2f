#include "simulator/services/do_not_disturb.hpp"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/system_settings.hpp"
#include "simulator/foundation/bundles.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/services/answers.hpp"
#include "simulator/services/system_settings.hpp"
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/table.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(DNDState, Object);
VANTORI_CLASS(DNDStateService, Object);
VANTORI_CLASS(DNDModeAssertionDetails, Object);
VANTORI_CLASS(DNDModeAssertionService, Object);
VANTORI_CLASS(BBSettingsGateway, Object);

void registerModule() {
    table<DNDState, Object>().method<"isActive">(
        [](DNDState) -> bool { return isOn(Setting::doNotDisturb); });
    // Reached by key only, as the variable of a device is.
    table<DNDUIControlCenterModule, Object>(Variables{"_currentState"})
        .method<"_currentState">(
            [](DNDUIControlCenterModule) { return create<DNDState>().autoreleased(); })
        .method<"_toggleStateForActive:">(
            [](DNDUIControlCenterModule, bool active) { setOn(Setting::doNotDisturb, active); });
}

// Clients that SpringBoard's process may say that it is; to any other the services give errors.
constexpr std::array clients{"com.apple.donotdisturb.control-center.module",
                             "com.apple.springboard.donotdisturb.notifications"};

template <Handle Service>
struct ServiceState {
    Copied<NSString> client;
};

template <Handle Service>
bool isServed(Service service) {
    const NSString client = stateOf<ServiceState<Service>>(service).client;
    return !serviceManner().failing && client &&
           std::ranges::any_of(
               clients, [&](const char* known) { return client.equals(NSString::from(known)); });
}

void fillError(id* error) {
    if (!error) return;
    Object cls(classObject(objc_getClass("NSError")));
    *error = cls.send<"errorWithDomain:code:userInfo:", Object>("DNDErrorDomain"_ns, 1004L,
                                                                NSDictionary())
                 .get();
}

template <Handle Service>
Service serviceFor(Class, NSString client) {
    auto service = create<Service>();
    stateOf<ServiceState<Service>>(service).client = Copied<NSString>(client);
    return service.autoreleased();
}

DNDState queryState(DNDStateService self, id* error) {
    if (isServed(self)) return create<DNDState>().autoreleased();
    fillError(error);
    return DNDState();
}

struct DetailsState {
    Copied<NSString> identifier, mode;
    Strong<Object> lifetime;  // none: until it is invalidated
};

DNDModeAssertionDetails details(Class, NSString identifier, NSString mode, Object lifetime) {
    auto made = create<DNDModeAssertionDetails>();
    DetailsState& state = stateOf<DetailsState>(made);
    state.identifier = Copied<NSString>(identifier);
    state.mode = Copied<NSString>(mode);
    state.lifetime = retained(lifetime);
    return made.autoreleased();
}

// The assertions that hold do not disturb on. Who else turns it on or off is not among them.
Strong<Object>& activeAssertion() {
    static auto& active = *new Strong<Object>;
    return active;
}

Object takeAssertion(DNDModeAssertionService self, DNDModeAssertionDetails details, id* error) {
    const bool meant = details && stateOf<DetailsState>(details).identifier &&
                       stateOf<DetailsState>(details).mode.send<"isEqual:", bool>(
                           "com.apple.donotdisturb.mode.default"_ns);
    if (!isServed(self) || !meant) {
        fillError(error);
        return Object();
    }
    activeAssertion() = create<Object>();
    setOn(Setting::doNotDisturb, true);
    return activeAssertion();
}

bool invalidateAssertions(DNDModeAssertionService self, id* error) {
    if (!isServed(self)) {
        fillError(error);
        return false;
    }
    activeAssertion() = Strong<Object>();
    setOn(Setting::doNotDisturb, false);
    return true;
}

Object assertion(DNDModeAssertionService self, id* error) {
    if (isServed(self)) return activeAssertion();
    fillError(error);
    return Object();
}

bool isActive(DNDState) { return isOn(Setting::doNotDisturb); }

void registerServices() {
    standIn<DNDState, Object>(Variables{}, On::realPhones).realMethod<"isActive", &isActive>();
    realStandIn<DNDStateService, Object, ServiceState<DNDStateService>>()
        .realClassMethod<"serviceForClientIdentifier:", &serviceFor<DNDStateService>>()
        .realMethod<"queryCurrentStateWithError:", &queryState>();
    realStandIn<DNDModeAssertionDetails, Object, DetailsState>()
        .realClassMethod<"userRequestedAssertionDetailsWithIdentifier:modeIdentifier:lifetime:",
                         &details>();
    realStandIn<DNDModeAssertionService, Object, ServiceState<DNDModeAssertionService>>()
        .realClassMethod<"serviceForClientIdentifier:", &serviceFor<DNDModeAssertionService>>()
        .realMethod<"takeModeAssertionWithDetails:error:", &takeAssertion>()
        .realMethod<"invalidateAllActiveModeAssertionsWithError:", &invalidateAssertions>()
        .realMethod<"activeModeAssertionWithError:", &assertion>();
}

// Those that live and want to be told.
std::vector<BBSettingsGateway>& gateways() {
    static auto& all = *new std::vector<BBSettingsGateway>;
    return all;
}

using ChangeHandler = KeptBlock<void(unsigned long)>;

struct GatewayState {
    BBSettingsGateway self;  // once it has a handler
    ChangeHandler changed;
    ~GatewayState() { std::erase(gateways(), self); }
};

// The types are a set; do not disturb by hand is the first of them.
void tell(const ChangeHandler& handler) {
    const unsigned long types = isOn(Setting::doNotDisturb) ? 1 : 0;
    answer([handler, types] { handler(types); });
}

// Tells how it stands at first.
void setChangeHandler(BBSettingsGateway self, BlockRef<void(unsigned long)> changed) {
    GatewayState& state = stateOf<GatewayState>(self);
    state.changed = ChangeHandler(changed);
    if (!std::exchange(state.self, self)) gateways().push_back(self);
    if (!serviceManner().failing) tell(state.changed);
}

// The other process does it, when it comes to it.
void setStatusFrom(BBSettingsGateway, long status, unsigned long) {
    constexpr long on = 1;
    if (serviceManner().failing) return;
    Clock::shared().post([status] { setOn(Setting::doNotDisturb, status == on); });
}

void setStatus(BBSettingsGateway self, long status) { setStatusFrom(self, status, 0); }

void registerGateway() {
    realStandIn<BBSettingsGateway, Object, GatewayState>()
        .realMethod<"setBehaviorOverrideStatus:", &setStatus>()
        .realMethod<"setBehaviorOverrideStatus:source:", &setStatusFrom>()
        .realMethod<"setActiveBehaviorOverrideTypesChangeHandler:", &setChangeHandler>();
    onSettingChange([](Setting setting) {
        if (setting != Setting::doNotDisturb || serviceManner().failing) return;
        for (BBSettingsGateway gateway : gateways()) tell(stateOf<GatewayState>(gateway).changed);
    });
}

}  // namespace

void registerDoNotDisturb() {
    onBundleLoad("/System/Library/ControlCenter/Bundles/DoNotDisturbModule.bundle",
                 &registerModule);
    registerServices();
    registerGateway();
}

}  // namespace simulator
