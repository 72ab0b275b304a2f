// The scenes whose pictures and view trees are kept beside this file, in the scenario language. Each
// plays on a phone of its own and is looked at when its last statement has run.
#pragma once

#include <ostream>
#include <string_view>

namespace golden {

struct Scene {
    std::string_view name;
    std::string_view scenario;
};

inline constexpr std::string_view historySeen =
    "plist /var/mobile/Library/Preferences/com.ferolin.VantoriHistoryVersion.plist [\"1.2.1\"]\n";

inline constexpr Scene scenes[] = {
    // The phone by itself.
    {"home_light", R"(
without extension
boot
)"},
    {"home_dark", R"(
without extension
boot
appearance dark
wait 0.5
)"},
    {"home_landscape", R"(
without extension
boot
rotate landscape-right
wait 1
)"},
    {"lock_screen", R"(
without extension
boot
lock
wait 1
)"},
    {"application", R"(
without extension
boot
open com.example.notes
wait 1
)"},
    // The welcome pager: the first page, and the last one in the dark.
    {"welcome_light", R"(
boot
)"},
    {"welcome_dark", R"(
boot
appearance dark
drag 300 400 60 400 over 0.2
wait 2
drag 300 400 60 400 over 0.2
wait 2
drag 300 400 60 400 over 0.2
wait 2
)"},
    // The toolbar.
    {"toolbar_light", R"(
boot
pull 60 320 over 0.3
wait 1
)"},
    {"toolbar_strip", R"(
setting layoutDirection 1
boot
pull 60 320 over 0.3
wait 1
)"},
    {"toolbar_dark", R"(
boot
appearance dark
pull 60 320 over 0.3
wait 1
)"},
    {"application_lifted", R"(
setting alwaysSpringBoardStyle false
boot
open com.example.notes
pull 60 320 over 0.3
wait 1
)"},
    // The toolbar's window is made by the first pull and turns with the phone from then on.
    {"toolbar_landscape", R"(
boot
open com.example.maps
pull 60 320 over 0.3
wait 1
tap 180 60
wait 1
rotate landscape-right
wait 1
pull 60 200 over 0.3
wait 1
)"},
};

// Not the welcome pager's scenes, which need a phone that has not seen it yet.
constexpr bool hasSeenWelcome(const Scene& scene) { return !scene.name.starts_with("welcome"); }

inline void PrintTo(const Scene& scene, std::ostream* out) { *out << scene.name; }

}  // namespace golden
