// A screen that is painted again and again, as a compositor does it: what lies below all movement is
// kept as pixels, and of the rest only the rows that changed are painted. The pixels are always those
// of a painting from nothing, to the byte.
#pragma once

#include <cstddef>
#include <vector>

#include "simulator/rendering/rows.hpp"
#include "simulator/rendering/scene.hpp"
#include "simulator/rendering/steps.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

class KeptScreen {
  public:
    // Paints the tree on a screen of `points` at `scale` pixels a point. Answers the rows that may
    // differ from the last painting: all of them at first and when the screen has another size.
    Rows paint(Node root, Size points, double scale);

    // What was painted last; the next painting changes it.
    const Surface& surface() const { return canvas_; }

    // How many rows the last call painted, and from which step on: the ones before were kept.
    Rows painted() const { return painted_; }
    std::size_t keptSteps() const { return layers_.empty() ? 0 : layers_.back().steps; }

  private:
    // The screen after its first `steps` steps.
    struct Layer {
        std::size_t steps;
        Surface pixels;
    };

    bool begin(Size points, double scale);
    void paintPart(const Node& root, const Steps& steps, std::size_t end, Rows rows,
                   bool fromLayer);
    void keep(std::size_t steps);

    // Of the last painting. The tree holds its pictures, which steps know by their addresses.
    Node tree_;
    Steps steps_;
    std::size_t same_ = 0;       // steps that it had in common with the one before
    std::vector<Layer> layers_;  // ever more steps
    double scale_ = 0;
    Rows painted_;
    Surface canvas_;
};

}  // namespace simulator::rendering
