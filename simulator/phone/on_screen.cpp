#include "simulator/phone/on_screen.hpp"

#include <vector>

#include "simulator/hardware/display.hpp"
#include "simulator/scenario/known_names.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/touch/touch.hpp"
#include "simulator/uikit/view/label/label.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

constexpr double leastAlpha = 0.01;

CGRect toInterface(CGRect display) {
    const long orientation = activeOrientation();
    const CGPoint one = simulator::toInterface(display.origin, orientation);
    const CGPoint other = simulator::toInterface(
        {display.origin.x + display.size.width, display.origin.y + display.size.height},
        orientation);
    return {{std::min(one.x, other.x), std::min(one.y, other.y)},
            {std::abs(one.x - other.x), std::abs(one.y - other.y)}};
}

bool overlap(CGRect a, CGRect b) {
    return a.origin.x < b.origin.x + b.size.width && b.origin.x < a.origin.x + a.size.width &&
           a.origin.y < b.origin.y + b.size.height && b.origin.y < a.origin.y + a.size.height;
}

std::string described(Object view) {
    return std::string("<") + class_getName(object_getClass(view.get())) + ">";
}

// Calls visit for every label, front or back.
template <class Visitor>
void eachLabel(UIView root, Visitor visit) {
    if (root.isKindOfClass(classOf<UILabel>())) visit(as<UILabel>(root));
    const auto subviews = viewState(root).subviews;
    for (const auto& subview : subviews) eachLabel(subview, visit);
}

bool takesNoTouches(UIView view) { return viewState(view).interactionDisabled; }

// A view that takes no touches leaves them to what it lies on.
bool standsFor(UIView hit, UIView view) {
    if (isDescendant(hit, view)) return true;
    for (UIView each = view; each && takesNoTouches(each);) {
        each = viewState(each).superview;
        if (each == hit) return true;
    }
    return false;
}

}  // namespace

std::optional<CGRect> frameOnScreen(UIView view) {
    if (!windowOf(view)) return std::nullopt;
    return toInterface(geometry::boundingBox(conversionToScreen(view), valuesOf(view).bounds));
}

std::optional<std::string> notVisible(UIView view) {
    UIWindow window = windowOf(view);
    if (!window) return "it is in no window";
    if (!isVisible(window)) return "its window is hidden";
    for (UIView each = view; each; each = viewState(each).superview) {
        const std::string whose = each == view ? "it" : described(each) + " above it";
        if (valuesOf(each).hidden) return whose + " is hidden";
        if (!(valuesOf(each).opacity > leastAlpha)) return whose + " is transparent";
    }
    if (!overlap(*frameOnScreen(view), screen().bounds())) return "it is off the screen";
    return std::nullopt;
}

std::optional<std::string> textNotShown(const std::string& wanted) {
    std::optional<std::string> reason;
    bool shown = false;
    std::vector<std::string> others;
    const auto look = [&](UILabel label) {
        const std::string text = textOf(label).text;
        if (text != wanted) return others.push_back(text);
        const auto hindrance = notVisible(label);
        if (!hindrance) shown = true;
        reason = hindrance;
    };
    for (const auto& window : allWindows()) eachLabel(window, look);
    if (shown) return std::nullopt;
    if (reason) return reason;
    return "no label or button has that text" + meant(wanted, others);
}

CGPoint middleWithinReach(Object object) {
    if (!object.isKindOfClass(classOf<UIView>()))
        throw PhoneError(described(object) + " is no view");
    const UIView view = as<UIView>(object);
    const std::string name = described(view);
    if (const auto hindrance = notVisible(view)) throw PhoneError(name + ": " + *hindrance);
    const CGRect bounds = valuesOf(view).bounds;
    const CGPoint display = geometry::apply(
        conversionToScreen(view),
        {bounds.origin.x + bounds.size.width / 2, bounds.origin.y + bounds.size.height / 2});
    const CGPoint place = simulator::toInterface(display, activeOrientation());
    if (!geometry::contains(screen().bounds(), place))
        throw PhoneError(name + ": its middle is off the screen");
    const UIView hit = viewUnder(display);
    if (!hit) throw PhoneError(name + ": nothing would take the touch there");
    if (!standsFor(hit, view))
        throw PhoneError(name + ": " + described(hit) + " would take the touch");
    return place;
}

std::string treeOnScreen(UIView root) { return viewTree(root, frameOnScreen); }

}  // namespace simulator
