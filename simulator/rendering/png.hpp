// PNG files and bytes. What goes wrong is said in words that name the file.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

// Writes the pixels; answers the problem, or nothing when all went well.
[[nodiscard]] std::optional<std::string> writePng(const Surface& surface,
                                                  const std::filesystem::path& path);

// Empty when there are no pixels.
[[nodiscard]] std::vector<std::byte> encodePng(const Surface& surface);

struct ReadPng {
    Surface surface;  // empty when there is a problem
    std::string error;

    explicit operator bool() const { return static_cast<bool>(surface); }
};

[[nodiscard]] ReadPng readPng(const std::filesystem::path& path);
// `name` stands for the bytes in the error text.
[[nodiscard]] ReadPng decodePng(std::span<const std::byte> bytes,
                                const std::string& name = "image");

}  // namespace simulator::rendering
