// Affine geometry on the platform's records. Transforms map (x, y) to (a x + c y + tx, b x + d y + ty).
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/geometry.hpp"

namespace simulator::geometry {

constexpr CGPoint apply(const CGAffineTransform& t, CGPoint p) {
    return {t.a * p.x + t.c * p.y + t.tx, t.b * p.x + t.d * p.y + t.ty};
}

// First t, then u.
constexpr CGAffineTransform concat(const CGAffineTransform& t, const CGAffineTransform& u) {
    return {t.a * u.a + t.b * u.c, t.a * u.b + t.b * u.d,          t.c * u.a + t.d * u.c,
            t.c * u.b + t.d * u.d, t.tx * u.a + t.ty * u.c + u.tx, t.tx * u.b + t.ty * u.d + u.ty};
}

// A transform that flattens has no inverse: it is given back as it is, as CoreGraphics does.
constexpr CGAffineTransform inverted(const CGAffineTransform& t) {
    double det = t.a * t.d - t.b * t.c;
    if (det == 0) return t;
    return {t.d / det,
            -t.b / det,
            -t.c / det,
            t.a / det,
            (t.c * t.ty - t.d * t.tx) / det,
            (t.b * t.tx - t.a * t.ty) / det};
}

// The upright box around the mapped corners.
constexpr CGRect boundingBox(const CGAffineTransform& t, CGRect r) {
    CGPoint corners[] = {apply(t, r.origin), apply(t, {r.origin.x + r.size.width, r.origin.y}),
                         apply(t, {r.origin.x, r.origin.y + r.size.height}),
                         apply(t, {r.origin.x + r.size.width, r.origin.y + r.size.height})};
    CGPoint low = corners[0], high = corners[0];
    for (CGPoint p : corners) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    return {low, {high.x - low.x, high.y - low.y}};
}

constexpr bool contains(CGRect r, CGPoint p) {
    return p.x >= r.origin.x && p.y >= r.origin.y && p.x < r.origin.x + r.size.width &&
           p.y < r.origin.y + r.size.height;
}

inline double distance(CGPoint a, CGPoint b) { return std::hypot(a.x - b.x, a.y - b.y); }

}  // namespace simulator::geometry
