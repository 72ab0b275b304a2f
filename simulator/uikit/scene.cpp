#include "simulator/uikit/scene.hpp"

#include "simulator/uikit/image/image.hpp"
#include "simulator/uikit/view/effect/effect.hpp"
#include "simulator/uikit/view/label/label.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

std::vector<ContentSource>& sources() {
    static auto& all = *new std::vector<ContentSource>;
    return all;
}

std::vector<NodeFinish>& finishes() {
    static auto& all = *new std::vector<NodeFinish>;
    return all;
}

rendering::Colour colour(Rgba c) { return {c.red, c.green, c.blue, c.alpha}; }

rendering::Content imageContent(UIImage image, UIView view) {
    rendering::Image shown;
    shown.picture = pictureOf(image);
    if (!shown.picture) return {};
    shown.contentMode = static_cast<int>(viewState(view).contentMode);
    if (isTemplate(image)) {
        shown.tint = colour(rgbaOf(view.send<"tintColor", UIColor>(), styleOf(view)));
    }
    return shown;
}

rendering::Content contentOf(UIView view) {
    for (ContentSource source : sources()) {
        rendering::Content content = source(view);
        if (!std::holds_alternative<std::monostate>(content)) return content;
    }
    if (view.isKindOfClass(classOf<UILabel>())) return textOf(as<UILabel>(view));
    if (view.isKindOfClass(classOf<UIImageView>())) {
        return imageContent(imageOf(as<UIImageView>(view)), view);
    }
    if (auto blur = blurOf(view)) return *blur;
    return {};
}

rendering::Content contentOf(CALayer layer) {
    const LayerState& state = layerState(layer);
    if (state.delegate.isKindOfClass(classOf<UIView>()))
        return contentOf(as<UIView>(state.delegate));
    if (auto picture = pictureOf(as<UIImage>(state.contents))) {
        rendering::Image image;
        image.picture = picture;
        return image;
    }
    return {};
}

void setValues(rendering::Node& node, const LayerValues& v) {
    node.bounds = {{v.bounds.origin.x, v.bounds.origin.y},
                   {v.bounds.size.width, v.bounds.size.height}};
    node.position = {v.position.x, v.position.y};
    node.anchor = {v.anchor.x, v.anchor.y};
    node.transform = {v.transform.a, v.transform.b,  v.transform.c,
                      v.transform.d, v.transform.tx, v.transform.ty};
    node.opacity = v.opacity;
    node.hidden = v.hidden;
    node.cornerRadius = v.cornerRadius;
    node.continuousCorners = v.continuousCorners;
    node.masksToBounds = v.masksToBounds;
    if (v.background.alpha > 0) node.background = colour(v.background);
    if (v.hasMultiply) node.multiply = colour(v.multiply);
    node.borderWidth = v.borderWidth;
    node.border = colour(v.border);
}

// A node is half a kilobyte: it is filled where it stays.
void addScene(rendering::Node& node, CALayer layer) {
    setValues(node, presentationValues(layer));
    const LayerState& state = layerState(layer);
    Object named = state.delegate ? state.delegate : layer;
    node.name = class_getName(object_getClass(named.get()));
    if (node.hidden || node.opacity <= 0) return;
    node.content = contentOf(layer);
    if (state.mask) node.mask = std::make_shared<rendering::Node>(sceneOf(state.mask));
    node.children.reserve(state.sublayers.size());
    for (const auto& sublayer : state.sublayers) addScene(node.children.emplace_back(), sublayer);
    if (named.isKindOfClass(classOf<UIView>())) {
        for (NodeFinish finish : finishes()) finish(as<UIView>(named), node);
    }
}

}  // namespace

void addContentSource(ContentSource source) { sources().push_back(source); }
void addNodeFinish(NodeFinish finish) { finishes().push_back(finish); }

rendering::Node sceneOf(CALayer layer) {
    rendering::Node node;
    addScene(node, layer);
    return node;
}

rendering::Node sceneOfWindows(CGSize size) {
    AutoreleasePool pool;
    rendering::Node root = rendering::nodeWithFrame("Screen", {{0, 0}, {size.width, size.height}});
    const auto windows = windowsBackToFront();
    root.children.reserve(windows.size());
    for (const auto& window : windows) addScene(root.children.emplace_back(), layerOf(window));
    return root;
}

}  // namespace simulator
