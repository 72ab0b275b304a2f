#include "simulator/phone/elements.hpp"

#include <algorithm>
#include <array>

#include "simulator/phone/on_screen.hpp"
#include "simulator/scenario/known_names.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/scenario/value.hpp"
#include "simulator/uikit/view/label/label.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

std::string utf8(NSString string) { return string ? string.utf8() : ""; }

// What the view answers to a message that it may not have.
template <FixedString message>
std::string answer(UIView view) {
    if (!view.respondsTo(selector<message>())) return "";
    return utf8(view.send<message, NSString>());
}

std::string shownText(UIView view) {
    if (view.isKindOfClass(classOf<UILabel>())) return textOf(as<UILabel>(view)).text;
    if (view.isKindOfClass(classOf<UIButton>())) return utf8(view.send<"currentTitle", NSString>());
    return "";
}

bool isElement(UIView view, const std::string& ownLabel) {
    if (view.respondsTo(selector<"isAccessibilityElement">()))
        return view.send<"isAccessibilityElement", bool>();
    if (view.isKindOfClass(classOf<UIControl>())) return true;
    return !ownLabel.empty() || !shownText(view).empty();
}

struct Trait {
    unsigned long bit;
    const char* word;
};
constexpr std::array<Trait, 8> traits{{
    {1UL << 0, "button"},
    {1UL << 1, "link"},
    {1UL << 2, "image"},
    {1UL << 3, "selected"},
    {1UL << 6, "text"},
    {1UL << 8, "not enabled"},
    {1UL << 12, "adjustable"},
    {1UL << 16, "header"},
}};

std::string traitsOf(UIView view) {
    if (!view.respondsTo(selector<"accessibilityTraits">()))
        return view.isKindOfClass(classOf<UIControl>()) ? "button"
               : view.isKindOfClass(classOf<UILabel>()) ? "text"
                                                        : "";
    const auto bits = view.send<"accessibilityTraits", unsigned long>();
    std::string words;
    for (const Trait& trait : traits)
        if ((bits & trait.bit) != 0) words += (words.empty() ? "" : ", ") + std::string(trait.word);
    return words;
}

bool hidesItsElements(UIView view) {
    return view.respondsTo(selector<"accessibilityElementsHidden">()) &&
           view.send<"accessibilityElementsHidden", bool>();
}

// An element speaks for all that is inside it.
void collect(UIView view, std::vector<Element>& found) {
    if (hidesItsElements(view)) return;
    const std::string own = answer<"accessibilityLabel">(view);
    if (isElement(view, own)) {
        if (notVisible(view)) return;
        found.push_back({view, own.empty() ? shownText(view) : own,
                         answer<"accessibilityValue">(view), traitsOf(view), *frameOnScreen(view)});
        return;
    }
    const auto subviews = viewState(view).subviews;
    for (const auto& subview : subviews) collect(subview, found);
}

// From the top down; what begins within a few points of a line's first element is on its line.
void sortForReading(std::vector<Element>& elements) {
    constexpr double sameLine = 4;  // points
    std::ranges::stable_sort(elements, {}, [](const Element& e) { return e.frame.origin.y; });
    for (auto first = elements.begin(); first != elements.end();) {
        const auto end = std::find_if(first, elements.end(), [&](const Element& e) {
            return e.frame.origin.y - first->frame.origin.y > sameLine;
        });
        std::stable_sort(first, end, [](const Element& a, const Element& b) {
            return a.frame.origin.x < b.frame.origin.x;
        });
        first = end;
    }
}

}  // namespace

std::vector<Element> elementsOnScreen() {
    std::vector<Element> all;
    const auto windows = windowsBackToFront();
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
        std::vector<Element> found;
        collect(*window, found);
        sortForReading(found);
        all.insert(all.end(), found.begin(), found.end());
    }
    return all;
}

std::string elementList() {
    std::string text;
    for (const Element& element : elementsOnScreen()) {
        text += scenario::quoted(element.label);
        if (!element.value.empty()) text += " value " + scenario::quoted(element.value);
        if (!element.traits.empty()) text += " " + element.traits;
        const CGRect& f = element.frame;
        text += " at " +
                scenario::printed(
                    scenario::Structure{{f.origin.x, f.origin.y, f.size.width, f.size.height}}) +
                "\n";
    }
    return text;
}

Element elementLabelled(const std::string& label) {
    std::vector<std::string> others;
    std::vector<Element> same;
    for (const Element& element : elementsOnScreen()) {
        if (element.label == label)
            same.push_back(element);
        else
            others.push_back(element.label);
    }
    if (same.empty())
        throw PhoneError("no element on the screen has that label" + meant(label, others));
    if (same.size() > 1)
        throw PhoneError(std::to_string(same.size()) + " elements on the screen have that label");
    return same.front();
}

bool activate(const Element& element) {
    return element.view.respondsTo(selector<"accessibilityActivate">()) &&
           element.view.send<"accessibilityActivate", bool>();
}

CGPoint activationPoint(const Element& element) {
    if (element.view.respondsTo(selector<"accessibilityActivationPoint">()))
        return element.view.send<"accessibilityActivationPoint", CGPoint>();
    const CGRect& f = element.frame;
    return {f.origin.x + f.size.width / 2, f.origin.y + f.size.height / 2};
}

}  // namespace simulator
