#include "simulator/serve/view_list.hpp"

#include <libwebsockets.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/hardware/display.hpp"
#include "simulator/rendering/canvas.hpp"
#include "simulator/rendering/png.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/scene.hpp"
#include "simulator/uikit/view/view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator::serve {

namespace {

using nlohmann::json;

// One layer as it is on the screen.
struct Shown {
    CALayer layer;
    const rendering::Node& node;
    CGAffineTransform toDisplay;  // from the layer's own coordinates
    double alpha;                 // with that of what is above
    bool hidden;                  // it or what is above
};

CGRect rectOf(const rendering::Rect& r) {
    return {{r.origin.x, r.origin.y}, {r.size.width, r.size.height}};
}

// From the node's own coordinates to those that it is placed in.
CGAffineTransform toParent(const rendering::Node& node) {
    const CGAffineTransform own{node.transform.a, node.transform.b,  node.transform.c,
                                node.transform.d, node.transform.tx, node.transform.ty};
    const double x = node.bounds.origin.x + node.anchor.x * node.bounds.size.width;
    const double y = node.bounds.origin.y + node.anchor.y * node.bounds.size.height;
    return geometry::concat(geometry::concat({1, 0, 0, 1, -x, -y}, own),
                            {1, 0, 0, 1, node.position.x, node.position.y});
}

double rounded(double value) { return std::round(value * 100) / 100; }

json frameOf(const Shown& shown) {
    const CGRect display = geometry::boundingBox(shown.toDisplay, rectOf(shown.node.bounds));
    const long turned = activeOrientation();
    const CGPoint one = toInterface(display.origin, turned);
    const CGPoint other = toInterface(
        {display.origin.x + display.size.width, display.origin.y + display.size.height}, turned);
    return {rounded(std::min(one.x, other.x)), rounded(std::min(one.y, other.y)),
            rounded(std::abs(one.x - other.x)), rounded(std::abs(one.y - other.y))};
}

std::string textIn(const rendering::Node& node) {
    const auto* text = std::get_if<rendering::Text>(&node.content);
    return text != nullptr ? text->text : "";
}

bool draws(const rendering::Node& node) {
    if (const auto* text = std::get_if<rendering::Text>(&node.content)) return !text->text.empty();
    return !std::holds_alternative<std::monostate>(node.content) || node.background.has_value() ||
           node.borderWidth > 0;
}

// The controller of the nearest view that has one.
std::string ownerOf(UIView view) {
    for (; view; view = viewState(view).superview)
        if (const UIViewController controller = viewState(view).controller)
            return class_getName(object_getClass(controller.get()));
    return "";
}

UIView viewOf(CALayer layer) {
    const Object delegate = layerState(layer).delegate;
    return delegate && delegate.isKindOfClass(classOf<UIView>()) ? as<UIView>(delegate) : UIView();
}

// What hangs below: with its nodes where the scene has them; what is hidden has none there.
void eachBelow(const Shown& above, const std::function<void(const Shown&)>& visit) {
    const auto sublayers = layerState(above.layer).sublayers;
    for (std::size_t i = 0; i < sublayers.size(); ++i) {
        std::optional<rendering::Node> hidden;
        const rendering::Node& node = i < above.node.children.size()
                                          ? above.node.children[i]
                                          : hidden.emplace(sceneOf(sublayers[i]));
        visit({sublayers[i], node, geometry::concat(toParent(node), above.toDisplay),
               above.alpha * node.opacity, above.hidden || node.hidden || node.opacity <= 0});
    }
}

void eachWindow(const std::function<void(const Shown&)>& visit) {
    for (const auto& window : windowsBackToFront()) {
        const rendering::Node node = sceneOf(layerOf(window));
        visit({layerOf(window), node, toParent(node), node.opacity, node.hidden});
    }
}

json entryOf(const Shown& shown) {
    const UIView view = viewOf(shown.layer);
    const std::string_view className = shown.node.name;
    json entry{{"class", className},
               {"frame", frameOf(shown)},
               {"alpha", rounded(shown.node.opacity)},
               {"children", json::array()}};
    if (const std::string text = textIn(shown.node); !text.empty()) entry["text"] = text;
    if (const std::string owner = ownerOf(view); !owner.empty()) entry["owner"] = owner;
    if (shown.hidden) entry["hidden"] = true;
    if (draws(shown.node)) entry["draws"] = true;
    if (className.starts_with("VNT")) entry["library"] = true;
    eachBelow(shown, [&](const Shown& below) { entry["children"].push_back(entryOf(below)); });
    return entry;
}

std::string base64(const std::vector<std::byte>& bytes) {
    std::string text((bytes.size() + 2) / 3 * 4 + 16, '\0');
    const int length = lws_b64_encode_string(reinterpret_cast<const char*>(bytes.data()),
                                             static_cast<int>(bytes.size()), text.data(),
                                             static_cast<int>(text.size()));
    text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return text;
}

// By itself, upright and opaque, a pixel for a point.
std::string pictureOf(const rendering::Node& shown) {
    rendering::Node node = shown;
    node.children.clear();
    node.mask.reset();
    node.transform = {};
    node.opacity = 1;
    node.position = {node.anchor.x * node.bounds.size.width,
                     node.anchor.y * node.bounds.size.height};
    const rendering::Surface picture =
        rendering::render(node, node.bounds.size, 1, rendering::Colour{0, 0, 0, 0});
    return "data:image/png;base64," + base64(rendering::encodePng(picture));
}

void addPictures(const Shown& shown, std::size_t most, json& pictures) {
    if (shown.hidden || pictures.size() >= most) return;
    const rendering::Size size = shown.node.bounds.size;
    if (draws(shown.node) && size.width >= 1 && size.height >= 1 && size.width <= 2000 &&
        size.height <= 2000)
        pictures.push_back({{"class", shown.node.name},
                            {"frame", frameOf(shown)},
                            {"alpha", rounded(shown.alpha)},
                            {"picture", pictureOf(shown.node)}});
    eachBelow(shown, [&](const Shown& below) { addPictures(below, most, pictures); });
}

}  // namespace

json viewList() {
    AutoreleasePool pool;
    json list = json::array();
    eachWindow([&](const Shown& window) { list.push_back(entryOf(window)); });
    return list;
}

json layerPictures(std::size_t most) {
    AutoreleasePool pool;
    json pictures = json::array();
    eachWindow([&](const Shown& window) { addPictures(window, most, pictures); });
    return pictures;
}

}  // namespace simulator::serve
