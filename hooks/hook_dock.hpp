// The dock feeds the applications pages of both toolbars: SpringBoard's own calls of these methods
// hand the dock's icons over. Sizes in points.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

// The dock itself, whenever it comes into a window or is laid out.
void dockDidChange(System<void()> system, Object self);

// The list of a dock at the edge.
Object rootDockVisibleIcons(System<Object()> system, Object self);
void rootDockSetEditing(System<void(bool)> system, Object self, bool editing);
void rootDockDidMove(System<void()> system, Object self);
void rootDockLayoutIcons(System<void()> system, Object self);

// The list of a floating dock. The list of suggestions beside it never feeds the pages.
Object floatingDockVisibleIcons(System<Object()> system, Object self);
void floatingDockSetEditing(System<void(bool)> system, Object self, bool editing);
void floatingDockDidChange(System<void()> system, Object self);

}  // namespace vantori
