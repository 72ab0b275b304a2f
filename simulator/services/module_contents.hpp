// What the modules of Control Center show: buttons with a symbol, sliders, the player, the radios, the
// recorder. Each is a controller whose view fills its tile. Empty when its class is missing.
#pragma once

#include "simulator/services/modules.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

Strong<UIViewController> makeButtonModule(const ModuleKind& kind);
Strong<UIViewController> makeSliderModule(const ModuleKind& kind);
Strong<UIViewController> makeMediaModule(const ModuleKind& kind);
Strong<UIViewController> makeConnectivityModule(const ModuleKind& kind);
Strong<UIViewController> makeRecordingModule(const ModuleKind& kind);

// A white symbol of that side in points, tinted like a template.
Strong<UIImageView> makeSymbolView(const char* symbol, double side);
// One line of white text.
Strong<UILabel> makeModuleLabel(NSString text, double fontSize, double alpha, long alignment);

// The symbol in the middle of a button module.
void setSymbol(CCUIButtonModuleViewController controller, const char* symbol);
UIImageView symbolView(CCUIButtonModuleViewController controller);

// The button and menu modules that others derive from.
void registerModuleControllers();

}  // namespace simulator
