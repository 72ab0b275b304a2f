// How geometry and objects read in the message of a test that fails: "(16, 200; 343 x 100)" instead of
// bytes. Every test source sees this file (the build sets it before them), so that all agree.
#pragma once

#include <charconv>
#include <ostream>

#include "platform/foundation.hpp"

namespace printing {

// The shortest digits that read back as the same number.
struct Number {
    double value;
    friend std::ostream& operator<<(std::ostream& out, Number number) {
        char digits[32];
        const auto end = std::to_chars(digits, digits + sizeof digits, number.value).ptr;
        return out.write(digits, end - digits);
    }
};

}  // namespace printing

inline void PrintTo(const CGPoint& point, std::ostream* out) {
    *out << '(' << printing::Number{point.x} << ", " << printing::Number{point.y} << ')';
}

inline void PrintTo(const CGSize& size, std::ostream* out) {
    *out << printing::Number{size.width} << " x " << printing::Number{size.height};
}

inline void PrintTo(const CGRect& rect, std::ostream* out) {
    *out << '(' << printing::Number{rect.origin.x} << ", " << printing::Number{rect.origin.y}
         << "; " << printing::Number{rect.size.width} << " x " << printing::Number{rect.size.height}
         << ')';
}

inline void PrintTo(const CGAffineTransform& t, std::ostream* out) {
    *out << '[';
    const char* gap = "";
    for (double part : {t.a, t.b, t.c, t.d, t.tx, t.ty}) {
        *out << gap << printing::Number{part};
        gap = ", ";
    }
    *out << ']';
}

namespace platform {

// A text in quotes; anything else by its class and address.
template <Handle T>
void PrintTo(const T& object, std::ostream* out) {
    if (!object) {
        *out << "nothing";
    } else if (object.isKindOfClass(classOf<NSString>())) {
        *out << '"' << NSString(object.get()).utf8() << '"';
    } else {
        *out << class_getName(object_getClass(object.get())) << ' '
             << static_cast<const void*>(object.get());
    }
}

}  // namespace platform
