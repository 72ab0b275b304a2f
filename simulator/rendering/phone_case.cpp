#include "simulator/rendering/phone_case.hpp"

#include <cmath>
#include <numbers>

#include "simulator/rendering/outline.hpp"

namespace simulator::rendering {

namespace {

constexpr double rim = 2.5;  // of metal
constexpr double buttonDepth = 2.2;
constexpr double air = 10;
constexpr Size notchSize{209, 30};
constexpr double homeButtonRadius = 22;

// How much glass there is beside the screen and above and below it.
struct Shape {
    double side;
    double end;
    double screenCorner;
    double bodyCorner;
};
constexpr Shape withNotch{11, 11, 39, 39 + 11 + rim};
constexpr Shape withHomeButton{13, 68, 1.5, 46};

const Shape& shapeOf(bool homeButton) { return homeButton ? withHomeButton : withNotch; }

struct Button {
    bool left;
    double top;  // from the top of the body
    double length;
};
constexpr Button buttons[] = {{true, 104, 30}, {true, 156, 58}, {true, 226, 58}, {false, 172, 90}};

Rect grown(Rect rect, double sides, double ends) {
    return {{rect.origin.x - sides, rect.origin.y - ends},
            {rect.size.width + 2 * sides, rect.size.height + 2 * ends}};
}

void fillOutline(cairo_t* context, Rect rect, double radius, Colour colour) {
    cairo_new_path(context);
    addOutline(context, rect, radius, true);
    setSource(context, colour);
    cairo_fill(context);
}

void drawHomeButton(cairo_t* context, Rect screen) {
    const double middle = screen.origin.x + screen.size.width / 2;
    const double end = withHomeButton.end / 2;
    fillOutline(context, {{middle - 24, screen.origin.y - end - 2.5}, {48, 5}}, 2.5, hex(0x1c1d20));
    cairo_new_path(context);
    cairo_arc(context, middle, screen.origin.y + screen.size.height + end, homeButtonRadius, 0,
              2 * std::numbers::pi);
    setSource(context, hex(0x0d0d0f));
    cairo_fill_preserve(context);
    setSource(context, hex(0x4a4b50));
    cairo_set_line_width(context, 1.5);
    cairo_stroke(context);
}

}  // namespace

Rect caseAround(Rect screen, bool homeButton) {
    const Shape& shape = shapeOf(homeButton);
    return grown(screen, shape.side + rim, shape.end + rim);
}

double caseCorner(bool homeButton) { return shapeOf(homeButton).bodyCorner; }

void drawCase(cairo_t* context, Rect screen, bool homeButton) {
    const Shape& shape = shapeOf(homeButton);
    const Rect glass = grown(screen, shape.side, shape.end);
    const Rect body = grown(glass, rim, rim);
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
    addOutline(context, body, shape.bodyCorner, true);
    cairo_set_source(context, metal.get());
    cairo_fill(context);
    fillOutline(context, glass, shape.bodyCorner - rim, hex(0x050506));
    if (homeButton) drawHomeButton(context, screen);
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

void addScreenOutline(cairo_t* context, Rect screen, bool homeButton) {
    addOutline(context, screen, shapeOf(homeButton).screenCorner, true);
}

Size roomAround(const PhoneCase& phone) {
    const Shape& shape = shapeOf(phone.homeButton);
    const double beyond = rim + buttonDepth + air;
    const Size room{shape.side + beyond, shape.end + beyond};
    return phone.quarterTurns % 2 == 0 ? room : Size{room.height, room.width};
}

Surface casePicture(const PhoneCase& phone, Size screen, double scale, Colour ground) {
    const Size room = roomAround(phone);
    const Size whole{screen.width + 2 * room.width, screen.height + 2 * room.height};
    Surface result(static_cast<int>(std::ceil(whole.width * scale)),
                   static_cast<int>(std::ceil(whole.height * scale)));
    const Context context = contextOf(result);
    setSource(context.get(), ground);
    cairo_paint(context.get());
    cairo_scale(context.get(), scale, scale);
    // Drawn upright around the middle, which is the same however it lies.
    cairo_translate(context.get(), whole.width / 2, whole.height / 2);
    cairo_rotate(context.get(), phone.quarterTurns * std::numbers::pi / 2);
    const Size upright = phone.quarterTurns % 2 == 0 ? screen : Size{screen.height, screen.width};
    const Rect place{{-upright.width / 2, -upright.height / 2}, upright};
    drawCase(context.get(), place, phone.homeButton);
    cairo_new_path(context.get());
    addScreenOutline(context.get(), place, phone.homeButton);
    cairo_set_operator(context.get(), CAIRO_OPERATOR_CLEAR);
    cairo_fill(context.get());
    cairo_set_operator(context.get(), CAIRO_OPERATOR_OVER);
    if (!phone.homeButton) drawNotch(context.get(), place);
    return result;
}

}  // namespace simulator::rendering
