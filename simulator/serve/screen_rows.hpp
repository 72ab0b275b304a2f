// The picture of the screen as rows of pixels, each with the number of the frame that changed it last, so
// that a page is told only what is new to it, however many frames it has missed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "simulator/rendering/rows.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::serve {

// Rows that are one below the other.
struct Band {
    int top = 0;
    int rows = 0;

    bool operator==(const Band&) const = default;
};

class ScreenRows {
  public:
    // The next frame, of which only `painted` may differ from the one before. False when it looks the
    // same, and does not count.
    bool show(const rendering::Surface& picture, rendering::Rows painted);

    // Frames are counted from 1; 0 is a page that has seen nothing.
    std::uint32_t frame() const { return frame_; }
    // What has changed since that frame.
    std::vector<Band> changedSince(std::uint32_t frame) const;

    // For a page that has seen that frame: numbers of 32 bits, little end first (the number of this
    // frame, width, height and of bands, then top and rows of each); then the pixels of the bands, red,
    // green, blue and 255, deflated (RFC 1950).
    std::string message(std::uint32_t seen);

  private:
    rendering::Surface picture_;          // its own pixels: who paints goes on in theirs
    std::vector<std::uint32_t> changed_;  // by row, the frame that did
    std::uint32_t frame_ = 0;
    // Pages that are up to date are told the same.
    std::string message_;
    std::uint32_t messageSeen_ = 0;
    std::uint32_t messageFrame_ = 0;
};

}  // namespace simulator::serve
