#include "simulator/uikit/layer/layer.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

LayerState::~LayerState() {
    for (Strong<CALayer>& sublayer : sublayers) layerState(sublayer).superlayer = CALayer();
}

LayerState& layerState(CALayer layer) { return stateOf<LayerState>(layer); }

namespace {

// What would come out of an arithmetic fault far away is caught where it is stored, as the platform
// does.
void requireNumbers(Property property, const Numbers& numbers) {
    const bool place = property == Property::position;
    if (!place && property != Property::boundsSize && property != Property::boundsOrigin) return;
    if (std::none_of(numbers.begin(), numbers.end(), [](double n) { return std::isnan(n); }))
        return;
    raise("CALayerInvalidGeometry"_ns,
          std::string("CALayer ") + (place ? "position" : "bounds") + " contains NaN");
}

}  // namespace

void change(CALayer layer, Property property, const Numbers& numbers) {
    requireNumbers(property, numbers);
    LayerState& state = layerState(layer);
    const Numbers before = read(state.values, property);
    if (before == numbers) return;
    const CGRect boundsBefore = state.values.bounds;
    write(state.values, property, numbers);
    noteChange(layer, property, before);
    bool boundsChanged = property == Property::boundsSize || property == Property::boundsOrigin;
    if (boundsChanged && state.delegate.isKindOfClass(classOf<UIView>())) {
        boundsDidChange(as<UIView>(state.delegate), boundsBefore);
    }
}

namespace {

std::size_t indexOf(const std::vector<Strong<CALayer>>& layers, CALayer layer) {
    return static_cast<std::size_t>(std::find(layers.begin(), layers.end(), layer) -
                                    layers.begin());
}

CGColorRef colorGet(const Strong<UIColor>& color) { return cgColor(color); }

void colorSet(CALayer layer, Strong<UIColor>& slot, Property property, CGColorRef color) {
    slot = retained(colorOf(color));
    Rgba rgba = rgbaOf(slot);
    change(layer, property, {rgba.red, rgba.green, rgba.blue, rgba.alpha});
}

// The model's colour itself while it is not on its way.
Strong<UIColor> shownColor(const Strong<UIColor>& model, const Rgba& shown) {
    if (!model || rgbaOf(model) == shown) return model;
    return retained(makeColor(shown));
}

CALayer presentationOf(CALayer layer) {
    auto copy = create<CALayer>();
    LayerState& to = layerState(copy);
    const LayerState& from = layerState(layer);
    to.values = presentationValues(layer);
    to.background = shownColor(from.background, to.values.background);
    to.multiply = shownColor(from.multiply, to.values.multiply);
    to.border = from.border;
    to.contents = from.contents;
    to.mask = from.mask;
    to.layerName = from.layerName;
    to.model = retained(layer);
    return copy.autoreleased();
}

void addGeometry(const Table<CALayer>& layers) {
    layers.method<"bounds">([](CALayer l) -> CGRect { return layerState(l).values.bounds; })
        .method<"setBounds:">([](CALayer l, CGRect bounds) { setBounds(l, bounds); })
        .method<"position">([](CALayer l) -> CGPoint { return layerState(l).values.position; })
        .method<"setPosition:">(
            [](CALayer l, CGPoint p) { change(l, Property::position, {p.x, p.y}); })
        .method<"anchorPoint">([](CALayer l) -> CGPoint { return layerState(l).values.anchor; })
        .method<"setAnchorPoint:">([](CALayer l, CGPoint p) { layerState(l).values.anchor = p; })
        .method<"frame">([](CALayer l) -> CGRect { return frameOf(layerState(l).values); })
        .method<"setFrame:">([](CALayer l, CGRect frame) { setFrame(l, frame); })
        .method<"affineTransform">(
            [](CALayer l) -> CGAffineTransform { return layerState(l).values.transform; })
        .method<"setAffineTransform:">([](CALayer l, CGAffineTransform t) {
            change(l, Property::transform, {t.a, t.b, t.c, t.d, t.tx, t.ty});
        });
}

void addAppearance(const Table<CALayer>& layers) {
    layers.method<"opacity">([](CALayer l) -> float { return layerState(l).values.opacity; })
        .method<"setOpacity:">(
            [](CALayer l, float opacity) { change(l, Property::opacity, {opacity}); })
        .method<"cornerRadius">(
            [](CALayer l) -> double { return layerState(l).values.cornerRadius; })
        .method<"setCornerRadius:">(
            [](CALayer l, double radius) { change(l, Property::cornerRadius, {radius}); })
        .method<"masksToBounds">(
            [](CALayer l) -> bool { return layerState(l).values.masksToBounds; })
        .method<"setMasksToBounds:">(
            [](CALayer l, bool masks) { layerState(l).values.masksToBounds = masks; })
        .method<"isHidden">([](CALayer l) -> bool { return layerState(l).values.hidden; })
        .method<"setHidden:">([](CALayer l, bool hidden) { layerState(l).values.hidden = hidden; })
        .method<"continuousCorners">(
            [](CALayer l) -> bool { return layerState(l).values.continuousCorners; })
        .method<"setContinuousCorners:">(
            [](CALayer l, bool yes) { layerState(l).values.continuousCorners = yes; })
        .method<"cornerCurve">([](CALayer l) -> NSString {
            return layerState(l).values.continuousCorners ? "continuous"_ns : "circular"_ns;
        })
        .method<"setCornerCurve:">([](CALayer l, NSString curve) {
            layerState(l).values.continuousCorners = curve.equals("continuous"_ns);
        })
        .method<"borderWidth">([](CALayer l) -> double { return layerState(l).values.borderWidth; })
        .method<"setBorderWidth:">(
            [](CALayer l, double width) { layerState(l).values.borderWidth = width; })
        .method<"borderColor">([](CALayer l) { return colorGet(layerState(l).border); })
        .method<"setBorderColor:">([](CALayer l, CGColorRef color) {
            layerState(l).border = retained(colorOf(color));
            layerState(l).values.border = rgbaOf(colorOf(color));
        })
        .method<"backgroundColor">([](CALayer l) { return colorGet(layerState(l).background); })
        .method<"setBackgroundColor:">([](CALayer l, CGColorRef color) {
            colorSet(l, layerState(l).background, Property::background, color);
        })
        .method<"contentsMultiplyColor">([](CALayer l) { return colorGet(layerState(l).multiply); })
        .method<"setContentsMultiplyColor:">([](CALayer l, CGColorRef color) {
            layerState(l).values.hasMultiply = color != nullptr;
            colorSet(l, layerState(l).multiply, Property::multiply, color);
        })
        .property<"mask", &LayerState::mask>()
        .property<"contents", &LayerState::contents>()
        .property<"name", &LayerState::layerName>()
        .property<"delegate", &LayerState::delegate>();
}

void addTree(const Table<CALayer>& layers) {
    layers
        .method<"sublayers">([](CALayer l) -> NSArray {
            const auto& sublayers = layerState(l).sublayers;
            if (sublayers.empty()) return NSArray();
            auto array = NSMutableArray::empty();
            for (const auto& sublayer : sublayers) array.add(sublayer);
            return array;
        })
        .readonly<"superlayer", &LayerState::superlayer>()
        .method<"addSublayer:">([](CALayer l, CALayer child) {
            requireKind<CALayer>("-[CALayer addSublayer:]", child);
            insertSublayer(l, child, layerState(l).sublayers.size());
        })
        .method<"insertSublayer:atIndex:">([](CALayer l, CALayer child, unsigned index) {
            requireKind<CALayer>("-[CALayer insertSublayer:atIndex:]", child);
            insertSublayer(l, child, index);
        })
        .method<"insertSublayer:above:">([](CALayer l, CALayer child, CALayer sibling) {
            requireKind<CALayer>("-[CALayer insertSublayer:above:]", child);
            insertSublayer(l, child, indexOf(layerState(l).sublayers, sibling) + 1);
        })
        .method<"insertSublayer:below:">([](CALayer l, CALayer child, CALayer sibling) {
            requireKind<CALayer>("-[CALayer insertSublayer:below:]", child);
            insertSublayer(l, child, indexOf(layerState(l).sublayers, sibling));
        })
        .method<"removeFromSuperlayer">([](CALayer l) { removeFromSuperlayer(l); });
}

}  // namespace

