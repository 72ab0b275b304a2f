// Bodies of the node makers.
#include "simulator/rendering/nodes.hpp"

#include <utility>

namespace simulator::rendering {

Node fillNode(Rect frame, Colour colour, double radius) {
    Node node = nodeWithFrame("fill", frame);
    node.background = colour;
    node.cornerRadius = radius;
    node.continuousCorners = radius > 0;
    return node;
}

Node textNode(Rect frame, const std::string& text, double size, int weight, Colour colour,
              TextAlignment alignment, int lines) {
    Node node = nodeWithFrame("text", frame);
    node.content = Text{text, size, weight, colour, alignment, lines, true};
    return node;
}

Node symbolNode(Rect frame, const std::string& name, Colour colour, double progress) {
    Node node = nodeWithFrame("symbol", frame);
    node.content = Symbol{name, colour, progress};
    return node;
}

Node imageNode(Rect frame, PictureRef picture, int contentMode) {
    Node node = nodeWithFrame("image", frame);
    node.content = Image{std::move(picture), contentMode, std::nullopt};
    return node;
}

}  // namespace simulator::rendering
