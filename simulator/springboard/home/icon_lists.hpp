// Lists of icons: the pages of the home screen and the dock. The subclasses only inherit.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/handle.hpp"
#include "simulator/springboard/home/icons.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

VANTORI_CLASS(SBIconListView, UIView);
VANTORI_CLASS(SBRootIconListView, SBIconListView);
VANTORI_CLASS(SBDockIconListView, SBIconListView);
VANTORI_CLASS(SBRootFolderDockIconListView, SBDockIconListView);
VANTORI_CLASS(SBFloatingDockIconListView, SBDockIconListView);
VANTORI_CLASS(SBDockSuggestionsIconListView, SBFloatingDockIconListView);

struct IconGrid {
    int columns;
    double top;          // points above the first row
    double rowDistance;  // points from row to row
    bool labelled;
};

void fillIconList(SBIconListView list, const std::vector<std::string>& identifiers,
                  const IconGrid& grid);
// The view of the application's icon; empty when the list has none.
SBIconView iconViewIn(SBIconListView list, const std::string& identifier);

void registerIconLists();

}  // namespace simulator
