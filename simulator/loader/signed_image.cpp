#include "simulator/loader/signed_image.hpp"

#include <functional>

#include "simulator/loader/blocks.hpp"

namespace simulator::loader {

namespace {

std::span<const std::byte>& image() {
    static std::span<const std::byte> memory;
    return memory;
}

}  // namespace

void setSignedImage(std::span<const std::byte> memory) {
    image() = memory;
    signBlocks();
}

bool hasSignedImage() { return !image().empty(); }

bool isInSignedImage(const void* place) {
    const auto* byte = static_cast<const std::byte*>(place);
    const std::less<> before;
    return hasSignedImage() && !before(byte, image().data()) &&
           before(byte, image().data() + image().size());
}

}  // namespace simulator::loader
