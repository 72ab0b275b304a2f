#include "simulator/restless/habits.hpp"

#include <algorithm>
#include <array>
#include <string>

#include "simulator/restless/words.hpp"
#include "simulator/services/system_settings.hpp"

namespace simulator::restless {

namespace {

constexpr std::string_view preferences = "/var/mobile/Library/Preferences/com.ferolin.";

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

// A place on the screen; more often than not where the toolbar is.
std::string place(Hand& hand) {
    const double x = hand.random.between(0, hand.width());
    const double least = hand.random.chance(70) ? std::max(hand.height() - 520, 0.0) : 0;
    return points(x) + " " + points(hand.random.between(least, hand.height()));
}

std::string alongTheEdge(Hand& hand) { return points(hand.random.between(0, hand.width())); }
std::string distance(Hand& hand) { return points(hand.random.between(0, hand.height() * 0.9)); }

// As quick as a release can be, either way, more often one that opens; or where it turns from one to the
// other.
std::string velocity(Hand& hand) {
    static constexpr std::string_view turningPoints[]{"0", "-5", "-5.01", "-15", "15", "-1", "300"};
    if (hand.random.chance(40)) return std::string(hand.random.oneOf(turningPoints));
    return points(hand.random.between(-500, 1500));
}

std::string level(Hand& hand) {
    static constexpr std::string_view corners[]{"0", "1", "0.3", "0.6", "0.01", "0.61"};
    if (hand.random.chance(40)) return std::string(hand.random.oneOf(corners));
    return seconds(hand.random.between(0, 1));
}

std::string_view onOrOff(Hand& hand) { return hand.random.chance(50) ? " on" : " off"; }
std::string_view yesOrNo(Hand& hand) { return hand.random.chance(50) ? " yes" : " no"; }

void pull(Hand& hand) {
    std::string line = "pull " + alongTheEdge(hand) + " " + distance(hand) + " over " +
                       seconds(hand.random.between(0.05, 0.6));
    if (hand.random.chance(40)) line += " flick " + velocity(hand);
    hand.write("pull", std::move(line));
}

// The reports of a pull, as the system gives them to one of those who hear them.
void report(Hand& hand, std::string_view kind, const std::string& word, const char* going) {
    const std::string edge = alongTheEdge(hand);
    const auto part = [&](const std::string& phase) {
        return word + " " + phase + " " + edge + " " + distance(hand) + " " + velocity(hand);
    };
    Hand::Gesture gesture{.kind = kind, .moves = {}, .end = {}};
    std::string beginning = part("began");
    for (std::size_t moves = hand.random.below(5); moves > 0; --moves)
        gesture.moves.push_back(part(going));
    gesture.end = part(hand.random.chance(12) ? "cancelled" : "ended");
    hand.begin(std::move(beginning), std::move(gesture));
}
void grabber(Hand& hand) { report(hand, "grabber", "grabber", "updated"); }
void controlCenterGrabber(Hand& hand) { report(hand, "ccgrabber", "ccgrabber", "updated"); }
void statusBar(Hand& hand) { report(hand, "statusbar", "statusbar", "changed"); }

// Outside a pull it is the system's own affair, and moves nothing of the toolbar.
void strayReport(Hand& hand) {
    static constexpr std::string_view reports[]{"grabber updated", "grabber ended",
                                                "ccgrabber updated", "ccgrabber ended"};
    hand.write("stray report", std::string(hand.random.oneOf(reports)) + " " + alongTheEdge(hand) +
                                   " " + distance(hand) + " " + velocity(hand));
}

void touch(Hand& hand) {
    Hand::Gesture gesture{.kind = "touch", .moves = {}, .end = {}};
    for (std::size_t moves = hand.random.below(4); moves > 0; --moves)
        gesture.moves.push_back("touch move " + place(hand) + " over " +
                                seconds(hand.random.between(0, 0.4)));
    gesture.end = hand.random.chance(15) ? "touch cancel" : "touch up";
    hand.begin("touch down " + place(hand), std::move(gesture));
}

void tap(Hand& hand) { hand.write("tap", "tap " + place(hand)); }

void drag(Hand& hand) {
    hand.write("drag", "drag " + place(hand) + " " + place(hand) + " over " +
                           seconds(hand.random.between(0.02, 0.5)));
}

std::string ofAToolbar(Hand& hand, std::string_view path) {
    const std::string toolbar = hand.random.chance(75) ? "front" : "behind";
    std::string text(path);
    text.replace(text.find('T'), 1, toolbar);
    return text;
}

void tapControl(Hand& hand) {
    static constexpr std::string_view controls[]{
        "[[[T brightnessSliderContainerViewController] lowpowerVC] toggleButton]",
        "[[[T brightnessSliderContainerViewController] flashLightVC] toggleButton]",
        "[[[T brightnessSliderContainerViewController] sliderAppearanceVC] toggleButton]",
        "[[[T brightnessSliderContainerViewController] nightshiftVC] toggleButton]",
        "[[[T volumeSliderContainerViewController] orientationVC] toggleButton]",
        "[[[T volumeSliderContainerViewController] muteVC] toggleButton]",
        "[[[T volumeSliderContainerViewController] dndVC] toggleButton]",
        "[[T mediaPlayerViewController] leftButton]",
        "[[T mediaPlayerViewController] middleButton]",
        "[[T mediaPlayerViewController] rightButton]",
        "[[T mediaPlayerViewController] view]",
        "[[T iconsContainerViewController] view]",
        "[[T connectivityBarViewController] view]",
        "[[T brightnessSliderContainerViewController] brightnessSlider]",
        "[[T volumeSliderContainerViewController] volumeSlider]",
        "[T grabberView]",
        "[[[[T iconsContainerViewController] view] subviews] firstObject]"};
    hand.write("control", "tap " + ofAToolbar(hand, hand.random.oneOf(controls)));
}

void dragControl(Hand& hand) {
    static constexpr std::string_view controls[]{
        "[[T brightnessSliderContainerViewController] brightnessSlider]",
        "[[T volumeSliderContainerViewController] volumeSlider]", "[T vantoriScrollView]",
        "[T grabberView]"};
    hand.write("control", "drag " + ofAToolbar(hand, hand.random.oneOf(controls)) + " " +
                              points(hand.random.between(-200, 200)) + " " +
                              points(hand.random.between(-100, 300)) + " over " +
                              seconds(hand.random.between(0.02, 0.4)));
}

void leave(Hand& hand) {
    static constexpr std::string_view ways[]{"do [front dismissVNTSB]",
                                             "tap [front backgroundShadowView]", "home", "lock"};
    hand.write("leaving", std::string(hand.random.oneOf(ways)));
}

void reachability(Hand& hand) {
    static constexpr std::string_view ways[]{
        "do [[SBReachabilityManager sharedInstance] toggleReachability]",
        "do [[SBReachabilityManager sharedInstance] reachabilityEnabled]"};
    hand.write("reachability", std::string(hand.random.oneOf(ways)));
}

void open(Hand& hand) { hand.write("application", "open " + aBundle(hand.random)); }
void home(Hand& hand) { hand.write("home", "home"); }
void lock(Hand& hand) { hand.write("lock", hand.random.chance(25) ? "lock" : "unlock"); }

// Most of the time it is upright.
void turn(Hand& hand) {
    static constexpr std::string_view ways[]{"upside-down", "landscape-right", "landscape-left"};
    const std::string_view way = hand.random.chance(60) ? "portrait" : hand.random.oneOf(ways);
    hand.write("turn", "rotate " + std::string(way));
    hand.turned(way.starts_with("landscape"));
}

void appearance(Hand& hand) {
    hand.write("appearance", hand.random.chance(50) ? "appearance dark" : "appearance light");
}

void levels(Hand& hand) {
    static constexpr std::string_view words[]{"volume ", "ringer ", "brightness "};
    if (hand.random.chance(20))
        hand.write("level", hand.random.chance(50) ? "volume-key up" : "volume-key down");
    else
        hand.write("level", std::string(hand.random.oneOf(words)) + level(hand));
}

void route(Hand& hand) {
    hand.write("route", hand.random.chance(50) ? "route Speaker" : "route HeadphonesBT");
}

void play(Hand& hand) {
    static constexpr std::string_view titles[]{
        "One", "", "A very long title that has to scroll before anybody can read it", "\\n"};
    const auto title = [&] { return quoted(hand.random.oneOf(titles)) + " "; };
    hand.write("music", "play " + title() + title() + title() +
                            (hand.random.chance(50) ? "\"cover\" " : "\"\" ") +
                            aBundle(hand.random));
}

void player(Hand& hand) {
    static constexpr std::string_view ways[]{"playing yes", "playing no", "nothing-playing",
                                             "player-callbacks main", "player-callbacks other"};
    hand.write("music", std::string(hand.random.oneOf(ways)));
}

void service(Hand& hand) {
    switch (hand.random.below(8)) {
        case 0:
            return hand.write("service", "flashlight-available" + std::string(yesOrNo(hand)));
        case 1:
            return hand.write("service", "connectivity-button " +
                                             points(hand.random.between(0, 120)) + " " +
                                             points(hand.random.between(0, 120)));
        case 2:
            return hand.write("service", "recents " + someBundles(hand.random));
        default:
            hand.write("service", "toggle " + std::string(hand.random.oneOf(settingNames)) +
                                      std::string(onOrOff(hand)));
    }
}

void announce(Hand& hand) {
    static constexpr std::string_view names[]{
        "VantoriPB/reloadSettings", "com.ferolin.vantori.refresh-all-daily-toggles",
        "com.ferolin.vantori.refresh-all-toggles", "com.ferolin.vantori.Back-Now"};
    hand.write("announcement",
               "darwin " + quoted(hand.random.chance(60) ? names[0] : hand.random.oneOf(names)));
}

void set(Hand& hand) {
    hand.write("setting",
               hand.random.chance(70) ? soundSetting(hand.random) : wrongSetting(hand.random));
    if (hand.random.chance(70)) announce(hand);
}

void post(Hand& hand) {
    static constexpr std::string_view names[]{
        "should-refresh-state",
        "should-refresh-value",
        "should-show-brightnessSlider",
        "should-hide-brightnessSlider",
        "should-show-volumeSlider",
        "should-hide-volumeSlider",
        "com.ferolin.vantori-stopmarquee",
        "com.ferolin.vantori-startmarquee",
        "com.ferolin.vantori-finish-launching",
        "com.ferolin.vantori-ccback",
        "com.ferolin.vantori.did-rotated",
        "com.ferolin.vantori-nowplayingchange",
        "com.ferolin.volume.should-refresh-value",
        "AVSystemController_SystemVolumeDidChangeNotification",
        "UIScreenBrightnessDidChangeNotification",
        "UIDeviceOrientationDidChangeNotification"};
    hand.write("notification", "post " + quoted(hand.random.oneOf(names)));
}

// As a slider does from the moment it is touched until it is not.
void lockPages(Hand& hand) {
    hand.begin("post \"should-lock-ScrollView\"",
               {.kind = "notification", .moves = {}, .end = "post \"should-unlock-ScrollView\""});
}

void replaceFile(Hand& hand) {
    static constexpr std::string_view files[]{"vantoripb", "VNTDailyToggleList", "VNTToggleList",
                                              "VantoriHistoryVersion"};
    static constexpr std::string_view lists[]{
        "{}",
        "[]",
        "[true]",
        "[\"1.2.1\"]",
        "[[\"Mute\", \"DND\", 1, \"display\"], \"more\"]",
        "{\"layoutDirection\": 1}",
        "{\"layoutDirection\": [], \"leftGestureEnabled\": {}}",
        "{\"alwaysSpringBoardStyle\": false}"};
    static constexpr std::string_view bytes[]{"", "<?xml",
                                              "<plist version=\\\"1.0\\\"><dict><key>enabled<",
                                              "{ layoutDirection = (); }", "bplist00"};
    const std::string path =
        std::string(preferences) + std::string(hand.random.oneOf(files)) + ".plist";
    switch (hand.random.below(4)) {
        case 0:
            return hand.write("file", "delete " + path);
        case 1:
            return hand.write("file", "file " + path + " " + quoted(hand.random.oneOf(bytes)));
        default:
            hand.write("file", "plist " + path + " " + std::string(hand.random.oneOf(lists)));
    }
}

void interrupt(Hand& hand) {
    static constexpr std::string_view views[]{
        "[front view]",
        "[[SBMainDisplaySceneLayoutViewController mainDisplaySceneLayoutViewController] sceneContainerView]",
        "[[front mediaPlayerViewController] view]"};
    hand.write("interruption", "interrupt " + std::string(hand.random.oneOf(views)));
}

void wait(Hand& hand) { hand.write("time", "wait " + seconds(hand.random.between(0.01, 0.6))); }

constexpr bool gesture = true;

constexpr std::array habitTable{
    Habit{"pull", 30, pull, gesture},
    Habit{"grabber", 14, grabber, gesture},
    Habit{"ccgrabber", 5, controlCenterGrabber, gesture},
    Habit{"statusbar", 5, statusBar, gesture},
    Habit{"stray report", 3, strayReport, gesture},
    Habit{"touch", 6, touch, gesture},
    Habit{"tap", 8, tap, gesture},
    Habit{"drag", 8, drag, gesture},
    Habit{"control", 16, tapControl, gesture},
    Habit{"control", 6, dragControl, gesture},
    Habit{"leaving", 4, leave, gesture},
    Habit{"reachability", 4, reachability, gesture},
    Habit{"application", 7, open},
    Habit{"home", 5, home},
    Habit{"lock", 5, lock},
    Habit{"turn", 6, turn},
    Habit{"appearance", 2, appearance},
    Habit{"level", 6, levels},
    Habit{"route", 1, route},
    Habit{"music", 3, play},
    Habit{"music", 3, player},
    Habit{"service", 7, service},
    Habit{"setting", 6, set},
    Habit{"announcement", 3, announce},
    Habit{"notification", 6, post},
    Habit{"notification", 1, lockPages, gesture},
    Habit{"file", 3, replaceFile},
    Habit{"interruption", 3, interrupt},
    Habit{"time", 10, wait},
};

}  // namespace

std::span<const Habit> habits() { return habitTable; }

}  // namespace simulator::restless
