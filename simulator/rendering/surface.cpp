// Bodies of the cairo handles.
#include "simulator/rendering/surface.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "simulator/rendering/rows.hpp"

namespace simulator::rendering {

namespace {
constexpr int largestSide = 32767;  // cairo's image surfaces hold 16-bit coordinates
}

Surface::Surface(int width, int height, cairo_format_t format)
    : Surface(adopt(cairo_image_surface_create(format, std::clamp(width, 1, largestSide),
                                               std::clamp(height, 1, largestSide)))) {}

Surface Surface::adopt(cairo_surface_t* surface) {
    Surface result;
    result.surface_ = std::shared_ptr<cairo_surface_t>(surface, cairo_surface_destroy);
    return result;
}

int Surface::width() const { return surface_ ? cairo_image_surface_get_width(get()) : 0; }

int Surface::height() const { return surface_ ? cairo_image_surface_get_height(get()) : 0; }

unsigned Surface::pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width() || y >= height()) return 0;
    cairo_surface_flush(get());
    const unsigned char* row =
        cairo_image_surface_get_data(get()) + y * cairo_image_surface_get_stride(get());
    std::uint32_t value = 0;
    std::memcpy(&value, row + 4 * x, sizeof value);
    return value;
}

void copyPixels(const Surface& from, const Surface& to, Rows rows) {
    if (rows.empty()) return;
    cairo_surface_flush(from.get());
    cairo_surface_flush(to.get());
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(from.get());
    const std::ptrdiff_t start = stride * rows.first;
    std::memcpy(cairo_image_surface_get_data(to.get()) + start,
                cairo_image_surface_get_data(from.get()) + start,
                static_cast<std::size_t>(stride * rows.count()));
    cairo_surface_mark_dirty(to.get());
}

Surface copyOf(const Surface& surface) {
    Surface copy(surface.width(), surface.height(), cairo_image_surface_get_format(surface.get()));
    copyPixels(surface, copy, rowsOf(copy));
    return copy;
}

Context contextOf(const Surface& surface) { return Context(cairo_create(surface.get())); }

void setSource(cairo_t* context, Colour colour, double alpha) {
    cairo_set_source_rgba(context, colour.red, colour.green, colour.blue, colour.alpha * alpha);
}

Colour multiplied(Colour left, Colour right) {
    return {left.red * right.red, left.green * right.green, left.blue * right.blue,
            left.alpha * right.alpha};
}

Colour hex(unsigned rgb, double alpha) {
    return {((rgb >> 16) & 0xff) / 255.0, ((rgb >> 8) & 0xff) / 255.0, (rgb & 0xff) / 255.0, alpha};
}

cairo_matrix_t matrixOf(const Transform& transform) {
    return {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty};
}

}  // namespace simulator::rendering
