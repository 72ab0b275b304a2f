// Draws scene trees into pixels. One canvas is one screen: W x H points at a pixel scale.
// All drawing belongs to one thread: pictures and wallpapers are kept without locks.
#pragma once

#include "simulator/rendering/rows.hpp"
#include "simulator/rendering/scene.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

// Pixels of a length in points: at least one, and no more than cairo can hold.
int pixelsFor(double points, double scale);
void fill(const Surface& surface, Colour colour, Rows rows);

class Canvas {
  public:
    Canvas(Size points, double scale);

    void clear(Colour colour = {0, 0, 0, 1});
    // Draws the tree over what is there. The root is placed like every node: by its position in the
    // canvas, whose origin is the top left corner.
    void draw(const Node& root);

    const Surface& surface() const { return surface_; }
    Size size() const { return size_; }
    double scale() const { return scale_; }

  private:
    Size size_;
    double scale_;
    Surface surface_;
};

// A fresh canvas with one tree on it.
Surface render(const Node& root, Size points, double scale, Colour backdrop = {0, 0, 0, 1});

}  // namespace simulator::rendering
