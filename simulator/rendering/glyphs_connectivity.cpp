// Radios and the status bar's indicators.
#include <algorithm>
#include <array>

#include "simulator/rendering/glyphs.hpp"

namespace simulator::rendering {

namespace {

constexpr double faint = 0.35;  // of what a partly filled indicator leaves empty

// Draws with a part of the colour's strength; the glyph's own colour is set before.
template <typename Draw>
void weakly(Pen& pen, Draw draw) {
    cairo_push_group(pen.context());
    draw();
    cairo_pop_group_to_source(pen.context());
    cairo_paint_with_alpha(pen.context(), faint);
}

// Keeps the current source for strokes after a faint part.
class KeptSource {
  public:
    explicit KeptSource(cairo_t* context)
        : context_(context), source_(cairo_pattern_reference(cairo_get_source(context))) {}
    void restore() { cairo_set_source(context_, source_.get()); }

  private:
    cairo_t* context_;
    Pattern source_;
};

// Three sectors of a quarter circle; the number lit follows the progress.
void wifi(Pen& pen, double progress) {
    KeptSource source(pen.context());
    constexpr double x = 12, y = 19.2;
    struct Ring {
        double inner, outer;
    };
    constexpr std::array<Ring, 3> rings{{{0, 4.2}, {6.4, 10.2}, {12.4, 16.4}}};
    const int lit = std::max(1, static_cast<int>(progress * 3 + 0.5));
    for (int i = 0; i < 3; ++i) {
        const auto [inner, outer] = rings[static_cast<std::size_t>(i)];
        const auto ring = [&, from = inner, to = outer] {
            constexpr double begin = 225 + 1.5, end = 315 - 1.5;
            constexpr double degree = 3.14159265358979 / 180;
            cairo_new_sub_path(pen.context());
            cairo_arc(pen.context(), x, y, to, begin * degree, end * degree);
            if (from > 0)
                cairo_arc_negative(pen.context(), x, y, from, end * degree, begin * degree);
            else
                pen.line(x, y);
            pen.close().fill();
        };
        source.restore();
        if (i < lit)
            ring();
        else
            weakly(pen, ring);
    }
}

void signalBars(Pen& pen, double progress) {
    KeptSource source(pen.context());
    constexpr int count = 4;
    const int lit = static_cast<int>(progress * count + 0.5);
    for (int i = 0; i < count; ++i) {
        const double height = 5.2 + i * 3.2;
        const auto bar = [&] { pen.box(1.6 + i * 5.5, 19 - height, 4, height, 1.2).fill(); };
        source.restore();
        if (i < lit)
            bar();
        else
            weakly(pen, bar);
    }
}

void battery(Pen& pen, double progress) {
    KeptSource source(pen.context());
    weakly(pen, [&] {
        source.restore();
        pen.box(0.6, 6.9, 20.2, 10.2, 3).stroke(1.1);
        pen.arc(21.9, 12, 1.7, -65, 65).close().fill();
    });
    source.restore();
    pen.box(2.2, 8.5, std::max(1.6, 17 * progress), 7, 1.7).fill();
}

void bluetooth(Pen& pen, double) {
    pen.lines({{6.8, 7.4}, {16.8, 16.6}, {12, 21.4}, {12, 2.6}, {16.8, 7.4}, {6.8, 16.6}})
        .stroke(1.9);
}

void airplane(Pen& pen, double) {
    pen.move(23, 12)
        .curve(23, 10.9, 21.6, 10.3, 20.2, 10.3)
        .line(15.4, 10.3)
        .line(9.8, 2)
        .line(7.4, 2);
    pen.line(10.2, 10.3)
        .line(5.4, 10.3)
        .line(3.2, 7.4)
        .line(1.4, 7.4)
        .line(2.8, 12)
        .line(1.4, 16.6);
    pen.line(3.2, 16.6)
        .line(5.4, 13.7)
        .line(10.2, 13.7)
        .line(7.4, 22)
        .line(9.8, 22)
        .line(15.4, 13.7);
    pen.line(20.2, 13.7).curve(21.6, 13.7, 23, 13.1, 23, 12).close().fill();
}

// A mast with waves: cellular data.
void cellular(Pen& pen, double) {
    pen.circle(12, 9, 2.1).fill();
    pen.lines({{12, 10}, {12, 21.5}}).stroke(2);
    for (const double radius : {5.2, 9.0}) {
        pen.arc(12, 9, radius, -48, 48).stroke(1.8);
        pen.arc(12, 9, radius, 132, 228).stroke(1.8);
    }
}

// Two linked rings: the personal hotspot.
void hotspot(Pen& pen, double) {
    pen.arc(8.2, 12, 5.4, 42, 318).stroke(2);
    pen.arc(15.8, 12, 5.4, -138, 138).stroke(2);
}

void location(Pen& pen, double) {
    pen.polygon({{21, 3}, {13.4, 21.4}, {11.6, 12.4}, {2.6, 10.6}}).fill();
}

constexpr Glyph connectivityTable[] = {
    {"wifi", wifi},         {"signal", signalBars}, {"battery", battery}, {"bluetooth", bluetooth},
    {"airplane", airplane}, {"cellular", cellular}, {"hotspot", hotspot}, {"location", location},
};

}  // namespace

std::span<const Glyph> connectivityGlyphs() { return connectivityTable; }

}  // namespace simulator::rendering
