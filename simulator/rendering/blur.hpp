// Smears what has been drawn so far. The work is done on a copy of up to one eighth of the size: at
// full size a blur of a phone's screen would take longer than ten frames.
#pragma once

#include <algorithm>
#include <vector>

#include "simulator/rendering/scene.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

struct PixelBox {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// Where both are.
inline PixelBox common(PixelBox one, PixelBox other) {
    const int x = std::max(one.x, other.x), y = std::max(one.y, other.y);
    const int width = std::min(one.x + one.width, other.x + other.width) - x;
    const int height = std::min(one.y + one.height, other.y + other.height) - y;
    return width > 0 && height > 0 ? PixelBox{x, y, width, height} : PixelBox{};
}

// A layer of pixels that lies at an offset of the canvas: the canvas itself first, then the open
// groups over it.
struct PixelLayer {
    cairo_surface_t* surface;
    int x = 0;
    int y = 0;
};

// A small opaque picture; scaled up by `factor` it covers the canvas from `x`, `y` on.
struct Smear {
    Surface surface;
    int factor = 1;
    int x = 0;
    int y = 0;
};

// Shrinks the layers inside `box` (canvas pixels), blurs with a standard deviation of `sigma` pixels,
// saturates and tints. Nothing is read beyond the first layer's edges: they are continued outwards.
Smear smearOf(const std::vector<PixelLayer>& layers, PixelBox box, double sigma, Colour tint,
              double saturation);

// How many pixels beyond its box a blur looks at most.
int blurReach(double sigma);

// Three box passes, close to a Gaussian of `sigma` pixels, in place.
void blurInPlace(const Surface& surface, double sigma);

}  // namespace simulator::rendering
