#include "simulator/serve/screen_rows.hpp"

#include <zlib.h>

#include <cstring>
#include <stdexcept>

namespace simulator::serve {

namespace {

constexpr int bytesPerPixel = 4;
// The fastest: it already takes two thirds off the time of a socket, and slower ones cost frames.
constexpr int effort = 1;

const unsigned char* rowOf(const rendering::Surface& picture, int row) {
    return cairo_image_surface_get_data(picture.get()) +
           static_cast<std::ptrdiff_t>(row) * cairo_image_surface_get_stride(picture.get());
}

bool sameSize(const rendering::Surface& a, const rendering::Surface& b) {
    return a.width() == b.width() && a.height() == b.height();
}

void append(std::string& text, std::uint32_t number) {
    for (int shift = 0; shift < 32; shift += 8) text += static_cast<char>(number >> shift & 255);
}

// Cairo's pixels are numbers (0xAARRGGBB); a page wants bytes.
void appendPixels(std::string& pixels, const unsigned char* row, int width) {
    const std::size_t start = pixels.size();
    pixels.resize(start + static_cast<std::size_t>(width) * bytesPerPixel);
    auto* out = reinterpret_cast<unsigned char*>(pixels.data() + start);
    for (int x = 0; x < width; ++x, row += bytesPerPixel, out += bytesPerPixel) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, row, sizeof pixel);
        out[0] = static_cast<unsigned char>(pixel >> 16);
        out[1] = static_cast<unsigned char>(pixel >> 8);
        out[2] = static_cast<unsigned char>(pixel);
        out[3] = 255;
    }
}

std::string deflated(const std::string& bytes) {
    uLongf length = compressBound(bytes.size());
    std::string result(length, '\0');
    if (compress2(reinterpret_cast<Bytef*>(result.data()), &length,
                  reinterpret_cast<const Bytef*>(bytes.data()), bytes.size(), effort) != Z_OK)
        throw std::runtime_error("a picture could not be packed");
    result.resize(length);
    return result;
}

}  // namespace

bool ScreenRows::show(const rendering::Surface& picture, rendering::Rows painted) {
    cairo_surface_flush(picture.get());
    if (!picture_ || !sameSize(picture, picture_)) {
        picture_ = rendering::copyOf(picture);
        changed_.assign(static_cast<std::size_t>(picture.height()), ++frame_);
        return true;
    }
    const auto bytes = static_cast<std::size_t>(picture.width()) * bytesPerPixel;
    bool different = false;
    for (int row = painted.first; row < painted.end; ++row) {
        if (std::memcmp(rowOf(picture, row), rowOf(picture_, row), bytes) == 0) continue;
        changed_[static_cast<std::size_t>(row)] = frame_ + 1;
        rendering::copyPixels(picture, picture_, {row, row + 1});
        different = true;
    }
    if (different) ++frame_;
    return different;
}

std::vector<Band> ScreenRows::changedSince(std::uint32_t frame) const {
    std::vector<Band> bands;
    for (int row = 0; row < static_cast<int>(changed_.size()); ++row) {
        if (changed_[static_cast<std::size_t>(row)] <= frame) continue;
        if (bands.empty() || bands.back().top + bands.back().rows != row) bands.push_back({row, 0});
        ++bands.back().rows;
    }
    return bands;
}

std::string ScreenRows::message(std::uint32_t seen) {
    if (messageFrame_ == frame_ && messageSeen_ == seen && !message_.empty()) return message_;
    const std::vector<Band> bands = changedSince(seen);
    std::string head, pixels;
    append(head, frame_);
    append(head, static_cast<std::uint32_t>(picture_.width()));
    append(head, static_cast<std::uint32_t>(picture_.height()));
    append(head, static_cast<std::uint32_t>(bands.size()));
    for (const Band& band : bands) {
        append(head, static_cast<std::uint32_t>(band.top));
        append(head, static_cast<std::uint32_t>(band.rows));
        for (int row = band.top; row < band.top + band.rows; ++row)
            appendPixels(pixels, rowOf(picture_, row), picture_.width());
    }
    message_ = head + deflated(pixels);
    messageSeen_ = seen;
    messageFrame_ = frame_;
    return message_;
}

}  // namespace simulator::serve
