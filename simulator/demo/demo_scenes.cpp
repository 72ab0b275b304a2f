#include "simulator/demo/demo_scenes.hpp"

#include <array>

namespace simulator::demo {

namespace {

constexpr std::array<DemoScene, 25> scenes{{
    {"home-light", "home-light.png", "Home screen", R"(
boot
shot "home-light.png" at 2
)",
     true},
    {"home-dark", "home-dark.png", "… dark", R"(
boot
appearance dark
wait 0.5
shot "home-dark.png" at 2
)",
     true},
    {"home-pull", "home-pull.png", "A pull", R"(
boot
touch down 60 811
touch move 60 600 over 0.3
shot "home-pull.png" at 2
touch up
)",
     true},
    {"home-open", "home-open.png", "Toolbar open", R"(
boot
pull 60 320 over 0.3
wait 1
shot "home-open.png" at 2
)",
     true},
    {"app-pull", "app-pull.png", "The application lifts", R"(
setting alwaysSpringBoardStyle false
boot
open com.example.notes
touch down 60 811
touch move 60 600 over 0.3
shot "app-pull.png" at 2
touch up
)",
     true},
    {"app-open", "app-open.png", "Toolbar under it", R"(
setting alwaysSpringBoardStyle false
boot
open com.example.notes
pull 60 320 over 0.3
wait 1
shot "app-open.png" at 2
)",
     true},
    {"app-over", "app-over.png", "Toolbar over it", R"(
boot
play "Paper Boats" "The Harbour Lights" "Low Tide" "tide" com.apple.Music
toggle donotdisturb on
open com.example.maps
pull 60 320 over 0.3
wait 1
shot "app-over.png" at 2
)",
     true},
    {"app-dark", "app-dark.png", "… dark", R"(
setting alwaysSpringBoardStyle false
boot
appearance dark
open com.example.mail
pull 60 320 over 0.3
wait 1
shot "app-dark.png" at 2
)",
     true},
    {"strip", "strip.png", "One row of pages", R"(
setting layoutDirection 1
setting alwaysSpringBoardStyle false
boot
open com.example.notes
pull 60 110 over 0.3
wait 1
shot "strip.png" at 2
)",
     true},
    {"music", "music.png", "Music playing", R"(
boot
play "Paper Boats on the Long Way Home" "The Harbour Lights" "Low Tide" "tide" com.apple.Music
pull 60 320 over 0.3
wait 4
shot "music.png" at 2
)",
     true},
    {"toggles", "toggles.png", "Toggles", R"(
boot
play "Paper Boats" "The Harbour Lights" "Low Tide" "tide" com.apple.Music
toggle lowpower on
toggle flashlight on
toggle orientationlock on
toggle donotdisturb on
brightness 0.9
pull 60 320 over 0.3
wait 1
shot "toggles.png" at 2
)",
     true},
    {"slider", "slider.png", "A slider under the finger", R"(
boot
pull 60 320 over 0.3
wait 1
let toolbar = [VNTSBToolBarController sharedInstance]
let panel = [[toolbar brightnessSliderContainerViewController] view]
let y = H - [toolbar suggestedY] + [panel frame].y + 50
touch down 290 y
touch move 320 y over 0.3
wait 0.5
shot "slider.png" at 2
touch up
)",
     true},
    {"toggles-dark", "toggles-dark.png", "… dark", R"(
boot
appearance dark
play "Paper Boats" "The Harbour Lights" "Low Tide" "tide" com.apple.Music
toggle ringermute on
toggle donotdisturb on
wait 0.5
pull 60 320 over 0.3
wait 1
shot "toggles-dark.png" at 2
)",
     true},
    {"connectivity", "connectivity.png", "Airplane mode", R"(
boot
pull 60 320 over 0.3
wait 1
tap [[[[VNTSBToolBarController sharedInstance] connectivityBarViewController] airplane] view]
wait 1
shot "connectivity.png" at 2
)",
     true},
    {"control-center", "control-center.png", "Control Center", R"(
boot
drag 340 2 340 500 over 0.3
wait 1
shot "control-center.png" at 2
)",
     true},
    {"control-center-replaced", "control-center-replaced.png", "… replaced", R"(
setting replaceCC true
boot
drag 340 2 340 560 over 0.4
wait 1
shot "control-center-replaced.png" at 2
)",
     true},
    {"applications", "applications.png", "Applications", R"(
setting alwaysSpringBoardStyle false
boot
open com.example.notes
pull 60 320 over 0.3
wait 1
shot "applications.png" at 2
)",
     true},
    {"welcome", "welcome.png", "Welcome", R"(
boot
wait 1
shot "welcome.png" at 2
)",
     true, true},
    {"welcome-pages", "welcome-pages.png", "… page by page", R"(
boot
wait 1
drag 330 400 40 400 over 0.2
wait 1
shot "welcome-pages.png" at 2
)",
     true, true},
    {"welcome-dark", "welcome-dark.png", "… dark", R"(
boot
appearance dark
wait 1
drag 330 400 40 400 over 0.2
wait 1
drag 330 400 40 400 over 0.2
wait 1
shot "welcome-dark.png" at 2
)",
     true, true},
    {"leaving", "leaving.png", "Leaving the welcome", R"(
boot
wait 1
drag 330 400 40 400 over 0.2
wait 1
drag 330 400 40 400 over 0.2
wait 1
drag 330 400 40 400 over 0.2
wait 1
tap 187 757
film "leaving.png" 5 over 1
)",
     false, true},
    {"lock-screen", "lock-screen.png", "Lock screen", R"(
boot
lock
wait 1
shot "lock-screen.png" at 2
)",
     false},
    {"landscape-home", "landscape-home.png", "Landscape", R"(
boot
rotate landscape-right
wait 1
shot "landscape-home.png" at 2
)",
     false},
    {"landscape-app", "landscape-app.png", "Toolbar in landscape", R"(
boot
open com.example.maps
# The toolbar's window is made by the first pull and turns with the phone from then on.
pull 60 320 over 0.3
wait 1
tap 180 60
wait 1
rotate landscape-right
wait 1
pull 60 200 over 0.3
wait 1
shot "landscape-app.png" at 2
)",
     false},
    {"opening", "opening.png", "The opening, in a tenth of a second each", R"(
setting alwaysSpringBoardStyle false
boot
open com.example.notes
touch down 60 811
touch move 60 560 over 0.25
touch up
film "opening.png" 7 over 0.6
)",
     false},
}};

}  // namespace

std::span<const DemoScene> demoScenes() { return scenes; }

std::string_view coverScene() { return "app-over"; }

}  // namespace simulator::demo
