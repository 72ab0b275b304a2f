// Loops over the pixels of a whole screen, where cairo's own are too slow for every frame: they are
// written for the compiler's vectors. The pixels are the same on every processor.
#pragma once

#include "simulator/rendering/blur.hpp"
#include "simulator/rendering/scene.hpp"
#include "simulator/rendering/stamps.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

// The part of an enlarged smear that covers the box (canvas pixels). Colours run straight from the
// middle of each small pixel to the next, and stay as they are beyond the last.
Surface enlarged(const Smear& smear, PixelBox box);
// The same into a surface whose first pixel lies at `left`, `top` of the canvas.
void enlargeInto(const Surface& surface, int left, int top, const Smear& smear, PixelBox box);

// Lays the see-through colour over the pixels of `from` in the box, which lies inside, and puts them into
// `to`, of the same size; the two may be one.
void layOver(const Surface& from, const Surface& to, PixelBox box, Colour colour);

// Lays the colour over the pixels in the box, which lies inside, as far as the stamp covers them. It gives
// the pixels that cairo gives for a mask, which takes it several times as long.
void layThrough(const Stamp& stamp, const Surface& to, PixelBox box, Colour colour);

}  // namespace simulator::rendering
