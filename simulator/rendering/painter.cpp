// Painting of one node and what is under it. A group (an off-screen surface) costs a full blend, so it
// is used only where a node is see-through and has more than one thing to draw.
#include "simulator/rendering/painter.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "simulator/rendering/image_layout.hpp"
#include "simulator/rendering/outline.hpp"
#include "simulator/rendering/picture.hpp"
#include "simulator/rendering/steps.hpp"
#include "simulator/rendering/symbols.hpp"
#include "simulator/rendering/text.hpp"

namespace simulator::rendering {

namespace {

double scaleIn(cairo_t* context) {
    cairo_matrix_t matrix;
    cairo_get_matrix(context, &matrix);
    return scaleOf(matrix);
}

// The pixels that the current clip touches.
PixelBox clipBox(cairo_t* context) {
    cairo_save(context);
    cairo_identity_matrix(context);
    double left = 0, top = 0, right = 0, bottom = 0;
    cairo_clip_extents(context, &left, &top, &right, &bottom);
    cairo_restore(context);
    const int x = static_cast<int>(std::floor(left));
    const int y = static_cast<int>(std::floor(top));
    return {x, y, static_cast<int>(std::ceil(right)) - x, static_cast<int>(std::ceil(bottom)) - y};
}

// A copy of the picture with every channel multiplied. In place on premultiplied pixels: cairo's own
// multiply lets the colour leak into see-through parts.
Surface tinted(const Surface& surface, Colour by) {
    Surface result(surface.width(), surface.height());
    const Context context = contextOf(result);
    cairo_set_source_surface(context.get(), surface.get(), 0, 0);
    cairo_paint(context.get());
    cairo_surface_flush(result.get());
    const std::array<double, 4> factors{by.blue * by.alpha, by.green * by.alpha, by.red * by.alpha,
                                        by.alpha};
    for (int y = 0; y < result.height(); ++y) {
        auto* row =
            reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(result.get()) +
                                             y * cairo_image_surface_get_stride(result.get()));
        for (int x = 0; x < result.width(); ++x) {
            std::uint32_t pixel = 0;
            for (unsigned channel = 0; channel < factors.size(); ++channel) {
                const double value = ((row[x] >> (8 * channel)) & 0xff) * factors[channel];
                pixel |= static_cast<std::uint32_t>(std::clamp(value + 0.5, 0.0, 255.0))
                         << (8 * channel);
            }
            row[x] = pixel;
        }
    }
    cairo_surface_mark_dirty(result.get());
    return result;
}

}  // namespace

Painter::Painter(const Surface& surface, cairo_t* context) : surface_(surface), context_(context) {}

void Painter::paint(const Node& node, double alpha) {
    if (!isShown(node)) return;
    alpha *= std::min(node.opacity, 1.0);
    const cairo_matrix_t own = placement(node);
    if (!isDrawable(own)) return;
    if (passOver()) return;
    cairo_save(context_);
    cairo_transform(context_, &own);
    const bool painted = beginStep();
    if (!isGroup(node, alpha)) {
        paintInside(node, alpha, painted);
    } else {
        if (node.masksToBounds) clipToOutline(node);
        pushGroup();
        paintInside(node, 1, true);
        if (node.mask) paintMasked(node);
        const Pattern group = popGroup();
        cairo_set_source(context_, group.get());
        cairo_paint_with_alpha(context_, alpha);
    }
    cairo_restore(context_);
}

void Painter::paintPart(const Node& root, const Steps& steps, Part part) {
    steps_ = &steps;
    step_ = 0;
    part_ = part;
    paint(root);
    steps_ = nullptr;
}

// Steps are counted outside of groups only: a group is one.
bool Painter::counts() const { return steps_ && groups_.empty(); }

// Whether nothing of the node and of what is under it is to be painted.
bool Painter::passOver() {
    if (!counts()) return false;
    const Step& step = (*steps_)[step_];
    if (step.end > part_.first && step_ < part_.end && meet(step.under, part_.rows)) return false;
    step_ = step.end;
    return true;
}

bool Painter::beginStep() {
    if (!counts()) return true;
    const std::size_t step = step_++;
    return step >= part_.first && step < part_.end && meet((*steps_)[step].drawn, part_.rows);
}

