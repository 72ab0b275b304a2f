// Trait collections and their way down from the windows. Only views and controllers whose style or
// size classes really changed are told.
#include "simulator/uikit/controller/controller.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/view/view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

constexpr long compact = 1, regular = 2;
// Phones that are so wide in portrait have the room of a tablet when they lie, in points.
constexpr double wideInPortrait = 414;

void tellWindows() {
    for (Strong<UIWindow>& window : allWindows()) updateTraits(window);
}

}  // namespace

Traits traitsNow(long style) {
    const CGSize size = screen().bounds().size;
    const bool lies = size.height < size.width;
    const bool wide = lies && screen().portrait.width >= wideInPortrait;
    return {style, wide ? regular : compact, lies ? compact : regular};
}

UITraitCollection collectionOf(const Traits& traits) {
    auto collection = create<UITraitCollection>();
    if (!collection) return UITraitCollection();
    stateOf<Traits>(collection) = traits;
    return collection.autoreleased();
}

UITraitCollection traitsOf(long style) { return collectionOf(traitsNow(style)); }

void setInterfaceStyle(long style) {
    if (screen().style == style) return;
    screen().style = style;
    tellWindows();
}

void setInterfaceOrientation(long orientation) {
    if (screen().orientation == orientation) return;
    screen().orientation = orientation;
    tellWindows();
}

void registerTraits() {
    table<UITraitCollection, Object, Traits>()
        .classMethod<"currentTraitCollection">([](Class) { return traitsOf(screen().style); })
        .classMethod<"traitCollectionWithUserInterfaceStyle:">(
            [](Class, long style) { return traitsOf(style); })
        .readonly<"userInterfaceStyle", &Traits::style>()
        .method<"displayScale">([](UITraitCollection) -> double { return screen().scale; })
        .method<"userInterfaceIdiom">([](UITraitCollection) -> long { return 0; })
        .readonly<"horizontalSizeClass", &Traits::horizontal>()
        .readonly<"verticalSizeClass", &Traits::vertical>()
        .method<"isEqual:">([](UITraitCollection self, Object other) -> bool {
            return other.isKindOfClass(classOf<UITraitCollection>()) &&
                   stateOf<Traits>(self) == stateOf<Traits>(other);
        })
        .method<"hash">([](UITraitCollection self) -> unsigned long {
            const Traits& traits = stateOf<Traits>(self);
            return static_cast<unsigned long>(traits.style * 9 + traits.horizontal * 3 +
                                              traits.vertical);
        });
}

}  // namespace simulator
