// A picture that image layers show: decoded pixels with a scale, or a drawing that is rasterised once
// for each scale it is shown at. Pictures never change after they are made and are shared.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "simulator/rendering/scene.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

class Picture {
  public:
    // Draws in points into a box from 0,0 to the picture's size.
    using Drawing = std::function<void(cairo_t*)>;

    // `scale` is pixels per point of the file (@2x: 2). Nothing for an empty surface.
    static PictureRef pixels(Surface surface, double scale = 1);
    static PictureRef drawing(Size size, Drawing draw);
    // The same for what paints its surface itself, of so many pixels per point.
    using Painting = std::function<Surface(double pixelsPerPoint)>;
    static PictureRef painting(Size size, Painting paint);
    // A symbol (symbols.hpp) in a box of its own; black unless a colour is given.
    static PictureRef symbol(const std::string& name, Size size, Colour colour = {0, 0, 0, 1});

    // Points.
    Size size() const { return size_; }
    // Pixels good for showing the picture at `pixelsPerPoint`: never much larger than needed, so
    // that a bilinear pass suffices. Kept for the next frame.
    const Surface& raster(double pixelsPerPoint) const;

  private:
    const Surface& halved(int times) const;
    const Surface& painted(double pixelsPerPoint) const;

    Size size_;
    double scale_ = 1;
    Painting paint_;
    mutable std::map<int, Surface> rasters_;  // by halvings, or by pixels per hundred points
};

// Half the size in both directions, each pixel the mean of four.
Surface halfSize(const Surface& surface);

}  // namespace simulator::rendering
