// A screen that is painted again and again, as a compositor does it: what lies below the first change
// is kept as pixels, so that only the rest is painted. The pixels are always those of a painting from
// nothing, to the byte.
#pragma once

#include <cstddef>
#include <vector>

#include "simulator/rendering/canvas.hpp"
#include "simulator/rendering/scene.hpp"
#include "simulator/rendering/steps.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

// Rows of pixels from `first` up to, not including, `end`.
struct Rows {
    int first = 0;
    int end = 0;

    bool empty() const { return first >= end; }
    int count() const { return end - first; }
};

// All of a picture's.
inline Rows rowsOf(const Surface& surface) { return {0, surface.height()}; }

class KeptScreen {
  public:
    // Paints the tree on a screen of `points` at `scale` pixels a point. Answers the rows that differ
    // from the last painting: all of them at first and when the screen has another size.
    Rows paint(Node root, Size points, double scale);

    // What was painted last; it stays as it is until the next painting, which uses another.
    const Surface& surface() const { return shown_; }

    // How many steps the last painting of something new took.
    std::size_t painted() const { return painted_; }

  private:
    // The screen after its first `steps` steps.
    struct Layer {
        std::size_t steps;
        Surface pixels;
    };

    void begin(Size points, double scale);
    void paintNext(const Node& root, const std::vector<Step>& steps, std::size_t same);
    void keep(std::size_t steps);

    // Of the last painting. The tree holds its pictures, which steps know by their addresses.
    Node tree_;
    std::vector<Step> steps_;
    std::vector<Layer> layers_;  // ever more steps
    std::size_t painted_ = 0;
    double scale_ = 0;
    Surface shown_;
    Surface next_;
};

}  // namespace simulator::rendering
