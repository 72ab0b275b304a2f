// The grid of Control Center's modules, and the one module that may be expanded over it. Lengths in
// points of the interface.
#pragma once

#include "platform/control_center.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

CCUIModuleCollectionViewController moduleCollection();

// Real systems reach the grid by this controller. Empty on other phones.
UIViewController modularControlCenter();

// Lays the grid out in a screen of that size: hanging from the top, or standing on the foot.
enum class GridSide { top, foot };
void layModules(CGSize screen, GridSide side);
// How far the grid has to slide from out of sight to its place.
double gridTravel();

bool isModuleExpanded();
// At once; part of an animation when called in one.
void collapseModule();
// How the expanded module comes up by itself: first small and unseen, then as it is.
void hideExpandedModule();
void showExpandedModule();

// Whether the view belongs to a module's tile.
bool isInModule(UIView view);

void registerModuleGrid();

}  // namespace simulator
