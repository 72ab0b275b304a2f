// Pictures of the screen as it is on screen now, upright for the interface; one
// pixel a point unless asked otherwise.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

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

class FilmStrip {
  public:
    void add();
    std::optional<std::string> save(const std::filesystem::path& file) const;

  private:
    std::vector<rendering::Surface> frames_;
};

}  // namespace simulator
