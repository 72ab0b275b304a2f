// Shrinking by means of blocks, running-sum box passes, and the colours of a system blur. The loops
// over pixels are written for the compiler's vectors; this file is compiled for them.
#include "simulator/rendering/blur.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "simulator/rendering/vectors.hpp"

namespace simulator::rendering {

namespace {

constexpr int largestFactor = 8;
constexpr double sigmaPerFactor = 2;   // at least so many small pixels of blur, or the blocks show
constexpr double largestSigma = 4000;  // in the pixels that are blurred: boxes of 8000
constexpr double reachInSigmas = 2;    // how far outside the box its blur still looks

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

// Two of the four channels, which share a word as they are added up: 64 pixels of 255 stay below 16 bits.
constexpr std::uint32_t everyOther = 0x00ff00ff;

std::uint32_t meanOfBlock(std::uint32_t even, std::uint32_t odd, std::uint32_t count, bool opaque) {
    if (count == 0) return 0;
    const auto pixel = [&](auto mean) {
        const std::uint32_t alpha = opaque ? 255 : mean(odd >> 16);
        return alpha << 24 | mean(even >> 16) << 16 | mean(odd & 0xffff) << 8 | mean(even & 0xffff);
    };
    // Most blocks have 64 pixels; a division for each channel would take most of the time.
    const int shift = std::countr_zero(count);
    if (count == 1U << shift) {
        return pixel([&](std::uint32_t sum) { return sum >> shift; });
    }
    return pixel([&](std::uint32_t sum) { return sum / count; });
}

// The mean of a block that the picture may not fill.
std::uint32_t meanOfPart(const Pixels& from, int left, int top, int factor) {
    const int begin = std::clamp(left, 0, from.width), end = std::min(left + factor, from.width);
    const int first = std::clamp(top, 0, from.height), last = std::min(top + factor, from.height);
    std::uint32_t even = 0, odd = 0;
    for (int y = first; y < last; ++y) {
        const std::uint32_t* row = from.row(y);
        for (int x = begin; x < end; ++x) {
            even += row[x] & everyOther;
            odd += (row[x] >> 8) & everyOther;
        }
    }
    const int count = std::max(0, end - begin) * std::max(0, last - first);
    return meanOfBlock(even, odd, static_cast<std::uint32_t>(count), from.opaque);
}

// The means of so many of the largest blocks side by side, which the picture fills.
SIMULATOR_WIDEST_VECTORS
void meansOfWholes(const Pixels& from, int left, int top, std::uint32_t* out, int blocks) {
    using Row [[gnu::vector_size(4 * largestFactor)]] = std::uint32_t;
    constexpr std::uint32_t count = largestFactor * largestFactor;
    for (int block = 0; block < blocks; ++block) {
        Row evens{}, odds{}, pixels;
        for (int y = 0; y < largestFactor; ++y) {
            std::memcpy(&pixels, from.row(top + y) + left + block * largestFactor, sizeof pixels);
            evens += pixels & everyOther;
            odds += (pixels >> 8) & everyOther;
        }
        std::uint32_t even = 0, odd = 0;
        for (int i = 0; i < largestFactor; ++i) {
            even += evens[i];
            odd += odds[i];
        }
        out[block] = meanOfBlock(even, odd, count, from.opaque);
    }
}

// Means of blocks, `factor` pixels square, of one row of blocks.
void shrinkRow(const Pixels& from, int left, int top, int factor, const Pixels& to, int y) {
    const bool isWhole = factor == largestFactor && top >= 0 && top + factor <= from.height;
    const int first = isWhole ? std::clamp((factor - 1 - left) / factor, 0, to.width) : 0;
    const int end = isWhole ? std::clamp((from.width - left) / factor, first, to.width) : first;
    std::uint32_t* out = to.row(y);
    for (int x = 0; x < first; ++x) out[x] = meanOfPart(from, left + x * factor, top, factor);
    meansOfWholes(from, left + first * factor, top, out + first, end - first);
    for (int x = end; x < to.width; ++x) out[x] = meanOfPart(from, left + x * factor, top, factor);
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

// A sum of `size` bytes, divided and rounded, by a product: half a step above the whole number it
// is further from the next quotient than a float can be wrong, up to the largest box.
struct Mean {
    int half;
    float share;

    explicit Mean(int size) : half(size / 2), share(1.0f / static_cast<float>(size)) {}
    int of(int sum) const {
        return static_cast<int>((static_cast<float>(sum + half) + 0.5f) * share);
    }
};

SIMULATOR_WIDEST_VECTORS
void addBytes(const std::uint8_t* row, std::size_t count, int* __restrict sums) {
    for (std::size_t i = 0; i < count; ++i) sums[i] += row[i];
}

// One step of all columns at once, byte by byte: the means of the sums, then the box moves on.
SIMULATOR_WIDEST_VECTORS
void stepDown(int* sums, const std::uint8_t* entering, const std::uint8_t* leaving,
              std::uint8_t* __restrict out, std::size_t count, Mean mean) {
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = static_cast<std::uint8_t>(mean.of(sums[i]));
        sums[i] += entering[i] - leaving[i];
    }
}

// Memory of the passes, used for one after the other.
struct Scratch {
    std::vector<std::uint32_t> one;
    std::vector<std::uint32_t> other;
    std::vector<int> sums;
};

// One box down every column, whose ends are continued.
void boxDown(const Pixels& from, const Pixels& to, int size, std::vector<int>& sums) {
    const int half = size / 2;
    const std::size_t bytes = 4 * static_cast<std::size_t>(from.width);
    const auto rowAt = [&](int y) {
        return reinterpret_cast<const std::uint8_t*>(from.row(std::clamp(y, 0, from.height - 1)));
    };
    sums.assign(bytes, 0);
    for (int y = -half; y <= half; ++y) addBytes(rowAt(y), bytes, sums.data());
    for (int y = 0; y < from.height; ++y) {
        stepDown(sums.data(), rowAt(y + half + 1), rowAt(y - half),
                 reinterpret_cast<std::uint8_t*>(to.row(y)), bytes, Mean(size));
    }
}

// What were rows are columns of the other.
void turn(const Pixels& from, const Pixels& to) {
    for (int y = 0; y < from.height; ++y) {
        const std::uint32_t* row = from.row(y);
        for (int x = 0; x < from.width; ++x) to.row(x)[y] = row[x];
    }
}

// Along the rows, then down the columns. All columns take a step at once, so rows become columns first.
void boxPass(const Pixels& pixels, int size, Scratch& scratch) {
    const int width = pixels.width, height = pixels.height;
    const Pixels turned{scratch.one.data(), height, width, height, pixels.opaque};
    const Pixels along{scratch.other.data(), height, width, height, pixels.opaque};
    const Pixels upright{scratch.one.data(), width, height, width, pixels.opaque};
    turn(pixels, turned);
    boxDown(turned, along, size, scratch.sums);
    turn(along, upright);
    boxDown(upright, pixels, size, scratch.sums);
}

// Luma weights of ITU-R BT.709.
constexpr double lumaRed = 0.2126;
constexpr double lumaGreen = 0.7152;
constexpr double lumaBlue = 0.0722;

// The colours of one blur, worked out once for all pixels.
class Glass {
  public:
    Glass(Colour tint, double saturation)
        : saturation_(saturation),
          rest_(1 - tint.alpha),
          red_(tint.red * 255 * tint.alpha),
          green_(tint.green * 255 * tint.alpha),
          blue_(tint.blue * 255 * tint.alpha) {}

