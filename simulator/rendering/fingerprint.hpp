// One number for everything that a scene tree shows: equal trees have equal numbers, so that a
// screen on which nothing changed need not be drawn again. Pictures count by identity, since they
// never change.
#pragma once

#include <cstdint>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

std::uint64_t fingerprint(const Node& root);

}  // namespace simulator::rendering
