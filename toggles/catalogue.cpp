#include "toggles/catalogue.hpp"

#include <optional>

#include "settings/device_profile.hpp"
#include "toggles/do_not_disturb_forms.hpp"
#include "toggles/flashlight_forms.hpp"
#include "toggles/setting_toggle.hpp"
#include "toggles/switch_toggle.hpp"

namespace vantori {

namespace {

// The system object that the toggles of one class hold. Each class has a state type of its own.
template <Handle T, class Setting>
struct Held {
    Strong<T> object;
};

// Overrides of the initialiser that make a toggle's system object come after the base has refreshed
// the toggle once.
template <Handle Toggle>
Toggle initBase(Toggle raw, NSString path, NSString onName, NSString offName) {
    return super<Toggle, "initWithPackageContentsPath:onString:offString:", Toggle>(
        raw, path, onName, offName);
}

// On in dark mode, and then shows "light".
struct Appearance {
    using Toggle = VNTAppearanceToggleViewController;
    static constexpr double duration = 1.0;
    static constexpr bool fadesImages = false;
    static void prepare(Toggle) {}
    static void shown(Toggle, bool) {}
    static std::optional<bool> read(Toggle) {
        return isSystem13OrLater() &&
               UITraitCollection::current().userInterfaceStyle() == UITraitCollection::dark;
    }
    static void write(Toggle, bool on) {
        create<UISUserInterfaceStyleMode>().setModeValue(on ? UISUserInterfaceStyleMode::dark
                                                            : UISUserInterfaceStyleMode::light);
    }
};

struct OrientationLock {
    using Toggle = VNTOrientationLockToggleViewController;
    static constexpr double duration = 0.8;
    static constexpr bool fadesImages = false;
    static void prepare(Toggle) {}
    static void shown(Toggle, bool) {}
    using State = Held<SBControlCenterSystemAgent, OrientationLock>;
    static SBControlCenterSystemAgent agent(Toggle self) { return stateOf<State>(self).object; }

    static Toggle init(Toggle raw, NSString path, NSString onName, NSString offName) {
        Toggle self = initBase(raw, path, onName, offName);
        if (!self) return self;
        stateOf<State>(self).object = create<SBControlCenterSystemAgent>();
        self.refreshState();  // the first one ran before the agent existed
        return self;
    }
    static std::optional<bool> read(Toggle self) { return agent(self).isOrientationLocked(); }
    static void write(Toggle self, bool on) {
        if (on) {
            agent(self).lockOrientation();
        } else {
            agent(self).unlockOrientation();
        }
    }
};

// Unlike the orientation lock it does not refresh once it has its agent: until the next refresh it
// shows off. Deliberate.
struct Mute {
    using Toggle = VNTMuteToggleViewController;
    static constexpr double duration = 0.8;
    static constexpr bool fadesImages = false;
    static void prepare(Toggle) {}
    static void shown(Toggle, bool) {}
    using State = Held<SBControlCenterSystemAgent, Mute>;
    static SBControlCenterSystemAgent agent(Toggle self) { return stateOf<State>(self).object; }

    static Toggle init(Toggle raw, NSString path, NSString onName, NSString offName) {
        Toggle self = initBase(raw, path, onName, offName);
        if (self) stateOf<State>(self).object = create<SBControlCenterSystemAgent>();
        return self;
    }
    static std::optional<bool> read(Toggle self) { return agent(self).isRingerMuted(); }
    static void write(Toggle self, bool on) { agent(self).setRingerMuted(on); }
};

struct LowPower {
    using Toggle = VNTLowPowerToggleViewController;
    static constexpr double duration = 1.0;
    static constexpr bool fadesImages = false;
    static void prepare(Toggle) {}
    static void shown(Toggle, bool) {}
    static std::optional<bool> read(Toggle) {
        return CDBatterySaver::shared().powerMode() == CDBatterySaver::low;
    }
    static void write(Toggle, bool on) {
        CDBatterySaver::shared().setMode(on ? CDBatterySaver::low : CDBatterySaver::normal);
    }
};

// The object that the first refresh makes is replaced by the initialiser's own.
struct DoNotDisturb {
    using Toggle = VNTDNDToggleViewController;
    static constexpr bool fadesImages = false;
    static void shown(Toggle, bool) {}
    static constexpr double duration = 1.0;
    using State = Held<Object, DoNotDisturb>;
    static Strong<Object> createHeld() {
        auto* form = doNotDisturbForm();
        return form ? form->create() : Strong<Object>();
    }

