// What is shown again and again at other places, ready to be laid over: the coverage of rounded outlines
// and images in the size in which they are shown. A stamp is made once for each eighth of a pixel at which
// it begins, which is finer than anyone sees, and kept for the next frame.
#pragma once

#include <cairo.h>

#include <optional>

#include "simulator/rendering/scene.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

// Pixels, and where their first one lies on the canvas.
struct Stamp {
    Surface pixels;
    int x;
    int y;
};

// Whether a rectangle, under the matrix from points to pixels, is fit for a stamp: it neither turns nor
// mirrors, and is small enough to be kept.
bool isFitForStamp(const cairo_matrix_t& matrix, Rect rect);

// The coverage of the outline, in each of the four channels.
Stamp outlineStamp(const cairo_matrix_t& matrix, Rect rect, double radius, bool continuous);

// The pixels filtered to the size of the rectangle, each channel multiplied first where that is asked for.
Stamp imageStamp(const cairo_matrix_t& matrix, Rect rect, const Surface& pixels,
                 const std::optional<Colour>& multiply);
// Their alpha alone (8 bits).
Stamp coverageStamp(const cairo_matrix_t& matrix, Rect rect, const Surface& pixels);

// Makes the context's units those of the pixels in the rectangle, where nothing may bleed out of it.
// Answers what to paint or to mask with.
Pattern fitInto(cairo_t* context, Rect rect, const Surface& pixels);

// A copy of the pixels with every channel multiplied.
Surface tinted(const Surface& surface, Colour by);

}  // namespace simulator::rendering
