// The canvas: a surface, its scale, and a painter for each frame.
#include "simulator/rendering/canvas.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/rendering/painter.hpp"

namespace simulator::rendering {

int pixelsFor(double points, double scale) {
    return static_cast<int>(std::clamp(std::round(points * scale), 1.0, 32767.0));
}

void fill(const Surface& surface, Colour colour, Rows rows) {
    const Context context = contextOf(surface);
    cairo_rectangle(context.get(), 0, rows.first, surface.width(), rows.count());
    cairo_set_operator(context.get(), CAIRO_OPERATOR_SOURCE);
    setSource(context.get(), colour);
    cairo_fill(context.get());
}

Canvas::Canvas(Size points, double scale)
    : size_(points),
      scale_(scale > 0 ? scale : 1),
      surface_(pixelsFor(points.width, scale_), pixelsFor(points.height, scale_)) {}

void Canvas::clear(Colour colour) { fill(surface_, colour, rowsOf(surface_)); }

void Canvas::draw(const Node& root) {
    const Context context = contextOf(surface_);
    cairo_scale(context.get(), scale_, scale_);
    Painter(surface_, context.get()).paint(root);
    cairo_surface_flush(surface_.get());
}

Surface render(const Node& root, Size points, double scale, Colour backdrop) {
    Canvas canvas(points, scale);
    canvas.clear(backdrop);
    canvas.draw(root);
    return canvas.surface();
}

}  // namespace simulator::rendering
