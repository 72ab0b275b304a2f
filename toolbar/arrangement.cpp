#include "toolbar/arrangement.hpp"

#include <algorithm>

#include "settings/settings_file.hpp"

namespace vantori {

namespace {

struct PageEntry {
    NSString (*identifier)();
    UIViewController (*controller)(VNTToolBarController);
};

// In the order in which pages are placed.
constexpr PageEntry entries[] = {
    {[] { return "connectivityBar"_ns; },
     [](VNTToolBarController t) -> UIViewController { return t.connectivityBarViewController(); }},
    {[] { return "musicBar"_ns; },
     [](VNTToolBarController t) -> UIViewController { return t.mediaPlayerViewController(); }},
    {[] { return "appsBar"_ns; },
     [](VNTToolBarController t) -> UIViewController { return t.iconsContainerViewController(); }},
    {[] { return "dailyBar"_ns; },
     [](VNTToolBarController t) -> UIViewController { return t.dailyControlViewController(); }},
    {[] { return "brightnessBar"_ns; },
     [](VNTToolBarController t) -> UIViewController {
         return t.brightnessSliderContainerViewController();
     }},
    {[] { return "volumeBar"_ns; },
     [](VNTToolBarController t) -> UIViewController {
         return t.volumeSliderContainerViewController();
     }},
};

}  // namespace

CGSize screenSize() { return UIScreen::mainScreen().bounds().size; }

double screenLongSide() {
    CGSize size = screenSize();
    return std::max(size.height, size.width);
}

NSArray fixedPageList() {
    NSMutableArray list = NSMutableArray::empty();
    list.add("connectivityBar"_ns);
    list.add("musicBar"_ns);
    list.add("brightnessBar"_ns);
    list.add("volumeBar"_ns);
    list.add("appsBar"_ns);
    return list;
}

double stackedHeight(VNTToolBarController toolbar) {
    return bandHeight + pageHeight * static_cast<double>(toolbar.pages().count());
}

double heightFor(VNTToolBarController toolbar, int direction) {
    return direction == directionStacked ? stackedHeight(toolbar) : stripHeight;
}

CGRect pageFrame(unsigned long index, int direction) {
    const double width = screenSize().width;
    const double i = static_cast<double>(index);
    if (direction == directionStacked)
        return rect(0, bandHeight + pageHeight * i, width, pageHeight);
    return rect(width * i, bandHeight, width, pageHeight);
}

CGRect grabberFrame(double width) { return rect((width - 100) / 2, 10, 100, 5); }

double grabberAlpha(bool isHidden) { return isHidden ? 0 : 0.5; }

void placePages(VNTToolBarController toolbar, int direction) {
    NSArray pages = toolbar.pages();
    for (const PageEntry& entry : entries) {
        const auto index = pages.send<"indexOfObject:", unsigned long>(entry.identifier());
        const bool listed = index < pages.count();
        UIView view = entry.controller(toolbar).view();
        if (listed) view.setFrame(pageFrame(index, direction));
        view.setAlpha(listed ? 1 : 0);
    }
}

}  // namespace vantori
