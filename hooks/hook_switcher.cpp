#include "hooks/hook_switcher.hpp"

#include "pages/lifted_scene.hpp"

namespace vantori {

namespace {

// What is in front of an unlocked phone, as the states of its layout number it.
constexpr long switcherInFront = 2;

bool showsSwitcher(Object layoutState) {
    return layoutState.sendIfAnswered<"unlockedEnvironmentMode", long>() == switcherInFront;
}

template <FixedString origin, FixedString target>
bool bringsSwitcher(Object context) {
    return showsSwitcher(context.sendIfAnswered<target, Object>()) &&
           !showsSwitcher(context.sendIfAnswered<origin, Object>());
}

}  // namespace

void switcherContainerDidMove(System<void()> system, Object) {
    system();
    springScene(0, 0);
}

void layoutTransitionBegan(System<void(Object, Object)> system, Object, Object coordinator,
                           Object context) {
    system(coordinator, context);
    if (bringsSwitcher<"fromLayoutState", "toLayoutState">(context)) springScene(0, 0);
}

// Whether 11 and 12 number the modes as later systems do was not seen; that the switcher is visible they
// say too. A scene that is in its place already stays there.
void sceneTransitionBegan(System<void(Object, Object)> system, Object self, Object controller,
                          Object context) {
    system(controller, context);
    if (bringsSwitcher<"previousLayoutState", "layoutState">(context) ||
        self.sendIfAnswered<"isVisible", bool>()) {
        springScene(0, 0);
    }
}

}  // namespace vantori
