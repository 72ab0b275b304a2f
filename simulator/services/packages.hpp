// Control Center's glyph packages: drawings with named states, at their places on the phone, and the
// view that plays them. Points.
#pragma once

#include <span>

namespace simulator {

// One drawing of a state, over those before it.
struct GlyphPart {
    const char* symbol;
    double progress;  // fill of a battery, waves of a speaker: 0 to 1
    int red, green, blue;
};

struct GlyphState {
    const char* name;
    std::span<const GlyphPart> parts;
};

struct GlyphPackage {
    const char* path;
    std::span<const GlyphState> states;
};

// All that are on the phone.
std::span<const GlyphPackage> glyphPackages();

void registerPackages();

}  // namespace simulator
