// Lists of icons: the pages of the home screen and the dock. The subclasses only inherit.
#pragma once

#include <string>
#include <vector>

#include "simulator/springboard/classes.hpp"

namespace simulator {

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
