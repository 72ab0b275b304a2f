// Control Center's modules: what there is, what shows each, and the instances that the module manager
// keeps. A module whose bundle or class is not on this phone is left out.
#pragma once

#include <span>
#include <string_view>

#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

VANTORI_CLASS(CCUIModuleInstance, Object);
VANTORI_CLASS(CCUIButtonModuleView, UIControl);
VANTORI_CLASS(CCUIButtonModuleViewController, UIViewController);
VANTORI_CLASS(CCUIMenuModuleViewController, CCUIButtonModuleViewController);

// In cells of the grid.
struct GridPlace {
    int column, row, columns, rows;
};
inline constexpr int gridColumns = 4;
inline constexpr int gridRows = 6;

struct ModuleKind {
    const char* identifier;
    const char* bundle;  // brings the class; null when it is there from the start
    const char* symbol;
    GridPlace place;
    Strong<UIViewController> (*make)(const ModuleKind&);
};

// Those that there are, from the top left; made on first use, and tried again while they fail.
NSArray moduleInstances();
CCUIModuleInstance instanceOf(NSString identifier);
const ModuleKind& kindOf(CCUIModuleInstance instance);
UIViewController contentOf(CCUIModuleInstance instance);

void registerModules();

}  // namespace simulator
