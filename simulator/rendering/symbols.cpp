// Lookup of glyphs and their fitting into a box.
#include "simulator/rendering/symbols.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "simulator/rendering/glyphs.hpp"

namespace simulator::rendering {

namespace {

constexpr double grid = 24;

using GlyphDrawer = void (*)(Pen&, double);

const std::map<std::string, GlyphDrawer, std::less<>>& glyphTable() {
    static const auto table = [] {
        std::map<std::string, GlyphDrawer, std::less<>> result;
        for (const auto family :
             {connectivityGlyphs(), mediaGlyphs(), toggleGlyphs(), interfaceGlyphs()}) {
            for (const Glyph& glyph : family) result.emplace(glyph.name, glyph.draw);
        }
        return result;
    }();
    return table;
}

}  // namespace

bool hasSymbol(std::string_view name) { return glyphTable().contains(name); }

std::vector<std::string> symbolNames() {
    std::vector<std::string> names;
    for (const auto& [name, draw] : glyphTable()) names.push_back(name);
    return names;
}

void drawSymbol(cairo_t* context, const Symbol& symbol, Rect box) {
    const auto found = glyphTable().find(symbol.name);
    const double side = std::min(box.size.width, box.size.height);
    if (found == glyphTable().end() || !(side > 0) || symbol.colour.alpha <= 0) return;
    const double progress =
        std::isfinite(symbol.progress) ? std::clamp(symbol.progress, 0.0, 1.0) : 1;
    cairo_save(context);
    cairo_translate(context, box.origin.x + (box.size.width - side) / 2,
                    box.origin.y + (box.size.height - side) / 2);
    cairo_scale(context, side / grid, side / grid);
    cairo_new_path(context);
    // In a group of its own: strokes that cross would show through one another in a see-through
    // colour, and some glyphs cut gaps out of themselves.
    cairo_rectangle(context, -2, -2, grid + 4, grid + 4);
    cairo_clip(context);
    cairo_push_group(context);
    Pen pen(context);
    pen.colour({symbol.colour.red, symbol.colour.green, symbol.colour.blue, 1});
    found->second(pen, progress);
    cairo_pop_group_to_source(context);
    cairo_paint_with_alpha(context, symbol.colour.alpha);
    cairo_restore(context);
}

}  // namespace simulator::rendering
