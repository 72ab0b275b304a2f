// Channels are worked on as numbers of 16 bits, so that a vector holds many; nothing here is larger:
// 255 times the 16 weights of either direction of the largest enlargement is below 65536.
#include "simulator/rendering/pixel_loops.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>
#include <utility>
#include <vector>

#include "simulator/rendering/vectors.hpp"

namespace simulator::rendering {

namespace {

// The four channels of a pixel.
using Channels [[gnu::vector_size(8)]] = std::uint16_t;

struct Picture32 {
    unsigned char* data;
    std::ptrdiff_t stride;
    int width;
    int height;

    unsigned char* row(int y) const { return data + y * stride; }
};

Picture32 pixelsOf(const Surface& surface) {
    cairo_surface_flush(surface.get());
    return {cairo_image_surface_get_data(surface.get()),
            cairo_image_surface_get_stride(surface.get()), surface.width(), surface.height()};
}

// The compiler spreads bytes one by one.
Channels channelsAt(const unsigned char* row, int x) {
    std::uint32_t pixel;
    std::memcpy(&pixel, row + 4 * static_cast<std::ptrdiff_t>(x), sizeof pixel);
    std::uint64_t spread = pixel;
    spread = (spread | spread << 16) & 0x0000ffff0000ffff;
    spread = (spread | spread << 8) & 0x00ff00ff00ff00ff;
    return std::bit_cast<Channels>(spread);
}

// Between which two small pixels the middle of a large one lies: `part` of `2 * factor` from the first.
struct Between {
    int first;
    int part;
};
Between between(int large, int factor) {
    const int halves = 2 * large + 1 - factor;
    const int first = static_cast<int>(std::floor(static_cast<double>(halves) / (2 * factor)));
    return {first, halves - 2 * factor * first};
}

// One small row as wide as it is shown; every channel times `2 * factor`.
void widen(const Picture32& small, int y, int factor, int from, std::span<std::uint16_t> out) {
    const unsigned char* row = small.row(std::clamp(y, 0, small.height - 1));
    const auto at = [&](int x) { return channelsAt(row, std::clamp(x, 0, small.width - 1)); };
    const auto weights = static_cast<std::uint16_t>(2 * factor);
    std::uint16_t* to = out.data();
    std::uint16_t* const end = to + out.size();
    Between place = between(from, factor);
    while (to != end) {
        const Channels left = at(place.first);
        const Channels step = at(place.first + 1) - left;
        Channels value = left * weights + step * static_cast<std::uint16_t>(place.part);
        for (int part = place.part; part < weights && to != end; part += 2, to += 4) {
            std::memcpy(to, &value, sizeof value);
            value += step + step;
        }
        // The middles of large pixels lie at every other part.
        place = {place.first + 1, place.part % 2};
    }
}

// As many channels as the widest vectors hold.
constexpr std::size_t many = 32;
using ManyChannels [[gnu::vector_size(2 * many)]] = std::uint16_t;
using ManyBytes [[gnu::vector_size(many)]] = std::uint8_t;

template <class Vector, class T>
void load(Vector& to, const T* from) {
    std::memcpy(&to, from, sizeof to);
}

// Two widened rows, each by its weight; the sum of the weights is a power of two, as is that of those
// which the rows carry. A row has room for whole vectors.
SIMULATOR_WIDEST_VECTORS
void mix(const std::uint16_t* one, const std::uint16_t* other, std::uint16_t first,
         std::uint16_t second, int shift, std::size_t count, unsigned char* out) {
    const auto half = static_cast<std::uint16_t>((1 << shift) / 2);
    std::size_t i = 0;
    for (; i + many <= count; i += many) {
        willWrite(out + i + lookAhead);
        ManyChannels upper, lower;
        load(upper, one + i);
        load(lower, other + i);
        const ManyChannels sum = upper * first + lower * second + half;
        const ManyBytes mixed = __builtin_convertvector(sum >> shift, ManyBytes);
        std::memcpy(out + i, &mixed, sizeof mixed);
    }
    if (i == count) return;
    std::array<unsigned char, sizeof(ManyBytes)> last;
    mix(one + i, other + i, first, second, shift, last.size(), last.data());
    std::copy_n(last.begin(), count - i, out + i);
}

// The quotient by 255 is rounded, as pixman has it. Every other channel at a time, where it lies, so that
// nothing has to be spread and packed.
SIMULATOR_WIDEST_VECTORS
void layOverRow(const unsigned char* from, unsigned char* to, std::size_t bytes,
                std::uint32_t colour) {
    const auto rest = static_cast<std::uint16_t>(255 - (colour >> 24));
    std::array<std::uint32_t, sizeof(ManyChannels) / 4> pixels;
    pixels.fill(colour);
    ManyChannels above;
    load(above, pixels.data());
    std::size_t i = 0;
    for (; i + sizeof(ManyChannels) <= bytes; i += sizeof(ManyChannels)) {
        willRead(from + i + lookAhead);
        willWrite(to + i + lookAhead);
        ManyChannels below;
        load(below, from + i);
        ManyChannels low = (below & 0xff) * rest + 0x80;
        ManyChannels high = (below >> 8) * rest + 0x80;
        low = (low + (low >> 8)) >> 8;
        high = (high + (high >> 8)) & 0xff00;
        // No sum is above 255: none reaches into the next channel.
        const ManyChannels laid = (low | high) + above;
        std::memcpy(to + i, &laid, sizeof laid);
    }
    if (i == bytes) return;
    std::array<unsigned char, sizeof(ManyChannels)> last{};
    std::copy_n(from + i, bytes - i, last.begin());
    layOverRow(last.data(), last.data(), last.size(), colour);
    std::copy_n(last.begin(), bytes - i, to + i);
}

// Every channel of a pixel of `coverage` says how much of the colour is seen there. The quotients are written
// out: in a function of their own the compiler takes vectors apart before it knows for which they are.
SIMULATOR_WIDEST_VECTORS
void layRowThrough(const unsigned char* coverage, unsigned char* to, std::size_t bytes,
                   std::uint32_t colour) {
    std::array<std::uint32_t, sizeof(ManyChannels) / 4> pixels;
    pixels.fill(colour);
    ManyChannels above;
    load(above, pixels.data());
    const auto alpha = static_cast<std::uint16_t>(colour >> 24);
    std::size_t i = 0;
    for (; i + sizeof(ManyChannels) <= bytes; i += sizeof(ManyChannels)) {
        ManyChannels covered, below;
        load(covered, coverage + i);
        covered &= 0xff;
        load(below, to + i);
        ManyChannels low = (above & 0xff) * covered + 0x80;
        ManyChannels high = (above >> 8) * covered + 0x80;
        ManyChannels rest = covered * alpha + 0x80;
        low = (low + (low >> 8)) >> 8;
        high = (high + (high >> 8)) & 0xff00;
        rest = 0xff - ((rest + (rest >> 8)) >> 8);
        ManyChannels lowBelow = (below & 0xff) * rest + 0x80;
        ManyChannels highBelow = (below >> 8) * rest + 0x80;
        lowBelow = (lowBelow + (lowBelow >> 8)) >> 8;
        highBelow = (highBelow + (highBelow >> 8)) & 0xff00;
        const ManyChannels laid = (low | high) + (lowBelow | highBelow);
        std::memcpy(to + i, &laid, sizeof laid);
    }
    if (i == bytes) return;
    std::array<unsigned char, sizeof(ManyChannels)> lastCoverage{}, last{};
    std::copy_n(coverage + i, bytes - i, lastCoverage.begin());
    std::copy_n(to + i, bytes - i, last.begin());
    layRowThrough(lastCoverage.data(), last.data(), last.size(), colour);
    std::copy_n(last.begin(), bytes - i, to + i);
}

// Premultiplied, as cairo has it.
std::uint32_t pixelOf(Colour colour) {
    const double alpha = std::clamp(colour.alpha, 0.0, 1.0);
    const auto byte = [&](double part) {
        return std::min(static_cast<std::uint32_t>(std::clamp(part, 0.0, 1.0) * alpha * 256), 255U);
    };
    return byte(1) << 24 | byte(colour.red) << 16 | byte(colour.green) << 8 | byte(colour.blue);
}

// Opaque pixels that all get written: emptying them first would cost as much again.
Surface unwritten(int width, int height) {
    static const cairo_user_data_key_t memory{};
    const int stride = 4 * width;
    auto* bytes = static_cast<unsigned char*>(
        std::malloc(static_cast<std::size_t>(stride) * static_cast<std::size_t>(height)));
    Surface result = Surface::adopt(
        cairo_image_surface_create_for_data(bytes, CAIRO_FORMAT_RGB24, width, height, stride));
    cairo_surface_set_user_data(result.get(), &memory, bytes, &std::free);
    return result;
}

}  // namespace

Surface enlarged(const Smear& smear, PixelBox box) {
    const Surface result = unwritten(box.width, box.height);
    enlargeInto(result, box.x, box.y, smear, box);
    return result;
}

void enlargeInto(const Surface& surface, int left, int top, const Smear& smear, PixelBox box) {
    const Picture32 small = pixelsOf(smear.surface), large = pixelsOf(surface);
    const int weights = 2 * smear.factor;
    const int shift = 2 * std::countr_zero(static_cast<unsigned>(weights));
    const std::size_t count = 4 * static_cast<std::size_t>(box.width);
    std::vector<std::uint16_t> upper(count + many), lower(count + many);
    const auto widenTo = [&](int y, std::vector<std::uint16_t>& row) {
        widen(small, y, smear.factor, box.x - smear.x, {row.data(), count});
    };
    int held = 0;  // the small row that `upper` has
    for (int y = box.y; y < box.y + box.height; ++y) {
        const Between place = between(y - smear.y, smear.factor);
        if (y == box.y) {
            widenTo(place.first, upper);
            widenTo(place.first + 1, lower);
        } else if (held != place.first) {
            std::swap(upper, lower);
            widenTo(place.first + 1, lower);
        }
        held = place.first;
        mix(upper.data(), lower.data(), static_cast<std::uint16_t>(weights - place.part),
            static_cast<std::uint16_t>(place.part), shift, count,
            large.row(y - top) + 4 * static_cast<std::ptrdiff_t>(box.x - left));
    }
    cairo_surface_mark_dirty(surface.get());
}

void layOver(const Surface& from, const Surface& to, PixelBox box, Colour colour) {
    const auto byte = [&](double part) {
        return static_cast<std::uint32_t>(
            std::lround(std::clamp(part, 0.0, 1.0) * colour.alpha * 255));
    };
    const std::uint32_t premultiplied =
        byte(1) << 24 | byte(colour.red) << 16 | byte(colour.green) << 8 | byte(colour.blue);
    const Picture32 below = pixelsOf(from), pixels = pixelsOf(to);
    const std::ptrdiff_t left = 4 * static_cast<std::ptrdiff_t>(box.x);
    const auto bytes = 4 * static_cast<std::size_t>(box.width);
    // Rows as wide as the surface lie one behind the other.
    const bool isWhole = static_cast<std::ptrdiff_t>(bytes) == pixels.stride;
    const int rows = isWhole ? box.height : 1;
    for (int y = box.y; y < box.y + box.height; y += rows) {
        layOverRow(below.row(y) + left, pixels.row(y) + left,
                   bytes * static_cast<std::size_t>(rows), premultiplied);
    }
    cairo_surface_mark_dirty(to.get());
}

void layThrough(const Stamp& stamp, const Surface& to, PixelBox box, Colour colour) {
    const Picture32 coverage = pixelsOf(stamp.pixels), pixels = pixelsOf(to);
    const PixelBox reached = common({stamp.x, stamp.y, coverage.width, coverage.height}, box);
    for (int y = reached.y; y < reached.y + reached.height; ++y) {
        layRowThrough(coverage.row(y - stamp.y) + 4 * (reached.x - stamp.x),
                      pixels.row(y) + 4 * reached.x, 4 * static_cast<std::size_t>(reached.width),
                      pixelOf(colour));
    }
    cairo_surface_mark_dirty(to.get());
}

}  // namespace simulator::rendering
