// Walks a scene tree and paints it; used by the canvas for each frame.
#pragma once

#include <cstddef>
#include <vector>

#include "simulator/rendering/blur.hpp"
#include "simulator/rendering/scene.hpp"
#include "simulator/rendering/steps.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

class Painter {
  public:
    // The context's matrix maps points to pixels of `surface`.
    Painter(const Surface& surface, cairo_t* context);

    void paint(const Node& node, double alpha = 1);

    // Some of a tree's steps: those from `first` to `end` that reach into the rows.
    struct Part {
        std::size_t first;
        std::size_t end;
        Rows rows;
    };
    void paintPart(const Node& root, const Steps& steps, Part part);

  private:
    bool counts() const;
    bool passOver();
    bool beginStep();
    void paintInside(const Node& node, double alpha, bool all);
    void paintMasked(const Node& node);
    void paintShadow(const Node& node, double alpha);
    void paintContent(const Node& node, double alpha);
    void paintText(const Node& node, const Text& text, double alpha);
    void paintImage(const Node& node, const Image& image, double alpha);
    void paintBlur(const Node& node, const Blur& blur, double alpha);
    void paintGradient(const Node& node, const Gradient& gradient, double alpha);
    void paintBorder(const Node& node, double alpha);
    void clipToOutline(const Node& node);
    void pushGroup();
    Pattern popGroup();
    std::vector<PixelLayer> layers() const;

    const Surface& surface_;
    cairo_t* context_;
    std::vector<cairo_surface_t*> groups_;
    const Steps* steps_ = nullptr;  // when only a part of them is painted
    std::size_t step_ = 0;
    Part part_{};
};

}  // namespace simulator::rendering
