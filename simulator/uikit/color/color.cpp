#include "simulator/uikit/color/color.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

UIColor fresh(const ColorState& state) {
    auto color = create<UIColor>();
    if (!color) return UIColor();
    stateOf<ColorState>(color) = state;
    return color.autoreleased();
}

constexpr Rgba bytes(int red, int green, int blue) {
    return {red / 255.0, green / 255.0, blue / 255.0, 1};
}

// What the platform's own names stand for: red, green, blue and the light and dark system colours.
// Each is made once: the same name gives the same object.
template <FixedString colorName, int red, int green, int blue>
void addFixed(const Table<UIColor>& colors) {
    colors.classMethod<colorName>([](Class) -> UIColor {
        static id made = retained(makeColor(bytes(red, green, blue))).leak();
        return UIColor(made);
    });
}
// White in sixths, alpha 0 or 1.
template <FixedString colorName, int whiteSixths, int alpha = 1>
void addGrey(const Table<UIColor>& colors) {
    colors.classMethod<colorName>([](Class) -> UIColor {
        static id made = retained(makeGrey(whiteSixths / 6.0, alpha)).leak();
        return UIColor(made);
    });
}
template <FixedString colorName, int r, int g, int b, int dr, int dg, int db>
void addDynamic(const Table<UIColor>& colors) {
    colors.classMethod<colorName>([](Class) -> UIColor {
        static id made = retained(makeColor(bytes(r, g, b), bytes(dr, dg, db))).leak();
        return UIColor(made);
    });
}

void addStandardColors(const Table<UIColor>& colors) {
    addGrey<"whiteColor", 6>(colors);
    addGrey<"blackColor", 0>(colors);
    addGrey<"clearColor", 0, 0>(colors);
    addGrey<"grayColor", 3>(colors);
    addGrey<"lightGrayColor", 4>(colors);
    addGrey<"darkGrayColor", 2>(colors);
    addFixed<"redColor", 255, 0, 0>(colors);
    addFixed<"greenColor", 0, 255, 0>(colors);
    addFixed<"blueColor", 0, 0, 255>(colors);
    addFixed<"cyanColor", 0, 255, 255>(colors);
    addFixed<"yellowColor", 255, 255, 0>(colors);
    addFixed<"magentaColor", 255, 0, 255>(colors);
    colors.classMethod<"orangeColor">([](Class) { return makeColor({1, 0.5, 0, 1}); })
        .classMethod<"purpleColor">([](Class) { return makeColor({0.5, 0, 0.5, 1}); })
        .classMethod<"brownColor">([](Class) { return makeColor({0.6, 0.4, 0.2, 1}); });
    addDynamic<"systemBlueColor", 0, 122, 255, 10, 132, 255>(colors);
    addDynamic<"systemOrangeColor", 255, 149, 0, 255, 159, 10>(colors);
    addDynamic<"systemGrayColor", 142, 142, 147, 142, 142, 147>(colors);
    addDynamic<"systemRedColor", 255, 59, 48, 255, 69, 58>(colors);
    addDynamic<"systemGreenColor", 52, 199, 89, 48, 209, 88>(colors);
    addDynamic<"systemYellowColor", 255, 204, 0, 255, 214, 10>(colors);
    addDynamic<"systemPinkColor", 255, 45, 85, 255, 55, 95>(colors);
    addDynamic<"systemPurpleColor", 175, 82, 222, 191, 90, 242>(colors);
    addDynamic<"systemTealColor", 90, 200, 250, 100, 210, 255>(colors);
    addDynamic<"systemIndigoColor", 88, 86, 214, 94, 92, 230>(colors);
    addDynamic<"labelColor", 0, 0, 0, 255, 255, 255>(colors);
    addDynamic<"systemBackgroundColor", 255, 255, 255, 0, 0, 0>(colors);
}

}  // namespace

UIColor makeColor(Rgba rgba) { return fresh({rgba, rgba, false, false}); }
UIColor makeColor(Rgba light, Rgba dark) { return fresh({light, dark, true, false}); }
UIColor makeGrey(double white, double alpha) {
    Rgba rgba{white, white, white, alpha};
    return fresh({rgba, rgba, false, true});
}

