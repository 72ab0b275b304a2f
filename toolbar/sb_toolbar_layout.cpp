#include "toolbar/sb_toolbar_layout.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/definition.hpp"
#include "settings/settings_file.hpp"
#include "toolbar/arrangement.hpp"
#include "toolbar/sb_toolbar_state.hpp"

namespace vantori {

namespace {

using State = SBToolBarState;

CGAffineTransform rotation(double radians) {
    const double sine = std::sin(radians), cosine = std::cos(radians);
    return {cosine, sine, -sine, cosine, 0, 0};
}

void placeModulesPage(VNTSBToolBarController self, bool stacked) {
    VNTCCTogglesBarViewController modules = self.ccTogglesViewController();
    UIView view = modules.view();
    if (stacked) {
        const double width = screenSize().width;
        view.setFrame(rect(width, 30, width, self.maxHeight() - 30));
        modules.scrollView().setFrame(view.bounds());
    }
    view.setAlpha(stacked ? 1 : 0);
}

void layoutPortrait(VNTSBToolBarController self, State& state) {
    const CGSize screen = screenSize();
    const int direction = currentLayoutDirection();
    const bool stacked = direction == directionStacked;
    suggestPortraitHeight(self, direction);
    self.view().setFrame(rect(0, screen.height, screen.width, screen.height));

    placePages(self, direction);
    self.setMaxHeight(heightFor(self, direction));
    placeModulesPage(self, stacked);

    VNTDailyToolBarViewController daily = self.page<VNTDailyToolBarViewController>();
    daily.toggleContainerView().setFrame(daily.view().bounds());
    state.visualEffectView.setFrame(rect(0, 0, screen.width, screen.height));
    self.grabberView().setFrame(grabberFrame(screen.width));

    UIScrollView scrollView = self.vantoriScrollView();
    scrollView.setFrame(rect(0, 0, screen.width, self.maxHeight()));
    scrollView.setContentSize(contentSizeFor(self, direction, screen.width));
}

void placeGrid(VNTSBToolBarController self) {
    const CGSize screen = screenSize();
    const double side = std::min(screen.width, screen.height);
    const double left = (std::max(screen.width, screen.height) - 2 * side) / 2;
    for (const Page& page : allPages()) {
        if (!page.place.isInGrid()) continue;
        page.controller(self).view().setFrame(rect(left + side * page.place.column,
                                                   bandHeight + pageHeight * page.place.row, side,
                                                   pageHeight));
    }
}

void showGrid(VNTSBToolBarController self) {
    self.ccTogglesViewController().view().setAlpha(0);
    for (const Page& page : allPages())
        page.controller(self).view().setAlpha(page.place.isInGrid() ? 1 : 0);
}

// Before there is a window, those that it will have: turned by a quarter, its sides are the screen's.
CGRect boundsOfHostWindow(VNTSBToolBarController self) {
    if (UIWindow window = self.vantoriHostWindow()) return window.bounds();
    const CGSize screen = screenSize();
    return rect(0, 0, screen.width, screen.height);
}

void layoutLandscape(VNTSBToolBarController self, State& state) {
    const CGSize screen = screenSize();
    self.setSuggestedFrame(rect(0, screen.height, screen.width, gridHeight));
    // First as high as the grid, then as the screen, and the blur below twice too. Deliberate.
    self.view().setFrame(rect(0, screen.height, screen.width, gridHeight));
    self.view().setFrame(rect(0, screen.height, screen.width, screen.height));
    placeGrid(self);
    showGrid(self);
    self.setMaxHeight(gridHeight);
    self.setSuggestedY(gridHeight);

    const CGRect hostBounds = boundsOfHostWindow(self);
    const double width = hostBounds.size.width;
    state.visualEffectView.setFrame(hostBounds);
    self.grabberView().setFrame(grabberFrame(width));
    UIScrollView scrollView = self.vantoriScrollView();
    scrollView.setFrame(rect(0, 0, width, gridHeight));
    scrollView.setContentSize({width, gridHeight});
    self.view().setBounds(hostBounds);
    state.visualEffectView.setFrame(hostBounds);
    state.shadowView.setFrame(hostBounds);
}

}  // namespace

// Upside down and unknown orientations leave the window as it is.
void turnHostWindow(UIWindow window, long orientation) {
    const CGSize screen = screenSize();
    switch (orientation) {
        case orientationPortrait:
            window.setTransform(identityTransform);
            window.setFrame(rect(0, 0, screen.width, screen.height));
            break;
        case orientationLandscapeRight:
            window.setTransform(rotation(std::numbers::pi / 2));
            window.setFrame(rect(0, 0, screen.height, screen.width));
            break;
        case orientationLandscapeLeft:
            window.setTransform(rotation(3 * std::numbers::pi / 2));
            window.setFrame(rect(0, 0, screen.height, screen.width));
            break;
        default:
            break;
    }
}

void suggestPortraitHeight(VNTSBToolBarController self, int direction) {
    const CGSize screen = screenSize();
    const double height = direction == directionStrip ? stripHeight : stackedHeight(self);
    self.setSuggestedFrame(rect(0, screen.height, screen.width, height));
    self.setSuggestedY(height);
}

void layoutForOrientation(VNTSBToolBarController self, long orientation) {
    State& state = stateOf<State>(self);
    const PageInFront front = pageInFront(self);
    turnHostWindow(state.hostWindow, orientation);
    if (orientation == orientationPortrait) {
        layoutPortrait(self, state);
    } else {
        layoutLandscape(self, state);
    }
    state.orientation = orientation;
    keepPageInFront(self, front);
}

}  // namespace vantori
