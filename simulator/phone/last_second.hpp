// The last second on the screen, kept as scenes: they are drawn only when someone wants to see them.
#pragma once

#include <deque>
#include <filesystem>
#include <optional>
#include <string>

#include "simulator/phone/screen_picture.hpp"

namespace simulator {

class LastSecond {
  public:
    static constexpr std::size_t pictures = 8;

    // After every frame of the display; most are not kept.
    void frame();
    // The pictures side by side, oldest first, the screen as it is now at the end. The problem, if any.
    std::optional<std::string> save(const std::filesystem::path& file) const;

  private:
    std::deque<UprightScreen> scenes_;
    double due_ = 0;
};

}  // namespace simulator
