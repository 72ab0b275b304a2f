#include "simulator/phone/welcome.hpp"

#include <algorithm>
#include <cstring>

#include "simulator/phone/on_screen.hpp"
#include "simulator/uikit/view/view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

constexpr const char* welcomePager = "VNTUpdateViewController";

bool isPagers(UIView view) {
    const UIViewController controller = viewState(view).controller;
    return controller &&
           std::strcmp(class_getName(object_getClass(controller.get())), welcomePager) == 0;
}

bool holdsPager(UIView view) {
    if (isPagers(view)) return !notVisible(view);
    const auto& below = viewState(view).subviews;
    return std::any_of(below.begin(), below.end(), [](UIView each) { return holdsPager(each); });
}

}  // namespace

bool welcomeIsShown() {
    const auto windows = allWindows();
    return std::any_of(windows.begin(), windows.end(),
                       [](UIView each) { return holdsPager(each); });
}

}  // namespace simulator
