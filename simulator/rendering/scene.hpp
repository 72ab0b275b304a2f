// The neutral scene tree that the phone's UIKit fills on every frame and that the canvas draws.
// Nothing here knows about views or the object runtime: a node is one layer with its presentation
// values. All lengths are points, y grows downwards, colours are not premultiplied (0 to 1).
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace simulator::rendering {

struct Point {
    double x = 0;
    double y = 0;

    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
};

struct Rect {
    Point origin;
    Size size;
};

// The six numbers in the order of CGAffineTransform: x' = a x + c y + tx, y' = b x + d y + ty.
struct Transform {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    double tx = 0;
    double ty = 0;
};

struct Colour {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
};

enum class TextAlignment { left, center, right, natural };

// Laid out in the node's bounds and centred vertically, as a label does.
struct Text {
    std::string text;      // UTF-8
    double fontSize = 17;  // points
    int weight = 400;      // 100 to 900
    Colour colour;
    TextAlignment alignment = TextAlignment::natural;
    int lines = 1;              // 0: as many as fit
    bool truncatesTail = true;  // ellipsis at the end of the last line
};

class Picture;
using PictureRef = std::shared_ptr<const Picture>;

struct Image {
    PictureRef picture;
    int contentMode = 0;  // UIViewContentMode: 0 fill, 1 aspect fit, 2 aspect fill, 4 centre, …
    std::optional<Colour> tint;  // template rendering: only the picture's alpha counts
};

// Shows what lies behind the node, smeared and coloured, inside the node's rounded bounds.
struct Blur {
    double radius = 30;  // standard deviation, points
    Colour tint{1, 1, 1, 0.3};
    double saturation = 1.8;
};

struct GradientStop {
    double offset = 0;  // 0 to 1
    Colour colour;
};

// Start and end are in units of the bounds (0,0 top left to 1,1 bottom right), like CAGradientLayer.
struct Gradient {
    std::vector<GradientStop> stops;
    Point start{0.5, 0};
    Point end{0.5, 1};
    bool radial = false;  // start is the centre, the distance to end the radius
};

// A vector drawing by name (symbols.hpp), fitted into the bounds.
struct Symbol {
    std::string name;
    Colour colour;
    double progress = 1;  // fill of a battery, bars of a signal, waves of a speaker: 0 to 1
};

struct Shadow {
    Colour colour{0, 0, 0, 0.3};
    double radius = 10;  // points
    Point offset{0, 0};
};

using Content = std::variant<std::monostate, Text, Image, Blur, Gradient, Symbol>;

struct Node {
    std::string_view name;  // of a class, or a literal: it outlives the node
    Rect bounds;
    Point position;  // of the anchor, in the parent's coordinates
    Point anchor{0.5, 0.5};
    Transform transform;
    double opacity = 1;
    bool hidden = false;
    double cornerRadius = 0;
    bool continuousCorners = false;
    bool masksToBounds = false;
    std::optional<Colour> background;
    bool filtersBehind =
        false;  // the background multiplies what lies behind, as coloured glass does
    std::optional<Colour> multiply;  // contentsMultiplyColor: of the content, not of the background
    double borderWidth = 0;
    Colour border;
    std::optional<Shadow> shadow;
    Content content;
    std::shared_ptr<const Node> mask;  // its alpha shows the node; placed in the node's bounds
    std::vector<Node> children;
};

// A node that fills `frame` of its parent.
inline Node nodeWithFrame(std::string_view name, Rect frame) {
    Node node;
    node.name = name;
    node.bounds.size = frame.size;
    node.position = {frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2};
    return node;
}

}  // namespace simulator::rendering