// Without `all` only what is under the node is painted, clipped by it as ever.
void Painter::paintInside(const Node& node, double alpha, bool all) {
    cairo_save(context_);
    if (all && node.shadow) paintShadow(node, alpha);
    if (all && node.background && node.background->alpha > 0) {
        cairo_new_path(context_);
        addOutline(context_, node.bounds, node.cornerRadius, node.continuousCorners);
        setSource(context_, *node.background, alpha);
        if (node.filtersBehind) cairo_set_operator(context_, CAIRO_OPERATOR_MULTIPLY);
        cairo_fill(context_);
        cairo_set_operator(context_, CAIRO_OPERATOR_OVER);
    }
    if (node.masksToBounds) clipToOutline(node);
    if (all && hasContent(node)) paintContent(node, alpha);
    for (const Node& child : node.children) paint(child, alpha);
    cairo_restore(context_);
    if (node.borderWidth > 0 && beginStep()) paintBorder(node, alpha);
}

// Keeps of the open group only what the mask covers.
void Painter::paintMasked(const Node& node) {
    pushGroup();
    paint(*node.mask);
    const Pattern mask = popGroup();
    cairo_save(context_);
    cairo_set_operator(context_, CAIRO_OPERATOR_DEST_IN);
    cairo_set_source(context_, mask.get());
    cairo_paint(context_);
    cairo_restore(context_);
}

void Painter::paintShadow(const Node& node, double alpha) {
    const Shadow& shadow = *node.shadow;
    const double scale = scaleIn(context_);
    // A quarter of the pixels each way: a shadow has no detail to lose.
    const double fine = std::clamp(shadow.radius > 2 ? scale / 4 : scale, 0.01, 8.0);
    const Rect room = inset(node.bounds, -shadowMargin(shadow));
    if (!(room.size.width * fine < 8192 && room.size.height * fine < 8192)) return;
    Surface small(static_cast<int>(std::ceil(room.size.width * fine)),
                  static_cast<int>(std::ceil(room.size.height * fine)));
    const Context inner = contextOf(small);
    cairo_scale(inner.get(), fine, fine);
    cairo_translate(inner.get(), -room.origin.x, -room.origin.y);
    addOutline(inner.get(), node.bounds, node.cornerRadius, node.continuousCorners);
    setSource(inner.get(), shadow.colour, alpha);
    cairo_fill(inner.get());
    blurInPlace(small, shadow.radius * fine);
    cairo_save(context_);
    cairo_translate(context_, room.origin.x + shadow.offset.x, room.origin.y + shadow.offset.y);
    cairo_scale(context_, 1 / fine, 1 / fine);
    cairo_set_source_surface(context_, small.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context_), CAIRO_FILTER_BILINEAR);
    cairo_paint(context_);
    cairo_restore(context_);
}

void Painter::paintContent(const Node& node, double alpha) {
    if (const auto* text = std::get_if<Text>(&node.content)) paintText(node, *text, alpha);
    if (const auto* image = std::get_if<Image>(&node.content)) paintImage(node, *image, alpha);
    if (const auto* blur = std::get_if<Blur>(&node.content)) paintBlur(node, *blur, alpha);
    if (const auto* gradient = std::get_if<Gradient>(&node.content)) {
        paintGradient(node, *gradient, alpha);
    }
    if (const auto* symbol = std::get_if<Symbol>(&node.content)) {
        Symbol shown = *symbol;
        if (node.multiply) shown.colour = multiplied(shown.colour, *node.multiply);
        shown.colour.alpha *= alpha;
        drawSymbol(context_, shown, node.bounds);
    }
}

void Painter::paintText(const Node& node, const Text& text, double alpha) {
    Colour colour = node.multiply ? multiplied(text.colour, *node.multiply) : text.colour;
    colour.alpha *= alpha;
    drawText(context_, text, node.bounds, colour);
}

