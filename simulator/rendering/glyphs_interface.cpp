// Arrows, signs and other furniture of screens.
#include <cmath>

#include "simulator/rendering/glyphs.hpp"

namespace simulator::rendering {

namespace {

constexpr double line = 2.2;

void chevronRight(Pen& pen, double) { pen.lines({{9, 4.6}, {16, 12}, {9, 19.4}}).stroke(line); }
void chevronLeft(Pen& pen, double) { pen.lines({{15, 4.6}, {8, 12}, {15, 19.4}}).stroke(line); }
void chevronUp(Pen& pen, double) { pen.lines({{4.6, 15.5}, {12, 8.5}, {19.4, 15.5}}).stroke(line); }
void chevronDown(Pen& pen, double) {
    pen.lines({{4.6, 8.5}, {12, 15.5}, {19.4, 8.5}}).stroke(line);
}

// The flat bar of a sheet's handle bends into an arrow as the progress grows.
void grabber(Pen& pen, double progress) {
    const double bend = 3 * progress;
    pen.lines({{2, 12 - bend}, {12, 12 + bend}, {22, 12 - bend}}).stroke(3.2);
}

void plus(Pen& pen, double) {
    pen.lines({{12, 4}, {12, 20}}).stroke(line);
    pen.lines({{4, 12}, {20, 12}}).stroke(line);
}

void cross(Pen& pen, double) {
    pen.lines({{5.6, 5.6}, {18.4, 18.4}}).stroke(line);
    pen.lines({{18.4, 5.6}, {5.6, 18.4}}).stroke(line);
}

void tick(Pen& pen, double) { pen.lines({{4.4, 13}, {9.8, 18.6}, {19.8, 5.8}}).stroke(2.4); }

void search(Pen& pen, double) {
    pen.circle(10.2, 10.2, 6.6).stroke(2);
    pen.lines({{15.2, 15.2}, {20.8, 20.8}}).stroke(2.2);
}

void ellipsis(Pen& pen, double) {
    for (const double x : {5.0, 12.0, 19.0}) pen.circle(x, 12, 1.9).fill();
}

void gear(Pen& pen, double) {
    constexpr int teeth = 8;
    for (int i = 0; i < teeth * 4; ++i) {
        const double angle = turn * (i - 0.5) / (teeth * 4);
        const double radius = i % 4 < 2 ? 10.6 : 8.2;
        pen.line(12 + radius * std::cos(angle), 12 + radius * std::sin(angle));
    }
    pen.close().circle(12, 12, 3.6).fillEvenOdd();
}

void compose(Pen& pen, double) {
    pen.lines({{12.5, 4.4},
               {5.6, 4.4},
               {4, 6},
               {4, 18.4},
               {5.6, 20},
               {18, 20},
               {19.6, 18.4},
               {19.6, 11.5}});
    pen.stroke(1.8);
    pen.lines({{20.4, 3.6}, {11.4, 12.6}, {10.4, 13.8}}).stroke(2.4);
}

void folder(Pen& pen, double) {
    pen.lines(
        {{2.6, 18}, {2.6, 6}, {4, 4.8}, {9.2, 4.8}, {11.4, 7}, {20, 7}, {21.4, 8.4}, {21.4, 18}});
    pen.line(20, 19.4).line(4, 19.4).close().stroke(1.8);
}

void person(Pen& pen, double) {
    pen.circle(12, 7.6, 4.4).fill();
    pen.move(3.4, 20.6).curve(3.4, 11.6, 20.6, 11.6, 20.6, 20.6).close().fill();
}

void heart(Pen& pen, double) {
    pen.move(12, 21).curve(0, 13, 1.2, 3.6, 7, 3.6).curve(9.8, 3.6, 11.4, 5.4, 12, 6.8);
    pen.curve(12.6, 5.4, 14.2, 3.6, 17, 3.6).curve(22.8, 3.6, 24, 13, 12, 21).close().fill();
}

void envelope(Pen& pen, double) {
    pen.box(2, 5, 20, 14, 2.4).stroke(1.7);
    pen.lines({{3, 6.6}, {12, 13.6}, {21, 6.6}}).stroke(1.7);
}

void pictures(Pen& pen, double) {
    pen.box(2, 4.4, 20, 15.2, 2.6).stroke(1.7);
    pen.polygon({{4, 18}, {9, 11.6}, {12.6, 15.6}, {15.4, 12.8}, {20, 18}}).fill();
    pen.circle(16.4, 8.8, 1.7).fill();
}

void star(Pen& pen, double) {
    for (int i = 0; i < 10; ++i) {
        const double angle = turn * i / 10 - turn / 4;
        const double radius = i % 2 == 0 ? 9.8 : 4.2;
        pen.line(12 + radius * std::cos(angle), 12.6 + radius * std::sin(angle));
    }
    pen.close().fill();
}

constexpr Glyph interfaceTable[] = {
    {"chevron", chevronRight},
    {"chevron.right", chevronRight},
    {"chevron.left", chevronLeft},
    {"chevron.up", chevronUp},
    {"chevron.down", chevronDown},
    {"grabber", grabber},
    {"plus", plus},
    {"cross", cross},
    {"tick", tick},
    {"search", search},
    {"ellipsis", ellipsis},
    {"gear", gear},
    {"compose", compose},
    {"folder", folder},
    {"person", person},
    {"heart", heart},
    {"envelope", envelope},
    {"pictures", pictures},
    {"star", star},
};

}  // namespace

std::span<const Glyph> interfaceGlyphs() { return interfaceTable; }

}  // namespace simulator::rendering
