// One function per motif, on a grid of 100 x 100; the name chooses motif, colours and proportions.
#include "simulator/rendering/cover_art.hpp"

#include <array>
#include <cmath>
#include <cstdint>

#include "simulator/rendering/pen.hpp"

namespace simulator::rendering {

namespace {

constexpr double grid = 100;

// Numbers from 0 to 1 that follow from a name alone, the same on every machine.
class Dice {
  public:
    explicit Dice(const std::string& name) {
        for (unsigned char letter : name) state_ = (state_ ^ letter) * 1099511628211ULL;
    }
    double roll() {
        state_ ^= state_ >> 12;
        state_ ^= state_ << 25;
        state_ ^= state_ >> 27;
        return static_cast<double>((state_ * 2685821657736338717ULL) >> 40) / (1 << 24);
    }
    double between(double low, double high) { return low + (high - low) * roll(); }

  private:
    std::uint64_t state_ = 14695981039346656037ULL;
};

struct Palette {
    unsigned sky, ground, light, shade;
};
constexpr std::array<Palette, 6> palettes{{
    {0x1d2b53, 0x7e2553, 0xffcc66, 0x12182f},
    {0x0b6e6e, 0x14a098, 0xf4e9cd, 0x073b3a},
    {0xf2545b, 0xf5b971, 0xfff3e0, 0x8f2d56},
    {0x3d348b, 0x7678ed, 0xf7b801, 0x221c54},
    {0x2f4858, 0x86bbd8, 0xf6ae2d, 0x1b2a33},
    {0x264027, 0x6b9362, 0xe9f2d0, 0x15261a},
}};

void ground(Pen& pen, const Palette& palette) {
    const Pattern fade(cairo_pattern_create_linear(0, 0, 0, grid));
    const Colour top = hex(palette.sky);
    const Colour bottom = hex(palette.ground);
    cairo_pattern_add_color_stop_rgb(fade.get(), 0, top.red, top.green, top.blue);
    cairo_pattern_add_color_stop_rgb(fade.get(), 1, bottom.red, bottom.green, bottom.blue);
    cairo_set_source(pen.context(), fade.get());
    pen.box(0, 0, grid, grid).fill();
}

void sunAndHills(Pen& pen, const Palette& palette, Dice& dice) {
    pen.colour(hex(palette.light)).circle(dice.between(28, 72), dice.between(32, 46), 19).fill();
    for (int hill = 0; hill < 3; ++hill) {
        const double crest = 56 + hill * 13;
        const double lift = dice.between(-16, 16);
        pen.colour(hex(palette.shade, 0.45 + hill * 0.2)).move(0, crest);
        pen.curve(30, crest - lift, 65, crest + lift, grid, crest - lift / 2);
        pen.line(grid, grid).line(0, grid).close().fill();
    }
}

void rings(Pen& pen, const Palette& palette, Dice& dice) {
    const double x = dice.between(35, 65);
    const double y = dice.between(35, 65);
    for (double radius = 8; radius < 95; radius += 9) {
        pen.colour(hex(palette.light, 0.85 - radius / 125)).circle(x, y, radius).stroke(3);
    }
}

void bars(Pen& pen, const Palette& palette, Dice& dice) {
    for (int bar = 0; bar < 7; ++bar) {
        const double height = dice.between(18, 66);
        pen.colour(hex(bar % 2 ? palette.light : palette.shade, 0.9));
        pen.box(10 + bar * 11.7, 82 - height, 8, height, 4).fill();
    }
}

void waves(Pen& pen, const Palette& palette, Dice& dice) {
    const double swing = dice.between(6, 15);
    for (int wave = 0; wave < 6; ++wave) {
        const double y = 22 + wave * 13;
        pen.colour(hex(palette.light, 0.3 + wave * 0.12)).move(-5, y);
        pen.curve(25, y - swing, 30, y + swing, 50, y);
        pen.curve(70, y - swing, 75, y + swing, 105, y).stroke(3.4);
    }
}

using Motif = void (*)(Pen& pen, const Palette& palette, Dice& dice);
constexpr std::array<Motif, 4> motifs{sunAndHills, rings, bars, waves};

template <class List>
auto pick(const List& list, Dice& dice) {
    return list[static_cast<std::size_t>(dice.roll() * static_cast<double>(list.size()))];
}

}  // namespace

PictureRef coverPicture(const std::string& name, double side) {
    return Picture::drawing({side, side}, [name, side](cairo_t* context) {
        cairo_scale(context, side / grid, side / grid);
        Dice dice(name);
        Pen pen(context);
        const Palette palette = pick(palettes, dice);
        ground(pen, palette);
        pick(motifs, dice)(pen, palette, dice);
    });
}

}  // namespace simulator::rendering
