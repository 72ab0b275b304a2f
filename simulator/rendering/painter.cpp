// Painting of one node and what is under it. A group (an off-screen surface) costs a full blend, so it
// is used only where a node is see-through and has more than one thing to draw.
#include "simulator/rendering/painter.hpp"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "simulator/rendering/image_layout.hpp"
#include "simulator/rendering/outline.hpp"
#include "simulator/rendering/picture.hpp"
#include "simulator/rendering/pixel_loops.hpp"
#include "simulator/rendering/stamps.hpp"
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

// The pixels of a rectangle, with those beside that an edge may touch.
PixelBox touched(const cairo_matrix_t& matrix, Rect rect) {
    double left = 0, top = 0, right = 0, bottom = 0;
    for (int corner = 0; corner < 4; ++corner) {
        double x = rect.origin.x + (corner % 2 ? rect.size.width : 0);
        double y = rect.origin.y + (corner / 2 ? rect.size.height : 0);
        cairo_matrix_transform_point(&matrix, &x, &y);
        left = corner ? std::min(left, x) : x;
        top = corner ? std::min(top, y) : y;
        right = corner ? std::max(right, x) : x;
        bottom = corner ? std::max(bottom, y) : y;
    }
    const auto pixel = [](double at) { return static_cast<int>(std::clamp(at, -1e6, 1e6)); };
    const int x = pixel(std::floor(left) - 1), y = pixel(std::floor(top) - 1);
    return {x, y, pixel(std::ceil(right) + 1) - x, pixel(std::ceil(bottom) + 1) - y};
}

// Whether what lies there begins or ends between two pixels.
bool isWhole(double at) { return at == std::floor(at) && std::abs(at) < 1e6; }

// In pixels; of a matrix that turns nothing.
struct Edges {
    double left, top, right, bottom;
};
Edges edgesOf(const Rect& rect, const cairo_matrix_t& matrix) {
    Edges edges{rect.origin.x, rect.origin.y, rect.origin.x + rect.size.width,
                rect.origin.y + rect.size.height};
    cairo_matrix_transform_point(&matrix, &edges.left, &edges.top);
    cairo_matrix_transform_point(&matrix, &edges.right, &edges.bottom);
    return edges;
}

}  // namespace

// Whether the outline lets all of these pixels through. A corner of it bulges out of the line from where it
// begins on one side to where it ends on the other.
bool Painter::Cut::spares(PixelBox box) const {
    const Edges edges = edgesOf(node->bounds, matrix);
    const double across = std::min(box.x - edges.left, edges.right - (box.x + box.width));
    const double down = std::min(box.y - edges.top, edges.bottom - (box.y + box.height));
    const double reach = cornerReach * node->cornerRadius;
    return across >= 0 && down >= 0 && across / matrix.xx + down / matrix.yy >= reach;
}

// Of the pixels those rows in which the outline is straight and takes none away.
PixelBox Painter::Cut::straightRows(PixelBox box) const {
    const auto [left, top, right, bottom] = edgesOf(node->bounds, matrix);
    if (box.x < left || box.x + box.width > right) return {};
    const double reach = cornerReach * node->cornerRadius * matrix.yy;
    const double first = std::max<double>(box.y, std::ceil(top + reach));
    const double end = std::min<double>(box.y + box.height, std::floor(bottom - reach));
    if (!(first < end)) return {};
    return {box.x, static_cast<int>(first), box.width, static_cast<int>(end - first)};
}

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
        takeBelow();
        if (node.masksToBounds) clipToOutline(node);
        applyCuts();
        const std::vector<Cut> outside = std::exchange(cuts_, {});
        pushGroup();
        paintInside(node, 1, true);
        if (node.mask) paintMasked(node);
        const Pattern group = popGroup();
        cuts_ = outside;
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
    takeBelow();
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

// Before something is painted.
void Painter::takeBelow() {
    if (part_.below) copyPixels(*part_.below, surface_, part_.rows);
    part_.below = nullptr;
}

// Without `all` only what is under the node is painted, clipped by it as ever.
void Painter::paintInside(const Node& node, double alpha, bool all) {
    const std::size_t outside = cuts_.size();
    if (all && node.shadow) paintShadow(node, alpha);
    if (all && node.background && node.background->alpha > 0) paintBackground(node, alpha);
    if (node.masksToBounds) {
        cairo_save(context_);
        cut(node);
    }
    if (all && hasContent(node)) paintContent(node, alpha);
    for (const Node& child : node.children) paint(child, alpha);
    cuts_.resize(outside);
    if (node.masksToBounds) cairo_restore(context_);
    if (node.borderWidth > 0 && beginStep()) paintBorder(node, alpha);
}

