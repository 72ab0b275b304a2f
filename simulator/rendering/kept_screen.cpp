#include "simulator/rendering/kept_screen.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

#include "simulator/rendering/painter.hpp"

namespace simulator::rendering {

namespace {

// What rests below all movement, what rests now, and one between.
constexpr std::size_t layersKept = 3;
constexpr Colour backdrop{0, 0, 0, 1};

const unsigned char* rowOf(const Surface& surface, int y) {
    return cairo_image_surface_get_data(surface.get()) +
           static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface.get());
}

Rows differingRows(const Surface& one, const Surface& other) {
    const auto bytes = static_cast<std::size_t>(one.width()) * 4;
    const auto differs = [&](int y) {
        return std::memcmp(rowOf(one, y), rowOf(other, y), bytes) != 0;
    };
    Rows rows{0, one.height()};
    while (!rows.empty() && !differs(rows.first)) ++rows.first;
    while (!rows.empty() && !differs(rows.end - 1)) --rows.end;
    return rows;
}

}  // namespace

// Another size is another screen.
void KeptScreen::begin(Size points, double scale) {
    const int width = pixelsFor(points.width, scale), height = pixelsFor(points.height, scale);
    if (next_.width() == width && next_.height() == height && scale == scale_) return;
    *this = KeptScreen();
    scale_ = scale;
    next_ = Surface(width, height);
}

void KeptScreen::keep(std::size_t steps) {
    if (layers_.size() == layersKept) layers_.erase(layers_.begin() + 1);
    layers_.push_back({steps, copyOf(next_)});
}

// What is below the first change is painted no more while that stays the first.
void KeptScreen::paintNext(const Node& root, const std::vector<Step>& steps, std::size_t same) {
    std::size_t first = 0;
    if (layers_.empty()) {
        fill(next_, backdrop);
    } else {
        first = layers_.back().steps;
        copyPixels(layers_.back().pixels, next_);
    }
    const Context context = contextOf(next_);
    cairo_scale(context.get(), scale_, scale_);
    Painter::Pause pause;
    if (same > first) pause = {same, [&] { keep(same); }};
    Painter(next_, context.get()).paintFrom(root, steps, first, pause);
    painted_ = steps.size() - first;
    cairo_surface_flush(next_.get());
}

Rows KeptScreen::paint(Node root, Size points, double scale) {
    begin(points, scale > 0 ? scale : 1);
    std::vector<Step> steps = stepsOf(root);
    const std::size_t same = commonSteps(steps_, steps);
    if (shown_ && same == steps_.size() && same == steps.size()) return {};
    while (!layers_.empty() && layers_.back().steps > same) layers_.pop_back();
    paintNext(root, steps, same);
    const Rows rows = shown_ ? differingRows(shown_, next_) : rowsOf(next_);
    tree_ = std::move(root);
    steps_ = std::move(steps);
    std::swap(shown_, next_);
    if (!next_) next_ = Surface(shown_.width(), shown_.height());
    return rows;
}

}  // namespace simulator::rendering
