// Pictures made of pictures: film strips, comparisons with captions, and a phone around a screen.
#pragma once

#include <string>
#include <vector>

#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

// Side by side on a transparent ground, tops aligned. The gap is in pixels.
Surface filmStrip(const std::vector<Surface>& frames, int gap = 8);

struct Captioned {
    Surface surface;
    std::string caption;  // empty: none
};

// Side by side with a caption under each; `scale` is pixels per point of the pictures.
Surface sideBySide(const std::vector<Captioned>& pictures, double scale = 1,
                   Colour ink = {0.35, 0.36, 0.4, 1});

// The screen inside a thin bezel with rounded corners and buttons, on a transparent ground. A notch
// is drawn over the top edge when asked for (portrait screens).
Surface frame(const Surface& screen, double scale, bool notch = true);

}  // namespace simulator::rendering
