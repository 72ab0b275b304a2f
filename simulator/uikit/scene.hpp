// The bridge to the canvas: the visible windows, back to front, as one tree of nodes with
// presentation values.
#pragma once

#include "simulator/rendering/scene.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

rendering::Node sceneOf(CALayer layer);
// Everything on the display, in the space that windows lie in; size is that of the display.
rendering::Node sceneOfWindows(CGSize size);

// What a view of another framework shows: asked for each view before UIKit's own kinds. Holds a
// monostate when it does not know the view.
using ContentSource = rendering::Content (*)(UIView view);
void addContentSource(ContentSource source);

// Changes the node of a view of another framework, after its children have been added.
using NodeFinish = void (*)(UIView view, rendering::Node& node);
void addNodeFinish(NodeFinish finish);

}  // namespace simulator
