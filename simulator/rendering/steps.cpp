// The walk is the painter's own, without the painting.
#include "simulator/rendering/steps.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "simulator/rendering/blur.hpp"
#include "simulator/rendering/image_layout.hpp"
#include "simulator/rendering/picture.hpp"
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

// Texts may be higher than their bounds, and a glyph wider than its advance.
double overhang(const Text& text) { return 1.5 * text.fontSize * std::max(text.lines, 1); }
bool isBoundless(const Text& text) { return text.lines <= 0 && !text.truncatesTail; }

// Where a node lies on the canvas.
struct Place {
    cairo_matrix_t matrix;  // from points of the node to pixels
    double alpha;
    Rows clip;
    std::uint64_t context;  // a print of all that it lies in
};

class Walk {
  public:
    Walk(double scale, int rows) : rows_{0, rows} {
        cairo_matrix_init_scale(&screen_, scale, scale);
    }

    Steps take(const Node& root) {
        visit(root, {screen_, 1, rows_, 0});
        return std::move(steps_);
    }

  private:
    // Answers the rows that the node and all that is under it draw.
    Rows visit(const Node& node, const Place& parent) {
        if (!isShown(node)) return {};
        Place place = parent;
        if (!enter(node, place)) return {};
        const std::size_t first = steps_.size();
        Rows under;
        if (isGroup(node, place.alpha)) {
            under = add(node, Kind::group, place);
        } else {
            under = add(node, Kind::node, place);
            place.context = steps_.back().print;
            cut(node, place);
            for (const Node& child : node.children) under = joined(under, visit(child, place));
            if (node.borderWidth > 0) under = joined(under, add(node, Kind::border, place));
        }
        steps_[first].end = steps_.size();
        steps_[first].under = under;
        return under;
    }

    static bool enter(const Node& node, Place& place) {
        place.alpha *= std::min(node.opacity, 1.0);
        const cairo_matrix_t own = placement(node);
        if (!isDrawable(own)) return false;
        cairo_matrix_multiply(&place.matrix, &own, &place.matrix);
        return true;
    }

    void cut(const Node& node, Place& place) const {
        if (node.masksToBounds) place.clip = common(place.clip, covered(node.bounds, place));
    }

    // Answers the rows that it draws itself.
    Rows add(const Node& node, Kind kind, const Place& place) {
        Print print;
        print.add(place.context);
        print.add(static_cast<int>(kind));
        print.addPlace(node);
        print.addLooks(node);
        if (kind == Kind::group) print.addInside(node);
        Step step{print.value(), steps_.size() + 1, {}, {}, {}};
        if (kind == Kind::border) {
            step.drawn = covered(inset(node.bounds, -node.borderWidth), place);
        } else {
            reach(node, place, step);
            if (kind == Kind::group) reachInside(node, place, step);
        }
        step.under = step.drawn;
        steps_.push_back(step);
        return step.drawn;
    }

    // The rows of a rectangle, with the pixel beside that an edge may touch.
    Rows covered(Rect rect, const Place& place) const {
        double top = 0, bottom = 0;
        for (int corner = 0; corner < 4; ++corner) {
            double x = rect.origin.x + (corner % 2 ? rect.size.width : 0);
            double y = rect.origin.y + (corner / 2 ? rect.size.height : 0);
            cairo_matrix_transform_point(&place.matrix, &x, &y);
            if (!std::isfinite(y)) return place.clip;
            top = corner ? std::min(top, y) : y;
            bottom = corner ? std::max(bottom, y) : y;
        }
        const double last = rows_.end;
        const Rows rows{static_cast<int>(std::clamp(std::floor(top) - 1, 0.0, last)),
                        static_cast<int>(std::clamp(std::ceil(bottom) + 1, 0.0, last))};
        return common(rows, place.clip);
    }

