// Pixels of pictures at the scales they are shown at.
#include "simulator/rendering/picture.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "simulator/rendering/symbols.hpp"

namespace simulator::rendering {

namespace {
// A drawing is rasterised at whole and half pixels per point; an animated scale in between is
// filtered from the next larger one, so that a zoom does not redraw the picture on every frame.
constexpr double rasterStep = 0.5;
constexpr double largestRaster = 8;
constexpr int mostHalvings = 6;

std::uint32_t* rowOf(const Surface& surface, int y) {
    return reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface.get()) +
                                            y * cairo_image_surface_get_stride(surface.get()));
}

// The mean of four pixels, two channels at a time.
std::uint32_t mean(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    constexpr std::uint32_t mask = 0x00ff00ff;
    const std::uint32_t even = (a & mask) + (b & mask) + (c & mask) + (d & mask) + 0x00020002;
    const std::uint32_t odd =
        ((a >> 8) & mask) + ((b >> 8) & mask) + ((c >> 8) & mask) + ((d >> 8) & mask) + 0x00020002;
    return ((even >> 2) & mask) | (((odd >> 2) & mask) << 8);
}
}  // namespace

Surface halfSize(const Surface& surface) {
    const int width = std::max(1, surface.width() / 2);
    const int height = std::max(1, surface.height() / 2);
    Surface result(width, height);
    cairo_surface_flush(surface.get());
    for (int y = 0; y < height; ++y) {
        const std::uint32_t* upper = rowOf(surface, 2 * y);
        const std::uint32_t* lower = rowOf(surface, std::min(2 * y + 1, surface.height() - 1));
        std::uint32_t* out = rowOf(result, y);
        for (int x = 0; x < width; ++x) {
            const int next = std::min(2 * x + 1, surface.width() - 1);
            out[x] = mean(upper[2 * x], upper[next], lower[2 * x], lower[next]);
        }
    }
    cairo_surface_mark_dirty(result.get());
    return result;
}

PictureRef Picture::pixels(Surface surface, double scale) {
    if (surface.width() == 0 || !(scale > 0)) return nullptr;
    if (cairo_image_surface_get_format(surface.get()) != CAIRO_FORMAT_ARGB32 &&
        cairo_image_surface_get_format(surface.get()) != CAIRO_FORMAT_RGB24) {
        Surface plain(surface.width(), surface.height());
        const Context context = contextOf(plain);
        cairo_set_source_surface(context.get(), surface.get(), 0, 0);
        cairo_paint(context.get());
        surface = plain;
    }
    auto picture = std::make_shared<Picture>();
    picture->size_ = {surface.width() / scale, surface.height() / scale};
    picture->scale_ = scale;
    picture->rasters_.emplace(0, std::move(surface));
    return picture;
}

PictureRef Picture::drawing(Size size, Drawing draw) {
    return painting(size, [size, draw = std::move(draw)](double scale) {
        Surface surface(static_cast<int>(std::ceil(size.width * scale - 1e-6)),
                        static_cast<int>(std::ceil(size.height * scale - 1e-6)));
        const Context context = contextOf(surface);
        cairo_scale(context.get(), surface.width() / std::max(size.width, 1e-6),
                    surface.height() / std::max(size.height, 1e-6));
        draw(context.get());
        return surface;
    });
}

PictureRef Picture::painting(Size size, Painting paint) {
    auto picture = std::make_shared<Picture>();
    picture->size_ = size;
    picture->paint_ = std::move(paint);
    return picture;
}

PictureRef Picture::symbol(const std::string& name, Size size, Colour colour) {
    return drawing(
        size, [=](cairo_t* context) { drawSymbol(context, {name, colour, 1}, {{0, 0}, size}); });
}

const Surface& Picture::raster(double pixelsPerPoint) const {
    if (paint_) return painted(pixelsPerPoint);
    const double ratio = pixelsPerPoint > 0 ? scale_ / pixelsPerPoint : 1;
    const int times = ratio > 1 ? static_cast<int>(std::log2(ratio) + 0.25) : 0;
    return halved(std::clamp(times, 0, mostHalvings));
}

const Surface& Picture::halved(int times) const {
    const auto found = rasters_.find(times);
    if (found != rasters_.end()) return found->second;
    return rasters_.emplace(times, halfSize(halved(times - 1))).first->second;
}

const Surface& Picture::painted(double pixelsPerPoint) const {
    const double wanted = std::isfinite(pixelsPerPoint) ? pixelsPerPoint : 1;
    const double steps = std::ceil(wanted / rasterStep - 1e-3);
    const double scale = std::clamp(steps * rasterStep, rasterStep, largestRaster);
    const int key = static_cast<int>(scale * 100);
    const auto found = rasters_.find(key);
    if (found != rasters_.end()) return found->second;
    return rasters_.emplace(key, paint_(scale)).first->second;
}

}  // namespace simulator::rendering
