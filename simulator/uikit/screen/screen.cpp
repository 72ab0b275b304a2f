#include "simulator/uikit/screen/screen.hpp"

#include <algorithm>

namespace simulator {

Screen& screen() {
    static auto& shared = *new Screen;
    return shared;
}

CGRect Screen::bounds() const {
    bool turned =
        orientation == orientationLandscapeLeft || orientation == orientationLandscapeRight;
    return turned ? rect(0, 0, portrait.height, portrait.width)
                  : rect(0, 0, portrait.width, portrait.height);
}

CGSize Screen::nativeSize() const {
    constexpr CGSize plusModel{414, 736}, plusPanel{1080, 1920};
    if (portrait == plusModel && scale == 3) return plusPanel;
    return {portrait.width * scale, portrait.height * scale};
}

void setScreenBrightness(double level) {
    screen().brightness = std::clamp(level, 0.0, 1.0);
    NSNotificationCenter::defaultCenter().send<"postNotificationName:object:userInfo:">(
        "UIScreenBrightnessDidChangeNotification"_ns, UIScreen::mainScreen(), NSDictionary());
}

void registerScreen() {
    table<UIScreen, Object>()
        .classMethod<"mainScreen">([](Class) -> UIScreen {
            static id shared = create<UIScreen>().leak();
            return UIScreen(shared);
        })
        .classMethod<"screens">([](Class) { return NSArray::with(UIScreen::mainScreen()); })
        .method<"bounds">([](UIScreen) -> CGRect { return screen().bounds(); })
        .method<"nativeBounds">([](UIScreen) -> CGRect {
            CGSize size = screen().nativeSize();
            return rect(0, 0, size.width, size.height);
        })
        .method<"scale">([](UIScreen) -> double { return screen().scale; })
        .method<"nativeScale">([](UIScreen) -> double {
            return screen().nativeSize().width / screen().portrait.width;
        })
        .method<"brightness">([](UIScreen) -> double { return screen().brightness; })
        .method<"setBrightness:">([](UIScreen, double level) { setScreenBrightness(level); })
        .method<"maximumFramesPerSecond">([](UIScreen) -> long { return 60; })
        .method<"traitCollection">([](UIScreen) { return traitsOf(screen().style); });
}

}  // namespace simulator