    static Toggle init(Toggle raw, NSString path, NSString onName, NSString offName) {
        Toggle self = initBase(raw, path, onName, offName);
        if (self) stateOf<State>(self).object = createHeld();
        return self;
    }
    static Object held(Toggle self) {
        auto& object = stateOf<State>(self).object;
        if (!object) object = createHeld();
        return object;
    }
    static void prepare(Toggle self) { held(self); }
    static std::optional<bool> read(Toggle self) {
        auto* form = doNotDisturbForm();
        return form && form->isActive(held(self));
    }
    static void write(Toggle self, bool on) {
        if (auto* form = doNotDisturbForm()) form->setActive(held(self), on);
    }
};

struct Flashlight {
    using Toggle = VNTFlashlightToggleViewController;
    static constexpr double duration = 0.6;
    static constexpr bool fadesImages = true;
    static void shown(Toggle, bool) {}
    using State = Held<SBUIFlashlightController, Flashlight>;
    static SBUIFlashlightController controller(Toggle self) { return stateOf<State>(self).object; }

    static void prepare(Toggle self) {
        auto& object = stateOf<State>(self).object;
        if (!object) object = retained(SBUIFlashlightController::shared());
    }
    static std::optional<bool> read(Toggle self) {
        return controller(self).level() != 0 && controller(self).isAvailable();
    }
    static void write(Toggle self, bool on) { turnFlashlight(controller(self), on); }
};

// The platform loads no view that a controller is given, so this runs only for whoever calls it.
template <class Setting>
void loadClient(typename Setting::Toggle self) {
    using Toggle = typename Setting::Toggle;
    super<Toggle, "viewDidLoad">(self);
    stateOf<typename Setting::State>(self).object = Setting::createClient();
    self.toggleButton().addTarget(self, selector<"toggleAction:">(), UIControl::touchUpInside);
    self.refreshState();
}

template <class Setting>
void prepareClient(typename Setting::Toggle self, UIColor onColor) {
    auto& object = stateOf<typename Setting::State>(self).object;
    if (!object) object = Setting::createClient();
    self.toggleButton().setOnColor(onColor);
    self.toggleButton().setOffColor(UIColor::white());
}

struct NightShift {
    using Toggle = VNTNightshiftToggleViewController;
    static constexpr double duration = 1.0;
    static constexpr bool fadesImages = true;
    static void shown(Toggle, bool) {}
    using State = Held<CBBlueLightClient, NightShift>;
    static Strong<CBBlueLightClient> createClient() { return create<CBBlueLightClient>(); }

    static void prepare(Toggle self) { prepareClient<NightShift>(self, UIColor::systemOrange()); }
    // Nothing when the status cannot be had: the toggle then stays as it was.
    static std::optional<bool> read(Toggle self) {
        BlueLightStatus status{};
        if (!stateOf<State>(self).object.getStatus(&status)) return std::nullopt;
        return status.enabled;
    }
    static void write(Toggle self, bool on) { stateOf<State>(self).object.setEnabled(on); }
};

struct TrueTone {
    using Toggle = VNTTrueToneToggleViewController;
    static constexpr double duration = 1.0;
    static constexpr bool fadesImages = true;
    using State = Held<CBAdaptationClient, TrueTone>;
    static Strong<CBAdaptationClient> createClient() { return create<CBAdaptationClient>(); }

    static void prepare(Toggle self) { prepareClient<TrueTone>(self, UIColor::systemBlue()); }
    static std::optional<bool> read(Toggle self) { return stateOf<State>(self).object.enabled(); }
    static void write(Toggle self, bool on) { stateOf<State>(self).object.setEnabled(on); }
    static void shown(Toggle self, bool on) {
        self.toggleButton().onImageView().setAlpha(on ? 1 : 0);
        self.toggleButton().offImageView().setAlpha(on ? 0 : 1);
    }
};

constexpr FixedString initWithNames{"initWithPackageContentsPath:onString:offString:"};

}  // namespace

void registerToggles() {
    registerToggle();
    defineSetting<Appearance>();
    defineSetting<OrientationLock>()
        .method<initWithNames, &OrientationLock::init>()
        .property<"ccAgent", &OrientationLock::State::object>();
    defineSetting<Mute>()
        .method<initWithNames, &Mute::init>()
        .property<"ccAgent", &Mute::State::object>();
    defineSetting<LowPower>();
    defineSetting<DoNotDisturb>()
        .method<initWithNames, &DoNotDisturb::init>()
        .property<"ccDND", &DoNotDisturb::State::object>();
    defineSetting<Flashlight>().property<"flashlightController", &Flashlight::State::object>();
    defineSetting<NightShift>()
        .method<"viewDidLoad", &loadClient<NightShift>>()
        .property<"blueLightClient", &NightShift::State::object>();
    defineSetting<TrueTone>()
        .method<"viewDidLoad", &loadClient<TrueTone>>()
        .property<"adaptationClient", &TrueTone::State::object>();
    registerSwitchToggle();
}

}  // namespace vantori
