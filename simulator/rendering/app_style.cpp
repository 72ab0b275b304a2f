// Bodies of the repeated parts.
#include "simulator/rendering/app_style.hpp"

#include "simulator/rendering/nodes.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

AppStyle appStyle(bool dark) {
    if (dark) {
        return {hex(0x000000), hex(0x000000), hex(0x1c1c1e), hex(0xffffff),
                hex(0x98989f), hex(0x5a5a5f), hex(0x38383a), hex(0x161618)};
    }
    return {hex(0xffffff), hex(0xf2f2f7), hex(0xffffff), hex(0x000000),
            hex(0x85858b), hex(0xc4c4c7), hex(0xd9d9dc), hex(0xf8f8f9)};
}

Node appWindow(Size size, Colour ground) {
    Node screen = fillNode({{0, 0}, size}, ground);
    screen.name = "AppWindow";
    screen.masksToBounds = true;
    return screen;
}

double addLargeTitle(Node& screen, const std::string& title, const AppStyle& style) {
    screen.children.push_back(
        textNode({{margin, topInset + 42}, {screen.bounds.size.width - 2 * margin, 42}}, title, 34,
                 700, style.ink));
    return topInset + 92;
}

double addSearchField(Node& screen, double top, const AppStyle& style) {
    constexpr double height = 36;
    const double width = screen.bounds.size.width - 2 * margin + 8;
    Colour ground = style.secondary;
    ground.alpha = 0.16;
    Node field = fillNode({{margin - 4, top}, {width, height}}, ground, 10);
    field.children.push_back(symbolNode({{8, 10}, {16, 16}}, "search", style.secondary));
    field.children.push_back(
        textNode({{30, 0}, {width - 40, height}}, "Search", 17, 400, style.secondary));
    screen.children.push_back(std::move(field));
    return top + height + 12;
}

void addLine(Node& screen, double left, double y, double width, const AppStyle& style) {
    screen.children.push_back(fillNode({{left, y}, {width, 0.5}}, style.line));
}

void addTabBar(Node& screen, std::span<const Tab> tabs, Colour accent, const AppStyle& style) {
    constexpr double barHeight = 49;
    const Size size = screen.bounds.size;
    Node bar = fillNode(
        {{0, size.height - barHeight - bottomInset}, {size.width, barHeight + bottomInset}},
        style.bar);
    addLine(bar, 0, 0, size.width, style);
    const double slot = size.width / static_cast<double>(tabs.size());
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        const Colour colour = i == 0 ? accent : style.secondary;
        const double left = slot * static_cast<double>(i);
        bar.children.push_back(
            symbolNode({{left + slot / 2 - 12, 6}, {24, 24}}, tabs[i].symbol, colour));
        bar.children.push_back(textNode({{left, 32}, {slot, 13}}, tabs[i].title, 10, 500, colour,
                                        TextAlignment::center));
    }
    screen.children.push_back(std::move(bar));
}

}  // namespace simulator::rendering
