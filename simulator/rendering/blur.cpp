// Shrinking by means of blocks, running-sum box passes, and the colours of a system blur. The loops
// over pixels are written for the compiler's vectors; this file is compiled for them.
#include "simulator/rendering/blur.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
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

constexpr std::uint32_t everyOther = 0x00ff00ff;  // two of the four channels

SIMULATOR_WIDEST_VECTORS
void addPixels(const std::uint32_t* row, std::size_t count, std::uint32_t* __restrict evens,
               std::uint32_t* __restrict odds) {
    for (std::size_t i = 0; i < count; ++i) {
        evens[i] += row[i] & everyOther;
        odds[i] += (row[i] >> 8) & everyOther;
    }
}

// The sums of a row of blocks, for each of its columns. Two channels share a word: 64 pixels of 255
// stay below 16 bits.
struct ColumnSums {
    std::vector<std::uint32_t> even;
    std::vector<std::uint32_t> odd;

    void clear(int columns) {
        even.assign(static_cast<std::size_t>(columns), 0);
        odd.assign(static_cast<std::size_t>(columns), 0);
    }
    void add(const std::uint32_t* row) { addPixels(row, even.size(), even.data(), odd.data()); }
};

std::uint32_t meanOfBlock(std::uint32_t even, std::uint32_t odd, std::uint32_t count, bool opaque) {
    if (count == 0) return 0;
    const auto pixel = [&](auto mean) {
        const std::uint32_t alpha = opaque ? 255 : mean(odd >> 16);
        return alpha << 24 | mean(even >> 16) << 16 | mean(odd & 0xffff) << 8 | mean(even & 0xffff);
    };
    // Most blocks have 64 pixels; a division for each channel would take most of the time.
    if (std::has_single_bit(count)) {
        const int shift = std::countr_zero(count);
        return pixel([&](std::uint32_t sum) { return sum >> shift; });
    }
    return pixel([&](std::uint32_t sum) { return sum / count; });
}

// Means of blocks, `factor` pixels square, of one row of blocks.
void shrinkRow(const Pixels& from, int left, int top, int factor, const Pixels& to, int y,
               ColumnSums& sums) {
    const int firstColumn = std::clamp(left, 0, from.width);
    const int lastColumn = std::clamp(left + to.width * factor, firstColumn, from.width);
    const int firstLine = std::max(top, 0);
    const int lastLine = std::min(top + factor, from.height);
    sums.clear(lastColumn - firstColumn);
    for (int line = firstLine; line < lastLine; ++line) sums.add(from.row(line) + firstColumn);
    std::uint32_t* out = to.row(y);
    for (int x = 0; x < to.width; ++x) {
        const int begin = std::max(left + x * factor, 0);
        const int end = std::min(left + x * factor + factor, from.width);
        std::uint32_t even = 0;
        std::uint32_t odd = 0;
        for (int column = begin; column < end; ++column) {
            even += sums.even[static_cast<std::size_t>(column - firstColumn)];
            odd += sums.odd[static_cast<std::size_t>(column - firstColumn)];
        }
        const auto count = static_cast<std::uint32_t>(std::max(0, end - begin) *
                                                      std::max(0, lastLine - firstLine));
        out[x] = meanOfBlock(even, odd, count, from.opaque);
    }
}

Surface shrunk(const PixelLayer& layer, const Smear& place, int width, int height) {
    Surface small(width, height);
    const Pixels from = pixelsOf(layer.surface);
    const Pixels to = pixelsOf(small.get());
    ColumnSums sums;
    for (int y = 0; y < height; ++y) {
        shrinkRow(from, place.x - layer.x, place.y - layer.y + y * place.factor, place.factor, to,
                  y, sums);
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

// The four channels of a pixel.
using Channels [[gnu::vector_size(16)]] = std::int32_t;
using Shares [[gnu::vector_size(16)]] = float;
using Bytes [[gnu::vector_size(4)]] = std::uint8_t;

Channels channelsOf(std::uint32_t pixel) {
    return __builtin_convertvector(std::bit_cast<Bytes>(pixel), Channels);
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
    std::uint32_t of(Channels sum) const {
        const Shares mean = (__builtin_convertvector(sum + half, Shares) + 0.5f) * share;
        const Channels whole = __builtin_convertvector(mean, Channels);
        return std::bit_cast<std::uint32_t>(__builtin_convertvector(whole, Bytes));
    }
};

// One box along a row. `in` has half a box more at either end, where the row is continued.
void boxAlong(const std::vector<Channels>& in, std::uint32_t* out, std::size_t count, int size) {
    const Mean mean(size);
    const auto box = static_cast<std::size_t>(size);
    Channels sum{};
    for (std::size_t i = 0; i < box; ++i) sum += in[i];
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = mean.of(sum);
        sum += in[i + box] - in[i];
    }
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
    std::vector<Channels> row;
    std::vector<std::uint32_t> pixels;
    std::vector<int> sums;
};

// One box down every column, whose ends are continued.
void boxDown(const Pixels& pixels, int size, Scratch& scratch) {
    const int half = size / 2;
    const auto width = static_cast<std::size_t>(pixels.width);
    scratch.pixels.resize(width * static_cast<std::size_t>(pixels.height));
    for (int y = 0; y < pixels.height; ++y) {
        std::copy_n(pixels.row(y), width,
                    scratch.pixels.begin() + y * static_cast<std::ptrdiff_t>(width));
    }
    const auto rowAt = [&](int y) {
        const auto row = static_cast<std::size_t>(std::clamp(y, 0, pixels.height - 1));
        return reinterpret_cast<const std::uint8_t*>(scratch.pixels.data() + row * width);
    };
    const std::size_t bytes = 4 * width;
    scratch.sums.assign(bytes, 0);
    for (int y = -half; y <= half; ++y) {
        const std::uint8_t* row = rowAt(y);
        for (std::size_t i = 0; i < bytes; ++i) scratch.sums[i] += row[i];
    }
    for (int y = 0; y < pixels.height; ++y) {
        stepDown(scratch.sums.data(), rowAt(y + half + 1), rowAt(y - half),
                 reinterpret_cast<std::uint8_t*>(pixels.row(y)), bytes, Mean(size));
    }
}

void boxPass(const Pixels& pixels, int size, Scratch& scratch) {
    const int half = size / 2;
    const auto count = static_cast<std::size_t>(pixels.width);
    scratch.row.resize(count + 2 * static_cast<std::size_t>(half) + 1);
    for (int y = 0; y < pixels.height; ++y) {
        std::uint32_t* row = pixels.row(y);
        int at = -half;
        for (Channels& one : scratch.row)
            one = channelsOf(row[std::clamp(at++, 0, pixels.width - 1)]);
        boxAlong(scratch.row, row, count, size);
    }
    boxDown(pixels, size, scratch);
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
        const double vivid = std::clamp(grey + (value - grey) * saturation_, 0.0, 255.0);
        return static_cast<std::uint32_t>(
            static_cast<int>(std::clamp(vivid * rest_ + tint + 0.5, 0.0, 255.0)));
    }

    double saturation_;
    double rest_;
    double red_;
    double green_;
    double blue_;
};

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
    Scratch scratch;
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
    for (int y = 0; y < pixels.height; ++y) {
        std::uint32_t* row = pixels.row(y);
        for (int x = 0; x < pixels.width; ++x) row[x] = glass.over(row[x]);
    }
    cairo_surface_mark_dirty(smear.surface.get());
    return smear;
}

}  // namespace simulator::rendering
