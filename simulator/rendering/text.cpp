// Layouts are kept between frames: shaping costs far more than drawing, and a frame repeats the
// texts of the one before it.
#include "simulator/rendering/text.hpp"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>

#include "simulator/rendering/surface.hpp"
#include "simulator/runtime/leaks.hpp"

namespace simulator::rendering {

namespace {

// Inter's display cut takes over where the phone's own font switches its optical size.
constexpr double displaySize = 20;
constexpr double smallestFont = 0.5;
constexpr double largestFont = 2000;
constexpr std::size_t layoutsKept = 128;
constexpr double widthLimit = 1e6;  // points; pango counts 1024 units a point in an int

struct Release {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Layout = std::unique_ptr<PangoLayout, Release>;
using TextContext = std::unique_ptr<PangoContext, Release>;

struct LayoutRequest {
    const std::string& text;
    double fontSize;
    int weight;
    double width;   // not finite: unlimited
    double height;  // of the room, when lines is 0 and the text is drawn; negative: any
    int lines;
    TextAlignment alignment;
    bool ellipsis;
};

PangoContext* textContext() {
    thread_local const TextContext context = [] {
        PangoContext* fresh = pango_font_map_create_context(pango_cairo_font_map_get_default());
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
        pango_cairo_context_set_font_options(fresh, options);
        cairo_font_options_destroy(options);
        pango_cairo_context_set_resolution(fresh, 72);  // one point is one unit
        pango_context_set_round_glyph_positions(fresh, FALSE);
        return TextContext(fresh);
    }();
    return context.get();
}

void setFont(PangoLayout* layout, double fontSize, int weight) {
    const double size =
        std::isfinite(fontSize) ? std::clamp(fontSize, smallestFont, largestFont) : 17;
    PangoFontDescription* font = pango_font_description_new();
    pango_font_description_set_family(
        font, size >= displaySize ? "Inter Display,Inter,sans-serif" : "Inter,sans-serif");
    pango_font_description_set_weight(font, static_cast<PangoWeight>(std::clamp(weight, 100, 900)));
    pango_font_description_set_absolute_size(font, size * PANGO_SCALE);
    pango_layout_set_font_description(layout, font);
    pango_font_description_free(font);
}

PangoAlignment pangoAlignment(TextAlignment alignment) {
    switch (alignment) {
        case TextAlignment::center:
            return PANGO_ALIGN_CENTER;
        case TextAlignment::right:
            return PANGO_ALIGN_RIGHT;
        case TextAlignment::left:
        case TextAlignment::natural:
            break;
    }
    return PANGO_ALIGN_LEFT;
}

Layout makeLayout(const LayoutRequest& request) {
    Layout layout(pango_layout_new(textContext()));
    setFont(layout.get(), request.fontSize, request.weight);
    // Bytes that are no UTF-8 show as replacement marks instead of a warning for each frame.
    gchar* valid = g_utf8_make_valid(request.text.data(), static_cast<gssize>(request.text.size()));
    pango_layout_set_text(layout.get(), valid, -1);
    g_free(valid);
    pango_layout_set_alignment(layout.get(), pangoAlignment(request.alignment));
    pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
    const bool limited = std::isfinite(request.width) && request.width > 0;
    if (limited) {
        // Half a unit of slack: a text laid out in its own measured width must not be cut.
        pango_layout_set_width(
            layout.get(),
            static_cast<int>(std::min(request.width, widthLimit) * PANGO_SCALE + 0.5));
    }
    if (request.lines == 1) pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
    // With an ellipsis and no height pango keeps one line only, so text of any height goes without.
    const bool ends = request.lines > 0 || (request.ellipsis && request.height > 0);
    pango_layout_set_ellipsize(layout.get(),
                               limited && ends ? PANGO_ELLIPSIZE_END : PANGO_ELLIPSIZE_NONE);
    if (request.lines > 0) {
        pango_layout_set_height(layout.get(), -request.lines);
    } else if (request.height > 0) {
        pango_layout_set_height(
            layout.get(), static_cast<int>(std::min(request.height, widthLimit) * PANGO_SCALE));
    }
    LeaksAllowed fonts;  // are found here, and kept
    pango_layout_get_extents(layout.get(), nullptr, nullptr);
    return layout;
}

// One line that is cut at the edge instead of shortened: no width, so nothing wraps.
bool isClipped(const LayoutRequest& request) { return request.lines == 1 && !request.ellipsis; }

PangoLayout* keptLayout(const LayoutRequest& request) {
    thread_local std::unordered_map<std::string, Layout> kept;
    std::string key = std::to_string(request.fontSize) + '|' + std::to_string(request.weight) +
                      '|' + std::to_string(request.width) + '|' + std::to_string(request.height) +
                      '|' + std::to_string(request.lines) + '|' +
                      std::to_string(static_cast<int>(request.alignment)) +
                      (request.ellipsis ? "e|" : "-|") + request.text;
    if (const auto found = kept.find(key); found != kept.end()) return found->second.get();
    if (kept.size() >= layoutsKept) kept.clear();
    return kept.emplace(std::move(key), makeLayout(request)).first->second.get();
}

double roundedUp(int units) {
    return std::ceil(2.0 * units / PANGO_SCALE - 1e-6) / 2;  // half points
}

}  // namespace

Size measure(const std::string& text, double fontSize, int weight, double maxWidth, int lines) {
    if (text.empty()) return {};
    PangoLayout* layout = keptLayout(
        {text, fontSize, weight, maxWidth, -1, std::max(lines, 0), TextAlignment::left, true});
    PangoRectangle logical;
    pango_layout_get_extents(layout, nullptr, &logical);
    return {roundedUp(logical.width), roundedUp(logical.height)};
}

void drawText(cairo_t* context, const Text& text, Rect rect, Colour colour) {
    if (text.text.empty() || !(rect.size.width > 0) || colour.alpha <= 0) return;
    LayoutRequest request{text.text,       text.fontSize,     text.weight,
                          rect.size.width, rect.size.height,  std::max(text.lines, 0),
                          text.alignment,  text.truncatesTail};
    const bool clipped = isClipped(request);
    if (clipped) request.width = unlimitedWidth;
    PangoLayout* layout = keptLayout(request);
    PangoRectangle logical;
    pango_layout_get_extents(layout, nullptr, &logical);
    const double height = static_cast<double>(logical.height) / PANGO_SCALE;
    const double slack =
        clipped ? rect.size.width - static_cast<double>(logical.width) / PANGO_SCALE : 0;
    const double shift = text.alignment == TextAlignment::center  ? slack / 2
                         : text.alignment == TextAlignment::right ? slack
                                                                  : 0;
    cairo_save(context);
    if (clipped && slack < 0) {
        cairo_rectangle(context, rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
        cairo_clip(context);
    }
    setSource(context, colour);
    cairo_move_to(context, rect.origin.x + shift, rect.origin.y + (rect.size.height - height) / 2);
    pango_cairo_show_layout(context, layout);
    cairo_restore(context);
}

}  // namespace simulator::rendering
