// Choice of an application's screen by its identifier.
#include "simulator/rendering/app_art.hpp"

#include "simulator/rendering/app_screens.hpp"

namespace simulator::rendering {

namespace {

struct Screen {
    const char* bundle;
    Node (*make)(Size, bool);
    bool alwaysDarkTop;
};

constexpr Screen screens[] = {
    {"com.example.notes", notesScreen, false},
    {"com.example.mail", mailScreen, false},
    {"com.apple.MobileSMS", messagesScreen, false},
    {"com.apple.Preferences", settingsScreen, false},
    {"com.example.maps", mapsScreen, false},
    {"com.example.photos", photosScreen, false},
    {"com.apple.Music", musicScreen, false},
    {"com.apple.camera", cameraScreen, true},
    {"com.apple.mobilesafari", browserScreen, false},
    {"com.apple.mobilephone", phoneScreen, false},
};

const Screen* screenFor(const std::string& bundle) {
    for (const Screen& screen : screens) {
        if (bundle == screen.bundle) return &screen;
    }
    return nullptr;
}

}  // namespace

Node appScreen(const std::string& bundleIdentifier, Size size, bool dark) {
    const Screen* screen = screenFor(bundleIdentifier);
    return screen ? screen->make(size, dark) : plainScreen(bundleIdentifier, size, dark);
}

bool hasDarkTop(const std::string& bundleIdentifier, bool dark) {
    const Screen* screen = screenFor(bundleIdentifier);
    return dark || (screen && screen->alwaysDarkTop);
}

}  // namespace simulator::rendering
