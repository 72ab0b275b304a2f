#include "simulator/services/volume.hpp"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/springboard.hpp"
#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(AVSystemController, Object);
VANTORI_CLASS(MPVolumeController, Object);
VANTORI_CLASS(MediaControlsVolumeController, Object);

struct Category {
    const char* name;
    float volume;
};

struct Sound {
    Category media{"Audio/Video", 0.5f};
    Category ringer{"Ringtone", 0.5f};
    std::string route = "Speaker";
};

constexpr std::array<std::string_view, 2> routes{"Speaker", "HeadphonesBT"};
constexpr float keyStep = 1.0f / 16;

Sound& sound() {
    static auto& shared = *new Sound;
    return shared;
}

// While an application plays, or holds its pause, the keys are its volume's.
Category& categoryInUse() {
    const bool plays = SpringBoard::shared().send<"nowPlayingProcessPID", int>() != 0;
    return plays ? sound().media : sound().ringer;
}

Category* categoryNamed(NSString name) {
    if (!name) return nullptr;
    for (Category* category : {&sound().media, &sound().ringer}) {
        if (std::string_view(name.utf8()) == category->name) return category;
    }
    return nullptr;
}

NSString string(const char* text) { return NSString::from(text); }

AVSystemController systemController() {
    return sendClass<AVSystemController, "sharedAVSystemController", AVSystemController>();
}

// A part of Control Center that lives as long as the phone.
template <Handle T>
T lasting() {
    static id shared = create<T>().leak();
    return T(shared);
}

Object changeInfo(const Category& category) {
    auto info = Object(classObject(objc_getClass("NSMutableDictionary")));
    info = info.send<"dictionary", Object>();
    auto put = [&](Object value, const char* key) {
        info.send<"setObject:forKey:">(value, string(key));
    };
    Object level = Object(classObject(objc_getClass("NSNumber")))
                       .send<"numberWithFloat:", Object>(category.volume);
    put(level, "AVSystemController_AudioVolumeNotificationParameter");
    put(string(category.name), "AVSystemController_AudioCategoryNotificationParameter");
    put("ExplicitVolumeChange"_ns,
        "AVSystemController_AudioVolumeChangeReasonNotificationParameter");
    return info;
}

void announce(const Category& category) {
    AVSystemController controller = systemController();
    if (!controller) return;
    NSNotificationCenter::defaultCenter().send<"postNotificationName:object:userInfo:">(
        "AVSystemController_SystemVolumeDidChangeNotification"_ns, controller,
        changeInfo(category));
    if (&category != &sound().media) return;
    lasting<MediaControlsVolumeController>()
        .sendIfAnswered<"volumeController:volumeValueDidChange:">(lasting<MPVolumeController>(),
                                                                  category.volume);
}

void setVolume(Category& category, float level) {
    category.volume = std::clamp(level, 0.0f, 1.0f);
    announce(category);
}

AVSystemController sharedController(Class) { return lasting<AVSystemController>(); }

bool activeVolume(AVSystemController, float* volume, id* name) {
    const Category& category = categoryInUse();
    if (volume) *volume = category.volume;
    if (name) *name = string(category.name).get();
    return true;
}

bool setActiveVolume(AVSystemController, float level) {
    setVolume(categoryInUse(), level);
    return true;
}

bool changeActiveVolume(AVSystemController, float difference) {
    Category& category = categoryInUse();
    setVolume(category, category.volume + difference);
    return true;
}

bool volumeOf(AVSystemController, float* volume, NSString name) {
    const Category* category = categoryNamed(name);
    if (category && volume) *volume = category->volume;
    return category != nullptr;
}

bool setVolumeOf(AVSystemController, float level, NSString name) {
    Category* category = categoryNamed(name);
    if (category) setVolume(*category, level);
    return category != nullptr;
}

// Every category takes the same route.
NSString routeOf(AVSystemController, NSString category) {
    return category ? string(sound().route.c_str()) : NSString();
}

struct VolumeControllerState {
    float value;
};

float mediaVolume(MPVolumeController) { return sound().media.volume; }

void volumeDidChange(MediaControlsVolumeController self, Object, float value) {
    stateOf<VolumeControllerState>(self).value = value;
}

float volumeValue(MediaControlsVolumeController self) {
    return stateOf<VolumeControllerState>(self).value;
}

}  // namespace

void setMediaVolume(double level) { setVolume(sound().media, static_cast<float>(level)); }
void setRingerVolume(double level) { setVolume(sound().ringer, static_cast<float>(level)); }

void pressVolumeKey(bool louder) {
    Category& category = categoryInUse();
    setVolume(category, category.volume + (louder ? keyStep : -keyStep));
}

bool setAudioRoute(const std::string& name) {
    if (std::find(routes.begin(), routes.end(), name) == routes.end()) return false;
    if (std::exchange(sound().route, name) == name) return true;
    NSNotificationCenter::defaultCenter().send<"postNotificationName:object:userInfo:">(
        "AVSystemController_ActiveAudioRouteDidChangeNotification"_ns, systemController(),
        NSDictionary());
    return true;
}

void registerVolume() {
    standIn<AVSystemController, Object>()
        .classMethod<"sharedAVSystemController", &sharedController>()
        .method<"getActiveCategoryVolume:andName:", &activeVolume>()
        .method<"setActiveCategoryVolumeTo:", &setActiveVolume>()
        .method<"changeActiveCategoryVolumeBy:", &changeActiveVolume>()
        .method<"getVolume:forCategory:", &volumeOf>()
        .method<"setVolumeTo:forCategory:", &setVolumeOf>()
        .method<"routeForCategory:", &routeOf>();
    standIn<MPVolumeController, Object>().method<"volumeValue", &mediaVolume>();
    standIn<MediaControlsVolumeController, Object, VolumeControllerState>()
        .method<"volumeController:volumeValueDidChange:", &volumeDidChange>()
        .method<"volumeValue", &volumeValue>();
}

}  // namespace simulator