    std::uint32_t over(std::uint32_t pixel) const {
        const double red = (pixel >> 16) & 0xff;
        const double green = (pixel >> 8) & 0xff;
        const double blue = pixel & 0xff;
        const double grey = lumaRed * red + lumaGreen * green + lumaBlue * blue;
        return 0xff000000u | channel(red, grey, red_) << 16 | channel(green, grey, green_) << 8 |
               channel(blue, grey, blue_);
    }

  private:
    std::uint32_t channel(double value, double grey, double tint) const {
        const double vivid = within(grey + (value - grey) * saturation_);
        return static_cast<std::uint32_t>(static_cast<int>(within(vivid * rest_ + tint + 0.5)));
    }
    // Not std::clamp, in whose place the compiler puts branches.
    static double within(double value) { return std::min(std::max(value, 0.0), 255.0); }

    double saturation_;
    double rest_;
    double red_;
    double green_;
    double blue_;
};

SIMULATOR_WIDEST_VECTORS
void layGlass(Glass glass, std::uint32_t* row, int count) {
    for (int x = 0; x < count; ++x) row[x] = glass.over(row[x]);
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

int blurReach(double sigma) {
    return static_cast<int>(std::ceil(sigma * reachInSigmas)) + largestFactor;
}

void blurInPlace(const Surface& surface, double sigma) {
    if (!(sigma > 0) || !surface) return;
    const Pixels pixels = pixelsOf(surface.get());
    const std::size_t count =
        static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height);
    Scratch scratch{std::vector<std::uint32_t>(count), std::vector<std::uint32_t>(count), {}};
    for (const int size : boxesFor(std::min(sigma, largestSigma))) {
        if (size > 1) boxPass(pixels, size, scratch);
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
    const Glass glass(tint, saturation);
    for (int y = 0; y < pixels.height; ++y) layGlass(glass, pixels.row(y), pixels.width);
    cairo_surface_mark_dirty(smear.surface.get());
    return smear;
}

}  // namespace simulator::rendering
