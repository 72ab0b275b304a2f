// What the toggles of Control Center show.
#include <cmath>

#include "simulator/rendering/glyphs.hpp"

namespace simulator::rendering {

namespace {

void rays(Pen& pen, double from, double to, double width) {
    for (int i = 0; i < 8; ++i) {
        const double angle = turn * i / 8;
        const double x = std::cos(angle), y = std::sin(angle);
        pen.lines({{12 + x * from, 12 + y * from}, {12 + x * to, 12 + y * to}}).stroke(width);
    }
}

// The rays grow with the brightness.
void sun(Pen& pen, double progress) {
    pen.circle(12, 12, 4.6).fill();
    rays(pen, 7.4, 8.2 + 2.6 * progress, 1.9);
}

void crescent(Pen& pen) {
    pen.move(9.4, 3).curve(3.2, 5.6, 1, 13, 5, 18).curve(9.4, 23.2, 17.6, 22.2, 20.6, 15.4);
    pen.curve(12.6, 18.6, 5.4, 11.2, 9.4, 3).close();
}

void moon(Pen& pen, double) {
    crescent(pen);
    pen.fill();
    crescent(pen);
    pen.stroke(0.8);
}

// Night Shift: the sun with the moon in it.
void nightShift(Pen& pen, double) {
    pen.circle(12, 12, 5.6).stroke(1.5);
    cairo_save(pen.context());
    cairo_translate(pen.context(), 12.3, 11.7);
    cairo_scale(pen.context(), 0.36, 0.36);
    cairo_translate(pen.context(), -12, -12);
    crescent(pen);
    pen.fill();
    cairo_restore(pen.context());
    rays(pen, 8.6, 10.6, 1.7);
}

void trueTone(Pen& pen, double) {
    sun(pen, 1);
    for (int i = 0; i < 8; ++i) {
        const double angle = turn * (i + 0.5) / 8;
        pen.circle(12 + 9.2 * std::cos(angle), 12 + 9.2 * std::sin(angle), 0.9).fill();
    }
}

// Light and dark: a disc, half of it filled.
void appearance(Pen& pen, double) {
    pen.circle(12, 12, 9.2).stroke(1.8);
    pen.arc(12, 12, 5.8, -90, 90).close().fill();
    pen.arc(12, 12, 5.8, 90, 270).stroke(1.5);
}

void padlock(Pen& pen, double x, double y, double size, bool open) {
    pen.box(x - size, y, 2 * size, 1.6 * size, 0.3 * size).fill();
    const double shackle = 0.62 * size;
    const double top = y - 0.55 * size;
    pen.arc(x, top, shackle, 180, 360);
    if (!open) pen.line(x + shackle, y + 0.1 * size);
    pen.stroke(0.32 * size);
    pen.lines({{x - shackle, top}, {x - shackle, y + 0.1 * size}}).stroke(0.32 * size);
}

void lock(Pen& pen, double) { padlock(pen, 12, 10.6, 6.4, false); }
void unlocked(Pen& pen, double) { padlock(pen, 12, 10.6, 6.4, true); }

// A turning arrow around a padlock; the gap and the head are at the top right.
void turningLock(Pen& pen, bool open) {
    pen.arc(12, 12.4, 9.2, -22, 285).stroke(1.7);
    pen.polygon({{13.6, 0.8}, {18.2, 3.6}, {13.8, 6.4}}).fill();
    padlock(pen, 12, 11.6, 3.6, open);
}

void orientationLock(Pen& pen, double) { turningLock(pen, false); }
void orientationFree(Pen& pen, double) { turningLock(pen, true); }

void bellBody(Pen& pen) {
    pen.move(12, 2.6).curve(16.4, 2.6, 18, 6, 18, 9.4).curve(18, 13.6, 19, 15, 20.6, 16.8);
    pen.curve(21.2, 17.6, 20.8, 18.2, 20, 18.2)
        .line(4, 18.2)
        .curve(3.2, 18.2, 2.8, 17.6, 3.4, 16.8);
    pen.curve(5, 15, 6, 13.6, 6, 9.4).curve(6, 6, 7.6, 2.6, 12, 2.6).close().fill();
    pen.arc(12, 19.4, 2.6, 0, 180).close().fill();
}

void bell(Pen& pen, double) { bellBody(pen); }

void bellSlash(Pen& pen, double) {
    bellBody(pen);
    // The gap beside the stroke is cut out of the glyph's own group, never out of the screen.
    pen.lines({{3.4, 2.4}, {21.4, 20.4}});
    cairo_save(pen.context());
    cairo_set_operator(pen.context(), CAIRO_OPERATOR_CLEAR);
    pen.stroke(2.2);
    cairo_restore(pen.context());
    pen.lines({{2.6, 3.6}, {20.6, 21.6}}).stroke(1.7);
}

void flashlight(Pen& pen, double progress) {
    pen.box(6.8, 1.6, 10.4, 2.6, 1.2).fill();
    pen.move(6.8, 5.6).line(17.2, 5.6).curve(17.2, 8.6, 14.9, 9, 14.9, 11.4).line(14.9, 20.6);
    pen.curve(14.9, 22, 14.2, 22.6, 12.9, 22.6)
        .line(11.1, 22.6)
        .curve(9.8, 22.6, 9.1, 22, 9.1, 20.6);
    pen.line(9.1, 11.4).curve(9.1, 9, 6.8, 8.6, 6.8, 5.6).close();
    pen.box(11, progress > 0.5 ? 10.6 : 13.2, 2, 4.6, 1).fillEvenOdd();
}

void batteryCase(Pen& pen, double) {
    pen.box(1.6, 6.6, 18, 10.8, 3).stroke(1.5);
    pen.arc(21.2, 12, 2, -60, 60).close().fill();
}

void batteryCharge(Pen& pen, double progress) {
    pen.box(3.6, 8.6, 3 + 11 * progress, 6.8, 1.4).fill();
}

void lowPower(Pen& pen, double progress) {
    batteryCase(pen, progress);
    batteryCharge(pen, progress);
}

void timer(Pen& pen, double) {
    pen.arc(12, 12, 9.2, -90, 225).stroke(1.8);
    pen.polygon({{11, 13}, {6.6, 6.6}, {13, 11}}).fill();
    pen.circle(12, 12, 1.5).fill();
}

void calculator(Pen& pen, double) {
    pen.box(4.6, 2, 14.8, 20, 3);
    pen.box(7.2, 4.8, 9.6, 4, 0.9);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            pen.circle(8.6 + 3.4 * column, 12.2 + 3.1 * row, 1.1);
        }
    }
    pen.fillEvenOdd();
}

void camera(Pen& pen, double) {
    pen.box(1.8, 6.4, 20.4, 13.6, 3);
    pen.circle(12, 13, 4.6).fillEvenOdd();
    pen.box(8, 3.6, 8, 4, 1.6).fill();
    pen.circle(12, 13, 2.9).fill();
}

constexpr Glyph toggleTable[] = {
    {"sun", sun},
    {"moon", moon},
    {"nightshift", nightShift},
    {"truetone", trueTone},
    {"appearance", appearance},
    {"lock", lock},
    {"lock.open", unlocked},
    {"orientation-lock", orientationLock},
    {"orientation-lock.open", orientationFree},
    {"bell", bell},
    {"bell.slash", bellSlash},
    {"flashlight", flashlight},
    {"low-power", lowPower},
    {"low-power.case", batteryCase},
    {"low-power.charge", batteryCharge},
    {"timer", timer},
    {"calculator", calculator},
    {"camera", camera},
};

}  // namespace

std::span<const Glyph> toggleGlyphs() { return toggleTable; }

}  // namespace simulator::rendering
