#include "simulator/uikit/view/label/label.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/rendering/text.hpp"
#include "simulator/uikit/raise.hpp"

namespace simulator {

namespace {

constexpr double labelSize = 17;  // points, of a label without a font of its own

// UIFontWeight runs from -0.8 (ultra light) over 0 (regular) to 0.62 (black).
int weightOf(double platform) {
    struct Step {
        double platform;
        int weight;
    };
    constexpr Step steps[] = {{-0.7, 100}, {-0.5, 200}, {-0.2, 300}, {0.1, 400},
                              {0.26, 500}, {0.35, 600}, {0.48, 700}, {0.6, 800}};
    for (const Step& step : steps) {
        if (platform < step.platform) return step.weight;
    }
    return 900;
}

UIFont makeFont(double size, int weight) {
    auto font = create<UIFont>();
    if (!font) return UIFont();
    stateOf<FontTraits>(font) = {size, weight};
    return font.autoreleased();
}

struct LabelState {
    Copied<NSString> text;
    Strong<UIFont> font;
    Strong<UIColor> color;
    Strong<UIColor> shadowColor;
    long alignment;   // left 0, center 1, right 2, justified 3, natural 4
    long extraLines;  // beyond the one of the default
    long lineBreak;
    double minimumScale;
    bool adjusts;
    bool disabled;
};

LabelState& label(UILabel view) { return stateOf<LabelState>(view); }
FontTraits fontOf(UILabel view) { return traitsOf(label(view).font); }
int linesOf(UILabel view) { return static_cast<int>(label(view).extraLines + 1); }

CGSize measured(UILabel view, double width) {
    FontTraits font = fontOf(view);
    auto size =
        rendering::measure(text(label(view).text), font.size, font.weight,
                           linesOf(view) == 1 ? rendering::unlimitedWidth : width, linesOf(view));
    return {size.width, size.height};
}

}  // namespace

FontTraits traitsOf(UIFont font) {
    return font.isKindOfClass(classOf<UIFont>()) ? stateOf<FontTraits>(font)
                                                 : FontTraits{labelSize, 400};
}

rendering::Text textOf(UILabel view) {
    using rendering::TextAlignment;
    constexpr TextAlignment alignments[] = {TextAlignment::left, TextAlignment::center,
                                            TextAlignment::right, TextAlignment::natural,
                                            TextAlignment::natural};
    const LabelState& s = label(view);
    FontTraits font = fontOf(view);
    Rgba color = s.color ? rgbaOf(s.color, styleOf(view)) : Rgba{0, 0, 0, 1};
    rendering::Text shown;
    shown.text = text(s.text);
    shown.fontSize = font.size;
    shown.weight = font.weight;
    shown.colour = {color.red, color.green, color.blue, color.alpha};
    shown.alignment = alignments[std::clamp(s.alignment, 0L, 4L)];
    shown.lines = linesOf(view);
    return shown;
}

void registerFont() {
    table<UIFont, Object, FontTraits>()
        .classMethod<"systemFontOfSize:">([](Class, double size) { return makeFont(size, 400); })
        .classMethod<"systemFontOfSize:weight:">(
            [](Class, double size, double weight) { return makeFont(size, weightOf(weight)); })
        .classMethod<"boldSystemFontOfSize:">(
            [](Class, double size) { return makeFont(size, 700); })
        .classMethod<"italicSystemFontOfSize:">(
            [](Class, double size) { return makeFont(size, 400); })
        .classMethod<"fontWithName:size:">(
            [](Class, NSString, double size) { return makeFont(size, 400); })
        .readonly<"pointSize", &FontTraits::size>()
        .method<"fontWithSize:">([](UIFont self, double size) {
            return makeFont(size, stateOf<FontTraits>(self).weight);
        })
        .method<"fontName">([](UIFont) { return "Inter"_ns; })
        .method<"lineHeight">([](UIFont self) -> double {
            const FontTraits& font = stateOf<FontTraits>(self);
            return rendering::measure("X", font.size, font.weight).height;
        });
}

void registerLabel() {
    table<UILabel, UIView, LabelState>()
        .method<"initWithFrame:">([](UILabel self, CGRect frame) -> UILabel {
            auto view = super<UILabel, "initWithFrame:", UILabel>(self, frame);
            if (!view) return view;
            viewState(view).interactionDisabled = true;
            label(view).alignment = 4;
            label(view).lineBreak = 4;  // the tail is cut
            return view;
        })
        .property<"text", &LabelState::text>()
        .method<"font">([](UILabel v) {
            FontTraits font = fontOf(v);
            UIFont own = label(v).font;
            return own ? own : makeFont(font.size, font.weight);
        })
        .method<"setFont:">([](UILabel v, UIFont font) { label(v).font = retained(font); })
        .method<"textColor">([](UILabel v) -> UIColor {
            UIColor own = label(v).color;
            return own ? own : UIColor::black();
        })
        .method<"setTextColor:">([](UILabel v, UIColor c) { label(v).color = retained(c); })
        .property<"textAlignment", &LabelState::alignment>()
        .method<"numberOfLines">([](UILabel v) -> long { return linesOf(v); })
        .method<"setNumberOfLines:">([](UILabel v, long n) { label(v).extraLines = n - 1; })
        .property<"lineBreakMode", &LabelState::lineBreak>()
        .property<"adjustsFontSizeToFitWidth", &LabelState::adjusts>()
        .property<"minimumScaleFactor", &LabelState::minimumScale>()
        .property<"shadowColor", &LabelState::shadowColor>()
        .method<"isEnabled">([](UILabel v) { return !label(v).disabled; })
        .method<"setEnabled:">([](UILabel v, bool yes) { label(v).disabled = !yes; })
        .method<"intrinsicContentSize">(
            [](UILabel v) { return measured(v, rendering::unlimitedWidth); })
        .method<"sizeThatFits:">([](UILabel v, CGSize size) {
            return measured(v, size.width > 0 ? size.width : rendering::unlimitedWidth);
        });
}

}  // namespace simulator
