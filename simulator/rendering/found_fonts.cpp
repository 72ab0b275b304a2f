#include "simulator/rendering/found_fonts.hpp"

#include <filesystem>
#include <iterator>
#include <thread>

#include "simulator/rendering/text.hpp"

namespace simulator::rendering {

namespace {

bool isAlone() {
    std::error_code unreadable;
    const std::filesystem::directory_iterator threads("/proc/self/task", unreadable);
    return unreadable || std::distance(threads, {}) == 1;
}

}  // namespace

void findFonts() {
    measure("9:41", 17, 400);
    while (!isAlone()) std::this_thread::yield();
}

}  // namespace simulator::rendering
