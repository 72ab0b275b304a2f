#include "simulator/services/setting_agents.hpp"

#include <algorithm>
#include <vector>

#include "platform/system_settings.hpp"
#include "simulator/runtime/darwin.hpp"
#include "simulator/services/system_settings.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

namespace {

// Objects that listen; not owned, and gone from here when they go.
template <class T>
std::vector<T>& listeners() {
    static auto& all = *new std::vector<T>;
    return all;
}

// A state that remembers being one of the listeners.
template <class T>
struct Listening {
    T self;
    KeptBlock<void()> told;
    ~Listening() { std::erase(listeners<T>(), self); }
};

using BlueLightState = Listening<CBBlueLightClient>;
using AdaptationState = Listening<CBAdaptationClient>;

template <class T>
void listen(T client, BlockRef<void()> told) {
    auto& state = stateOf<Listening<T>>(client);
    state.told = KeptBlock<void()>(told);
    if (std::exchange(state.self, client)) return;
    listeners<T>().push_back(client);
}

template <class T>
void tellClients() {
    const auto clients = listeners<T>();
    for (T client : clients) stateOf<Listening<T>>(client).told();
}

bool fill(BlueLightStatus* status) {
    if (!status || !nightShiftAnswers()) return false;
    *status = BlueLightStatus{
        isNightShiftActive(), isOn(Setting::nightShift), true, 0, 22, 0, 7, 0, 0, true};
    return true;
}

void registerDisplayClients() {
    table<CBBlueLightClient, Object, BlueLightState>()
        .classMethod<"supportsBlueLightReduction">([](Class) -> bool { return true; })
        .method<"getBlueLightStatus:">(
            [](CBBlueLightClient, BlueLightStatus* status) -> bool { return fill(status); })
        .method<"setEnabled:">([](CBBlueLightClient, bool on) -> bool {
            setOn(Setting::nightShift, on);
            return true;
        })
        .method<"setActive:">([](CBBlueLightClient, bool active) -> bool {
            setNightShiftActive(active);
            return true;
        })
        .method<"setStatusNotificationBlock:">(
            [](CBBlueLightClient self, BlockRef<void()> told) { listen(self, told); });
    table<CBAdaptationClient, Object, AdaptationState>()
        .classMethod<"supportsAdaptation">([](Class) -> bool { return true; })
        .method<"getEnabled">([](CBAdaptationClient) -> bool { return isOn(Setting::trueTone); })
        .method<"setEnabled:">([](CBAdaptationClient, bool on) -> bool {
            setOn(Setting::trueTone, on);
            return true;
        })
        .method<"setNotificationBlock:">(
            [](CBAdaptationClient self, BlockRef<void()> told) { listen(self, told); });
}

void registerBatterySaver() {
    table<CDBatterySaver, Object>()
        .classMethod<"batterySaver">([](Class cls) -> CDBatterySaver {
            static id shared = Object(classObject(cls)).send<"new", Object>().get();
            return CDBatterySaver(shared);
        })
        .method<"getPowerMode">([](CDBatterySaver) -> long {
            return isOn(Setting::lowPower) ? CDBatterySaver::low : CDBatterySaver::normal;
        })
        .method<"setMode:">([](CDBatterySaver, long mode) -> long {
            setOn(Setting::lowPower, mode == CDBatterySaver::low);
            return mode;
        });
}

void registerSystemAgent() {
    using Agent = SBControlCenterSystemAgent;
    table<Agent, Object>()
        .method<"isOrientationLocked">([](Agent) -> bool { return isOn(Setting::orientationLock); })
        .method<"lockOrientation">([](Agent) { setOn(Setting::orientationLock, true); })
        .method<"unlockOrientation">([](Agent) { setOn(Setting::orientationLock, false); })
        .method<"isRingerMuted">([](Agent) -> bool { return isOn(Setting::ringerMute); })
        .method<"setRingerMuted:">([](Agent, bool muted) { setOn(Setting::ringerMute, muted); });
}

constexpr unsigned long brightestLevel = 4;

// A flashlight that is not available cannot be turned on.
void registerFlashlight() {
    using Flashlight = SBUIFlashlightController;
    table<Flashlight, Object>()
        .classMethod<"sharedInstance">([](Class cls) -> Flashlight {
            static id shared = Object(classObject(cls)).send<"new", Object>().get();
            return Flashlight(shared);
        })
        .method<"level">([](Flashlight) -> unsigned long {
            return isOn(Setting::flashlight) ? brightestLevel : 0;
        })
        .method<"isAvailable">([](Flashlight) -> bool { return isFlashlightAvailable(); })
        .method<"turnFlashlightOnForReason:">([](Flashlight, NSString) {
            if (isFlashlightAvailable()) setOn(Setting::flashlight, true);
        })
        .method<"turnFlashlightOffForReason:">(
            [](Flashlight, NSString) { setOn(Setting::flashlight, false); })
        .realMethod<"turnFlashlightOn">([](Flashlight) {
            if (isFlashlightAvailable()) setOn(Setting::flashlight, true);
        })
        .realMethod<"turnFlashlightOff">([](Flashlight) { setOn(Setting::flashlight, false); })
        .method<"addObserver:">([](Flashlight, Object observer) {
            if (observer) listeners<Object>().push_back(observer);
        })
        .method<"removeObserver:">(
            [](Flashlight, Object observer) { std::erase(listeners<Object>(), observer); });
}

void tellFlashlightObservers() {
    const auto observers = listeners<Object>();
    for (Object observer : observers) {
        if (observer.respondsTo(selector<"flashlightLevelDidChange:">())) {
            observer.send<"flashlightLevelDidChange:">(isOn(Setting::flashlight) ? brightestLevel
                                                                                 : 0UL);
        }
        if (observer.respondsTo(selector<"flashlightAvailabilityDidChange:">())) {
            observer.send<"flashlightAvailabilityDidChange:">(isFlashlightAvailable());
        }
    }
}

// What the rest of the system is told.
void announce(Setting setting) {
    switch (setting) {
        case Setting::lowPower:
            NSNotificationCenter::defaultCenter().post(
                "NSProcessInfoPowerStateDidChangeNotification"_ns);
            break;
        case Setting::ringerMute:
            postDarwin("com.apple.springboard.ringerstate");
            break;
        case Setting::flashlight:
            tellFlashlightObservers();
            break;
        case Setting::nightShift:
            tellClients<CBBlueLightClient>();
            break;
        case Setting::trueTone:
            tellClients<CBAdaptationClient>();
            break;
        default:
            break;
    }
}

}  // namespace

void registerSettingAgents() {
    registerDisplayClients();
    registerBatterySaver();
    registerSystemAgent();
    registerFlashlight();
    onSettingChange(&announce);
}

}  // namespace simulator
