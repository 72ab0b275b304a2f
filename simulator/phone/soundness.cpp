#include "simulator/phone/soundness.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/springboard.hpp"
#include "simulator/foundation/observers.hpp"
#include "simulator/phone/on_screen.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/crash.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/touch/touch.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

constexpr const char* hostWindow = "VNTSBHostWindow";
constexpr const char* welcomeWindow = "VNTUpdateWindow";

constexpr double tolerance = 0.01;

bool same(double a, double b) { return std::abs(a - b) < tolerance; }

std::string shown(double number) {
    std::string text = std::to_string(number);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

// The one instance of a toolbar's class; nothing before there is one.
Object instanceOf(const char* className) {
    const Class cls = objc_getClass(className);
    if (!cls) return Object();
    const Object owner(classObject(cls));
    if (!owner.send<"sharedInstanceIfExisted", bool>()) return Object();
    return owner.send<"sharedInstance", Object>();
}
Object springBoardToolbar() { return instanceOf("VNTSBToolBarController"); }
Object applicationToolbar() { return instanceOf("VNTToolBarController"); }

bool isOpen(Object toolbar) { return toolbar.send<"isEnabled", bool>(); }

bool isOfClass(UIView view, const char* className) {
    const Class cls = objc_getClass(className);
    return cls && view.isKindOfClass(cls);
}

long windowsOfClass(const char* className) {
    const auto windows = allWindows();
    return std::ranges::count_if(windows,
                                 [&](const auto& each) { return isOfClass(each, className); });
}

void count(UIView root, Extent& extent) {
    ++extent.views;
    extent.recognizers += static_cast<long>(viewState(root).recognizers.size());
    for (const auto& each : viewState(root).subviews) count(each, extent);
}

std::optional<std::string> windowFault() {
    for (const char* name : {hostWindow, welcomeWindow}) {
        const long windows = windowsOfClass(name);
        if (windows > 1) return std::to_string(windows) + " windows " + name;
    }
    return std::nullopt;
}

std::optional<std::string> pagingFault(const char* className) {
    const Object toolbar = instanceOf(className);
    if (!toolbar) return std::nullopt;
    const auto scroll = toolbar.send<"vantoriScrollView", UIScrollView>();
    if (!scroll || scroll.send<"isScrollEnabled", bool>()) return std::nullopt;
    return std::string("the pages of ") + className + " cannot be turned";
}

// A finger in the middle of the part of the toolbar that is up reaches it.
bool takesTouches(UIView view, double height) {
    const CGRect bounds = valuesOf(view).bounds;
    const CGPoint middle{bounds.origin.x + bounds.size.width / 2, bounds.origin.y + height / 2};
    const UIView hit = viewUnder(geometry::apply(conversionToScreen(view), middle));
    return hit && isDescendant(hit, view);
}

}  // namespace

Extent Extent::now() {
    Extent extent;
    for (const auto& window : allWindows()) {
        if (isOfClass(window, hostWindow) || isOfClass(window, welcomeWindow))
            count(window, extent);
    }
    if (const Object toolbar = applicationToolbar()) count(toolbar.send<"view", UIView>(), extent);
    extent.observers = registeredObservers();
    extent.timers = Clock::shared().waiting();
    return extent;
}

// Asked before each thing that may make it another, and when it is looked at: a toolbar that is open stays
// at the height that it had when it was opened.
void Soundness::noteHeights() {
    for (const Object toolbar : {springBoardToolbar(), applicationToolbar()}) {
        if (toolbar) heights_.insert(toolbar.send<"maxHeight", double>());
    }
    if (const Object above = springBoardToolbar())
        heights_.insert(above.send<"suggestedY", double>());
}

bool Soundness::isHeight(double length) const {
    return std::ranges::any_of(heights_, [&](double each) { return same(each, length); });
}

void Soundness::reported(Reporter reporter, GestureStage stage) {
    noteHeights();
    if (stage == UIGestureRecognizer::began) {
        pulling_.insert(reporter);
        if (announcedAt_ == Clock::shared().now()) sceneLeft_ = true;
    }
    if (stage == UIGestureRecognizer::cancelled && pulling_.contains(reporter)) takenBack();
    if (stage == UIGestureRecognizer::ended || stage == UIGestureRecognizer::cancelled)
        pulling_.erase(reporter);
}

OpenToolbars openToolbars() {
    const Object above = springBoardToolbar(), behind = applicationToolbar();
    return {.aboveSpringBoard = above && isOpen(above),
            .behindApplications = behind && isOpen(behind)};
}

// A pull that the system takes back leaves the toolbar above SpringBoard where the finger had it, and
// dims what lies behind, until a tap there or the next pull: only the application is put back.
void Soundness::takenBack() { leftInBetween_ = true; }

// A phone that is turned, or is said to be, lays the toolbar out anew below the edge, and an open one goes
// on counting as open: the next pull then only closes it.
void Soundness::noteTurns() {
    const long turns = turnsSoFar();
    if (turns != turns_) movedAway_ = true;
    turns_ = turns;
}

