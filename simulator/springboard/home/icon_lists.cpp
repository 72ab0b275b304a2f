#include "simulator/springboard/home/icon_lists.hpp"

#include "simulator/springboard/home/icons.hpp"
#include "simulator/uikit/parts.hpp"

namespace simulator {

namespace {

struct IconListState {
    std::vector<Strong<SBIcon>> icons;
    std::vector<Strong<SBIconView>> views;
    IconGrid grid;
    bool editing;
};

NSArray icons(SBIconListView self) {
    NSMutableArray all = NSMutableArray::empty();
    for (const auto& icon : stateOf<IconListState>(self).icons) all.add(icon);
    return all;
}

CGSize iconSize(SBIconListView) { return {iconLength, iconLength}; }

// Columns with equal gaps between and beside them.
void layoutIconsNow(SBIconListView self) {
    const IconListState& state = stateOf<IconListState>(self);
    if (state.grid.columns < 1) return;
    int columns = state.grid.columns;
    double gap = (self.bounds().size.width - columns * iconLength) / (columns + 1);
    for (std::size_t i = 0; i < state.views.size(); ++i) {
        double column = static_cast<double>(i % static_cast<std::size_t>(columns));
        double row = static_cast<double>(i / static_cast<std::size_t>(columns));
        state.views[i].setFrame(rect(gap + column * (iconLength + gap),
                                     state.grid.top + row * state.grid.rowDistance, iconLength,
                                     iconLength));
    }
}

void layoutSubviews(SBIconListView self) {
    super<SBIconListView, "layoutSubviews">(self);
    self.send<"layoutIconsNow">();
}

void setEditing(SBIconListView self, bool editing) {
    stateOf<IconListState>(self).editing = editing;
}

bool isEditing(SBIconListView self) { return stateOf<IconListState>(self).editing; }

}  // namespace

void fillIconList(SBIconListView list, const std::vector<std::string>& identifiers,
                  const IconGrid& grid) {
    IconListState& state = stateOf<IconListState>(list);
    for (const auto& view : state.views) view.removeFromSuperview();
    state.icons.clear();
    state.views.clear();
    state.grid = grid;
    for (const std::string& identifier : identifiers) {
        SBApplicationIcon icon = iconOf(identifier);
        if (!icon) continue;
        auto view = makeIconView(icon, grid.labelled);
        if (!view) continue;
        addPart(list, view);
        state.icons.push_back(retained(SBIcon(icon.get())));
        state.views.push_back(std::move(view));
    }
    list.send<"layoutIconsNow">();
}

SBIconView iconViewIn(SBIconListView list, const std::string& identifier) {
    for (const auto& view : stateOf<IconListState>(list).views) {
        if (identifierOf(iconOfView(view)) == identifier) return view;
    }
    return {};
}

void registerIconLists() {
    standIn<SBIconListView, UIView, IconListState>()
        .method<"icons", &icons>()
        .method<"visibleIcons", &icons>()
        .method<"alignmentIconSize", &iconSize>()
        .method<"defaultIconSize", &iconSize>()
        .method<"layoutIconsNow", &layoutIconsNow>()
        .method<"layoutSubviews", &layoutSubviews>()
        .method<"setEditing:", &setEditing>()
        .method<"isEditing", &isEditing>();
    standIn<SBRootIconListView, SBIconListView>();
    standIn<SBDockIconListView, SBIconListView>();
    standIn<SBRootFolderDockIconListView, SBDockIconListView>();
    standIn<SBFloatingDockIconListView, SBDockIconListView>();
    standIn<SBDockSuggestionsIconListView, SBFloatingDockIconListView>();
}

}  // namespace simulator
