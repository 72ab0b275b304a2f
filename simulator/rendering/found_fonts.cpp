#include "simulator/rendering/found_fonts.hpp"

#include <filesystem>
#include <iterator>
#include <thread>

#include "simulator/rendering/text.hpp"

namespace simulator::rendering {

namespace {

// Of this process; an emulator has threads of its own in it.
auto threads() {
    std::error_code unreadable;  // none then
    return std::distance(std::filesystem::directory_iterator("/proc/self/task", unreadable), {});
}

}  // namespace

void findFonts() {
    const auto before = threads();
    measure("9:41", 17, 400);
    while (threads() > before) std::this_thread::yield();
}

}  // namespace simulator::rendering