UIColor resolved(UIColor color, long style) {
    if (!color.isKindOfClass(classOf<UIColor>()) || !stateOf<ColorState>(color).dynamic) {
        return color;
    }
    return makeColor(rgbaOf(color, style));
}

Rgba rgbaOf(UIColor color) { return rgbaOf(color, screen().style); }

Rgba rgbaOf(UIColor color, long style) {
    if (!color.isKindOfClass(classOf<UIColor>())) return {0, 0, 0, 0};
    const auto& state = stateOf<ColorState>(color);
    return state.dynamic && style == UITraitCollection::dark ? state.dark : state.light;
}

void registerColor() {
    auto colors = table<UIColor, Object, ColorState>();
    addStandardColors(colors);
    colors
        .classMethod<"colorWithRed:green:blue:alpha:">(
            [](Class, double red, double green, double blue, double alpha) {
                return makeColor({red, green, blue, alpha});
            })
        .classMethod<"colorWithWhite:alpha:">(
            [](Class, double white, double alpha) { return makeGrey(white, alpha); })
        .classMethod<"colorWithHue:saturation:brightness:alpha:">(
            [](Class, double hue, double saturation, double brightness, double alpha) {
                auto channel = [&](double n) {
                    double k = std::fmod(n + hue * 6, 6);
                    return brightness * (1 - saturation * std::max(0.0, std::min({k, 4 - k, 1.0})));
                };
                return makeColor({channel(5), channel(3), channel(1), alpha});
            })
        .classMethod<"colorWithCGColor:">([](Class, CGColorRef color) {
            bool known = colorOf(color).isKindOfClass(classOf<UIColor>());
            return known ? fresh(stateOf<ColorState>(colorOf(color))) : makeColor(Rgba{});
        })
        .method<"initWithRed:green:blue:alpha:">(
            [](UIColor self, double red, double green, double blue, double alpha) -> UIColor {
                Rgba rgba{red, green, blue, alpha};
                stateOf<ColorState>(self) = {rgba, rgba, false, false};
                return self;
            })
        .method<"initWithWhite:alpha:">([](UIColor self, double white, double alpha) -> UIColor {
            Rgba rgba{white, white, white, alpha};
            stateOf<ColorState>(self) = {rgba, rgba, false, true};
            return self;
        })
        .method<"colorWithAlphaComponent:">([](UIColor self, double alpha) {
            ColorState state = stateOf<ColorState>(self);
            state.light.alpha = state.dark.alpha = alpha;
            return fresh(state);
        })
        .method<"getRed:green:blue:alpha:">(
            [](UIColor self, double* red, double* green, double* blue, double* alpha) -> bool {
                Rgba rgba = rgbaOf(self);
                if (red) *red = rgba.red;
                if (green) *green = rgba.green;
                if (blue) *blue = rgba.blue;
                if (alpha) *alpha = rgba.alpha;
                return true;
            })
        .method<"getWhite:alpha:">([](UIColor self, double* white, double* alpha) -> bool {
            Rgba rgba = rgbaOf(self);
            if (rgba.red != rgba.green || rgba.green != rgba.blue) return false;
            if (white) *white = rgba.red;
            if (alpha) *alpha = rgba.alpha;
            return true;
        })
        .method<"CGColor">(
            [](UIColor self) -> CGColorRef { return cgColor(resolved(self, screen().style)); })
        .method<"isEqual:">([](UIColor self, Object other) -> bool {
            if (!other.isKindOfClass(classOf<UIColor>())) return false;
            const auto& mine = stateOf<ColorState>(self);
            const auto& theirs = stateOf<ColorState>(other);
            return mine.light == theirs.light && mine.dark == theirs.dark &&
                   mine.grey == theirs.grey;
        })
        .method<"hash">([](UIColor self) -> unsigned long {
            Rgba rgba = stateOf<ColorState>(self).light;
            return static_cast<unsigned long>(std::llround(
                (rgba.red + 256 * (rgba.green + 256 * (rgba.blue + rgba.alpha))) * 255));
        })
        .method<"copyWithZone:">([](UIColor self, void*) -> UIColor {
            self.send<"retain", Object>();  // immutable
            return self;
        });
}

}  // namespace simulator
