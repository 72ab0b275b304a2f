// Shrinking by means of blocks, running-sum box passes, and the colours of a system blur.
#include "simulator/rendering/blur.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace simulator::rendering {

namespace {

constexpr int largestFactor = 8;
constexpr double sigmaPerFactor = 2;  // at least so many small pixels of blur, or the blocks show
constexpr double reachInSigmas = 2;   // how far outside the box its blur still looks

struct Pixels {
    std::uint32_t* data;
    int width;
    int height;
    int stride;  // in pixels
    bool opaque;

    std::uint32_t* row(int y) const { return data + static_cast<std::ptrdiff_t>(y) * stride; }
};

Pixels pixelsOf(cairo_surface_t* surface) {
    cairo_surface_flush(surface);
    return {reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface)),
            cairo_image_surface_get_width(surface), cairo_image_surface_get_height(surface),
            cairo_image_surface_get_stride(surface) / 4,
            cairo_image_surface_get_format(surface) == CAIRO_FORMAT_RGB24};
}

// Means of blocks, `factor` pixels square, of one row of blocks. The sums of two channels share a
// word: 64 pixels of 255 stay below 16 bits.
void shrinkRow(const Pixels& from, int left, int top, int factor, const Pixels& to, int y) {
    constexpr std::uint32_t mask = 0x00ff00ff;
    const int lastY = std::min(top + factor, from.height);
    std::uint32_t* out = to.row(y);
    for (int x = 0; x < to.width; ++x) {
        const int firstX = left + x * factor;
        const int begin = std::max(firstX, 0);
        const int end = std::min(firstX + factor, from.width);
        const int beginY = std::max(top, 0);
        std::uint32_t even = 0;
        std::uint32_t odd = 0;
        for (int line = beginY; line < lastY; ++line) {
            const std::uint32_t* in = from.row(line);
            for (int column = begin; column < end; ++column) {
                even += in[column] & mask;
                odd += (in[column] >> 8) & mask;
            }
        }
        const auto count =
            static_cast<std::uint32_t>(std::max(0, end - begin) * std::max(0, lastY - beginY));
        if (count == 0) {
            out[x] = 0;
            continue;
        }
        const std::uint32_t blue = (even & 0xffff) / count;
        const std::uint32_t red = (even >> 16) / count;
        const std::uint32_t green = (odd & 0xffff) / count;
        const std::uint32_t alpha = from.opaque ? 255 : (odd >> 16) / count;
        out[x] = alpha << 24 | red << 16 | green << 8 | blue;
    }
}

Surface shrunk(const PixelLayer& layer, const Smear& place, int width, int height) {
    Surface small(width, height);
    const Pixels from = pixelsOf(layer.surface);
    const Pixels to = pixelsOf(small.get());
    for (int y = 0; y < height; ++y) {
        shrinkRow(from, place.x - layer.x, place.y - layer.y + y * place.factor, place.factor, to,
                  y);
    }
    cairo_surface_mark_dirty(small.get());
    return small;
}

// Sizes of three boxes that together are close to a Gaussian.
std::array<int, 3> boxesFor(double sigma) {
    constexpr int passes = 3;
    const double ideal = std::sqrt(12 * sigma * sigma / passes + 1);
    int lower = static_cast<int>(ideal);
    if (lower % 2 == 0) --lower;
    const double few =
        (12 * sigma * sigma - passes * lower * lower - 4 * passes * lower - 3 * passes) /
        (-4.0 * lower - 4);
    const int smaller = static_cast<int>(std::lround(few));
    std::array<int, 3> boxes{};
    for (int i = 0; i < passes; ++i)
        boxes[static_cast<std::size_t>(i)] = i < smaller ? lower : lower + 2;
    return boxes;
}

using Wide = std::array<int, 4>;

void add(Wide& sum, std::uint32_t pixel, int sign) {
    for (int channel = 0; channel < 4; ++channel) {
        sum[static_cast<std::size_t>(channel)] +=
            sign * static_cast<int>((pixel >> (8 * channel)) & 0xff);
    }
}

std::uint32_t meanOf(const Wide& sum, int size) {
    std::uint32_t pixel = 0;
    for (int channel = 0; channel < 4; ++channel) {
        const int value = (sum[static_cast<std::size_t>(channel)] + size / 2) / size;
        pixel |= static_cast<std::uint32_t>(value) << (8 * channel);
    }
    return pixel;
}

// One box over a line of pixels whose ends are continued.
void boxLine(const std::vector<std::uint32_t>& in, std::uint32_t* out, int step, int size) {
    const int count = static_cast<int>(in.size());
    const int half = size / 2;
    const auto at = [&](int i) {
        return in[static_cast<std::size_t>(std::clamp(i, 0, count - 1))];
    };
    Wide sum{};
    for (int i = -half; i <= half; ++i) add(sum, at(i), 1);
    for (int i = 0; i < count; ++i) {
        out[static_cast<std::ptrdiff_t>(i) * step] = meanOf(sum, size);
        add(sum, at(i + half + 1), 1);
        add(sum, at(i - half), -1);
    }
}