void Painter::paintImage(const Node& node, const Image& image, double alpha) {
    if (!image.picture) return;
    const Rect target = imageRect(image.picture->size(), node.bounds, image.contentMode);
    const Size natural = image.picture->size();
    if (!(target.size.width > 0 && target.size.height > 0 && natural.width > 0)) return;
    const double stretch =
        std::max(target.size.width / natural.width, target.size.height / natural.height);
    Surface pixels = image.picture->raster(scaleIn(context_) * stretch);
    if (node.multiply && !image.tint) pixels = tinted(pixels, *node.multiply);
    cairo_save(context_);
    cairo_translate(context_, target.origin.x, target.origin.y);
    cairo_scale(context_, target.size.width / pixels.width(), target.size.height / pixels.height());
    const Pattern pattern(cairo_pattern_create_for_surface(pixels.get()));
    cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_BILINEAR);
    // Enlarged pixels are continued and cut at the edge: they would bleed out of the layer.
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    cairo_new_path(context_);
    cairo_rectangle(context_, 0, 0, pixels.width(), pixels.height());
    cairo_clip(context_);
    if (image.tint) {
        setSource(context_, node.multiply ? multiplied(*image.tint, *node.multiply) : *image.tint,
                  alpha);
        cairo_mask(context_, pattern.get());
    } else {
        cairo_set_source(context_, pattern.get());
        cairo_paint_with_alpha(context_, alpha);
    }
    cairo_restore(context_);
}

void Painter::paintBlur(const Node& node, const Blur& blur, double alpha) {
    cairo_save(context_);
    clipToOutline(node);
    const PixelBox box = clipBox(context_);
    if (box.width > 0 && box.height > 0) {
        const Smear smear = smearOf(layers(), box, std::max(blur.radius, 0.0) * scaleIn(context_),
                                    blur.tint, blur.saturation);
        cairo_identity_matrix(context_);
        cairo_translate(context_, smear.x, smear.y);
        cairo_scale(context_, smear.factor, smear.factor);
        cairo_set_source_surface(context_, smear.surface.get(), 0, 0);
        cairo_pattern_set_filter(cairo_get_source(context_), CAIRO_FILTER_BILINEAR);
        cairo_pattern_set_extend(cairo_get_source(context_), CAIRO_EXTEND_PAD);
        cairo_paint_with_alpha(context_, alpha);
    }
    cairo_restore(context_);
}

void Painter::paintGradient(const Node& node, const Gradient& gradient, double alpha) {
    const auto at = [&](Point unit) {
        return Point{node.bounds.origin.x + unit.x * node.bounds.size.width,
                     node.bounds.origin.y + unit.y * node.bounds.size.height};
    };
    const Point start = at(gradient.start);
    const Point end = at(gradient.end);
    const double radius = std::hypot(end.x - start.x, end.y - start.y);
    const Pattern pattern(
        gradient.radial ? cairo_pattern_create_radial(start.x, start.y, 0, start.x, start.y, radius)
                        : cairo_pattern_create_linear(start.x, start.y, end.x, end.y));
    for (const GradientStop& stop : gradient.stops) {
        const Colour colour = node.multiply ? multiplied(stop.colour, *node.multiply) : stop.colour;
        cairo_pattern_add_color_stop_rgba(pattern.get(), stop.offset, colour.red, colour.green,
                                          colour.blue, colour.alpha * alpha);
    }
    cairo_new_path(context_);
    addOutline(context_, node.bounds, node.cornerRadius, node.continuousCorners);
    cairo_set_source(context_, pattern.get());
    cairo_fill(context_);
}

void Painter::paintBorder(const Node& node, double alpha) {
    cairo_new_path(context_);
    addOutline(context_, inset(node.bounds, node.borderWidth / 2),
               std::max(0.0, node.cornerRadius - node.borderWidth / 2), node.continuousCorners);
    cairo_set_line_width(context_, node.borderWidth);
    setSource(context_, node.border, alpha);
    cairo_stroke(context_);
}

void Painter::clipToOutline(const Node& node) {
    cairo_new_path(context_);
    addOutline(context_, node.bounds, node.cornerRadius, node.continuousCorners);
    cairo_clip(context_);
}

void Painter::pushGroup() {
    cairo_push_group(context_);
    groups_.push_back(cairo_get_group_target(context_));
}

Pattern Painter::popGroup() {
    groups_.pop_back();
    return Pattern(cairo_pop_group(context_));
}

std::vector<PixelLayer> Painter::layers() const {
    std::vector<PixelLayer> result{{surface_.get(), 0, 0}};
    for (cairo_surface_t* group : groups_) {
        if (cairo_surface_get_type(group) != CAIRO_SURFACE_TYPE_IMAGE) continue;
        double x = 0, y = 0;
        cairo_surface_get_device_offset(group, &x, &y);
        result.push_back({group, static_cast<int>(-x), static_cast<int>(-y)});
    }
    return result;
}

}  // namespace simulator::rendering