    // What the node itself draws.
    void reach(const Node& node, const Place& place, Step& step) const {
        const auto draw = [&](Rect rect) { step.drawn = joined(step.drawn, covered(rect, place)); };
        if (node.background || node.borderWidth > 0) draw(inset(node.bounds, -node.borderWidth));
        if (node.shadow) {
            Rect room = inset(node.bounds, -shadowMargin(*node.shadow) - 4);
            room.origin.x += node.shadow->offset.x;
            room.origin.y += node.shadow->offset.y;
            draw(room);
        }
        if (const auto* text = std::get_if<Text>(&node.content)) {
            if (isBoundless(*text)) step.drawn = place.clip;
            draw(inset(node.bounds, -overhang(*text)));
        } else if (const auto* image = std::get_if<Image>(&node.content)) {
            if (image->picture) {
                draw(imageRect(image->picture->size(), node.bounds, image->contentMode));
            }
        } else if (std::holds_alternative<Symbol>(node.content)) {
            draw(inset(node.bounds, -node.bounds.size.height / 2 - 2));
        } else if (hasContent(node)) {
            draw(node.bounds);
        }
        if (const auto* blur = std::get_if<Blur>(&node.content)) {
            const double sigma = std::max(blur->radius, 0.0) * scaleOf(place.matrix);
            const int beyond = sigma < rows_.end ? blurReach(sigma) : rows_.end;
            step.read =
                joined(step.read, common(rows_, widened(covered(node.bounds, place), beyond)));
        }
    }

    // What lies in a group is drawn with it. A mask only takes away.
    void reachInside(const Node& node, Place place, Step& step) const {
        cut(node, place);
        for (const Node& child : node.children) {
            if (!isShown(child)) continue;
            Place inner = place;
            if (!enter(child, inner)) continue;
            reach(child, inner, step);
            reachInside(child, inner, step);
        }
    }

    const Rows rows_;
    cairo_matrix_t screen_;
    Steps steps_;
};

bool same(const Step& one, const Step& other) { return one.print == other.print; }

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

double shadowMargin(const Shadow& shadow) { return shadow.radius * 3 + 1; }

Rect inset(Rect rect, double by) {
    return {{rect.origin.x + by, rect.origin.y + by},
            {rect.size.width - 2 * by, rect.size.height - 2 * by}};
}

double scaleOf(const cairo_matrix_t& matrix) {
    return std::sqrt(std::abs(matrix.xx * matrix.yy - matrix.xy * matrix.yx));
}

Steps stepsOf(const Node& root, double scale, int rows) { return Walk(scale, rows).take(root); }

std::size_t commonSteps(const Steps& one, const Steps& other) {
    const auto differ = std::mismatch(one.begin(), one.end(), other.begin(), other.end(), same);
    return static_cast<std::size_t>(differ.first - one.begin());
}

Rows changedRows(const Steps& before, const Steps& after) {
    const std::size_t first = commonSteps(before, after);
    std::size_t last = before.size(), lastAfter = after.size();
    while (last > first && lastAfter > first && same(before[last - 1], after[lastAfter - 1])) {
        --last;
        --lastAfter;
    }
    Rows rows;
    const bool paired = last == lastAfter;
    for (std::size_t i = first; i < last; ++i) {
        if (!paired || !same(before[i], after[i])) rows = joined(rows, before[i].drawn);
    }
    for (std::size_t i = first; i < lastAfter; ++i) {
        if (!paired || !same(before[i], after[i])) rows = joined(rows, after[i].drawn);
    }
    // A blur shows what changed behind it.
    for (std::size_t i = first; i < after.size(); ++i) {
        if (meet(after[i].read, rows)) rows = joined(rows, after[i].drawn);
    }
    return rows;
}

Rows uncrossed(Rows rows, const Steps& steps, std::size_t first) {
    for (bool grew = true; grew;) {
        grew = false;
        for (std::size_t i = first; i < steps.size(); ++i) {
            const Rows reached = joined(steps[i].drawn, steps[i].read);
            if (!meet(reached, rows) || contains(rows, reached)) continue;
            rows = joined(rows, reached);
            grew = true;
        }
    }
    return rows;
}

}  // namespace simulator::rendering
