// The glyph at the left end of a slider: a system package, whose named state follows the value, as
// the silhouette through which translucent gray shows. 30 points square.
#pragma once

#include "toggles/slider.hpp"

namespace vantori {

// Makes the glyph and puts it above the fill. A package that does not load leaves it empty.
void createGlyph(VNTSlider slider, NSString packagePath);

// Replaces the package; the new one is in no state yet.
void loadGlyph(VNTSlider slider, NSString packagePath);
void setGlyphState(VNTSlider slider, NSString state);

// The four bands of a value.
struct GlyphStates {
    NSString zero, low, middle, high;
};

// Low below 0.3, high above 0.6. The value is a 32-bit float and the borders are doubles, so that
// 0.6 itself, which a float keeps a little too large, is high. Deliberate.
NSString glyphStateFor(float value, const GlyphStates& states);

}  // namespace vantori
