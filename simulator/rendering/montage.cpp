// Layout of several pictures, and the bezel of the phone for the pictures of the documentation.
#include "simulator/rendering/montage.hpp"

#include <algorithm>

#include "simulator/rendering/outline.hpp"
#include "simulator/rendering/text.hpp"

namespace simulator::rendering {

namespace {

// Points. The screen's corner is that of a phone with a 5.8 inch screen.
constexpr double screenRadius = 39;
constexpr double bezel = 11;
constexpr double rim = 2.5;
constexpr double outside = 26;  // room for the shadow
constexpr double buttonDepth = 2.2;
constexpr Size notchSize{209, 30};

struct Button {
    bool left;
    double top;  // from the top of the body
    double length;
};
constexpr Button buttons[] = {{true, 104, 30}, {true, 156, 58}, {true, 226, 58}, {false, 172, 90}};

void paintAt(cairo_t* context, const Surface& surface, double x, double y) {
    cairo_set_source_surface(context, surface.get(), x, y);
    cairo_paint(context);
}

Rect grown(Rect rect, double by) {
    return {{rect.origin.x - by, rect.origin.y - by},
            {rect.size.width + 2 * by, rect.size.height + 2 * by}};
}

void fillOutline(cairo_t* context, Rect rect, double radius, Colour colour) {
    cairo_new_path(context);
    addOutline(context, rect, radius, true);
    setSource(context, colour);
    cairo_fill(context);
}

void drawBodyShadow(cairo_t* context, Rect body) {
    constexpr int rings = 14;
    for (int i = rings; i > 0; --i) {
        Rect ring = grown(body, i * 1.4);
        ring.origin.y += 6;
        fillOutline(context, ring, screenRadius + bezel + rim + i * 1.4, {0, 0, 0, 0.013});
    }
}

void drawBody(cairo_t* context, Rect screen) {
    const Rect glass = grown(screen, bezel);
    const Rect body = grown(glass, rim);
    drawBodyShadow(context, body);
    for (const Button& button : buttons) {
        if (button.top + button.length > body.size.height) continue;
        const double x = button.left ? body.origin.x - buttonDepth
                                     : body.origin.x + body.size.width - buttonDepth;
        fillOutline(context, {{x, body.origin.y + button.top}, {2 * buttonDepth, button.length}},
                    buttonDepth, hex(0x3a3b40));
    }
    const Pattern metal(cairo_pattern_create_linear(body.origin.x, body.origin.y,
                                                    body.origin.x + body.size.width,
                                                    body.origin.y + body.size.height));
    cairo_pattern_add_color_stop_rgb(metal.get(), 0, 0.56, 0.57, 0.60);
    cairo_pattern_add_color_stop_rgb(metal.get(), 0.35, 0.26, 0.27, 0.29);
    cairo_pattern_add_color_stop_rgb(metal.get(), 0.7, 0.36, 0.37, 0.39);
    cairo_pattern_add_color_stop_rgb(metal.get(), 1, 0.18, 0.18, 0.20);
    addOutline(context, body, screenRadius + bezel + rim, true);
    cairo_set_source(context, metal.get());
    cairo_fill(context);
    fillOutline(context, glass, screenRadius + bezel, hex(0x050506));
}

void drawNotch(cairo_t* context, Rect screen) {
    const double left = screen.origin.x + (screen.size.width - notchSize.width) / 2;
    const double right = left + notchSize.width;
    const double top = screen.origin.y - 1;
    const double bottom = screen.origin.y + notchSize.height;
    constexpr double shoulder = 6;
    constexpr double corner = 20;
    cairo_move_to(context, left - shoulder, top);
    cairo_curve_to(context, left - 1, top, left, top + 2, left, top + shoulder + 1);
    cairo_line_to(context, left, bottom - corner);
    cairo_curve_to(context, left, bottom - 6, left + 6, bottom, left + corner, bottom);
    cairo_line_to(context, right - corner, bottom);
    cairo_curve_to(context, right - 6, bottom, right, bottom - 6, right, bottom - corner);
    cairo_line_to(context, right, top + shoulder + 1);
    cairo_curve_to(context, right, top + 2, right + 1, top, right + shoulder, top);
    cairo_close_path(context);
    setSource(context, hex(0x050506));
    cairo_fill(context);
    const double middle = (left + right) / 2;
    fillOutline(context, {{middle - 24, screen.origin.y + 8}, {48, 5}}, 2.5, hex(0x1c1d20));
    cairo_arc(context, middle + 44, screen.origin.y + 10.5, 5, 0, 6.2832);
    setSource(context, hex(0x12151f));
    cairo_fill(context);
    cairo_arc(context, middle + 44, screen.origin.y + 10.5, 2.2, 0, 6.2832);
    setSource(context, hex(0x22304f));
    cairo_fill(context);
}

}  // namespace

Surface filmStrip(const std::vector<Surface>& frames, int gap) {
    int width = 0;
    int height = 0;
    for (const Surface& picture : frames) {
        width += picture.width() + (width > 0 ? gap : 0);
        height = std::max(height, picture.height());
    }
    Surface strip(width, height);
    const Context context = contextOf(strip);
    int x = 0;
    for (const Surface& picture : frames) {
        if (!picture) continue;
        paintAt(context.get(), picture, x, 0);
        x += picture.width() + gap;
    }
    return strip;
}

Surface sideBySide(const std::vector<Captioned>& pictures, double scale, Colour ink) {
    constexpr double captionHeight = 36;
    constexpr double gapPoints = 16;
    const int gap = static_cast<int>(gapPoints * scale);
    std::vector<Surface> surfaces;
    for (const Captioned& picture : pictures) surfaces.push_back(picture.surface);
    const Surface strip = filmStrip(surfaces, gap);
    const bool captioned = std::any_of(pictures.begin(), pictures.end(),
                                       [](const Captioned& one) { return !one.caption.empty(); });
    if (!captioned) return strip;
    Surface result(strip.width(), strip.height() + static_cast<int>(captionHeight * scale));
    const Context context = contextOf(result);
    paintAt(context.get(), strip, 0, 0);
    cairo_scale(context.get(), scale, scale);
    double x = 0;
    for (const Captioned& picture : pictures) {
        const double width = picture.surface.width() / scale;
        drawText(context.get(), {picture.caption, 15, 500, ink, TextAlignment::center, 1, true},
                 {{x, strip.height() / scale}, {width, captionHeight}}, ink);
        x += width + gap / scale;
    }
    return result;
}

Surface frame(const Surface& screen, double scale, bool notch) {
    const double around = outside + rim + bezel;
    const Rect place{{around, around}, {screen.width() / scale, screen.height() / scale}};
    Surface result(static_cast<int>((place.size.width + 2 * around) * scale),
                   static_cast<int>((place.size.height + 2 * around) * scale));
    if (!screen) return result;
    const Context context = contextOf(result);
    cairo_scale(context.get(), scale, scale);
    drawBody(context.get(), place);
    cairo_save(context.get());
    cairo_new_path(context.get());
    addOutline(context.get(), place, screenRadius, true);
    cairo_clip(context.get());
    cairo_scale(context.get(), 1 / scale, 1 / scale);
    paintAt(context.get(), screen, around * scale, around * scale);
    cairo_restore(context.get());
    if (notch && place.size.height > place.size.width) drawNotch(context.get(), place);
    return result;
}

}  // namespace simulator::rendering
