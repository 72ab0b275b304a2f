// The colours and the repeated parts of the applications' screens.
#pragma once

#include <span>
#include <string>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

struct AppStyle {
    Colour ground;   // behind plain lists
    Colour grouped;  // behind cards
    Colour card;
    Colour ink;
    Colour secondary;  // text of less weight
    Colour faint;      // chevrons, placeholders
    Colour line;
    Colour bar;  // tab and tool bars
};

AppStyle appStyle(bool dark);

inline constexpr double topInset = 44;     // status bar beside a notch
inline constexpr double bottomInset = 34;  // home indicator
inline constexpr double margin = 20;

// An empty window of the colour.
Node appWindow(Size size, Colour ground);
// The title in large letters under the status bar; returns where the content begins.
double addLargeTitle(Node& screen, const std::string& title, const AppStyle& style);
// A search field at the height; returns where the content goes on.
double addSearchField(Node& screen, double top, const AppStyle& style);
void addLine(Node& screen, double left, double y, double width, const AppStyle& style);

struct Tab {
    const char* symbol;
    const char* title;
};
// A bar of tabs at the bottom, the first of them chosen.
void addTabBar(Node& screen, std::span<const Tab> tabs, Colour accent, const AppStyle& style);

}  // namespace simulator::rendering
