// PNG through cairo, with its status codes turned into sentences.
#include "simulator/rendering/png.hpp"

#include <algorithm>
#include <cstring>
#include <system_error>

namespace simulator::rendering {

namespace {

std::string problem(const std::string& what, const std::string& name, cairo_status_t status) {
    return what + " " + name + ": " + cairo_status_to_string(status);
}

ReadPng checked(cairo_surface_t* raw, const std::string& name) {
    Surface surface = Surface::adopt(raw);
    const cairo_status_t status = cairo_surface_status(raw);
    if (status != CAIRO_STATUS_SUCCESS) return {{}, problem("cannot read picture", name, status)};
    return {surface, {}};
}

cairo_status_t takeBytes(void* closure, unsigned char* out, unsigned length) {
    auto& rest = *static_cast<std::span<const std::byte>*>(closure);
    if (length > rest.size()) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(out, rest.data(), length);
    rest = rest.subspan(length);
    return CAIRO_STATUS_SUCCESS;
}

cairo_status_t appendBytes(void* closure, const unsigned char* bytes, unsigned length) {
    auto& all = *static_cast<std::vector<std::byte>*>(closure);
    const auto part = std::as_bytes(std::span(bytes, length));
    all.insert(all.end(), part.begin(), part.end());
    return CAIRO_STATUS_SUCCESS;
}

}  // namespace

std::optional<std::string> writePng(const Surface& surface, const std::filesystem::path& path) {
    if (!surface) return "cannot write picture " + path.string() + ": there are no pixels";
    const cairo_status_t status = cairo_surface_write_to_png(surface.get(), path.c_str());
    if (status == CAIRO_STATUS_SUCCESS) return std::nullopt;
    return problem("cannot write picture", path.string(), status);
}

std::vector<std::byte> encodePng(const Surface& surface) {
    std::vector<std::byte> bytes;
    if (surface) cairo_surface_write_to_png_stream(surface.get(), &appendBytes, &bytes);
    return bytes;
}

ReadPng readPng(const std::filesystem::path& path) {
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        return {{}, "cannot read picture " + path.string() + ": it is a folder"};
    }
    return checked(cairo_image_surface_create_from_png(path.c_str()), path.string());
}

ReadPng decodePng(std::span<const std::byte> bytes, const std::string& name) {
    std::span<const std::byte> rest = bytes;
    return checked(cairo_image_surface_create_from_png_stream(takeBytes, &rest), name);
}

}  // namespace simulator::rendering
