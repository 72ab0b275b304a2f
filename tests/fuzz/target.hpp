// What each target has: a function that libFuzzer calls with bytes of its own making, over and over in
// one process. Whatever is not an error that the reader tells of ends the process, and the bytes are kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vantori::fuzz {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace vantori::fuzz