void insertSublayer(CALayer parent, CALayer child, std::size_t index) {
    Strong<CALayer> kept = retained(child);
    removeFromSuperlayer(child);
    auto& sublayers = layerState(parent).sublayers;
    auto place = sublayers.begin() + static_cast<std::ptrdiff_t>(std::min(index, sublayers.size()));
    sublayers.insert(place, kept);
    layerState(child).superlayer = parent;
}

void removeFromSuperlayer(CALayer layer) {
    CALayer parent = layerState(layer).superlayer;
    if (!parent) return;
    layerState(layer).superlayer = CALayer();
    auto& sublayers = layerState(parent).sublayers;
    std::size_t index = indexOf(sublayers, layer);
    if (index == sublayers.size()) return;
    Strong<CALayer> kept = std::move(sublayers[index]);
    sublayers.erase(sublayers.begin() + static_cast<std::ptrdiff_t>(index));
}

void registerLayer() {
    auto layers = table<CALayer, Object, LayerState>();
    layers.classMethod<"layer">([](Class) -> CALayer { return create<CALayer>().autoreleased(); })
        .method<"init">([](CALayer self) -> CALayer {
            CALayer layer = super<CALayer, "init", CALayer>(self);
            if (layer) setDefaults(layerState(layer).values);
            return layer;
        })
        .method<"presentationLayer">(
            [](CALayer l) -> CALayer { return layerState(l).model ? l : presentationOf(l); })
        .method<"modelLayer">([](CALayer l) -> CALayer {
            return layerState(l).model ? CALayer(layerState(l).model) : l;
        })
        .method<"removeAllAnimations">([](CALayer l) { stopAnimations(l, Stopping::nextTurn); })
        .method<"animationKeys">([](CALayer l) -> NSArray {
            if (layerState(l).animations.empty()) return NSArray();
            auto keys = NSMutableArray::empty();
            for (const auto& animation : layerState(l).animations) {
                keys.add(string(propertyName(animation.property)));
            }
            return keys;
        })
        .method<"setNeedsDisplay">([](CALayer) {})
        .method<"setNeedsLayout">([](CALayer l) {
            if (layerState(l).delegate.isKindOfClass(classOf<UIView>())) {
                markNeedsLayout(as<UIView>(layerState(l).delegate));
            }
        });
    addGeometry(layers);
    addAppearance(layers);
    addTree(layers);
}

}  // namespace simulator
