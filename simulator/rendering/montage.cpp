// Layout of several pictures.
#include "simulator/rendering/montage.hpp"

#include <algorithm>

#include "simulator/rendering/outline.hpp"
#include "simulator/rendering/phone_case.hpp"
#include "simulator/rendering/text.hpp"

namespace simulator::rendering {

namespace {

constexpr double outside = 26;  // points, room for the shadow

void paintAt(cairo_t* context, const Surface& surface, double x, double y) {
    cairo_set_source_surface(context, surface.get(), x, y);
    cairo_paint(context);
}

void drawShadow(cairo_t* context, Rect body, double corner) {
    constexpr int rings = 14;
    for (int i = rings; i > 0; --i) {
        const double by = i * 1.4;
        cairo_new_path(context);
        addOutline(context,
                   {{body.origin.x - by, body.origin.y - by + 6},
                    {body.size.width + 2 * by, body.size.height + 2 * by}},
                   corner + by, true);
        setSource(context, {0, 0, 0, 0.013});
        cairo_fill(context);
    }
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
    const Size size{screen.width() / scale, screen.height() / scale};
    const Rect around = caseAround({{0, 0}, size}, false);
    const Rect place{{outside - around.origin.x, outside - around.origin.y}, size};
    Surface result(static_cast<int>((around.size.width + 2 * outside) * scale),
                   static_cast<int>((around.size.height + 2 * outside) * scale));
    if (!screen) return result;
    const Context context = contextOf(result);
    cairo_scale(context.get(), scale, scale);
    drawShadow(context.get(), caseAround(place, false), caseCorner(false));
    drawCase(context.get(), place, false);
    cairo_save(context.get());
    cairo_new_path(context.get());
    addScreenOutline(context.get(), place, false);
    cairo_clip(context.get());
    cairo_scale(context.get(), 1 / scale, 1 / scale);
    paintAt(context.get(), screen, place.origin.x * scale, place.origin.y * scale);
    cairo_restore(context.get());
    if (notch && place.size.height > place.size.width) drawNotch(context.get(), place);
    return result;
}

}  // namespace simulator::rendering
