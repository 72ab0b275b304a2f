// The library on its phone: an updated pull and the opening of the toolbar, each beside the system
// messages alone; memory asked for by an updated pull; frames of the moving toolbar as they are
// drawn, at one, two and three pixels for each of 375 x 812 points.
//
// How many icons are in the dock, and how many toggles in the list, can be said before the options of
// the measurements: benchmark-phone [--icons=N] [--toggles=N] [...]
#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "benchmarks/allocations.hpp"
#include "benchmarks/asked.hpp"
#include "platform/springboard.hpp"
#include "simulator/phone/screen_picture.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/springboard/gestures/switcher_gestures.hpp"

namespace {

using namespace platform;
using simulator::PullPhase;

constexpr double edge = 60;  // in the left zone, which is on without a setting

simulator::Phone* phone = nullptr;
double toolbarHeight = 0;  // of the pages on top of each other

Object shared(const char* className) {
    return Object(classObject(objc_getClass(className))).send<"sharedInstance", Object>();
}
Object springBoardToolbar() { return shared("VNTSBToolBarController"); }

UIView find(UIView view, Class cls) {
    if (view.isKindOfClass(cls)) return view;
    NSArray subviews = view.subviews();
    for (unsigned long i = 0; i < subviews.count(); ++i) {
        if (UIView found = find(subviews.at<UIView>(i), cls)) return found;
    }
    return {};
}

// The icons in the dock, which every report of a pull on the home screen asks for.
UIView dockIcons() {
    NSArray windows = Object(SpringBoard::shared()).send<"windows", NSArray>();
    for (unsigned long i = 0; i < windows.count(); ++i) {
        UIView found = find(windows.at<UIView>(i), objc_getClass("SBRootFolderDockIconListView"));
        if (found) return found;
    }
    return {};
}

// The distance of one report in a pull up and down, in points.
double distanceAt(unsigned long report) { return 100 + static_cast<double>(report % 200); }

void report(double distance) {
    simulator::gestureManager().send<"grabberTongueUpdatedPulling:withDistance:andVelocity:">(
        Object(simulator::grabberTongue()), distance, 200.0);
}

enum class Style { application, springBoard };

void begin(Style style) {
    phone->setting("alwaysSpringBoardStyle", style == Style::springBoard);
    phone->postDarwin("VantoriPB/reloadSettings");
    phone->wait(0.1);
    if (style == Style::application) phone->open("com.example.notes");
    phone->grabber(PullPhase::began, edge, 10, 0);
    phone->wait(1);
}

// Closes the toolbar that the pull opened and goes home.
void end() {
    phone->grabber(PullPhase::ended, edge, 10, -500);
    phone->wait(1);
    phone->home();
    phone->wait(1);
}

// What an updated pull has to send for the application's scene ...
void lift(double distance) {
    UIView container = SBMainDisplaySceneLayoutViewController::main().sceneContainerView();
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    container.setFrame(rect(0, -distance, screen.width, screen.height));
    container.layer().setCornerRadius(distance / toolbarHeight * 30);
}
// ... and for the toolbar in a window of its own.
void moveToolbar(double distance) {
    Object toolbar = springBoardToolbar();
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    UIView view = toolbar.send<"view", UIView>();
    view.setFrame(rect(0, screen.height - distance, screen.width, view.frame().size.height));
    toolbar.send<"backgroundShadowView", UIView>().setAlpha(distance / screen.height / 2);
}

template <Style style>
void sendFloor(double distance) {
    if constexpr (style == Style::application) {
        lift(distance);
    } else {
        static const UIView dock = dockIcons();
        (void)dock.send<"visibleIcons", NSArray>();
        moveToolbar(distance);
    }
}

double placeOf(Style style) {
    UIView moved = style == Style::application
                       ? SBMainDisplaySceneLayoutViewController::main().sceneContainerView()
                       : springBoardToolbar().send<"view", UIView>();
    return moved.frame().origin.y;
}

// Whether a report moves what it should.
bool isTakenOver(Style style) {
    const double rest = placeOf(style);
    report(distanceAt(0));
    return placeOf(style) != rest;
}

// Runs one report a round and counts what memory the rounds ask for.
template <class Report>
void measureReports(benchmark::State& state, Style style, Report send) {
    begin(style);
    unsigned long round = 0;
    const double rest = placeOf(style);
    send(distanceAt(round));
    if (placeOf(style) == rest) state.SkipWithError("the pull was not taken over");
    const benchmarks::Allocations before = benchmarks::allocations();
    for (auto _ : state) {
        AutoreleasePool pool;
        send(distanceAt(++round));
    }
    const benchmarks::Allocations after = benchmarks::allocations();
    const auto rounds = static_cast<double>(round);
    state.counters["allocations"] = static_cast<double>(after.all - before.all) / rounds;
    state.counters["library"] = static_cast<double>(after.library - before.library) / rounds;
    end();
}

template <Style style>
void updatedPull(benchmark::State& state) {
    measureReports(state, style, &report);
}
template <Style style>
void updatedPullFloor(benchmark::State& state) {
    measureReports(state, style, &sendFloor<style>);
}

constexpr int openingFrames = 60;  // one second, in which every spring ends

void passFrames() { simulator::Clock::shared().advance(openingFrames * simulator::Clock::frame); }

// Began, ten reports, released, settled.
void pullUp() {
    phone->grabber(PullPhase::began, edge, 10, 0);
    for (int i = 1; i <= 10; ++i) phone->grabber(PullPhase::updated, edge, 30.0 * i, 200);
    phone->grabber(PullPhase::ended, edge, 300, 0);
    passFrames();
}

void openToolbar(benchmark::State& state) {
    phone->setting("alwaysSpringBoardStyle", true);
    for (auto _ : state) {
        AutoreleasePool pool;
        pullUp();
        state.PauseTiming();
        if (!springBoardToolbar().send<"isEnabled", bool>()) state.SkipWithError("it stayed shut");
        springBoardToolbar().send<"dismissVNTSB">();
        passFrames();
        state.ResumeTiming();
    }
}

// What the process has allocated after so many openings, in bytes more than after the first.
void memoryAfterOpenings(benchmark::State& state) {
    phone->setting("alwaysSpringBoardStyle", true);
    auto openAndClose = [] {
        AutoreleasePool pool;
        pullUp();
        springBoardToolbar().send<"dismissVNTSB">();
        passFrames();
    };
    openAndClose();
    const auto allocated = [] { return static_cast<double>(mallinfo2().uordblks); };
    const double before = allocated();
    for (auto _ : state) {
        for (long opened = 0; opened < state.range(0); ++opened) openAndClose();
    }
    state.counters["bytes"] = allocated() - before;
    state.counters["all"] = before;
}

// What the opening asks of the system, and the two springs that move the toolbar, without the library.
void openToolbarFloor(benchmark::State& state) {
    phone->setting("alwaysSpringBoardStyle", true);
    const auto close = [] {
        springBoardToolbar().send<"dismissVNTSB">();
        passFrames();
    };
    // The first opening makes the window.
    pullUp();
    close();
    const benchmarks::Asked asked(&pullUp);
    close();
    auto spring = [](double distance) {
        auto changes = block([distance] { moveToolbar(distance); });
        UIView::animateWithSpring(0.5, 0, 0.6, 0.3, 0, changes, {});
    };
    for (auto _ : state) {
        AutoreleasePool pool;
        asked.again();
        spring(10);
        spring(toolbarHeight);
        passFrames();
        state.PauseTiming();
        close();
        state.ResumeTiming();
    }
    state.counters["asked"] = static_cast<double>(asked.count());
    pullUp();
    if (!springBoardToolbar().send<"isEnabled", bool>()) state.SkipWithError("it opens no more");
    const auto window = springBoardToolbar().send<"vantoriHostWindow", UIView>();
    if (springBoardToolbar().send<"view", UIView>().superview().get() != window.get())
        state.SkipWithError("the toolbar has left its window");
    close();
}

void countFrames(benchmark::State& state) {
    state.counters["frames"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

// A report of the finger, what passes in a frame, and the picture as a window gets it.
void movingFrames(benchmark::State& state, Style style, int pixelsPerPoint) {
    begin(style);
    if (!isTakenOver(style)) state.SkipWithError("the pull was not taken over");
    simulator::ScreenPainter painter;
    unsigned long round = 0;
    const auto frame = [&] {
        AutoreleasePool pool;
        report(distanceAt(4 * ++round));
        simulator::Clock::shared().advance(simulator::Clock::frame);
        return painter.paint(pixelsPerPoint);
    };
    // The first frame draws what later ones keep, the second finds out what that is.
    frame();
    frame();
    for (auto _ : state) {
        if (frame().empty()) state.SkipWithError("nothing moved");
    }
    countFrames(state);
    end();
}

// No drawing is faster than one copy of the pixels.
void copyFrames(benchmark::State& state, int pixelsPerPoint) {
    const std::size_t bytes =
        4 * std::size_t{375 * 812} * static_cast<std::size_t>(pixelsPerPoint * pixelsPerPoint);
    std::vector<unsigned char> from(bytes, 1), to(bytes);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), bytes);
        benchmark::ClobberMemory();
    }
    countFrames(state);
}

