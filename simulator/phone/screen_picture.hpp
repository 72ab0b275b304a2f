// Pictures of the screen as it is on screen now, upright for the interface; one
// pixel a point unless asked otherwise.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "simulator/rendering/kept_screen.hpp"
#include "simulator/rendering/scene.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator {

// The screen as a tree of nodes, standing upright in a space of the interface's size.
struct UprightScreen {
    rendering::Node root;
    rendering::Size size;
};
UprightScreen uprightScreen();
rendering::Surface screenPicture(double pixelsPerPoint = 1);
// Answers the problem, or nothing when all went well.
std::optional<std::string> saveScreen(const std::filesystem::path& file, double pixelsPerPoint = 1);

// For who shows the screen again and again: what rests is kept, what moves is painted.
class ScreenPainter {
  public:
    // Answers the rows of pixels that differ from the last painting: all of them at first, and when
    // the screen has turned or the scale is another.
    rendering::Rows paint(double pixelsPerPoint = 1);
    // What was painted last; it stays as it is until the next painting.
    const rendering::Surface& picture() const { return kept_.surface(); }
    rendering::Size size() const { return size_; }

  private:
    rendering::KeptScreen kept_;
    rendering::Size size_;
};

class FilmStrip {
  public:
    void add();
    void add(rendering::Surface picture) { frames_.push_back(std::move(picture)); }
    std::optional<std::string> save(const std::filesystem::path& file) const;

  private:
    ScreenPainter painter_;
    std::vector<rendering::Surface> frames_;
};

}  // namespace simulator