// Half a second after the tap, a launch out of the toolbar says that the one behind applications is closed,
// also when a pull has raised it in between.
void Soundness::noteLaunches() {
    const long launches = launchesSoFar();
    if (launches != launches_) launched_ = true;
    launches_ = launches;
}

void Soundness::posted(const std::string& notification) {
    noteHeights();
    if (notification == "com.ferolin.vantori.did-rotated" ||
        notification == "UIDeviceOrientationDidChangeNotification")
        movedAway_ = true;
}

// Told in the middle of a pull that applications are no longer lifted, the release lifts nothing and
// lowers nothing. It is told in a later turn: a pull may begin before.
void Soundness::announced() {
    noteHeights();
    announcedAt_ = Clock::shared().now();
    if (!pulling_.empty()) sceneLeft_ = true;
}

std::optional<std::string> Soundness::unsettled() const {
    if (pulling_.empty()) return std::nullopt;
    return "a pull is on its way";
}

std::optional<std::string> Soundness::fault() {
    if (const auto& reason = crash()) return "raised: " + *reason;
    noteHeights();
    noteTurns();
    noteLaunches();
    if (const auto windows = windowFault()) return windows;
    if (const Object toolbar = springBoardToolbar()) {
        if (const auto found = toolbarFault(toolbar)) return found;
    }
    if (const auto found = sceneFault()) return found;
    for (const char* name : {"VNTSBToolBarController", "VNTToolBarController"}) {
        if (const auto found = pagingFault(name)) return found;
    }
    return growth();
}

std::optional<std::string> Soundness::toolbarFault(Object toolbar) {
    const auto view = toolbar.send<"view", UIView>();
    const double up = screen().bounds().size.height - view.frame().origin.y;
    const bool open = isOpen(toolbar);
    // Before the first pull it has no window, and no place yet.
    const bool away = up < tolerance || !windowOf(view);
    if (away || open) leftInBetween_ = false;
    if (!open) movedAway_ = false;
    if (leftInBetween_) return std::nullopt;
    if (!away && !isHeight(up))
        return "the toolbar is neither up nor away: " + shown(up) + " points of it are up";
    if (away && open && !movedAway_) return "the toolbar counts as open and is away";
    if (!away && !open) return "the toolbar is up and counts as closed";
    // Upside down, the toolbar's window stays as the phone was held before.
    if (away || activeOrientation() == orientationUpsideDown) return std::nullopt;
    if (const auto hindrance = notVisible(view))
        return "the toolbar is open and not seen: " + *hindrance;
    if (!takesTouches(view, up)) return "the toolbar is open and takes no touch";
    return std::nullopt;
}

std::optional<std::string> Soundness::sceneFault() {
    const auto controller = SBMainDisplaySceneLayoutViewController::main();
    const Object toolbar = applicationToolbar();
    if (!controller || !toolbar) return std::nullopt;
    const double lift = -controller.sceneContainerView().frame().origin.y;
    if (same(lift, 0)) {
        sceneLeft_ = launched_ = false;
        // On the home screen, or turned, nothing is lifted for it.
        const bool lifts =
            !frontMostIdentifier().empty() && activeOrientation() == orientationPortrait;
        if (isOpen(toolbar) && lifts)
            return "the toolbar behind the application counts as open, and the application is in its "
                   "place";
        return std::nullopt;
    }
    if (sceneLeft_) return std::nullopt;
    if (!isHeight(lift))
        return "the application is neither lifted nor in its place: " + shown(lift) +
               " points above it";
    if (!isOpen(toolbar) && !launched_)
        return "the application is lifted for a toolbar that counts as closed";
    return std::nullopt;
}

// From the first pull on, which makes the window. The least in a period, so that what comes and goes (a page that is hosted, a song's title that scrolls)
// is not taken for what stays.
std::optional<std::string> Soundness::growth() {
    constexpr Extent slack{.views = 60, .recognizers = 20, .observers = 20, .timers = 20};
    if (windowsOfClass(hostWindow) == 0) return std::nullopt;
    const Extent now = Extent::now();
    const auto lower = [&](long Extent::* each) {
        least_.*each = checks_ == 0 ? now.*each : std::min(least_.*each, now.*each);
    };
    for (auto each : {&Extent::views, &Extent::recognizers, &Extent::observers, &Extent::timers})
        lower(each);
    if (++checks_ < period) return std::nullopt;
    checks_ = 0;
    if (!first_) {
        first_ = least_;
        return std::nullopt;
    }
    struct Part {
        const char* name;
        long Extent::* number;
    };
    constexpr std::array<Part, 4> parts{{{"views", &Extent::views},
                                         {"recognisers", &Extent::recognizers},
                                         {"observers", &Extent::observers},
                                         {"timers", &Extent::timers}}};
    for (const auto& [name, number] : parts) {
        const long before = *first_.*number;
        if (least_.*number > before + slack.*number)
            return std::string("more and more ") + name + ": " + std::to_string(least_.*number) +
                   ", at first " + std::to_string(before);
    }
    return std::nullopt;
}

}  // namespace simulator
