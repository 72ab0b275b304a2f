// Type encodings, derived from C++ types at compile time, as arm64 iOS writes them: bool is B,
// NSInteger and long q, CGFloat d, an object @, a block @?. Frame offsets are left out.
#pragma once

#include "platform/block.hpp"
#include "platform/object.hpp"

struct CGColor;
using CGColorRef = CGColor*;

namespace platform {

// Specialise for a record or another type that travels in messages.
template <class T>
struct TypeCode;

#define VANTORI_TYPE_CODE(type, code)             \
    template <>                                   \
    struct TypeCode<type> {                       \
        static constexpr FixedString value{code}; \
    }

VANTORI_TYPE_CODE(void, "v");
VANTORI_TYPE_CODE(bool, "B");
VANTORI_TYPE_CODE(char, "c");
VANTORI_TYPE_CODE(signed char, "c");
VANTORI_TYPE_CODE(unsigned char, "C");
VANTORI_TYPE_CODE(short, "s");
VANTORI_TYPE_CODE(unsigned short, "S");
VANTORI_TYPE_CODE(int, "i");
VANTORI_TYPE_CODE(unsigned int, "I");
VANTORI_TYPE_CODE(long, "q");
VANTORI_TYPE_CODE(unsigned long, "Q");
VANTORI_TYPE_CODE(long long, "q");
VANTORI_TYPE_CODE(unsigned long long, "Q");
VANTORI_TYPE_CODE(float, "f");
VANTORI_TYPE_CODE(double, "d");
VANTORI_TYPE_CODE(id, "@");
VANTORI_TYPE_CODE(Class, "#");
VANTORI_TYPE_CODE(SEL, ":");
VANTORI_TYPE_CODE(const char*, "*");
VANTORI_TYPE_CODE(void*, "^v");
VANTORI_TYPE_CODE(CGColorRef, "^{CGColor=}");
VANTORI_TYPE_CODE(CGPoint, "{CGPoint=dd}");
VANTORI_TYPE_CODE(CGSize, "{CGSize=dd}");
VANTORI_TYPE_CODE(CGRect, "{CGRect={CGPoint=dd}{CGSize=dd}}");
VANTORI_TYPE_CODE(CGAffineTransform, "{CGAffineTransform=dddddd}");

#undef VANTORI_TYPE_CODE

template <Handle T>
struct TypeCode<T> {
    static constexpr FixedString value{"@"};
};
template <class Signature>
struct TypeCode<BlockRef<Signature>> {
    static constexpr FixedString value{"@?"};
};
template <class T>
    requires(!std::is_void_v<T> && !std::is_same_v<T*, id> && !std::is_same_v<T*, Class> &&
             !std::is_same_v<T*, CGColorRef>)
struct TypeCode<T*> {
    static constexpr FixedString value = FixedString{"^"} + TypeCode<T>::value;
};

// The encoding of a method with that result and those arguments after self and the selector.
template <class R, class... A>
struct MethodEncoding {
    static constexpr auto value =
        ((TypeCode<R>::value + FixedString{"@:"}) + ... + TypeCode<std::remove_cvref_t<A>>::value);
};

namespace detail {

template <class Function>
struct EncodingOfFunction;
template <class R, class Self, class... A>
struct EncodingOfFunction<R (*)(Self, A...)> : MethodEncoding<R, A...> {};

}  // namespace detail

// The encoding of a method that a plain function fn(self, arguments...) answers.
template <auto fn>
inline constexpr auto encodingOf = detail::EncodingOfFunction<decltype(fn)>::value;

}  // namespace platform