void Painter::paintBackground(const Node& node, double alpha) {
    Colour colour = *node.background;
    colour.alpha *= alpha;
    cairo_matrix_t matrix;
    cairo_get_matrix(context_, &matrix);
    cairo_save(context_);
    applyCuts(node.bounds);
    const bool plain = !node.filtersBehind;
    const PixelBox screenful = plain ? wholePixels(matrix, node) : PixelBox{};
    const bool covers = screenful.width > 0 && colour.alpha < 1 && groups_.empty();
    if (!covers) takeBelow();
    if (covers) {
        layOverBelow(screenful, colour);
    } else if (plain && node.cornerRadius > 0 && isFitForStamp(matrix, node.bounds)) {
        const Stamp stamp =
            outlineStamp(matrix, node.bounds, node.cornerRadius, node.continuousCorners);
        const std::optional<PixelBox> clip = groups_.empty() ? wholeClip() : std::nullopt;
        if (clip) {
            layThrough(stamp, surface_, *clip, colour);
        } else {
            cairo_identity_matrix(context_);
            setSource(context_, colour);
            cairo_mask_surface(context_, stamp.pixels.get(), stamp.x, stamp.y);
        }
    } else {
        cairo_new_path(context_);
        addOutline(context_, node.bounds, node.cornerRadius, node.continuousCorners);
        setSource(context_, colour);
        if (node.filtersBehind) cairo_set_operator(context_, CAIRO_OPERATOR_MULTIPLY);
        cairo_fill(context_);
    }
    cairo_restore(context_);
}

// In one go with taking what lies below, which saves reading and writing all of it once more.
void Painter::layOverBelow(PixelBox box, Colour colour) {
    if (!part_.below || box.x > 0 || box.width < surface_.width()) takeBelow();
    const Surface* below = std::exchange(part_.below, nullptr);
    if (below) {
        copyPixels(*below, surface_, {part_.rows.first, box.y});
        copyPixels(*below, surface_, {box.y + box.height, part_.rows.end});
    }
    layOver(below ? *below : surface_, surface_, box, colour);
}

// The pixels that the current clip lets through, when it takes a part of none.
std::optional<PixelBox> Painter::wholeClip() const {
    cairo_save(context_);
    cairo_identity_matrix(context_);
    const std::unique_ptr<cairo_rectangle_list_t, decltype(&cairo_rectangle_list_destroy)> clip(
        cairo_copy_clip_rectangle_list(context_), &cairo_rectangle_list_destroy);
    cairo_restore(context_);
    if (clip->status != CAIRO_STATUS_SUCCESS || clip->num_rectangles != 1) return std::nullopt;
    const cairo_rectangle_t& room = clip->rectangles[0];
    for (double at : {room.x, room.y, room.width, room.height}) {
        if (!isWhole(at)) return std::nullopt;
    }
    return PixelBox{static_cast<int>(room.x), static_cast<int>(room.y),
                    static_cast<int>(room.width), static_cast<int>(room.height)};
}

// The pixels that a background without rounded corners fills under the current clip, when it fills each
// of them whole; empty when it does not.
PixelBox Painter::wholePixels(const cairo_matrix_t& matrix, const Node& node) const {
    if (node.cornerRadius > 0 || matrix.xy != 0 || matrix.yx != 0) return {};
    const auto [left, top, right, bottom] = edgesOf(node.bounds, matrix);
    for (double at : {left, top, right, bottom}) {
        if (!isWhole(at)) return {};
    }
    const std::optional<PixelBox> clip = wholeClip();
    if (!clip) return {};
    return common({static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
                   static_cast<int>(bottom - top)},
                  *clip);
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
    takeBelow();
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
    applyCuts();
    cairo_translate(context_, room.origin.x + shadow.offset.x, room.origin.y + shadow.offset.y);
    cairo_scale(context_, 1 / fine, 1 / fine);
    cairo_set_source_surface(context_, small.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context_), CAIRO_FILTER_BILINEAR);
    cairo_paint(context_);
    cairo_restore(context_);
}

void Painter::paintContent(const Node& node, double alpha) {
    takeBelow();
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
        cairo_save(context_);
        applyCuts();
        drawSymbol(context_, shown, node.bounds);
        cairo_restore(context_);
    }
}

void Painter::paintText(const Node& node, const Text& text, double alpha) {
    Colour colour = node.multiply ? multiplied(text.colour, *node.multiply) : text.colour;
    colour.alpha *= alpha;
    cairo_save(context_);
    applyCuts();
    drawText(context_, text, node.bounds, colour);
    cairo_restore(context_);
}

