// Playing, sound and recording.
#include <algorithm>

#include "simulator/rendering/glyphs.hpp"

namespace simulator::rendering {

namespace {

// A triangle with softened corners: filled, then outlined.
void triangle(Pen& pen, Point a, Point b, Point c) {
    pen.polygon({a, b, c}).fill();
    pen.polygon({a, b, c}).stroke(1.6);
}

void play(Pen& pen, double) { triangle(pen, {6.8, 4}, {20, 12}, {6.8, 20}); }

void pauseBars(Pen& pen, double) {
    pen.box(5.2, 3.4, 4.8, 17.2, 1.5).fill();
    pen.box(14, 3.4, 4.8, 17.2, 1.5).fill();
}

void next(Pen& pen, double) {
    triangle(pen, {2.2, 6.4}, {11.2, 12}, {2.2, 17.6});
    triangle(pen, {12.4, 6.4}, {21.4, 12}, {12.4, 17.6});
}

void previous(Pen& pen, double) {
    triangle(pen, {21.8, 6.4}, {12.8, 12}, {21.8, 17.6});
    triangle(pen, {11.6, 6.4}, {2.6, 12}, {11.6, 17.6});
}

void stop(Pen& pen, double) { pen.box(5, 5, 14, 14, 2.4).fill(); }

void horn(Pen& pen) {
    const auto outline = [&] {
        pen.polygon({{2.2, 9.4}, {5.6, 9.4}, {10.6, 5.2}, {10.6, 18.8}, {5.6, 14.6}, {2.2, 14.6}});
    };
    outline();
    pen.fill();
    outline();
    pen.stroke(1.4);
}

// One to three waves by loudness; crossed out when silent.
void speaker(Pen& pen, double progress) {
    horn(pen);
    if (progress <= 0) {
        pen.lines({{14.6, 9.2}, {20.2, 14.8}}).stroke(1.9);
        pen.lines({{20.2, 9.2}, {14.6, 14.8}}).stroke(1.9);
        return;
    }
    const int waves = std::min(3, 1 + static_cast<int>(progress * 3));
    for (int i = 0; i < waves; ++i) pen.arc(10.6, 12, 4 + 3.5 * i, -38, 38).stroke(1.8);
}

void speakerMuted(Pen& pen, double) { speaker(pen, 0); }

void note(Pen& pen, double) {
    pen.box(8.2, 4, 11, 3.6, 0.8).fill();
    pen.box(8.2, 4.6, 2, 13.4).fill();
    pen.box(17.2, 4.6, 2, 11.6).fill();
    pen.circle(7, 18, 3.1).fill();
    pen.circle(16, 16.2, 3.1).fill();
}

void airplay(Pen& pen, double) {
    pen.lines({{7, 16.4}, {3.4, 16.4}, {3.4, 4.6}, {20.6, 4.6}, {20.6, 16.4}, {17, 16.4}})
        .stroke(1.8);
    triangle(pen, {12, 14.2}, {16.4, 20.2}, {7.6, 20.2});
}

void earbuds(Pen& pen, double) {
    for (const double side : {-1.0, 1.0}) {
        const double x = 12 + side * 4.4;
        pen.circle(x, 7.4, 3.7).fill();
        pen.lines({{x - side * 1.6, 8}, {x - side * 1.6, 19.6}}).stroke(2.8);
        pen.lines({{x + side * 2.6, 5.2}, {x + side * 3.8, 4.4}}).stroke(2.2);
    }
}

// One ear's, with one to three waves by loudness; crossed out when silent.
void earbudsSound(Pen& pen, double progress) {
    pen.circle(6.6, 6.6, 3.9).fill();
    pen.lines({{4.9, 7.2}, {4.9, 19.8}}).stroke(3);
    pen.lines({{9.4, 4.4}, {10.8, 3.4}}).stroke(2.2);
    if (progress <= 0) {
        pen.lines({{14.4, 9.2}, {20, 14.8}}).stroke(1.9);
        pen.lines({{20, 9.2}, {14.4, 14.8}}).stroke(1.9);
        return;
    }
    const int waves = std::min(3, 1 + static_cast<int>(progress * 3));
    for (int i = 0; i < waves; ++i) pen.arc(10.4, 12, 4 + 3.5 * i, -38, 38).stroke(1.8);
}

void headphones(Pen& pen, double) {
    pen.arc(12, 13, 8.4, 180, 360).stroke(1.9);
    pen.box(2.2, 12.6, 5, 8, 2.2).fill();
    pen.box(16.8, 12.6, 5, 8, 2.2).fill();
}

void record(Pen& pen, double) {
    pen.circle(12, 12, 9.4).stroke(1.8);
    pen.circle(12, 12, 5.8).fill();
}

constexpr Glyph mediaTable[] = {
    {"play", play},
    {"pause", pauseBars},
    {"next", next},
    {"previous", previous},
    {"stop", stop},
    {"speaker", speaker},
    {"note", note},
    {"speaker.muted", speakerMuted},
    {"airplay", airplay},
    {"airpods", earbuds},
    {"airpods.sound", earbudsSound},
    {"headphones", headphones},
    {"record", record},
};

}  // namespace

std::span<const Glyph> mediaGlyphs() { return mediaTable; }

}  // namespace simulator::rendering
