// The application switcher of real phones: cards of the recent applications over the blurred wallpaper. A
// tap on a card opens its application, one beside them goes home. Whatever comes to the front, home screen,
// switcher or application, is a transition of the layout, of which the switcher's controller is told when
// it begins, in the words of its system.
#pragma once

namespace simulator {

// What is in front of an unlocked phone, as the states of the layout number it.
enum Environment : long { homeScreenInFront = 1, switcherInFront = 2, applicationInFront = 3 };

// Something else comes to the front; nothing where the phone has no such switcher.
void beginTransition(Environment target);

void registerSwitcher();

}  // namespace simulator
