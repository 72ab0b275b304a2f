// Everything that a hand, another application or time does to it.
#include <array>
#include <cmath>

#include "simulator/scenario/line.hpp"
#include "simulator/scenario/objective_c.hpp"
#include "simulator/scenario/recording_phone.hpp"
#include "simulator/scenario/statements.hpp"
#include "simulator/services/system_settings.hpp"

namespace simulator::scenario {
namespace {

constexpr auto always = Phase::always;
constexpr auto booted = Phase::booted;

constexpr double tapSeconds = 0.05;

void tapAt(Phone& phone, Place place) {
    phone.touchDown(place.x, place.y);
    phone.wait(tapSeconds);
    phone.touchUp();
}

void tap(Line& line) {
    const Place place{line.number("X"), line.number("Y")};
    const ScreenBounds screen = line.phone().screenBounds();
    if (!(place.x >= 0 && place.x <= screen.width && place.y >= 0 && place.y <= screen.height))
        throw EvaluationError("that is off the screen, which is " +
                              printed(Structure{{screen.width, screen.height}}));
    tapAt(line.phone(), place);
}

void tapView(Line& line) { tapAt(line.phone(), line.phone().reach(line.view("VIEW"))); }

void dragView(Line& line) {
    const double right = line.number("DX");
    const double down = line.number("DY");
    const double seconds = line.seconds("S");
    const Place from = line.phone().reach(line.view("VIEW"));
    line.phone().touchDown(from.x, from.y);
    line.phone().touchMove(from.x + right, from.y + down, seconds);
    line.phone().touchUp();
}

void wait(Line& line) {
    const double seconds = line.seconds("S");
    const int times = line.given("N") ? line.count("N") : 1;
    for (int time = 0; time < times; ++time) line.phone().wait(seconds);
}

// Frame by frame, so that what holds only for a moment is met.
void waitUntil(Line& line) {
    constexpr double frame = 1.0 / 60;
    const double seconds = line.seconds("S");
    const auto condition = [&line] {
        const AutoreleasePool pool;
        const Value left = line.value("EXPR");
        if (!line.given("OP")) return isTrue(left);
        return holds(left, line.comparison("OP"), line.value("EXPR", 1));
    };
    const auto frames = static_cast<long>(std::ceil(seconds / frame - 1e-6));
    for (long passed = 0; !condition(); ++passed) {
        if (passed >= frames) {
            const AutoreleasePool pool;
            std::string got = line.expression("EXPR").text + " is " + printed(line.value("EXPR"));
            if (line.given("OP"))
                got += " where " + line.expression("EXPR", 1).text + " is " +
                       printed(line.value("EXPR", 1));
            throw EvaluationError("still not after " + printed(realValue(seconds)) + " s: " + got);
        }
        line.phone().wait(frame);
    }
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

void interrupt(Line& line) { line.phone().interrupt(line.view("VIEW")); }

constexpr auto toggleHelp = platform::FixedString{"someone else flips "} + settingWords;

constexpr std::array<Form, 39> forms{{
    {"wait S [times N]", booted, "lets S seconds of the phone's time pass; N times, each by itself",
     wait},
    {"wait until EXPR for S", booted,
     "lets time pass frame by frame until it holds; fails when S seconds have passed", waitUntil},
    {"wait until EXPR OP EXPR for S", booted, "the same, by OP", waitUntil},
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
    {"touch down VIEW", booted, "puts the finger down in the middle of the view",
     [](Line& line) {
         const Place place = line.phone().reach(line.view("VIEW"));
         line.phone().touchDown(place.x, place.y);
     }},
    {"touch move X Y over S", booted, "moves the finger at the display's rate",
     [](Line& line) {
         line.phone().touchMove(line.number("X"), line.number("Y"), line.seconds("S"));
     }},
    {"touch move VIEW over S", booted, "moves the finger to the middle of the view",
     [](Line& line) {
         const double seconds = line.seconds("S");
         const Place place = line.phone().reach(line.view("VIEW"));
         line.phone().touchMove(place.x, place.y, seconds);
     }},
    {"touch up", booted, "lifts the finger", [](Line& line) { line.phone().touchUp(); }},
    {"touch cancel", booted, "takes the finger's touch back",
     [](Line& line) { line.phone().touchCancel(); }},
    {"tap X Y", booted, "down, 0.05 s, up", tap},
    {"tap label TEXT", booted, "activates the element that a screen reader calls that",
     [](Line& line) { line.phone().activate(line.word("TEXT")); }},
    {"tap VIEW", booted, "taps the middle of the view; refused where no finger reaches it",
     tapView},
    {"drag X1 Y1 X2 Y2 over S", booted, "down, move, up at the speed that it has", drag},
    {"drag VIEW DX DY over S", booted, "from the middle of the view by so many points", dragView},
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
    {"record off", always, "ends the recording", [](Line& line) { line.recording().stop(); }},
    {"record RECORDING", always,
     "writes what is done to the phone from here on as a scenario that does it again",
     [](Line& line) { line.recording().start(line.picture("RECORDING")); }},
    {"post NAME", booted, "posts an in-process notification",
     [](Line& line) { line.phone().post(line.word("NAME")); }},
    {"darwin NAME", booted, "posts a Darwin notification",
     [](Line& line) { line.phone().postDarwin(line.word("NAME")); }},
}};

}  // namespace

std::span<const Form> drivingStatements() { return forms; }

}  // namespace simulator::scenario
