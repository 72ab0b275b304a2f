// The walk is the painter's own, without the painting.
#include "simulator/rendering/steps.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/rendering/print.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

namespace {

enum class Kind { node, group, border };

// Things that would show through one another if each were drawn see-through on its own.
int thingsToDraw(const Node& node) {
    int things = 0;
    if (node.background && node.background->alpha > 0) ++things;
    if (hasContent(node)) ++things;
    if (node.borderWidth > 0) ++things;
    if (node.shadow) ++things;
    for (const Node& child : node.children) {
        if (isShown(child)) ++things;
    }
    return things;
}

class Walk {
  public:
    void visit(const Node& node, double alpha) {
        if (!isShown(node)) return;
        alpha *= std::min(node.opacity, 1.0);
        if (!isDrawable(placement(node))) return;
        const std::size_t first = steps_.size();
        if (isGroup(node, alpha)) {
            add(node, Kind::group);
        } else {
            add(node, Kind::node);
            ++depth_;
            for (const Node& child : node.children) visit(child, alpha);
            --depth_;
            if (node.borderWidth > 0) add(node, Kind::border);
        }
        steps_[first].end = steps_.size();
    }

    std::vector<Step> take() { return std::move(steps_); }

  private:
    // The depth stands for the nodes that a step lies in: theirs are among the steps before it.
    void add(const Node& node, Kind kind) {
        Print print;
        print.add(static_cast<int>(kind));
        print.add(depth_);
        print.addPlace(node);
        print.addLooks(node);
        if (kind == Kind::group) print.addInside(node);
        steps_.push_back({print.value(), steps_.size() + 1});
    }

    std::vector<Step> steps_;
    int depth_ = 0;
};

}  // namespace

cairo_matrix_t placement(const Node& node) {
    cairo_matrix_t result;
    cairo_matrix_init_translate(&result, node.position.x, node.position.y);
    const cairo_matrix_t own = matrixOf(node.transform);
    cairo_matrix_multiply(&result, &own, &result);
    cairo_matrix_t back;
    cairo_matrix_init_translate(&back,
                                -node.bounds.origin.x - node.anchor.x * node.bounds.size.width,
                                -node.bounds.origin.y - node.anchor.y * node.bounds.size.height);
    cairo_matrix_multiply(&result, &back, &result);
    return result;
}

bool isDrawable(const cairo_matrix_t& matrix) {
    const double determinant = matrix.xx * matrix.yy - matrix.xy * matrix.yx;
    return std::isfinite(determinant) && std::abs(determinant) > 1e-9 && std::isfinite(matrix.x0) &&
           std::isfinite(matrix.y0);
}

bool isShown(const Node& node) { return !node.hidden && node.opacity > invisible; }

bool hasContent(const Node& node) { return !std::holds_alternative<std::monostate>(node.content); }

bool isGroup(const Node& node, double alpha) {
    return node.mask || (alpha < 1 - invisible && thingsToDraw(node) > 1);
}

std::vector<Step> stepsOf(const Node& root) {
    Walk walk;
    walk.visit(root, 1);
    return walk.take();
}

std::size_t commonSteps(const std::vector<Step>& one, const std::vector<Step>& other) {
    const auto differ = std::mismatch(
        one.begin(), one.end(), other.begin(), other.end(),
        [](const Step& left, const Step& right) { return left.print == right.print; });
    return static_cast<std::size_t>(differ.first - one.begin());
}

}  // namespace simulator::rendering
