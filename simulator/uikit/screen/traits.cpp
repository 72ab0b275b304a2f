// Trait collections and their way down from the windows. Only views and controllers whose style
// really changed are told.
#include "simulator/uikit/controller/controller.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/view/view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

struct TraitState {
    long style;
};

}  // namespace

UITraitCollection traitsOf(long style) {
    auto traits = create<UITraitCollection>();
    if (!traits) return UITraitCollection();
    stateOf<TraitState>(traits).style = style;
    return traits.autoreleased();
}

void setInterfaceStyle(long style) {
    if (screen().style == style) return;
    screen().style = style;
    for (Strong<UIWindow>& window : allWindows()) updateTraits(window);
}

void registerTraits() {
    table<UITraitCollection, Object, TraitState>()
        .classMethod<"currentTraitCollection">([](Class) { return traitsOf(screen().style); })
        .classMethod<"traitCollectionWithUserInterfaceStyle:">(
            [](Class, long style) { return traitsOf(style); })
        .readonly<"userInterfaceStyle", &TraitState::style>()
        .method<"displayScale">([](UITraitCollection) -> double { return screen().scale; })
        .method<"userInterfaceIdiom">([](UITraitCollection) -> long { return 0; })
        .method<"horizontalSizeClass">([](UITraitCollection) -> long { return 1; })
        .method<"verticalSizeClass">([](UITraitCollection) -> long {
            CGSize size = screen().bounds().size;
            return size.height < size.width ? 1 : 2;
        })
        .method<"isEqual:">([](UITraitCollection self, Object other) -> bool {
            return other.isKindOfClass(classOf<UITraitCollection>()) &&
                   stateOf<TraitState>(self).style == stateOf<TraitState>(other).style;
        })
        .method<"hash">([](UITraitCollection self) -> unsigned long {
            return static_cast<unsigned long>(stateOf<TraitState>(self).style);
        });
}

}  // namespace simulator
