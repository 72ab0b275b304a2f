#include "simulator/demo/demo_story.hpp"

#include <array>

namespace simulator::demo {

namespace {

using enum Shape;

constexpr StoryPicture welcome[] = {
    {"welcome", upright, "On a phone that never showed it, the welcome covers the home screen."},
    {"welcome-pages", upright, "A swipe turns to the next page."},
    {"welcome-dark", upright, "The last page but one, on a dark phone."},
    {"leaving", film, "The last page is left with its button: one second, in five frames."},
};

constexpr StoryPicture home[] = {
    {"home-light", upright, "The home screen, before anything is pulled."},
    {"home-dark", upright, "The same, dark."},
    {"home-pull", upright, "The finger pulls at the left third of the bottom edge."},
    {"home-open", upright, "Let go, the toolbar stays open."},
};

constexpr StoryPicture application[] = {
    {"app-pull", upright, "The application lifts with the finger."},
    {"app-open", upright, "The toolbar lies open under the application."},
    {"app-over", upright, "The other way: the toolbar lies over the application, here over a map."},
    {"app-dark", upright, "Under a mail, dark."},
    {"opening", film, "The opening, a tenth of a second from frame to frame."},
};

constexpr StoryPicture pages[] = {
    {"toggles", upright,
     "Toggles: low power, flashlight, orientation lock, do not disturb are on."},
    {"toggles-dark", upright, "The ringer is muted, and the phone is dark."},
    {"slider", upright, "A slider follows the finger."},
    {"connectivity", upright, "Airplane mode, a tap away."},
    {"music", upright, "The player; a long title scrolls."},
    {"applications", upright, "The applications of the dock."},
    {"strip", upright, "With another layout, all pages in one row."},
};

constexpr StoryPicture controlCenter[] = {
    {"control-center", upright, "The system's Control Center, pulled from the upper right corner."},
    {"control-center-replaced", upright, "Where the setting says so, the toolbar takes its place."},
};

constexpr StoryPicture elsewhere[] = {
    {"lock-screen", upright, "The lock screen."},
    {"landscape-home", lying, "The home screen of a phone on its side."},
    {"landscape-app", lying, "The toolbar turns with the phone."},
};

constexpr std::array<Chapter, 6> story{{
    {"Welcome", "The first thing that a new owner sees.", welcome},
    {"A pull", "A pull at the bottom edge opens the toolbar.", home},
    {"In an application", "It opens under the application in front, or over it.", application},
    {"What is on it", "Toggles, sliders, the player, applications.", pages},
    {"Control Center", "It keeps out of the way, or steps in.", controlCenter},
    {"Locked, and on its side", "The rest of the phone.", elsewhere},
}};

}  // namespace

std::span<const Chapter> demoStory() { return story; }

}  // namespace simulator::demo
