// Everything that a hand, another application or time does to it.
#include <array>

#include "simulator/scenario/line.hpp"
#include "simulator/scenario/statements.hpp"
#include "simulator/services/system_settings.hpp"

namespace simulator::scenario {
namespace {

constexpr auto booted = Phase::booted;

constexpr double tapSeconds = 0.05;

void tap(Line& line) {
    line.phone().touchDown(line.number("X"), line.number("Y"));
    line.phone().wait(tapSeconds);
    line.phone().touchUp();
}

void drag(Line& line) {
    const double toX = line.number("X2");
    const double toY = line.number("Y2");
    const double seconds = line.seconds("S");
    line.phone().touchDown(line.number("X1"), line.number("Y1"));
    line.phone().touchMove(toX, toY, seconds);
    line.phone().touchUp();
}

void rotate(Line& line) {
    if (line.chose("portrait")) line.phone().rotate(Orientation::portrait);
    if (line.chose("upside-down")) line.phone().rotate(Orientation::upsideDown);
    if (line.chose("landscape-right")) line.phone().rotate(Orientation::landscapeRight);
    if (line.chose("landscape-left")) line.phone().rotate(Orientation::landscapeLeft);
}

void pull(Line& line) {
    EdgePull pull{line.number("EDGE"), line.number("D"), line.seconds("S"), std::nullopt};
    if (line.given("V")) pull.flick = line.number("V");
    line.phone().pull(pull);
}

void play(Line& line) {
    line.phone().play({line.word("TITLE"), line.word("ARTIST"), line.word("ALBUM"),
                       line.word("ARTWORKID"), line.word("BUNDLE")});
}

void interrupt(Line& line) {
    objc_object* view = line.object("VIEW");
    if (view == nullptr) throw EvaluationError("there is no view to interrupt");
    line.phone().interrupt(view);
}

constexpr auto toggleHelp = platform::FixedString{"someone else flips "} + settingWords;

constexpr std::array<Form, 30> forms{{
    {"wait S", booted, "lets S seconds of the phone's time pass",
     [](Line& line) { line.phone().wait(line.seconds("S")); }},
    {"open BUNDLE", booted, "brings an application to the front",
     [](Line& line) { line.phone().open(line.word("BUNDLE")); }},
    {"home", booted, "goes to the home screen", [](Line& line) { line.phone().home(); }},
    {"lock", booted, "locks the phone", [](Line& line) { line.phone().lock(); }},
    {"unlock", booted, "unlocks the phone", [](Line& line) { line.phone().unlock(); }},
    {"rotate portrait|upside-down|landscape-right|landscape-left", booted, "turns the interface",
     rotate},
    {"appearance light|dark", booted, "switches the interface style",
     [](Line& line) { line.phone().appearance(line.chose("dark")); }},
    {"touch down X Y", booted, "puts the finger down, in points of the current orientation",
     [](Line& line) { line.phone().touchDown(line.number("X"), line.number("Y")); }},
    {"touch move X Y over S", booted, "moves the finger at the display's rate",
     [](Line& line) {
         line.phone().touchMove(line.number("X"), line.number("Y"), line.seconds("S"));
     }},
    {"touch up", booted, "lifts the finger", [](Line& line) { line.phone().touchUp(); }},
    {"touch cancel", booted, "takes the finger's touch back",
     [](Line& line) { line.phone().touchCancel(); }},
    {"tap X Y", booted, "down, 0.05 s, up", tap},
    {"drag X1 Y1 X2 Y2 over S", booted, "down, move, up at the speed that it has", drag},
    {"grabber began|updated|ended|cancelled EDGE D V", booted,
     "SpringBoard's report of a bottom-edge pull, exactly",
     [](Line& line) {
         line.phone().grabber(line.pullPhase(), line.number("EDGE"), line.number("D"),
                              line.number("V"));
     }},
    {"ccgrabber began|updated|ended|cancelled EDGE D V", booted,
     "the same report, to the Control Center controller",
     [](Line& line) {
         line.phone().controlCenterGrabber(line.pullPhase(), line.number("EDGE"), line.number("D"),
                                           line.number("V"));
     }},
    {"statusbar began|changed|ended|cancelled X Y V", booted,
     "the status-bar pull-down, the finger at (X, Y), vertical velocity V",
     [](Line& line) {
         line.phone().statusBar(line.pullPhase(), line.number("X"), line.number("Y"),
                                line.number("V"));
     }},
    {"pull EDGE D over S [flick V]", booted,
     "a whole bottom-edge pull by a finger, released at rest or at velocity V", pull},
    {"volume LEVEL", booted, "someone else changes the media volume",
     [](Line& line) { line.phone().volume(line.number("LEVEL")); }},
    {"ringer LEVEL", booted, "someone else changes the ringer volume",
     [](Line& line) { line.phone().ringer(line.number("LEVEL")); }},
    {"volume-key up|down", booted, "a key at the phone's side: a sixteenth of the volume in use",
     [](Line& line) { line.phone().volumeKey(line.chose("up")); }},
    {"brightness LEVEL", booted, "someone else changes the brightness",
     [](Line& line) { line.phone().brightness(line.number("LEVEL")); }},
    {"route ROUTE", booted, "the audio route, Speaker or HeadphonesBT",
     [](Line& line) { line.phone().route(line.word("ROUTE")); }},
    {"play TITLE ARTIST ALBUM ARTWORKID BUNDLE", booted,
     "something starts playing; an empty string leaves its entry out", play},
    {"playing yes|no", booted, "the play state",
     [](Line& line) { line.phone().playing(line.chose("yes")); }},
    {"nothing-playing", booted, "nothing is loaded in the player",
     [](Line& line) { line.phone().nothingPlaying(); }},
    {"player-callbacks main|other", booted,
     "the thread on which the player tells of itself; main is the default",
     [](Line& line) { line.phone().playerCallbacks(line.chose("other")); }},
    {"toggle TOGGLE on|off", booted, toggleHelp.view(),
     [](Line& line) { line.phone().toggle(line.word("TOGGLE"), line.chose("on")); }},
    {"interrupt VIEW", booted, "takes the running animations off the view", interrupt},
    {"post NAME", booted, "posts an in-process notification",
     [](Line& line) { line.phone().post(line.word("NAME")); }},
    {"darwin NAME", booted, "posts a Darwin notification",
     [](Line& line) { line.phone().postDarwin(line.word("NAME")); }},
}};

}  // namespace

std::span<const Form> drivingStatements() { return forms; }

}  // namespace simulator::scenario
