#include "simulator/uikit/gesture/recognizer.hpp"
namespace simulator {
void attach(UIGestureRecognizer, UIView) {}
void registerRecognizers() {}
}  // namespace simulator