void registerFrames(const std::string& name, Style style) {
    for (const int pixelsPerPoint : {1, 2, 3}) {
        const std::string full = name + ", " + std::to_string(375 * pixelsPerPoint) + " x " +
                                 std::to_string(812 * pixelsPerPoint);
        benchmark::RegisterBenchmark(full.c_str(), [=](benchmark::State& state) {
            movingFrames(state, style, pixelsPerPoint);
        })->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark((full + "/floor").c_str(), [=](benchmark::State& state) {
            copyFrames(state, pixelsPerPoint);
        })->Unit(benchmark::kMicrosecond);
    }
}

void registerBenchmarks() {
    using benchmark::RegisterBenchmark;
    RegisterBenchmark("updated pull, application", &updatedPull<Style::application>);
    RegisterBenchmark("updated pull, application/floor", &updatedPullFloor<Style::application>);
    RegisterBenchmark("updated pull, home screen", &updatedPull<Style::springBoard>);
    RegisterBenchmark("updated pull, home screen/floor", &updatedPullFloor<Style::springBoard>);
    RegisterBenchmark("opening the toolbar", &openToolbar)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("opening the toolbar/floor", &openToolbarFloor)
        ->Unit(benchmark::kMicrosecond);
    registerFrames("a drawn frame, application", Style::application);
    registerFrames("a drawn frame, home screen", Style::springBoard);
    for (long opened : {1, 10, 100, 1000}) {
        RegisterBenchmark("memory after openings", &memoryAfterOpenings)
            ->Arg(opened)
            ->Iterations(1)
            ->Unit(benchmark::kMicrosecond);
    }
}

