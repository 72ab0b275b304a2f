// Two rules keep the pixels equal to those of a painting from nothing. A layer is what the canvas showed
// after the first steps, so that going on from it is the same painting. And the rows that are painted
// again are widened until no step crosses their edge: each step is painted whole or not at all.
#include "simulator/rendering/kept_screen.hpp"

#include <utility>

#include "simulator/rendering/canvas.hpp"
#include "simulator/rendering/painter.hpp"

namespace simulator::rendering {

namespace {

// What rests below all movement, what rests now, and one between.
constexpr std::size_t layersKept = 3;
constexpr Colour backdrop{0, 0, 0, 1};

}  // namespace

// Whether all that was kept still stands: another size is another screen.
bool KeptScreen::begin(Size points, double scale) {
    const int width = pixelsFor(points.width, scale), height = pixelsFor(points.height, scale);
    if (canvas_.width() == width && canvas_.height() == height && scale == scale_) return true;
    *this = KeptScreen();
    scale_ = scale;
    canvas_ = Surface(width, height);
    return false;
}

// From the last layer, or from what the canvas shows already, to the step `end`.
void KeptScreen::paintPart(const Node& root, const Steps& steps, std::size_t end, Rows rows,
                           bool fromLayer) {
    const Surface* below = fromLayer && !layers_.empty() ? &layers_.back().pixels : nullptr;
    if (fromLayer && !below) fill(canvas_, backdrop, rows);
    const Context context = contextOf(canvas_);
    cairo_scale(context.get(), scale_, scale_);
    Painter(canvas_, context.get()).paintPart(root, steps, {keptSteps(), end, rows, below});
    cairo_surface_flush(canvas_.get());
}

void KeptScreen::keep(std::size_t steps) {
    if (layers_.size() == layersKept) layers_.erase(layers_.begin() + 1);
    layers_.push_back({steps, copyOf(canvas_)});
}

Rows KeptScreen::paint(Node root, Size points, double scale) {
    if (!(scale > 0)) scale = 1;
    const bool stands = begin(points, scale);
    const Rows all = rowsOf(canvas_);
    Steps steps = stepsOf(root, scale, all.end);
    const std::size_t same = commonSteps(steps_, steps);
    const Rows changed = stands ? changedRows(steps_, steps) : all;
    while (keptSteps() > same) layers_.pop_back();
    painted_ = uncrossed(changed, steps, keptSteps());
    if (!painted_.empty()) {
        // What changes once more at the same place is likely to go on.
        const bool moves = contains(painted_, all) || same == same_;
        const bool keeps = same > keptSteps() && moves;
        if (keeps) {
            painted_ = all;
            paintPart(root, steps, same, all, true);
            keep(same);
        }
        paintPart(root, steps, steps.size(), painted_, !keeps);
    }
    tree_ = std::move(root);
    steps_ = std::move(steps);
    same_ = same;
    return changed;
}

}  // namespace simulator::rendering
