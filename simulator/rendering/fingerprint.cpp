#include "simulator/rendering/fingerprint.hpp"

#include "simulator/rendering/print.hpp"

namespace simulator::rendering {

std::uint64_t fingerprint(const Node& root) {
    Print print;
    print.add(root);
    return print.value();
}

}  // namespace simulator::rendering
