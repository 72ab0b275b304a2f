// One function per icon, on a grid of 60 x 60 points; the shared tile cuts the corners.
#include "simulator/rendering/icon_art.hpp"

#include <cmath>
#include <cstdint>
#include <map>

#include "simulator/rendering/pen.hpp"
#include "simulator/rendering/symbols.hpp"
#include "simulator/rendering/text.hpp"

namespace simulator::rendering {

namespace {

constexpr double turn = 2 * 3.14159265358979323846;
constexpr Colour white{1, 1, 1, 1};

struct Icon {
    const char* bundle;
    const char* name;
    unsigned top;  // of the ground's gradient
    unsigned bottom;
    void (*draw)(Pen& pen);
};

void glyph(Pen& pen, const char* name, double side, Colour colour = white) {
    const double at = (iconSide - side) / 2;
    drawSymbol(pen.context(), {name, colour, 1}, {{at, at}, {side, side}});
}

// A gradient from one height to another, as the source of what is filled next.
Pen& vertical(Pen& pen, double from, double to, Colour top, Colour bottom) {
    const Pattern pattern(cairo_pattern_create_linear(0, from, 0, to));
    cairo_pattern_add_color_stop_rgba(pattern.get(), 0, top.red, top.green, top.blue, top.alpha);
    cairo_pattern_add_color_stop_rgba(pattern.get(), 1, bottom.red, bottom.green, bottom.blue,
                                      bottom.alpha);
    cairo_set_source(pen.context(), pattern.get());
    return pen;
}

void phone(Pen& pen) {
    // A handset seen as a smile, then turned: a bent grip between two pads that point inwards.
    cairo_translate(pen.context(), 32.4, 27.6);
    cairo_rotate(pen.context(), turn * 0.125);
    pen.colour(white).arc(0, -13, 25.4, 42, 138).stroke(8.6);
    for (const double side : {-1.0, 1.0}) {
        cairo_save(pen.context());
        cairo_translate(pen.context(), 0, -13);
        cairo_rotate(pen.context(), side * turn * 0.137);
        pen.box(-5.6, 16.4, 11.2, 13.3, 3.6).fill();
        cairo_restore(pen.context());
    }
}

void browser(Pen& pen) {
    vertical(pen, 5, 55, hex(0x35c4fb), hex(0x1a66ea)).circle(30, 30, 24.6).fill();
    for (int i = 0; i < 48; ++i) {
        const double angle = turn * i / 48;
        const double inner = i % 4 == 0 ? 19.4 : 21;
        pen.lines({{30 + std::cos(angle) * inner, 30 + std::sin(angle) * inner},
                   {30 + std::cos(angle) * 22.8, 30 + std::sin(angle) * 22.8}});
    }
    pen.colour({1, 1, 1, 0.85}).stroke(0.7);
    pen.colour(hex(0xff4b3e)).polygon({{45.6, 14.4}, {33, 33}, {27, 27}}).fill();
    pen.colour(white).polygon({{14.4, 45.6}, {33, 33}, {27, 27}}).fill();
}

void messages(Pen& pen) {
    pen.colour(white)
        .move(30, 12.5)
        .curve(42, 12.5, 50, 19.6, 50, 28.4)
        .curve(50, 37.4, 42, 44.4, 30, 44.4);
    pen.curve(27.6, 44.4, 25.4, 44.1, 23.3, 43.6).curve(20.8, 46.2, 17.4, 47.8, 13.6, 48);
    pen.curve(15.8, 45.8, 16.8, 43.2, 16.9, 40.8).curve(12.6, 37.8, 10, 33.4, 10, 28.4);
    pen.curve(10, 19.6, 18, 12.5, 30, 12.5).close().fill();
}

void music(Pen& pen) { glyph(pen, "note", 37); }

void camera(Pen& pen) {
    vertical(pen, 10, 50, hex(0x4a4b50), hex(0x2b2c30));
    pen.box(21, 13, 18, 12, 5).fill();
    pen.box(8.5, 18, 43, 29.5, 7).fill();
    pen.colour(hex(0xe6e7ea)).circle(30, 32.6, 11.6).fill();
    vertical(pen, 22, 43, hex(0x17181b), hex(0x3a4660)).circle(30, 32.6, 9.8).fill();
    vertical(pen, 26, 38, hex(0x2e5bd0), hex(0x10162c)).circle(30, 32.6, 6).fill();
    pen.colour({1, 1, 1, 0.7}).circle(27.4, 29.8, 1.9).fill();
    pen.colour(hex(0xffcc33)).circle(45.4, 23.6, 1.7).fill();
}

void gearRing(Pen& pen, double radius, double tooth, int teeth) {
    for (int i = 0; i < teeth * 4; ++i) {
        const double angle = turn * (i + 0.5) / (teeth * 4);
        const double reach = i % 4 < 2 ? radius : radius - tooth;
        pen.line(30 + reach * std::cos(angle), 30 + reach * std::sin(angle));
    }
    pen.close();
}

void settings(Pen& pen) {
    vertical(pen, 6, 54, hex(0x55575d), hex(0x2a2b2f));
    gearRing(pen, 24.6, 2.6, 30);
    pen.circle(30, 30, 18.4).fillEvenOdd();
    vertical(pen, 8, 52, hex(0x505258), hex(0x303136));
    for (int i = 0; i < 3; ++i) {
        const double angle = turn * i / 3 - turn / 4;
        pen.lines({{30 + 4.6 * std::cos(angle), 30 + 4.6 * std::sin(angle)},
                   {30 + 19 * std::cos(angle), 30 + 19 * std::sin(angle)}});
    }
    pen.stroke(3.4);
    vertical(pen, 18, 42, hex(0x5b5d63), hex(0x2c2d31));
    gearRing(pen, 11.6, 1.6, 20);
    pen.circle(30, 30, 6.6).fillEvenOdd();
}

void notes(Pen& pen) {
    vertical(pen, 0, 17, hex(0xffd84d), hex(0xf9bd20)).box(0, 0, 60, 17).fill();
    pen.colour(hex(0xcfcac0));
    for (int i = 0; i < 15; ++i) pen.circle(3.6 + i * 3.8, 20.2, 0.7);
    pen.fill();
    pen.colour(hex(0xd7d3cb));
    for (int i = 0; i < 3; ++i) pen.lines({{8, 29 + i * 9.0}, {52, 29 + i * 9.0}});
    pen.stroke(1);
}

void maps(Pen& pen) {
    pen.colour(hex(0xa9dd9b)).box(0, 0, 60, 60).fill();
    pen.colour(hex(0x8fd0f4)).move(0, 0).line(34, 0).curve(26, 14, 10, 16, 0, 24).close().fill();
    pen.colour(hex(0xf4eddd)).polygon({{24, 60}, {38, 24}, {60, 30}, {60, 60}}).fill();
    pen.colour(white);
    pen.lines({{-4, 42}, {20, 36}, {64, 46}}).stroke(5.2);
    pen.lines({{44, -4}, {36, 30}, {24, 64}}).stroke(5.2);
    pen.colour(hex(0xffc83c)).lines({{-4, 56}, {22, 48}, {64, 14}}).stroke(6.4);
    pen.colour({0.05, 0.1, 0.2, 0.18}).circle(37, 27.4, 11.4).fill();
    pen.colour(white).circle(36.5, 26, 11).fill();
    vertical(pen, 16, 36, hex(0x3f9bff), hex(0x1566e8)).circle(36.5, 26, 9.2).fill();
    pen.colour(white).polygon({{36.5, 19.4}, {41, 31}, {36.5, 28.4}, {32, 31}}).fill();
}

void mail(Pen& pen) {
    pen.colour(white).box(9, 16.5, 42, 28, 4.4).fill();
    vertical(pen, 16, 46, hex(0x3fb4fb), hex(0x1c74ee));
    pen.lines({{10.6, 18.6}, {26.6, 32.6}})
        .curve(28.6, 34.3, 31.4, 34.3, 33.4, 32.6)
        .line(49.4, 18.6);
    pen.stroke(1.7);
    pen.lines({{10.8, 43}, {23.4, 30.4}}).stroke(1.2);
    pen.lines({{49.2, 43}, {36.6, 30.4}}).stroke(1.2);
}

void photos(Pen& pen) {
    constexpr unsigned petals[] = {0xf9a61f, 0xe9d72c, 0x8cc63e, 0x3fb08a,
                                   0x4a8fdc, 0x7a62c6, 0xc05ba8, 0xec5a5f};
    cairo_push_group(pen.context());
    pen.colour(white);
    cairo_paint(pen.context());
    cairo_set_operator(pen.context(), CAIRO_OPERATOR_MULTIPLY);
    for (int i = 0; i < 8; ++i) {
        cairo_save(pen.context());
        cairo_translate(pen.context(), 30, 30);
        cairo_rotate(pen.context(), turn * i / 8);
        pen.colour(hex(petals[i], 0.88)).box(-6.2, -24.4, 12.4, 20.6, 6.2).fill();
        cairo_restore(pen.context());
    }
    cairo_pop_group_to_source(pen.context());
    cairo_paint(pen.context());
}

constexpr Icon icons[] = {
    {"com.apple.mobilephone", "Phone", 0x6ee66f, 0x22b83c, phone},
    {"com.apple.mobilesafari", "Browser", 0xffffff, 0xe9ebee, browser},
    {"com.apple.MobileSMS", "Messages", 0x72ec72, 0x18b92f, messages},
    {"com.apple.Music", "Music", 0xff6a83, 0xf6244a, music},
    {"com.apple.camera", "Camera", 0xdfe0e3, 0xb5b7bc, camera},
    {"com.apple.Preferences", "Settings", 0xdcdde1, 0xa2a4aa, settings},
    {"com.example.notes", "Notes", 0xffffff, 0xf7f5ef, notes},
    {"com.example.maps", "Maps", 0xa9dd9b, 0xa9dd9b, maps},
    {"com.example.mail", "Mail", 0x42b9ff, 0x1769ec, mail},
    {"com.example.photos", "Photos", 0xffffff, 0xffffff, photos},
};

const Icon* iconFor(const std::string& bundle) {
    for (const Icon& icon : icons) {
        if (bundle == icon.bundle) return &icon;
    }
    return nullptr;
}

void drawGround(Pen& pen, Colour top, Colour bottom) {
    addOutline(pen.context(), {{0, 0}, {iconSide, iconSide}}, iconCornerRadius, true);
    cairo_clip(pen.context());
    vertical(pen, 0, iconSide, top, bottom);
    cairo_paint(pen.context());
}

void drawIcon(cairo_t* context, const Icon& icon) {
    Pen pen(context);
    drawGround(pen, hex(icon.top), hex(icon.bottom));
    cairo_save(context);
    icon.draw(pen);
    cairo_restore(context);
    addOutline(context, {{0, 0}, {iconSide, iconSide}}, iconCornerRadius, true);
    pen.colour({0, 0, 0, 0.07}).stroke(0.7);
}

struct TileColours {
    unsigned top;
    unsigned bottom;
};
constexpr TileColours tileColours[] = {
    {0x7b8cff, 0x4a52e0}, {0xff9a6a, 0xf0603a}, {0x4fd6c8, 0x179d9a}, {0xc78bff, 0x8742e6},
    {0xffc95a, 0xf59a1c}, {0xff80ab, 0xe63a78}, {0x6cc7ff, 0x2486e6}, {0x9adf6a, 0x4fae34}};

// FNV-1a: the same tile for the same application on every run.
std::uint32_t hashOf(const std::string& text) {
    std::uint32_t hash = 2166136261u;
    for (const char letter : text) hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619u;
    return hash;
}

// The first letter with all bytes of its UTF-8 sequence.
std::string initialOf(const std::string& name) {
    std::size_t length = name.empty() ? 0 : 1;
    while (length < name.size() && (static_cast<unsigned char>(name[length]) & 0xc0) == 0x80)
        ++length;
    return name.substr(0, length);
}

void drawTile(cairo_t* context, const std::string& bundle) {
    Pen pen(context);
    const TileColours colours = tileColours[hashOf(bundle) % std::size(tileColours)];
    drawGround(pen, hex(colours.top), hex(colours.bottom));
    pen.colour({1, 1, 1, 0.12}).circle(48, 8, 30).fill();
    pen.colour({1, 1, 1, 0.10}).circle(6, 60, 26).fill();
    drawText(context,
             {initialOf(displayName(bundle)), 34, 600, white, TextAlignment::center, 1, false},
             {{0, 0}, {iconSide, iconSide}}, white);
}

}  // namespace

PictureRef iconPicture(const std::string& bundleIdentifier) {
    static std::map<std::string, PictureRef> made;
    const auto found = made.find(bundleIdentifier);
    if (found != made.end()) return found->second;
    const Icon* icon = iconFor(bundleIdentifier);
    Picture::Drawing draw;
    if (icon)
        draw = [icon](cairo_t* context) { drawIcon(context, *icon); };
    else
        draw = [bundleIdentifier](cairo_t* context) { drawTile(context, bundleIdentifier); };
    return made.emplace(bundleIdentifier, Picture::drawing({iconSide, iconSide}, draw))
        .first->second;
}

std::string displayName(const std::string& bundleIdentifier) {
    if (const Icon* icon = iconFor(bundleIdentifier)) return icon->name;
    const std::size_t dot = bundleIdentifier.find_last_of('.');
    std::string name =
        dot == std::string::npos ? bundleIdentifier : bundleIdentifier.substr(dot + 1);
    if (!name.empty() && name[0] >= 'a' && name[0] <= 'z')
        name[0] = static_cast<char>(name[0] - 'a' + 'A');
    return name;
}

}  // namespace simulator::rendering
