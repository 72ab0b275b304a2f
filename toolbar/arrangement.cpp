#include "toolbar/arrangement.hpp"

#include <algorithm>
#include <array>

#include "settings/settings_file.hpp"

namespace vantori {

namespace {

template <class Row>
constexpr Page pageOf() {
    return {.identifier = [] { return operator""_ns < Row::identifier>(); },
            .controller = [](VNTToolBarController toolbar) -> UIViewController {
                return toolbar.page<typename Row::Controller>();
            },
            .place = Row::place};
}

template <class... Rows>
constexpr std::array<Page, sizeof...(Rows)> pagesOf(PageRows<Rows...>) {
    return {pageOf<Rows>()...};
}

constexpr auto table = pagesOf(PageTable{});

constexpr const Page* pageListedAt(int index) {
    for (const Page& page : table) {
        if (page.place.listed == index) return &page;
    }
    return nullptr;
}

constexpr auto listedCount = static_cast<int>(
    std::ranges::count_if(table, [](const Page& page) { return page.place.isListed(); }));

constexpr bool isListWithoutGaps() {
    for (int index = 0; index < listedCount; ++index) {
        if (!pageListedAt(index)) return false;
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
    for (int index = 0; index < listedCount; ++index) list.add(pageListedAt(index)->identifier());
    return list;
}

double stackedHeight(VNTToolBarController toolbar) {
    return bandHeight + pageHeight * static_cast<double>(toolbar.pages().count());
}

double heightFor(VNTToolBarController toolbar, int direction) {
    return direction == directionStacked ? stackedHeight(toolbar) : stripHeight;
}

// The height of a strip whatever the list, and of a stack the one that the toolbar was given last.
CGSize contentSizeFor(VNTToolBarController toolbar, int direction, double width) {
    if (direction == directionStacked) return {width, toolbar.maxHeight()};
    return {width * static_cast<double>(toolbar.pages().count()), stripHeight};
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

PageInFront pageInFront(VNTToolBarController toolbar) {
    UIScrollView scrollView = toolbar.vantoriScrollView();
    return {scrollView.contentSize(), scrollView.contentOffset()};
}

void keepPageInFront(VNTToolBarController toolbar, const PageInFront& before) {
    UIScrollView scrollView = toolbar.vantoriScrollView();
    const auto [content, offset] = pageInFront(toolbar);
    const double furthest = content.width - scrollView.frame().size.width;
    const bool stays = content.height == before.content.height && before.offset.x <= furthest;
    const CGPoint wanted = stays ? before.offset : CGPoint{0, 0};
    if (offset != wanted) scrollView.setContentOffset(wanted);
    if (wanted != before.offset) toolbar.scrollViewPageController().setCurrentPage(0);
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
