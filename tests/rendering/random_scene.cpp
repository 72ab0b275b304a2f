#include "tests/rendering/random_scene.hpp"

#include <cmath>

#include "simulator/rendering/nodes.hpp"
#include "simulator/rendering/picture.hpp"
#include "simulator/rendering/wallpaper.hpp"

namespace simulator::rendering {

namespace {

constexpr int deepest = 3;

PictureRef stripes(int width, int height, double scale) {
    Surface surface(width, height);
    const Context context = contextOf(surface);
    for (int x = 0; x < width; x += 3) {
        setSource(context.get(), hex(0x1040f0u * static_cast<unsigned>(x + 1), x % 2 ? 1 : 0.5));
        cairo_rectangle(context.get(), x, 0, 3, height);
        cairo_fill(context.get());
    }
    return Picture::pixels(surface, scale);
}

}  // namespace

RandomScene::RandomScene(unsigned seed, Size screen) : engine_(seed), screen_(screen) {
    pictures_ = {stripes(40, 30, 2), stripes(61, 47, 3), stripes(9, 9, 1),
                 Picture::symbol("bell", {30, 30}),
                 Picture::symbol("wifi", {17, 21}, hex(0x308030))};
    root_ = nodeWithFrame("screen", {{0, 0}, screen_});
    root_.children.push_back(imageNode({{0, 0}, screen_}, wallpaper(screen_, false)));
    for (int i = 0; i < 8; ++i) root_.children.push_back(node(1));
}

double RandomScene::number(double from, double to) {
    // Thirds and halves of pixels as well as odd fractions.
    const double value = from + (to - from) * static_cast<double>(engine_() % 10007) / 10007;
    if (oneIn(3)) return std::round(value);
    return oneIn(2) ? std::round(value * 6) / 6 : value;
}

int RandomScene::whole(int from, int to) {
    return from + static_cast<int>(engine_() % static_cast<unsigned>(to - from + 1));
}

Colour RandomScene::colour() {
    return {number(0, 1), number(0, 1), number(0, 1), oneIn(2) ? 1 : number(0, 1)};
}

Content RandomScene::content() {
    switch (whole(0, 6)) {
        case 0:
            return Text{"A label of " + std::to_string(whole(1, 99)),
                        number(6, 20),
                        400,
                        colour(),
                        TextAlignment::center,
                        whole(0, 2),
                        oneIn(2)};
        case 1:
        case 2: {
            const auto picture =
                static_cast<std::size_t>(whole(0, static_cast<int>(pictures_.size()) - 1));
            Image image{pictures_[picture], whole(0, 12), std::nullopt};
            if (oneIn(3)) image.tint = colour();
            return image;
        }
        case 3:
            return Blur{number(0, 12), colour(), number(0.5, 2)};
        case 4:
            return Gradient{{{0, colour()}, {0.4, colour()}, {1, colour()}},
                            {number(0, 1), 0},
                            {number(0, 1), 1},
                            oneIn(2)};
        case 5:
            return Symbol{"speaker", colour(), number(0, 1)};
        default:
            return {};
    }
}

void RandomScene::restyle(Node& node) {
    node.content = content();
    node.background = oneIn(2) ? std::optional(colour()) : std::nullopt;
    node.filtersBehind = oneIn(12);
    node.multiply = oneIn(8) ? std::optional(colour()) : std::nullopt;
    node.cornerRadius = oneIn(2) ? number(0, 20) : 0;
    node.continuousCorners = oneIn(2);
    node.masksToBounds = oneIn(3);
    node.borderWidth = oneIn(5) ? number(0.5, 3) : 0;
    node.border = colour();
    node.shadow = oneIn(6) ? std::optional(Shadow{colour(), number(0, 8), {1, 2}}) : std::nullopt;
}

void RandomScene::move(Node& node) {
    node.position = {number(-20, screen_.width), number(-20, screen_.height)};
    if (oneIn(3)) node.opacity = number(0, 1);
    if (oneIn(8)) {
        const double angle = number(0, 6), size = number(0.5, 1.5);
        node.transform = {size * std::cos(angle),
                          size * std::sin(angle),
                          -size * std::sin(angle),
                          size * std::cos(angle),
                          0,
                          0};
    }
    if (oneIn(8)) node.bounds.origin = {number(-9, 9), number(-9, 9)};
    if (oneIn(8)) node.hidden = !node.hidden;
}

Node RandomScene::node(int depth) {
    Node made = nodeWithFrame("node", {{0, 0}, {number(4, 70), number(4, 70)}});
    made.position = {number(-20, screen_.width), number(-20, screen_.height)};
    restyle(made);
    if (oneIn(4)) made.opacity = number(0, 1);
    if (oneIn(10)) {
        Node mask = fillNode({{3, 3}, {30, 30}}, {0, 0, 0, number(0, 1)}, 8);
        made.mask = std::make_shared<const Node>(mask);
    }
    for (int i = depth < deepest ? whole(0, 3) : 0; i > 0; --i) {
        made.children.push_back(node(depth + 1));
    }
    return made;
}

Node& RandomScene::anyNode() {
    Node* found = &root_;
    while (!found->children.empty() && (found == &root_ || !oneIn(3))) {
        found = &found->children[static_cast<std::size_t>(
            whole(0, static_cast<int>(found->children.size()) - 1))];
    }
    return *found;
}

void RandomScene::change() {
    Node& changed = anyNode();
    switch (whole(0, 9)) {
        case 0:
            return restyle(changed);
        case 1:
            changed.children.push_back(node(deepest));
            return;
        case 2:
            if (!changed.children.empty()) changed.children.pop_back();
            return;
        case 3:
            return change();
        default:
            return move(changed);
    }
}

}  // namespace simulator::rendering
