// Points, sizes and rectangles: double precision, in points of the main screen.
#pragma once

struct CGPoint {
    double x, y;
    friend constexpr bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
    double width, height;
    friend constexpr bool operator==(const CGSize&, const CGSize&) = default;
};

struct CGRect {
    CGPoint origin;
    CGSize size;
    friend constexpr bool operator==(const CGRect&, const CGRect&) = default;
};

// Maps (x, y) to (a x + c y + tx, b x + d y + ty).
struct CGAffineTransform {
    double a, b, c, d, tx, ty;
    friend constexpr bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

namespace platform {

inline constexpr CGAffineTransform identityTransform{1, 0, 0, 1, 0, 0};

constexpr CGAffineTransform scaling(double factor) { return {factor, 0, 0, factor, 0, 0}; }

// The translation happens first, in the coordinates that t maps from.
constexpr CGAffineTransform translated(const CGAffineTransform& t, double x, double y) {
    return {t.a, t.b, t.c, t.d, t.a * x + t.c * y + t.tx, t.b * x + t.d * y + t.ty};
}

constexpr CGRect rect(double x, double y, double width, double height) {
    return {{x, y}, {width, height}};
}

}  // namespace platform