// As many toggles as there are slots for, by their keys in the settings.
constexpr const char* toggleKeys[] = {"OrientationLock", "Mute",       "LowPower",
                                      "flashlight",      "Appearance", "DND"};

void listToggles(int count) {
    nlohmann::json keys = nlohmann::json::array();
    for (const char* key : std::span(toggleKeys).first(static_cast<std::size_t>(count)))
        keys.push_back(key);
    phone->plist("/var/mobile/Library/Preferences/com.ferolin.VNTDailyToggleList.plist",
                 nlohmann::json::array({keys}));
}

// The number that an argument --NAME=N gives, which is taken out; nothing when there is none.
std::optional<int> takeNumber(std::vector<char*>& arguments, std::string_view start, int most) {
    const auto found = std::ranges::find_if(
        arguments, [&](const char* one) { return std::string_view(one).starts_with(start); });
    if (found == arguments.end()) return std::nullopt;
    const std::string text = *found + start.size();
    arguments.erase(found);
    char* end = nullptr;
    const long number = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end || number < 0 || number > most) {
        std::fprintf(stderr, "benchmark-phone: %s takes a number from 0 to %d\n",
                     std::string(start).c_str(), most);
        std::exit(1);
    }
    return static_cast<int>(number);
}

}  // namespace

int main(int count, char** arguments) {
    std::vector<char*> all(arguments, arguments + count);
    const std::optional<int> icons = takeNumber(all, "--icons=", 6);
    const std::optional<int> toggles =
        takeNumber(all, "--toggles=", static_cast<int>(std::size(toggleKeys)));
    count = static_cast<int>(all.size());
    benchmark::Initialize(&count, all.data());
    if (benchmark::ReportUnrecognizedArguments(count, all.data())) return 1;
    AutoreleasePool pool;
    auto owned = simulator::makePhone({});
    phone = owned.get();
    if (icons) phone->dock(*icons);
    if (toggles) listToggles(*toggles);
    // The welcome pager has been seen.
    phone->plist("/var/mobile/Library/Preferences/com.ferolin.VantoriHistoryVersion.plist",
                 nlohmann::json::array({"1.2.1"}));
    phone->boot();
    toolbarHeight = springBoardToolbar().send<"suggestedY", double>();
    benchmarks::watchLibrary();
    registerBenchmarks();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
