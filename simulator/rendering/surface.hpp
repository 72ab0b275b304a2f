// Owning handles of cairo's objects and the few helpers that every drawing file needs.
// Surfaces hold 32-bit pixels with premultiplied alpha; sizes are pixels.
#pragma once

#include <cairo.h>

#include <memory>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

// Shares one cairo image surface; an empty handle answers zero for its size.
class Surface {
  public:
    Surface() = default;
    // A transparent surface. Sizes are clamped to what cairo can hold (1 to 32767).
    Surface(int width, int height, cairo_format_t format = CAIRO_FORMAT_ARGB32);
    // Takes over a surface that was just created.
    static Surface adopt(cairo_surface_t* surface);

    explicit operator bool() const { return surface_ != nullptr; }
    cairo_surface_t* get() const { return surface_.get(); }
    int width() const;
    int height() const;
    // The premultiplied pixel (0xAARRGGBB); zero outside the surface.
    unsigned pixel(int x, int y) const;

  private:
    std::shared_ptr<cairo_surface_t> surface_;
};

Surface copyOf(const Surface& surface);

struct ContextDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Context = std::unique_ptr<cairo_t, ContextDeleter>;
Context contextOf(const Surface& surface);

struct PatternDeleter {
    void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};
using Pattern = std::unique_ptr<cairo_pattern_t, PatternDeleter>;

void setSource(cairo_t* context, Colour colour, double alpha = 1);
Colour multiplied(Colour left, Colour right);
Colour hex(unsigned rgb, double alpha = 1);
cairo_matrix_t matrixOf(const Transform& transform);

}  // namespace simulator::rendering
