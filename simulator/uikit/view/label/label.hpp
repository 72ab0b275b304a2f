// Labels and fonts.
#pragma once

#include "simulator/rendering/scene.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

// What a label shows, for the scene.
rendering::Text textOf(UILabel label);

struct FontTraits {
    double size;  // points
    int weight;   // 100 to 900
};
// Those of a label without a font of its own for no font.
FontTraits traitsOf(UIFont font);

void registerFont();
void registerLabel();
// How UIKit lets strings be measured.
void addTextMeasuring();

}  // namespace simulator
