// The arithmetic of layer values: properties as numbers, frames, presentation.
#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/layer/layer.hpp"

namespace simulator {

namespace {

Numbers numbersOf(Rgba c) { return {c.red, c.green, c.blue, c.alpha, 0, 0}; }
Rgba rgbaFrom(const Numbers& n) { return {n[0], n[1], n[2], n[3]}; }

// The bounds about the anchor, turned by the transform: the frame when the position is zero. While
// nothing is turned a negative size stays as it is, so that a frame reads as it was given.
CGRect boxAboutAnchor(const LayerValues& values, CGSize size) {
    if (values.transform == identityTransform) {
        return {{-values.anchor.x * size.width, -values.anchor.y * size.height}, size};
    }
    return geometry::boundingBox(
        values.transform, {{-values.anchor.x * size.width, -values.anchor.y * size.height}, size});
}

CGAffineTransform linearPart(CGAffineTransform t) { return {t.a, t.b, t.c, t.d, 0, 0}; }

}  // namespace

Numbers read(const LayerValues& v, Property property) {
    switch (property) {
        case Property::position:
            return {v.position.x, v.position.y};
        case Property::boundsOrigin:
            return {v.bounds.origin.x, v.bounds.origin.y};
        case Property::boundsSize:
            return {v.bounds.size.width, v.bounds.size.height};
        case Property::transform:
            return {v.transform.a, v.transform.b,  v.transform.c,
                    v.transform.d, v.transform.tx, v.transform.ty};
        case Property::opacity:
            return {v.opacity};
        case Property::cornerRadius:
            return {v.cornerRadius};
        case Property::background:
            return numbersOf(v.background);
        case Property::multiply:
            return numbersOf(v.multiply);
    }
    return {};
}

void write(LayerValues& v, Property property, const Numbers& n) {
    switch (property) {
        case Property::position:
            v.position = {n[0], n[1]};
            break;
        case Property::boundsOrigin:
            v.bounds.origin = {n[0], n[1]};
            break;
        case Property::boundsSize:
            v.bounds.size = {n[0], n[1]};
            break;
        case Property::transform:
            v.transform = {n[0], n[1], n[2], n[3], n[4], n[5]};
            break;
        case Property::opacity:
            v.opacity = static_cast<float>(n[0]);
            break;
        case Property::cornerRadius:
            v.cornerRadius = n[0];
            break;
        case Property::background:
            v.background = rgbaFrom(n);
            break;
        case Property::multiply:
            v.multiply = rgbaFrom(n);
            break;
    }
}

void setDefaults(LayerValues& values) {
    values = {};
    values.anchor = {0.5, 0.5};
    values.transform = identityTransform;
    values.opacity = 1;
    values.border = {0, 0, 0, 1};
}

CGRect frameOf(const LayerValues& values) {
    CGRect box = boxAboutAnchor(values, values.bounds.size);
    box.origin.x += values.position.x;
    box.origin.y += values.position.y;
    return box;
}

void setFrame(CALayer layer, CGRect frame) {
    LayerValues& values = layerState(layer).values;
    CGSize size = frame.size;
    if (!(values.transform == identityTransform)) {
        // Not promised by the platform but what it does: the new size goes back through the
        // transform, and the position makes the frame read as given.
        CGAffineTransform back = geometry::inverted(linearPart(values.transform));
        size = geometry::boundingBox(back, {{0, 0}, frame.size}).size;
    }
    CGRect box = boxAboutAnchor(values, size);
    change(layer, Property::position,
           {frame.origin.x - box.origin.x, frame.origin.y - box.origin.y});
    change(layer, Property::boundsSize, {size.width, size.height});
}

void setBounds(CALayer layer, CGRect bounds) {
    change(layer, Property::boundsOrigin, {bounds.origin.x, bounds.origin.y});
    change(layer, Property::boundsSize, {bounds.size.width, bounds.size.height});
}

CGAffineTransform toParent(const LayerValues& v) {
    CGAffineTransform fromAnchor{1,
                                 0,
                                 0,
                                 1,
                                 -v.bounds.origin.x - v.anchor.x * v.bounds.size.width,
                                 -v.bounds.origin.y - v.anchor.y * v.bounds.size.height};
    CGAffineTransform placed = v.transform;
    placed.tx += v.position.x;
    placed.ty += v.position.y;
    return geometry::concat(fromAnchor, placed);
}

LayerValues presentationValues(CALayer layer) {
    const LayerState& state = layerState(layer);
    LayerValues shown = state.values;
    for (const RunningAnimation& animation : state.animations) {
        double p = animation.group->progressAt(Clock::shared().now());
        Numbers numbers = read(shown, animation.property);
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (isAdditive(animation.property)) {
                numbers[i] += animation.from[i] * (1 - p);
            } else {
                numbers[i] = animation.from[i] + (animation.to[i] - animation.from[i]) * p;
            }
        }
        write(shown, animation.property, numbers);
    }
    return shown;
}

}  // namespace simulator