void Painter::paintImage(const Node& node, const Image& image, double alpha) {
    if (!image.picture) return;
    const Rect target = imageRect(image.picture->size(), node.bounds, image.contentMode);
    const Size natural = image.picture->size();
    if (!(target.size.width > 0 && target.size.height > 0 && natural.width > 0)) return;
    const double stretch =
        std::max(target.size.width / natural.width, target.size.height / natural.height);
    Surface pixels = image.picture->raster(scaleIn(context_) * stretch);
    cairo_matrix_t matrix;
    cairo_get_matrix(context_, &matrix);
    const std::optional<Colour> tint =
        image.tint && node.multiply ? multiplied(*image.tint, *node.multiply) : image.tint;
    cairo_save(context_);
    applyCuts(target);
    if (isFitForStamp(matrix, target)) {
        const Stamp stamp = tint ? coverageStamp(matrix, target, pixels)
                                 : imageStamp(matrix, target, pixels, node.multiply);
        cairo_identity_matrix(context_);
        if (tint) {
            setSource(context_, *tint, alpha);
            cairo_mask_surface(context_, stamp.pixels.get(), stamp.x, stamp.y);
        } else {
            cairo_set_source_surface(context_, stamp.pixels.get(), stamp.x, stamp.y);
            cairo_paint_with_alpha(context_, alpha);
        }
    } else {
        if (node.multiply && !tint) pixels = tinted(pixels, *node.multiply);
        const Pattern pattern = fitInto(context_, target, pixels);
        if (tint) {
            setSource(context_, *tint, alpha);
            cairo_mask(context_, pattern.get());
        } else {
            cairo_set_source(context_, pattern.get());
            cairo_paint_with_alpha(context_, alpha);
        }
    }
    cairo_restore(context_);
}

void Painter::paintBlur(const Node& node, const Blur& blur, double alpha) {
    cairo_matrix_t matrix;
    cairo_get_matrix(context_, &matrix);
    const double radius = std::max(blur.radius, 0.0) * scaleOf(matrix);
    PixelBox direct = alpha < 1 || !groups_.empty() ? PixelBox{} : wholePixels(matrix, node);
    for (const Cut& one : cuts_) direct = one.straightRows(direct);
    cairo_save(context_);
    applyCuts();
    clipToOutline(node);
    const PixelBox box = clipBox(context_);
    if (box.width > 0 && box.height > 0) {
        const Smear smear = smearOf(layers(), box, radius, blur.tint, blur.saturation);
        cairo_identity_matrix(context_);
        const auto show = [&](PixelBox part) {
            if (part.height <= 0) return;
            const Surface pixels = enlarged(smear, part);
            cairo_set_source_surface(context_, pixels.get(), part.x, part.y);
            cairo_rectangle(context_, part.x, part.y, part.width, part.height);
            cairo_clip(context_);
            cairo_paint_with_alpha(context_, alpha);
        };
        cairo_save(context_);
        if (direct.height <= 0) direct = {box.x, box.y + box.height, box.width, 0};
        const int end = direct.y + direct.height;
        show({box.x, box.y, box.width, direct.y - box.y});
        cairo_restore(context_);
        enlargeInto(surface_, 0, 0, smear, direct);
        show({box.x, end, box.width, box.y + box.height - end});
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
    cairo_save(context_);
    applyCuts(node.bounds);
    cairo_new_path(context_);
    addOutline(context_, node.bounds, node.cornerRadius, node.continuousCorners);
    cairo_set_source(context_, pattern.get());
    cairo_fill(context_);
    cairo_restore(context_);
}

void Painter::paintBorder(const Node& node, double alpha) {
    takeBelow();
    cairo_save(context_);
    applyCuts(inset(node.bounds, -node.borderWidth));
    cairo_new_path(context_);
    addOutline(context_, inset(node.bounds, node.borderWidth / 2),
               std::max(0.0, node.cornerRadius - node.borderWidth / 2), node.continuousCorners);
    cairo_set_line_width(context_, node.borderWidth);
    setSource(context_, node.border, alpha);
    cairo_stroke(context_);
    cairo_restore(context_);
}

void Painter::clipToOutline(const Node& node) {
    cairo_new_path(context_);
    addOutline(context_, node.bounds, node.cornerRadius, node.continuousCorners);
    cairo_clip(context_);
}

// What is painted from now on shows only inside the node. A rounded clip makes all that is painted under
// it slow, so it waits for what it really cuts.
void Painter::cut(const Node& node) {
    cairo_matrix_t matrix;
    cairo_get_matrix(context_, &matrix);
    const bool upright = matrix.xy == 0 && matrix.yx == 0 && matrix.xx > 0 && matrix.yy > 0;
    if (node.cornerRadius > 0 && upright) {
        cuts_.push_back({&node, matrix});
    } else {
        clipToOutline(node);
    }
}

// Before something is painted that reaches no further than the rectangle.
void Painter::applyCuts(std::optional<Rect> reached) {
    if (cuts_.empty()) return;
    cairo_matrix_t matrix;
    cairo_get_matrix(context_, &matrix);
    for (const Cut& one : cuts_) {
        if (reached && one.spares(touched(matrix, *reached))) continue;
        cairo_set_matrix(context_, &one.matrix);
        clipToOutline(*one.node);
    }
    cairo_set_matrix(context_, &matrix);
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
