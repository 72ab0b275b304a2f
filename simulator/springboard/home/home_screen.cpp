#include "simulator/springboard/home/home_screen.hpp"

#include <algorithm>
#include "simulator/uikit/parts.hpp"

#include "simulator/hardware/configuration.hpp"
#include "simulator/hardware/display.hpp"
#include "simulator/springboard/display/artwork.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/springboard/home/icon_lists.hpp"
#include "simulator/springboard/home/icons.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(SBHomeScreenView, UIView);
VANTORI_CLASS(SBDockView, UIView);

struct HomeScreenState {
    Strong<SBRootIconListView> page;
    Strong<SBDockView> dock;
    Strong<UIPageControl> dots;
};
struct DockState {
    Strong<UIView> ground;
    Strong<SBDockIconListView> list;
};

constexpr double dockHeight = 96;
constexpr double dockMargin = 11;  // beside and below the dock on phones without a home button
constexpr double dockCorner = 31;
constexpr double dotsHeight = 37;

Strong<SBHomeScreenView>& view() {
    static auto& shared = *new Strong<SBHomeScreenView>;
    return shared;
}

HomeScreenState& state() { return stateOf<HomeScreenState>(view()); }

void didMoveToWindow(SBHomeScreenView self) { super<SBHomeScreenView, "didMoveToWindow">(self); }

SBDockIconListView dockListView(SBDockView self) { return stateOf<DockState>(self).list; }

Strong<SBDockIconListView> makeDockList() {
    const CGRect frame = rect(0, 0, 0, dockHeight);
    if (configuration().floatingDock) {
        return create<SBFloatingDockIconListView, "initWithFrame:">(frame);
    }
    return create<SBRootFolderDockIconListView, "initWithFrame:">(frame);
}

bool isFlat(CGSize size) { return size.width > size.height; }

void layoutDock(SBDockView self) {
    super<SBDockView, "layoutSubviews">(self);
    DockState& dock = stateOf<DockState>(self);
    CGRect bounds = self.bounds();
    if (!dock.list) return;
    bool floats = !configuration().homeButton || configuration().floatingDock;
    double margin = floats ? dockMargin : 0;
    dock.ground.setFrame(rect(margin, 0, bounds.size.width - 2 * margin, bounds.size.height));
    dock.ground.send<"_setContinuousCornerRadius:">(floats ? dockCorner : 0.0);
    dock.list.setFrame(bounds);
}

std::vector<std::string> identifiers(std::size_t from, std::size_t to) {
    std::vector<std::string> names;
    auto all = installedApplications();
    for (std::size_t i = from; i < std::min(to, all.size()); ++i) {
        names.emplace_back(all[i].identifier);
    }
    return names;
}

std::size_t dockCount() { return static_cast<std::size_t>(configuration().dockIcons); }

Strong<SBDockView> makeDock() {
    auto dock = create<SBDockView, "initWithFrame:">(rect(0, 0, 0, dockHeight));
    if (!dock) return dock;
    DockState& parts = stateOf<DockState>(dock);
    auto blur =
        create<UIVisualEffectView, "initWithEffect:">(UIBlurEffect::withStyle(UIBlurEffect::light));
    if (blur) {
        blur.setClipsToBounds(true);
        addPart(dock, blur);
        parts.ground = Strong<UIView>(std::move(blur));
    }
    parts.list = makeDockList();
    if (parts.list) {
        int columns = std::max(configuration().dockIcons, 4);
        fillIconList(parts.list, identifiers(0, dockCount()),
                     {columns, (dockHeight - iconLength) / 2, 0, false});
        addPart(dock, parts.list);
    }
    return dock;
}

double pageTop(CGSize size) {
    if (isFlat(size)) return 12;
    return configuration().homeButton ? 28 : 66;
}

}  // namespace

void makeHomeScreen() {
    view() = create<SBHomeScreenView, "initWithFrame:">(UIScreen::mainScreen().bounds());
    if (!view()) return;
    HomeScreenState& parts = state();
    parts.page = create<SBRootIconListView, "initWithFrame:">(view().bounds());
    if (parts.page) addPart(view(), parts.page);
    parts.dots = create<UIPageControl>();
    if (parts.dots) {
        parts.dots.setNumberOfPages(2);
        addPart(view(), parts.dots);
    }
    parts.dock = makeDock();
    if (parts.dock) addPart(view(), parts.dock);
    layHomeScreen();
}

void moveHomeScreenToWindow() {
    if (view()) addPart(windows().home, view());
}

void layHomeScreen() {
    if (!view()) return;
    CGSize size = interfaceSize(activeOrientation());
    view().setFrame(rect(0, 0, size.width, size.height));
    double below = configuration().homeButton ? 0 : dockMargin;
    double dockTop = size.height - dockHeight - below;
    HomeScreenState& parts = state();
    if (parts.page) {
        parts.page.setFrame(rect(0, 0, size.width, dockTop));
        fillIconList(parts.page, identifiers(dockCount(), installedApplications().size()),
                     {isFlat(size) ? 6 : 4, pageTop(size), isFlat(size) ? 84.0 : 102.0, true});
    }
    if (parts.dots) parts.dots.setFrame(rect(0, dockTop - dotsHeight, size.width, dotsHeight));
    if (parts.dock) parts.dock.setFrame(rect(0, dockTop, size.width, dockHeight));
}

CGRect iconFrame(const std::string& identifier) {
    CGSize size = interfaceSize(activeOrientation());
    if (view()) {
        UIView place;
        HomeScreenState& parts = state();
        if (parts.page) place = iconViewIn(parts.page, identifier);
        if (!place && parts.dock && stateOf<DockState>(parts.dock).list) {
            place = iconViewIn(stateOf<DockState>(parts.dock).list, identifier);
        }
        if (place) {
            CGPoint origin = view().convertPointFrom({0, 0}, place);
            return {origin, {iconLength, iconLength}};
        }
    }
    return rect((size.width - iconLength) / 2, (size.height - iconLength) / 2, iconLength,
                iconLength);
}

void registerHomeScreen() {
    standIn<SBHomeScreenView, UIView, HomeScreenState>()
        .method<"didMoveToWindow", &didMoveToWindow>();
    // Moving to a window is inherited by the dock.
    standIn<SBDockView, UIView, DockState>()
        .method<"dockListView", &dockListView>()
        .method<"layoutSubviews", &layoutDock>();
}

}  // namespace simulator