void boxPass(const Pixels& pixels, int size, std::vector<std::uint32_t>& line) {
    line.resize(static_cast<std::size_t>(pixels.width));
    for (int y = 0; y < pixels.height; ++y) {
        std::copy_n(pixels.row(y), pixels.width, line.begin());
        boxLine(line, pixels.row(y), 1, size);
    }
    line.resize(static_cast<std::size_t>(pixels.height));
    for (int x = 0; x < pixels.width; ++x) {
        for (int y = 0; y < pixels.height; ++y)
            line[static_cast<std::size_t>(y)] = pixels.row(y)[x];
        boxLine(line, pixels.data + x, pixels.stride, size);
    }
}

// Luma weights of ITU-R BT.709.
constexpr double lumaRed = 0.2126;
constexpr double lumaGreen = 0.7152;
constexpr double lumaBlue = 0.0722;

std::uint32_t coloured(std::uint32_t pixel, Colour tint, double saturation) {
    const double red = (pixel >> 16) & 0xff;
    const double green = (pixel >> 8) & 0xff;
    const double blue = pixel & 0xff;
    const double grey = lumaRed * red + lumaGreen * green + lumaBlue * blue;
    const auto channel = [&](double value, double over) {
        const double vivid = std::clamp(grey + (value - grey) * saturation, 0.0, 255.0);
        const double mixed = vivid * (1 - tint.alpha) + over * 255 * tint.alpha;
        return static_cast<std::uint32_t>(std::clamp(mixed + 0.5, 0.0, 255.0));
    };
    return 0xff000000u | channel(red, tint.red) << 16 | channel(green, tint.green) << 8 |
           channel(blue, tint.blue);
}

int factorFor(double sigma) {
    int factor = largestFactor;
    while (factor > 1 && sigma / factor < sigmaPerFactor) factor /= 2;
    return factor;
}

int floorTo(int value, int factor) {
    const int rest = value % factor;
    return value - (rest < 0 ? rest + factor : rest);
}

// Where the small picture lies: on a grid that is fixed to the canvas, or a moving layer's blur would
// shimmer; and never beyond the canvas.
PixelBox reachOf(PixelBox box, double sigma, int factor, const Pixels& canvas) {
    const int reach = static_cast<int>(std::ceil(sigma * reachInSigmas));
    const int left = floorTo(std::clamp(box.x - reach, 0, canvas.width - 1), factor);
    const int top = floorTo(std::clamp(box.y - reach, 0, canvas.height - 1), factor);
    const int right = std::clamp(box.x + box.width + reach, left + 1, canvas.width);
    const int bottom = std::clamp(box.y + box.height + reach, top + 1, canvas.height);
    return {left, top, (right - left + factor - 1) / factor, (bottom - top + factor - 1) / factor};
}

}  // namespace

void blurInPlace(const Surface& surface, double sigma) {
    if (!(sigma > 0) || !surface) return;
    const Pixels pixels = pixelsOf(surface.get());
    std::vector<std::uint32_t> line;
    for (const int size : boxesFor(sigma)) {
        if (size > 1) boxPass(pixels, size, line);
    }
    cairo_surface_mark_dirty(surface.get());
}

Smear smearOf(const std::vector<PixelLayer>& layers, PixelBox box, double sigma, Colour tint,
              double saturation) {
    Smear smear;
    if (layers.empty()) return smear;
    smear.factor = factorFor(sigma);
    const PixelBox reach = reachOf(box, sigma, smear.factor, pixelsOf(layers.front().surface));
    smear.x = reach.x;
    smear.y = reach.y;
    smear.surface = shrunk(layers.front(), smear, reach.width, reach.height);
    const Context context = contextOf(smear.surface);
    for (std::size_t i = 1; i < layers.size(); ++i) {
        const Surface over = shrunk(layers[i], smear, reach.width, reach.height);
        cairo_set_source_surface(context.get(), over.get(), 0, 0);
        cairo_paint(context.get());
    }
    blurInPlace(smear.surface, sigma / smear.factor);
    const Pixels pixels = pixelsOf(smear.surface.get());
    for (int y = 0; y < pixels.height; ++y) {
        std::uint32_t* row = pixels.row(y);
        for (int x = 0; x < pixels.width; ++x) row[x] = coloured(row[x], tint, saturation);
    }
    cairo_surface_mark_dirty(smear.surface.get());
    return smear;
}

}  // namespace simulator::rendering
