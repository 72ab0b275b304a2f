// Screens that are mostly a picture: a map, photographs, the camera, a record, a page.
#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <tuple>

#include "simulator/rendering/app_screens.hpp"
#include "simulator/rendering/nodes.hpp"
#include "simulator/rendering/pen.hpp"
#include "simulator/rendering/picture.hpp"

namespace simulator::rendering {

namespace {

struct MapColours {
    unsigned land, park, water, block, street, edge, road;
};
constexpr MapColours lightMap{0xf3efe6, 0xcfe8bd, 0x9fd3f5, 0xe9e3d6, 0xffffff, 0xddd6c8, 0xfbd66b};
constexpr MapColours darkMap{0x232a36, 0x24402f, 0x17344f, 0x2b3340, 0x414b5c, 0x1b212b, 0x8a6a2c};

// A town on a river, about 375 x 812 points; drawn from the top left and larger than most screens.
void drawTown(cairo_t* context, const MapColours& colours) {
    Pen pen(context);
    pen.colour(hex(colours.land));
    cairo_paint(context);
    cairo_save(context);
    cairo_translate(context, 190, 380);
    cairo_rotate(context, -0.28);
    pen.colour(hex(colours.block));
    for (int x = -8; x < 8; ++x) {
        for (int y = -9; y < 9; ++y) pen.box(x * 62 + 5, y * 74 + 5, 52, 64, 5).fill();
    }
    pen.colour(hex(colours.park)).box(-57, -143, 114, 138, 8).fill();
    pen.box(129, 79, 52, 138, 8).fill();
    for (const auto& [ink, extra] :
         {std::pair{colours.edge, 1.6}, std::pair{colours.street, 0.0}}) {
        pen.colour(hex(ink));
        for (int x = -8; x <= 8; ++x)
            pen.lines({{x * 62.0, -700}, {x * 62.0, 700}}).stroke((x % 3 ? 5 : 10) + extra);
        for (int y = -9; y <= 9; ++y)
            pen.lines({{-600, y * 74.0}, {600, y * 74.0}}).stroke((y % 2 ? 5 : 9) + extra);
    }
    cairo_restore(context);
    const auto river = [&] {
        pen.move(-40, 640).curve(120, 560, 150, 700, 260, 620).curve(330, 570, 380, 520, 1100, 470);
    };
    river();
    pen.colour(hex(colours.water)).stroke(72);
    const auto road = [&] {
        pen.move(-30, 210).curve(120, 250, 180, 330, 220, 430).curve(270, 560, 290, 680, 380, 900);
    };
    road();
    pen.colour(hex(colours.edge)).stroke(17);
    road();
    pen.colour(hex(colours.road)).stroke(13);
}

PictureRef townPicture(Size size, bool dark) {
    static std::map<std::tuple<double, double, bool>, PictureRef> made;
    PictureRef& picture = made[{size.width, size.height, dark}];
    if (!picture) {
        picture = Picture::drawing(
            size, [dark](cairo_t* context) { drawTown(context, dark ? darkMap : lightMap); });
    }
    return picture;
}

struct Scene {
    unsigned sky, horizon, far, near, sun;
};
constexpr Scene scenes[] = {
    {0x3a7bd5, 0xbfe3ff, 0x6f8fb5, 0x2f5d4a, 0xffffff},
    {0xff7e5f, 0xfeb47b, 0x8f4b68, 0x3d2547, 0xfff0c0},
    {0x0f2027, 0x2c5364, 0x1b3a4b, 0x0b161d, 0xe8f1ff},
    {0x56ccf2, 0xe8f9ff, 0x7fc8a9, 0x3f9c6b, 0xfff7d0},
    {0xa18cd1, 0xfbc2eb, 0x8a6bb0, 0x4b3a78, 0xfff2f7},
    {0xf6d365, 0xfda085, 0xc7775a, 0x7a3f3a, 0xffffff},
    {0x89f7fe, 0x66a6ff, 0x4d7fc4, 0x254a86, 0xffffff},
    {0xd4fc79, 0x96e6a1, 0x5fae6e, 0x2f6e4a, 0xfffde0},
};

void drawMountains(Pen& pen, const Scene& scene, double shift) {
    pen.colour(hex(scene.far));
    pen.polygon(
        {{-10, 78}, {10 + shift / 2, 42}, {34 + shift / 3, 64}, {56 + shift / 2, 36}, {112, 80}});
    pen.fill().colour(hex(scene.near)).move(0, 100).line(0, 74);
    pen.curve(30, 58 + shift / 4, 60, 90 - shift / 4, 100, 68).line(100, 100).close().fill();
}

void drawSea(Pen& pen, const Scene& scene, double shift) {
    const double horizon = 52 + shift / 6;
    pen.colour(hex(scene.far)).box(0, horizon, 100, 100 - horizon).fill();
    pen.colour(hex(scene.sun, 0.5));
    for (int i = 0; i < 6; ++i) {
        const double half = 3 + i * 2.2;
        pen.box(20 + shift - half, horizon + 4 + i * 7, 2 * half, 1.6, 0.8).fill();
    }
    pen.colour(hex(scene.near))
        .polygon({{58, horizon + 9}, {82, horizon + 9}, {78, horizon + 14}, {62, horizon + 14}});
    pen.fill().polygon({{70, horizon - 16}, {70, horizon + 7}, {82, horizon + 7}}).fill();
}

void drawHills(Pen& pen, const Scene& scene, double shift) {
    pen.colour(hex(scene.far)).circle(20 + shift / 2, 118, 60).fill();
    pen.colour(hex(scene.near)).circle(96 - shift / 3, 126, 62).fill();
    for (const double x : {70.0, 80.0, 88.0}) {
        pen.polygon({{x - 5, 68 + shift / 20}, {x, 48}, {x + 5, 68 + shift / 20}}).fill();
    }
}

// A landscape in a square of 100 units, different for each number.
void drawPhotograph(cairo_t* context, std::size_t number) {
    const Scene& scene = scenes[number % std::size(scenes)];
    const double shift = std::fmod(static_cast<double>(number) * 37.0, 60.0);
    Pen pen(context);
    const Pattern sky(cairo_pattern_create_linear(0, 0, 0, 70));
    const Colour top = hex(scene.sky), low = hex(scene.horizon);
    cairo_pattern_add_color_stop_rgb(sky.get(), 0, top.red, top.green, top.blue);
    cairo_pattern_add_color_stop_rgb(sky.get(), 1, low.red, low.green, low.blue);
    cairo_set_source(context, sky.get());
    cairo_paint(context);
    pen.colour(hex(scene.sun, 0.9)).circle(20 + shift, 30, 7 + shift / 12).fill();
    switch ((number + number / 3) % 3) {
        case 0:
            drawMountains(pen, scene, shift);
            break;
        case 1:
            drawSea(pen, scene, shift);
            break;
        default:
            drawHills(pen, scene, shift);
            break;
    }
}

PictureRef photograph(std::size_t number) {
    static std::map<std::size_t, PictureRef> made;
    PictureRef& picture = made[number];
    if (!picture) {
        picture = Picture::drawing({100, 100},
                                   [number](cairo_t* context) { drawPhotograph(context, number); });
    }
    return picture;
}

Node photographNode(Rect frame, std::size_t number, double radius = 0) {
    Node node = imageNode(frame, photograph(number), 2);
    node.masksToBounds = true;
    node.cornerRadius = radius;
    node.continuousCorners = radius > 0;
    return node;
}

}  // namespace

Node mapsScreen(Size size, bool dark) {
    const AppStyle style = appStyle(dark);
    Node screen = appWindow(size, dark ? hex(darkMap.land) : hex(lightMap.land));
    screen.children.push_back(imageNode({{0, 0}, size}, townPicture(size, dark)));
    const Colour ink = dark ? hex(0xc8d0dc) : hex(0x5b6470);
    screen.children.push_back(textNode({{108, 330}, {120, 18}}, "Linden Park", 13, 600,
                                       dark ? hex(0x7fc48f) : hex(0x3f8f4f),
                                       TextAlignment::center));
    screen.children.push_back(textNode({{38, 176}, {120, 16}}, "Old Market", 12, 600, ink));
    screen.children.push_back(textNode({{236, 508}, {120, 16}}, "Weir Bridge", 12, 600, ink));
    const Point here{218, 424};
    Node halo = fillNode({{here.x - 34, here.y - 34}, {68, 68}}, hex(0x0a84ff, 0.18), 34);
    Node dot = fillNode({{here.x - 11, here.y - 11}, {22, 22}}, {1, 1, 1, 1}, 11);
    dot.shadow = Shadow{{0, 0, 0, 0.3}, 4, {0, 1}};
    dot.children.push_back(fillNode({{3.5, 3.5}, {15, 15}}, hex(0x0a84ff), 7.5));
    screen.children.push_back(std::move(halo));
    screen.children.push_back(std::move(dot));
    Node buttons = fillNode({{size.width - 56, topInset + 12}, {44, 88}}, style.bar, 10);
    buttons.shadow = Shadow{{0, 0, 0, 0.16}, 6, {0, 2}};
    buttons.children.push_back(symbolNode({{11, 11}, {22, 22}}, "gear", hex(0x0a84ff)));
    addLine(buttons, 0, 44, 44, style);
    buttons.children.push_back(symbolNode({{11, 55}, {22, 22}}, "location", hex(0x0a84ff)));
    screen.children.push_back(std::move(buttons));
    Node sheet = fillNode({{0, size.height - 176}, {size.width, 220}}, style.bar, 12);
    sheet.shadow = Shadow{{0, 0, 0, 0.2}, 8, {0, -1}};
    sheet.children.push_back(fillNode({{size.width / 2 - 18, 6}, {36, 5}}, style.faint, 2.5));
    addSearchField(sheet, 20, style);
    sheet.children.push_back(
        textNode({{margin, 68}, {200, 20}}, "Favourites", 15, 600, style.secondary));
    constexpr std::array<Tab, 4> places{
        {{"folder", "Work"}, {"star", "Home"}, {"heart", "Mara"}, {"plus", "Add"}}};
    for (std::size_t i = 0; i < places.size(); ++i) {
        const double left = margin + static_cast<double>(i) * 84;
        Node disc = fillNode({{left, 96}, {44, 44}}, i == 3 ? style.line : hex(0x0a84ff), 22);
        disc.children.push_back(symbolNode({{11, 11}, {22, 22}}, places[i].symbol, {1, 1, 1, 1}));
        sheet.children.push_back(std::move(disc));
    }
    screen.children.push_back(std::move(sheet));
    return screen;
}

Node photosScreen(Size size, bool dark) {
    const AppStyle style = appStyle(dark);
    Node screen = appWindow(size, style.ground);
    double y = addLargeTitle(screen, "Photos", style);
    constexpr int columns = 3;
    constexpr double gap = 2;
    const double side = (size.width - gap * (columns - 1)) / columns;
    for (std::size_t i = 0; y < size.height; ++i) {
        const double x = static_cast<double>(i % columns) * (side + gap);
        screen.children.push_back(photographNode({{x, y}, {side, side}}, i * 7 + (i / 3) * 2));
        if (i % columns == columns - 1) y += side + gap;
    }
    constexpr Tab tabs[] = {
        {"pictures", "Library"}, {"heart", "For You"}, {"folder", "Albums"}, {"search", "Search"}};
    addTabBar(screen, tabs, hex(0x0a84ff), style);
    return screen;
}

Node musicScreen(Size size, bool dark) {
    constexpr std::array<std::array<const char*, 2>, 6> albums{{{"Tidal Hours", "Northlight"},
                                                                {"Paper Boats", "Ines Duarte"},
                                                                {"Slow Orbit", "The Lanterns"},
                                                                {"Green Rooms", "Aiko Mori"},
                                                                {"Early Train", "Weir & Field"},
                                                                {"Salt", "Mara Lindqvist"}}};
    const AppStyle style = appStyle(dark);
    Node screen = appWindow(size, style.ground);
    double y = addLargeTitle(screen, "Library", style);
    const double side = (size.width - 2 * margin - 16) / 2;
    for (std::size_t i = 0; i < albums.size(); ++i) {
        const double x = margin + static_cast<double>(i % 2) * (side + 16);
        screen.children.push_back(photographNode({{x, y}, {side, side}}, i * 3 + 1, 8));
        screen.children.push_back(
            textNode({{x, y + side + 5}, {side, 18}}, albums[i][0], 14, 500, style.ink));
        screen.children.push_back(
            textNode({{x, y + side + 22}, {side, 18}}, albums[i][1], 14, 400, style.secondary));
        if (i % 2 == 1) y += side + 52;
    }
    constexpr Tab tabs[] = {
        {"note", "Library"}, {"heart", "For You"}, {"cellular", "Radio"}, {"search", "Search"}};
    addTabBar(screen, tabs, hex(0xff2d55), style);
    return screen;
}

Node cameraScreen(Size size, bool) {
    constexpr Colour white{1, 1, 1, 1};
    const double side = std::min(size.width, size.height);
    const double across = size.width, down = side * 4 / 3;
    const double top = topInset + 40;
    Node screen = appWindow(size, hex(0x000000));
    screen.children.push_back(photographNode({{0, top}, {across, down}}, 6));
    screen.children.push_back(symbolNode({{24, topInset + 6}, {24, 24}}, "flashlight", white));
    const double modes = top + down + 10;
    constexpr std::array<const char*, 3> names{"VIDEO", "PHOTO", "SQUARE"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        screen.children.push_back(
            textNode({{size.width / 2 - 120 + static_cast<double>(i) * 80, modes}, {80, 22}},
                     names[i], 13, 500, i == 1 ? hex(0xffcc00) : white, TextAlignment::center));
    }
    const double centre = modes + 74;
    Node ring = nodeWithFrame("Shutter", {{size.width / 2 - 34, centre - 34}, {68, 68}});
    ring.cornerRadius = 34;
    ring.borderWidth = 4;
    ring.border = white;
    ring.children.push_back(fillNode({{7, 7}, {54, 54}}, white, 27));
    screen.children.push_back(std::move(ring));
    screen.children.push_back(photographNode({{24, centre - 25}, {50, 50}}, 3, 6));
    return screen;
}

Node browserScreen(Size size, bool dark) {
    const AppStyle style = appStyle(dark);
    const double width = size.width - 2 * margin;
    Node screen = appWindow(size, style.ground);
    Node field = fillNode({{12, topInset + 6}, {size.width - 24, 38}},
                          dark ? hex(0x2c2c2e) : hex(0xe9e9ec), 10);
    field.children.push_back(
        symbolNode({{(size.width - 24) / 2 - 82, 12}, {13, 13}}, "lock", style.secondary));
    field.children.push_back(textNode({{0, 0}, {size.width - 24, 38}}, "tidewatch.example", 16, 400,
                                      style.ink, TextAlignment::center));
    screen.children.push_back(std::move(field));
    double y = topInset + 62;
    screen.children.push_back(
        textNode({{margin, y}, {width, 18}}, "THE COAST", 12, 700, hex(0x0a84ff)));
    screen.children.push_back(textNode({{margin, y + 20}, {width, 76}},
                                       "The lighthouse that still keeps its keeper", 28, 700,
                                       style.ink, TextAlignment::left, 2));
    screen.children.push_back(photographNode({{margin, y + 108}, {width, 190}}, 1, 12));
    y += 314;
    constexpr std::array<const char*, 3> paragraphs{
        "Every evening at dusk, Elin climbs the ninety-one steps that her grandmother climbed, and winds the clockwork by hand.",
        "Nobody has asked her to for thirty years. The lamp has a motor now, and the motor has another motor in case the first one fails.",
        "\u201cIt is quieter this way,\u201d she says, and pours the coffee. Outside, the first boats are coming home."};
    for (const char* paragraph : paragraphs) {
        screen.children.push_back(textNode({{margin, y}, {width, 92}}, paragraph, 16, 400,
                                           style.ink, TextAlignment::left, 4));
        y += 98;
    }
    constexpr Tab tools[] = {
        {"chevron.left", ""}, {"chevron.right", ""}, {"plus", ""}, {"folder", ""}};
    addTabBar(screen, tools, hex(0x0a84ff), style);
    return screen;
}

}  // namespace simulator::rendering
