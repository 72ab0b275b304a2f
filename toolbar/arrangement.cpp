#include "toolbar/arrangement.hpp"

#include <algorithm>

#include "settings/settings_file.hpp"

namespace vantori {

namespace {

// In the order in which pages are made, placed and put above one another.
constexpr Page table[] = {
    {.identifier = [] { return "connectivityBar"_ns; },
     .controller = [](VNTToolBarController toolbar) -> UIViewController {
         return toolbar.connectivityBarViewController();
     },
     .listed = 0,
     .cell = GridCell{.column = 0, .row = 0}},
    {.identifier = [] { return "musicBar"_ns; },
     .controller = [](VNTToolBarController toolbar) -> UIViewController {
         return toolbar.mediaPlayerViewController();
     },
     .listed = 1,
     .cell = GridCell{.column = 1, .row = 0}},
    {.identifier = [] { return "appsBar"_ns; },
     .controller = [](VNTToolBarController toolbar) -> UIViewController {
         return toolbar.iconsContainerViewController();
     },
     .listed = 4,
     .cell = {}},
    {.identifier = [] { return "dailyBar"_ns; },
     .controller = [](VNTToolBarController toolbar) -> UIViewController {
         return toolbar.dailyControlViewController();
     },
     .listed = {},
     .cell = {}},
    {.identifier = [] { return "brightnessBar"_ns; },
     .controller = [](VNTToolBarController toolbar) -> UIViewController {
         return toolbar.brightnessSliderContainerViewController();
     },
     .listed = 2,
     .cell = GridCell{.column = 1, .row = 1}},
    {.identifier = [] { return "volumeBar"_ns; },
     .controller = [](VNTToolBarController toolbar) -> UIViewController {
         return toolbar.volumeSliderContainerViewController();
     },
     .listed = 3,
     .cell = GridCell{.column = 0, .row = 1}},
};

constexpr const Page* pageListedAt(unsigned long place) {
    for (const Page& page : table) {
        if (page.listed == place) return &page;
    }
    return nullptr;
}

constexpr auto listedCount = static_cast<unsigned long>(
    std::ranges::count_if(table, [](const Page& page) { return page.listed.has_value(); }));

constexpr bool isListWithoutGaps() {
    for (unsigned long place = 0; place < listedCount; ++place) {
        if (!pageListedAt(place)) return false;
    }
    return true;
}
static_assert(isListWithoutGaps());

}  // namespace

std::span<const Page> allPages() { return table; }

CGSize screenSize() { return UIScreen::mainScreen().bounds().size; }

double screenLongSide() {
    CGSize size = screenSize();
    return std::max(size.height, size.width);
}

NSArray fixedPageList() {
    NSMutableArray list = NSMutableArray::empty();
    for (unsigned long place = 0; place < listedCount; ++place) {
        list.add(pageListedAt(place)->identifier());
    }
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

void keepPageInFront(VNTToolBarController toolbar, CGSize contentBefore) {
    UIScrollView scrollView = toolbar.vantoriScrollView();
    const CGSize content = scrollView.contentSize();
    const double furthest = content.width - scrollView.frame().size.width;
    const double offset = scrollView.contentOffset().x;
    if (offset == 0 || (content.height == contentBefore.height && offset <= furthest)) return;
    scrollView.setContentOffset({0, 0});
    toolbar.scrollViewPageController().setCurrentPage(0);
}

void placePages(VNTToolBarController toolbar, int direction) {
    NSArray pages = toolbar.pages();
    for (const Page& page : table) {
        const auto index = pages.send<"indexOfObject:", unsigned long>(page.identifier());
        const bool listed = index < pages.count();
        UIView view = page.controller(toolbar).view();
        if (listed) view.setFrame(pageFrame(index, direction));
        view.setAlpha(listed ? 1 : 0);
    }
}

}  // namespace vantori
