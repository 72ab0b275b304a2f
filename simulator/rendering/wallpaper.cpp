// The wallpaper is painted in units of the screen: x and y from 0 to 1, so that it fits every size.
#include "simulator/rendering/wallpaper.hpp"

#include <cmath>
#include <map>
#include <tuple>
#include <vector>

namespace simulator::rendering {

namespace {

struct Glow {
    Point centre;
    double radius;  // in screen heights
    Colour colour;
};

// A band whose upper edge is a wave; its light fades out downwards.
struct Band {
    double left;   // height of the edge at the left side
    double right;  // and at the right side
    double lift;   // how far the wave rises and sinks between
    double depth;  // where the light has gone
    Colour light;
    Colour far;  // colour at the right end
};

struct Scheme {
    std::vector<GradientStop> sky;
    std::vector<Glow> glows;
    std::vector<Band> bands;
};

Scheme lightScheme() {
    return {
        {{0, hex(0x2b5fd9)},
         {0.3, hex(0x6f86ee)},
         {0.55, hex(0xc79bea)},
         {0.78, hex(0xff9f9c)},
         {1, hex(0xffc48a)}},
        {{{0.9, 0.1}, 0.55, hex(0x49c6ff, 0.75)},
         {{0.05, 0.42}, 0.5, hex(0x7d5cff, 0.55)},
         {{0.95, 0.62}, 0.42, hex(0xff7fb4, 0.6)},
         {{0.15, 0.95}, 0.45, hex(0xffe0a6, 0.7)}},
        {{0.40, 0.22, 0.10, 0.42, hex(0xffffff, 0.26), hex(0xa9d8ff, 0.34)},
         {0.60, 0.40, -0.12, 0.40, hex(0xd9b8ff, 0.34), hex(0xff9ed0, 0.36)},
         {0.74, 0.62, 0.10, 0.36, hex(0xff8fa8, 0.42), hex(0xffb98c, 0.40)},
         {0.92, 0.76, -0.08, 0.34, hex(0xffd9a0, 0.50), hex(0xff8f86, 0.46)}},
    };
}

Scheme darkScheme() {
    return {
        {{0, hex(0x05071a)},
         {0.35, hex(0x101540)},
         {0.6, hex(0x2c1a5c)},
         {0.82, hex(0x4a1a55)},
         {1, hex(0x2a0f36)}},
        {{{0.92, 0.08}, 0.5, hex(0x1273b8, 0.5)},
         {{0.0, 0.4}, 0.5, hex(0x3f25c8, 0.5)},
         {{1.0, 0.64}, 0.42, hex(0xc02a86, 0.42)},
         {{0.1, 1.0}, 0.4, hex(0xe0663c, 0.36)}},
        {{0.40, 0.22, 0.10, 0.40, hex(0x6f8cff, 0.20), hex(0x53c6ff, 0.26)},
         {0.60, 0.40, -0.12, 0.40, hex(0x8a5cff, 0.30), hex(0xe05cc8, 0.30)},
         {0.74, 0.62, 0.10, 0.36, hex(0xd0408f, 0.34), hex(0xff7a6a, 0.30)},
         {0.92, 0.76, -0.08, 0.34, hex(0xff8a5c, 0.34), hex(0xd03a6a, 0.38)}},
    };
}

void addStop(cairo_pattern_t* pattern, double offset, Colour colour, double strength = 1) {
    cairo_pattern_add_color_stop_rgba(pattern, offset, colour.red, colour.green, colour.blue,
                                      colour.alpha * strength);
}

// Fades that begin and end without an edge, sampled from a cosine.
void addSoftFade(cairo_pattern_t* pattern, Colour colour) {
    constexpr int samples = 12;
    for (int i = 0; i <= samples; ++i) {
        const double part = static_cast<double>(i) / samples;
        addStop(pattern, part, colour, 0.5 + 0.5 * std::cos(3.14159265358979 * part));
    }
}

void paintSky(cairo_t* context, const Scheme& scheme) {
    const Pattern sky(cairo_pattern_create_linear(0.2, 0, 0.8, 1));
    for (const GradientStop& stop : scheme.sky) addStop(sky.get(), stop.offset, stop.colour);
    cairo_set_source(context, sky.get());
    cairo_paint(context);
}

void paintGlow(cairo_t* context, const Glow& glow, double aspect) {
    cairo_save(context);
    cairo_translate(context, glow.centre.x, glow.centre.y);
    cairo_scale(context, aspect, 1);  // round on the screen
    const Pattern light(cairo_pattern_create_radial(0, 0, 0, 0, 0, glow.radius));
    addSoftFade(light.get(), glow.colour);
    cairo_set_source(context, light.get());
    cairo_paint(context);
    cairo_restore(context);
}

void paintBand(cairo_t* context, const Band& band) {
    cairo_push_group(context);
    const Pattern across(cairo_pattern_create_linear(0, 0, 1, 0));
    addStop(across.get(), 0, band.light);
    addStop(across.get(), 1, band.far);
    cairo_set_source(context, across.get());
    cairo_move_to(context, -0.1, band.left);
    cairo_curve_to(context, 0.3, band.left - band.lift, 0.6, band.right + band.lift * 1.6, 1.1,
                   band.right);
    cairo_line_to(context, 1.1, 1.1);
    cairo_line_to(context, -0.1, 1.1);
    cairo_close_path(context);
    cairo_fill(context);
    const Pattern group(cairo_pop_group(context));
    const double top = std::min(band.left, band.right) - std::abs(band.lift) * 0.5;
    const Pattern fade(cairo_pattern_create_linear(0, top, 0.12, top + band.depth + 0.2));
    addSoftFade(fade.get(), {0, 0, 0, 1});
    cairo_set_source(context, group.get());
    cairo_mask(context, fade.get());
}

Surface paintWallpaper(int width, int height, bool dark) {
    Surface surface(width, height, CAIRO_FORMAT_RGB24);
    const Context context = contextOf(surface);
    cairo_scale(context.get(), width, height);
    const Scheme scheme = dark ? darkScheme() : lightScheme();
    paintSky(context.get(), scheme);
    const double aspect = static_cast<double>(height) / width;
    for (const Glow& glow : scheme.glows) paintGlow(context.get(), glow, aspect);
    for (const Band& band : scheme.bands) paintBand(context.get(), band);
    return surface;
}

}  // namespace

PictureRef wallpaper(Size points, bool dark) {
    constexpr std::size_t kept = 6;  // both versions, turned and not, and one other size
    static std::map<std::tuple<double, double, bool>, PictureRef> made;
    const auto key = std::make_tuple(points.width, points.height, dark);
    if (const auto found = made.find(key); found != made.end()) return found->second;
    if (made.size() >= kept) made.clear();
    // Painted as large as it is shown, and when it is: most of a picture's time would go into it.
    auto paint = [=](double scale) {
        return paintWallpaper(static_cast<int>(std::lround(points.width * scale)),
                              static_cast<int>(std::lround(points.height * scale)), dark);
    };
    return made.emplace(key, Picture::painting(points, paint)).first->second;
}

}  // namespace simulator::rendering
