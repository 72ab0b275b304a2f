#include "simulator/hardware/display.hpp"

#include <cmath>
#include <numbers>

#include "simulator/hardware/configuration.hpp"

namespace simulator {

namespace {

bool isLandscape(long orientation) {
    return orientation == orientationLandscapeRight || orientation == orientationLandscapeLeft;
}

// Exact for quarter turns, where a sine would leave a rest.
CGAffineTransform turn(long orientation) {
    switch (orientation) {
        case orientationUpsideDown:
            return {-1, 0, 0, -1, 0, 0};
        case orientationLandscapeRight:
            return {0, 1, -1, 0, 0, 0};
        case orientationLandscapeLeft:
            return {0, -1, 1, 0, 0, 0};
        default:
            return identityTransform;
    }
}

}  // namespace

CGSize interfaceSize(long orientation) {
    CGSize screen = configuration().screen;
    return isLandscape(orientation) ? CGSize{screen.height, screen.width} : screen;
}

CGPoint toDisplay(CGPoint p, long orientation) {
    CGSize screen = configuration().screen;
    switch (orientation) {
        case orientationUpsideDown:
            return {screen.width - p.x, screen.height - p.y};
        case orientationLandscapeRight:
            return {screen.width - p.y, p.x};
        case orientationLandscapeLeft:
            return {p.y, screen.height - p.x};
        default:
            return p;
    }
}

CGPoint vectorToDisplay(CGPoint v, long orientation) {
    const CGPoint end = toDisplay(v, orientation), start = toDisplay({0, 0}, orientation);
    return {end.x - start.x, end.y - start.y};
}

CGPoint toInterface(CGPoint p, long orientation) {
    CGSize screen = configuration().screen;
    switch (orientation) {
        case orientationUpsideDown:
            return {screen.width - p.x, screen.height - p.y};
        case orientationLandscapeRight:
            return {p.y, screen.width - p.x};
        case orientationLandscapeLeft:
            return {screen.height - p.y, p.x};
        default:
            return p;
    }
}

double rotationOf(long orientation) {
    switch (orientation) {
        case orientationUpsideDown:
            return std::numbers::pi;
        case orientationLandscapeRight:
            return std::numbers::pi / 2;
        case orientationLandscapeLeft:
            return 3 * std::numbers::pi / 2;
        default:
            return 0;
    }
}

CGPoint edgeLocation(double along, double above, long orientation) {
    CGSize size = interfaceSize(orientation);
    CGPoint place = toDisplay({along, size.height - above}, orientation);
    // Upside down, SpringBoard takes the edge from the main screen's width less y, as it does for
    // landscape: the recogniser answers accordingly.
    if (orientation == orientationUpsideDown) place.y = size.width - along;
    return place;
}

void layWindow(UIWindow window, long orientation) {
    CGSize screen = configuration().screen;
    CGSize size = interfaceSize(orientation);
    window.setTransform(turn(orientation));
    window.setBounds(rect(0, 0, size.width, size.height));
    window.setCenter({screen.width / 2, screen.height / 2});
}

}  // namespace simulator
