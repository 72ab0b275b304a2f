// The system's own settings objects, found by name: on a phone that lacks one its setting reads off
// and writing it does nothing.
#pragma once

#include "platform/encoding.hpp"
#include "platform/foundation.hpp"

namespace platform {

// What getBlueLightStatus: fills in. Systems from 13.5 on write one flag behind the mask, earlier
// ones end before it; there is room for both.
struct BlueLightStatus {
    bool active;
    bool enabled;
    bool sunSchedulePermitted;
    int mode;
    int fromHour, fromMinute, toHour, toMinute;  // of the schedule
    unsigned long disableFlags;
    bool available;
};
static_assert(sizeof(BlueLightStatus) == 40 && offsetof(BlueLightStatus, enabled) == 1);

template <>
struct TypeCode<BlueLightStatus> {
    static constexpr FixedString value{"{?=BBBi{?={?=ii}{?=ii}}QB}"};
};

struct CBBlueLightClient : Object {
    static constexpr FixedString name{"CBBlueLightClient"};
    using Object::Object;
    bool getStatus(BlueLightStatus* status) const {
        return send<"getBlueLightStatus:", bool>(status);
    }
    void setEnabled(bool enabled) const { send<"setEnabled:", bool>(enabled); }
};

struct CBAdaptationClient : Object {
    static constexpr FixedString name{"CBAdaptationClient"};
    using Object::Object;
    bool enabled() const { return send<"getEnabled", bool>(); }
    void setEnabled(bool enabled) const { send<"setEnabled:", bool>(enabled); }
};

struct CDBatterySaver : Object {
    static constexpr FixedString name{"_CDBatterySaver"};
    using Object::Object;
    static constexpr long normal = 0, low = 1;
    static CDBatterySaver shared() {
        return sendClass<CDBatterySaver, "batterySaver", CDBatterySaver>();
    }
    long powerMode() const { return send<"getPowerMode", long>(); }
    void setMode(long mode) const { send<"setMode:", long>(mode); }
};

struct SBControlCenterSystemAgent : Object {
    static constexpr FixedString name{"SBControlCenterSystemAgent"};
    using Object::Object;
    bool isOrientationLocked() const { return send<"isOrientationLocked", bool>(); }
    void lockOrientation() const { send<"lockOrientation">(); }
    void unlockOrientation() const { send<"unlockOrientation">(); }
    bool isRingerMuted() const { return send<"isRingerMuted", bool>(); }
    void setRingerMuted(bool muted) const { send<"setRingerMuted:">(muted); }
};

struct DNDUIControlCenterModule : Object {
    static constexpr FixedString name{"DNDUIControlCenterModule"};
    using Object::Object;
};

struct SBUIFlashlightController : Object {
    static constexpr FixedString name{"SBUIFlashlightController"};
    using Object::Object;
    static SBUIFlashlightController shared() {
        return sendClass<SBUIFlashlightController, "sharedInstance", SBUIFlashlightController>();
    }
    unsigned long level() const { return send<"level", unsigned long>(); }
    bool isAvailable() const { return send<"isAvailable", bool>(); }
};

struct UISUserInterfaceStyleMode : Object {
    static constexpr FixedString name{"UISUserInterfaceStyleMode"};
    using Object::Object;
    static constexpr long light = 1, dark = 2;
    void setModeValue(long mode) const { send<"setModeValue:">(mode); }
};

}  // namespace platform
