// Blurs: effects and the views that show them.
#pragma once

#include <optional>

#include "simulator/rendering/scene.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

// What the view does to what lies behind it; nothing for views that do not blur.
std::optional<rendering::Blur> blurOf(UIView view);

void registerEffects();

}  // namespace simulator
