// Stamps are known by a print of all that they are made from; a picture by its address, which it keeps
// while a stamp of it is kept.
#include "simulator/rendering/stamps.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <unordered_map>

#include "simulator/rendering/outline.hpp"
#include "simulator/rendering/print.hpp"

namespace simulator::rendering {

namespace {

constexpr double eighths = 8;                  // in a pixel
constexpr double largestArea = 200 * 200;      // pixels
constexpr std::size_t mostBytes = 16'000'000;  // of all stamps and of what they are made from

struct Kept {
    Surface pixels;
    Surface madeFrom;
};
struct Drawer {
    std::unordered_map<std::uint64_t, Kept> stamps;
    std::size_t bytes = 0;
};
Drawer& drawer() {
    static Drawer kept;
    return kept;
}

std::size_t bytesOf(const Surface& surface) {
    if (!surface) return 0;
    return static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get())) *
           static_cast<std::size_t>(surface.height());
}

// Where a rectangle begins on the canvas, in eighths of a pixel, and how large it is there.
struct Spot {
    long left, top;
    double width, height;

    Spot(const cairo_matrix_t& matrix, Rect rect)
        : left(std::lround((matrix.xx * rect.origin.x + matrix.x0) * eighths)),
          top(std::lround((matrix.yy * rect.origin.y + matrix.y0) * eighths)),
          width(rect.size.width * matrix.xx),
          height(rect.size.height * matrix.yy) {}

    static int pixel(long at) {
        return static_cast<int>(std::floor(static_cast<double>(at) / eighths));
    }
    static double rest(long at) { return static_cast<double>(at) / eighths - pixel(at); }
};

// The stamp of that print, which is made by draw(context) with the first pixel of the rectangle at 0, 0.
template <class Draw>
Stamp stampFor(Print print, const Spot& place, cairo_format_t format, const Surface& madeFrom,
               Draw draw) {
    const double left = Spot::rest(place.left), top = Spot::rest(place.top);
    print.add(left);
    print.add(top);
    print.add(place.width);
    print.add(place.height);
    print.add(static_cast<int>(format));
    Drawer& kept = drawer();
    auto found = kept.stamps.find(print.value());
    if (found == kept.stamps.end()) {
        const Surface pixels(static_cast<int>(std::ceil(left + place.width)),
                             static_cast<int>(std::ceil(top + place.height)), format);
        const Context context = contextOf(pixels);
        cairo_translate(context.get(), left, top);
        draw(context.get());
        cairo_surface_flush(pixels.get());
        if (kept.bytes > mostBytes) kept = {};
        kept.bytes += bytesOf(pixels) + bytesOf(madeFrom);
        found = kept.stamps.emplace(print.value(), Kept{pixels, madeFrom}).first;
    }
    return {found->second.pixels, Spot::pixel(place.left), Spot::pixel(place.top)};
}

}  // namespace

bool isFitForStamp(const cairo_matrix_t& matrix, Rect rect) {
    const double width = rect.size.width * matrix.xx, height = rect.size.height * matrix.yy;
    const double x = matrix.xx * rect.origin.x + matrix.x0;
    const double y = matrix.yy * rect.origin.y + matrix.y0;
    return matrix.xy == 0 && matrix.yx == 0 && width > 0 && height > 0 &&
           width * height <= largestArea && std::max(width, height) < 4096 && std::abs(x) < 1e6 &&
           std::abs(y) < 1e6;
}

Stamp outlineStamp(const cairo_matrix_t& matrix, Rect rect, double radius, bool continuous) {
    Print print;
    print.add(radius);
    print.add(continuous);
    print.add(rect.size);
    return stampFor(print, {matrix, rect}, CAIRO_FORMAT_ARGB32, {}, [&](cairo_t* context) {
        cairo_scale(context, matrix.xx, matrix.yy);
        addOutline(context, {{0, 0}, rect.size}, radius, continuous);
        cairo_set_source_rgb(context, 1, 1, 1);
        cairo_fill(context);
    });
}

Stamp imageStamp(const cairo_matrix_t& matrix, Rect rect, const Surface& pixels,
                 const std::optional<Colour>& multiply) {
    const Spot place(matrix, rect);
    Print print;
    print.add(reinterpret_cast<std::uintptr_t>(pixels.get()));
    print.add(multiply);
    return stampFor(print, place, CAIRO_FORMAT_ARGB32, pixels, [&](cairo_t* context) {
        const Surface shown = multiply ? tinted(pixels, *multiply) : pixels;
        const Pattern pattern = fitInto(context, {{0, 0}, {place.width, place.height}}, shown);
        cairo_set_source(context, pattern.get());
        cairo_paint(context);
    });
}

Stamp coverageStamp(const cairo_matrix_t& matrix, Rect rect, const Surface& pixels) {
    const Spot place(matrix, rect);
    Print print;
    print.add(reinterpret_cast<std::uintptr_t>(pixels.get()));
    return stampFor(print, place, CAIRO_FORMAT_A8, pixels, [&](cairo_t* context) {
        const Pattern pattern = fitInto(context, {{0, 0}, {place.width, place.height}}, pixels);
        cairo_set_source(context, pattern.get());
        cairo_paint(context);
    });
}

Pattern fitInto(cairo_t* context, Rect rect, const Surface& pixels) {
    cairo_translate(context, rect.origin.x, rect.origin.y);
    cairo_scale(context, rect.size.width / pixels.width(), rect.size.height / pixels.height());
    Pattern pattern(cairo_pattern_create_for_surface(pixels.get()));
    cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_BILINEAR);
    // Enlarged pixels are continued and cut at the edge: they would bleed out of the layer.
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    cairo_new_path(context);
    cairo_rectangle(context, 0, 0, pixels.width(), pixels.height());
    cairo_clip(context);
    return pattern;
}

// In place on premultiplied pixels: cairo's own
// multiply lets the colour leak into see-through parts.
Surface tinted(const Surface& surface, Colour by) {
    Surface result(surface.width(), surface.height());
    const Context context = contextOf(result);
    cairo_set_source_surface(context.get(), surface.get(), 0, 0);
    cairo_paint(context.get());
    cairo_surface_flush(result.get());
    const std::array<double, 4> factors{by.blue * by.alpha, by.green * by.alpha, by.red * by.alpha,
                                        by.alpha};
    for (int y = 0; y < result.height(); ++y) {
        auto* row =
            reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(result.get()) +
                                             y * cairo_image_surface_get_stride(result.get()));
        for (int x = 0; x < result.width(); ++x) {
            std::uint32_t pixel = 0;
            for (unsigned channel = 0; channel < factors.size(); ++channel) {
                const double value = ((row[x] >> (8 * channel)) & 0xff) * factors[channel];
                pixel |= static_cast<std::uint32_t>(std::clamp(value + 0.5, 0.0, 255.0))
                         << (8 * channel);
            }
            row[x] = pixel;
        }
    }
    cairo_surface_mark_dirty(result.get());
    return result;
}

}  // namespace simulator::rendering
