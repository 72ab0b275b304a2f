// Layers: what a view shows, its geometry, and the animations that run on it. Model values change at
// once; presentation values are worked out from the animations and the clock when they are asked
// for. Opacity is kept as a 32-bit float, as on the platform; all else as doubles.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "simulator/uikit/color/color.hpp"

namespace simulator {

// The values that a picture of the layer depends on.
struct LayerValues {
    CGRect bounds;
    CGPoint position;  // of the anchor, in the superlayer
    CGPoint anchor;    // in units of the bounds
    CGAffineTransform transform;
    float opacity;
    double cornerRadius;
    double borderWidth;
    Rgba background;
    Rgba multiply;  // contentsMultiplyColor
    Rgba border;
    bool hasMultiply;
    bool masksToBounds;
    bool hidden;
    bool continuousCorners;
};

// What block animations move. Position, bounds and transform add up; the rest replace one another.
enum class Property {
    position,
    boundsOrigin,
    boundsSize,
    transform,
    opacity,
    cornerRadius,
    background,
    multiply
};
constexpr bool isAdditive(Property property) { return property <= Property::transform; }

using Numbers = std::array<double, 6>;
Numbers read(const LayerValues& values, Property property);
void write(LayerValues& values, Property property, const Numbers& numbers);

class AnimationGroup;
// One property of one layer on its way. Additive: the offset that fades out; else the two ends.
struct RunningAnimation {
    Property property;
    Numbers from;
    Numbers to;
    std::shared_ptr<AnimationGroup> group;
};

struct LayerState {
    LayerValues values;
    Strong<UIColor> background;
    Strong<UIColor> multiply;
    Strong<UIColor> border;
    Strong<Object> contents;
    Copied<NSString> layerName;
    std::vector<Strong<CALayer>> sublayers;
    Strong<CALayer> mask;
    CALayer superlayer;  // not owned
    Object delegate;     // not owned; the view of a view's layer
    std::vector<RunningAnimation> animations;
    Strong<CALayer> model;  // of a presentation

    ~LayerState();
};

LayerState& layerState(CALayer layer);
void setDefaults(LayerValues& values);

// The upright box of the bounds in the superlayer, and its inverse on the model values.
CGRect frameOf(const LayerValues& values);
void setFrame(CALayer layer, CGRect frame);
// From the layer's own coordinates to its superlayer's.
CGAffineTransform toParent(const LayerValues& values);

// Sets a model value; animates it when an animation block is open on the layer's view.
void change(CALayer layer, Property property, const Numbers& numbers);
void setBounds(CALayer layer, CGRect bounds);

LayerValues presentationValues(CALayer layer);

void insertSublayer(CALayer parent, CALayer child, std::size_t index);
void removeFromSuperlayer(CALayer layer);

void registerLayer();

}  // namespace simulator
