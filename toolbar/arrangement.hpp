// Where the pages stand. Lengths in points; W and H are the main screen's bounds, read fresh.
#pragma once

#include <span>

#include "pages/page_height.hpp"
#include "toolbar/toolbar_controller.hpp"

namespace vantori {

CGSize screenSize();
double screenLongSide();

// A row of the table, for those that go through it.
struct Page {
    NSString (*identifier)();
    UIViewController (*controller)(VNTToolBarController);
    PagePlace place;
};

// All that a toolbar has but the modules page, which stands beside them: what is done for each page
// is done by going through these.
std::span<const Page> allPages();

// The pages shown, in display order. No setting chooses them.
NSArray fixedPageList();

// What follows from a direction and the list of pages as the toolbar has it: its height, and the size of
// what scrolls in it on a screen of that width.
double stackedHeight(VNTToolBarController toolbar);
double heightFor(VNTToolBarController toolbar, int direction);
CGSize contentSizeFor(VNTToolBarController toolbar, int direction, double width);

// The frame of the page at an index of the list.
CGRect pageFrame(unsigned long index, int direction);
CGRect grabberFrame(double width);
double grabberAlpha(bool isHidden);

// The pages' content and how far it is scrolled, in points.
struct PageInFront {
    CGSize content;
    CGPoint offset;
};
PageInFront pageInFront(VNTToolBarController toolbar);

// For when the pages have been arranged anew: in another arrangement (the content's height tells them
// apart), or in a content too narrow for what was in front, the first page comes to the front. Else
// the toolbar could open where no page is. Otherwise what was in front stays there, though the content
// may have been narrower for a moment.
void keepPageInFront(VNTToolBarController toolbar, const PageInFront& before);

// Gives each listed page its frame, and every page alpha 1 or 0 by whether it is listed.
void placePages(VNTToolBarController toolbar, int direction);

}  // namespace vantori
