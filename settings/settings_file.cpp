#include "settings/settings_file.hpp"

namespace vantori {

namespace {

Object fileValue(NSString key) { return NSDictionary::withContentsOfFile(settingsPath()).at(key); }

// An array, a date or data has no such conversion and would raise: it reads as zero.
bool toBool(Object value) {
    return value.respondsTo(selector<"boolValue">()) && value.send<"boolValue", bool>();
}
int toInt(Object value) {
    return value.respondsTo(selector<"intValue">()) ? value.send<"intValue", int>() : 0;
}

}  // namespace

bool settingExists(NSString key) { return bool(fileValue(key)); }

bool boolSetting(NSString key, bool whenAbsent) {
    return settingExists(key) ? toBool(fileValue(key)) : whenAbsent;
}

int intSetting(NSString key, int whenAbsent) {
    return settingExists(key) ? toInt(fileValue(key)) : whenAbsent;
}

int currentLayoutDirection() { return intSetting("layoutDirection"_ns, directionStacked); }

bool boolPreference(NSString key) { return toBool(preferenceValue(key, settingsDomain())); }

}  // namespace vantori
