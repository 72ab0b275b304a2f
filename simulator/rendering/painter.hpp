// Walks a scene tree and paints it; used by the canvas for each frame.
#pragma once

#include <cstddef>
#include <optional>
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

    // Some of a tree's steps: those from `first` to `end` that reach into the rows, which none of them
    // crosses. What the rows show before is taken from `below`, unless it is there.
    struct Part {
        std::size_t first;
        std::size_t end;
        Rows rows;
        const Surface* below = nullptr;
    };
    void paintPart(const Node& root, const Steps& steps, Part part);

  private:
    // A rounded outline that cuts what is painted under its node, where that reaches its edge.
    struct Cut {
        const Node* node;
        cairo_matrix_t matrix;  // from points of the node to pixels; it neither turns nor mirrors

        bool spares(PixelBox box) const;
        PixelBox straightRows(PixelBox box) const;
    };

    bool counts() const;
    bool passOver();
    bool beginStep();
    void takeBelow();
    void layOverBelow(PixelBox box, Colour colour);
    void paintInside(const Node& node, double alpha, bool all);
    void paintMasked(const Node& node);
    void paintBackground(const Node& node, double alpha);
    std::optional<PixelBox> wholeClip() const;
    PixelBox wholePixels(const cairo_matrix_t& matrix, const Node& node) const;
    void paintShadow(const Node& node, double alpha);
    void paintContent(const Node& node, double alpha);
    void paintText(const Node& node, const Text& text, double alpha);
    void paintImage(const Node& node, const Image& image, double alpha);
    void paintBlur(const Node& node, const Blur& blur, double alpha);
    void paintGradient(const Node& node, const Gradient& gradient, double alpha);
    void paintBorder(const Node& node, double alpha);
    void clipToOutline(const Node& node);
    void cut(const Node& node);
    // All that wait, or only those that cut something of the rectangle.
    void applyCuts(std::optional<Rect> reached = std::nullopt);
    void pushGroup();
    Pattern popGroup();
    std::vector<PixelLayer> layers() const;

    const Surface& surface_;
    cairo_t* context_;
    std::vector<cairo_surface_t*> groups_;
    std::vector<Cut> cuts_;
    const Steps* steps_ = nullptr;  // when only a part of them is painted
    std::size_t step_ = 0;
    Part part_{};
};

}  // namespace simulator::rendering
