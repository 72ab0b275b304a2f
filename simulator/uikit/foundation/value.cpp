// What UIKit adds to NSValue.
#include <bit>
#include <string>
#include <string_view>

#include "simulator/uikit/foundation/additions.hpp"

namespace simulator {

namespace {

template <class T>
NSValue wrap(const T& value) {
    return sendClass<NSValue, "valueWithBytes:objCType:", NSValue>(static_cast<const void*>(&value),
                                                                   TypeCode<T>::value.data());
}
// The encoding without the names of its records: Foundation keeps points, sizes and rectangles under
// names of its own.
std::string layoutOf(std::string_view encoding) {
    std::string layout;
    for (std::size_t i = 0; i < encoding.size(); ++i) {
        layout += encoding[i];
        if (encoding[i] != '{') continue;
        const std::size_t fields = encoding.find('=', i);
        if (fields != std::string_view::npos) i = fields;
    }
    return layout;
}

// Those are asked for by their own messages: getValue: answers only their first eight bytes.
template <class T>
T unwrap(NSValue value) {
    T result{};
    const char* encoding = value.send<"objCType", const char*>();
    const std::string_view type = encoding ? encoding : "";
    if (layoutOf(type) != layoutOf(TypeCode<T>::value.data())) return result;
    if constexpr (sizeof(T) == sizeof(CGPoint)) {
        if (type.starts_with("{_NSPoint")) {
            return std::bit_cast<T>(value.send<"pointValue", CGPoint>());
        }
        if (type.starts_with("{_NSSize"))
            return std::bit_cast<T>(value.send<"sizeValue", CGSize>());
    } else if constexpr (std::is_same_v<T, CGRect>) {
        if (type.starts_with("{_NSRect")) return value.send<"rectValue", CGRect>();
    }
    value.send<"getValue:">(static_cast<void*>(&result));
    return result;
}

}  // namespace

void addValues() {
    category<NSValue>()
        .classMethod<"valueWithCGRect:">([](Class, CGRect r) { return wrap(r); })
        .classMethod<"valueWithCGPoint:">([](Class, CGPoint p) { return wrap(p); })
        .classMethod<"valueWithCGSize:">([](Class, CGSize s) { return wrap(s); })
        .classMethod<"valueWithCGAffineTransform:">(
            [](Class, CGAffineTransform t) { return wrap(t); })
        .method<"CGRectValue">([](NSValue v) { return unwrap<CGRect>(v); })
        .method<"CGPointValue">([](NSValue v) { return unwrap<CGPoint>(v); })
        .method<"CGSizeValue">([](NSValue v) { return unwrap<CGSize>(v); })
        .method<"CGAffineTransformValue">([](NSValue v) { return unwrap<CGAffineTransform>(v); });
}

}  // namespace simulator
