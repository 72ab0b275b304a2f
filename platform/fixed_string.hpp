// A string that can be a template argument, so that selectors and class names are written as they
// are: send<"setFrame:">(frame).
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace platform {

template <std::size_t size>
struct FixedString {
    std::array<char, size> text{};  // with the closing zero

    consteval FixedString(const char (&literal)[size]) { std::copy_n(literal, size, text.begin()); }
    constexpr FixedString() = default;

    constexpr const char* data() const { return text.data(); }
    constexpr std::string_view view() const { return {text.data(), size - 1}; }
    friend constexpr bool operator==(const FixedString&, const FixedString&) = default;
};

template <std::size_t left, std::size_t right>
constexpr auto operator+(const FixedString<left>& a, const FixedString<right>& b) {
    FixedString<left + right - 1> sum;
    std::copy_n(a.text.begin(), left - 1, sum.text.begin());
    std::copy_n(b.text.begin(), right, sum.text.begin() + left - 1);
    return sum;
}

// The text, of which there is one for all that say the same.
template <FixedString text>
constexpr const char* sharedText() {
    return text.data();
}

// "isEnabled" becomes "setIsEnabled:", as key-value coding expects of an accessor.
template <FixedString name>
constexpr auto setterName() {
    auto capitalised = name;
    char& first = capitalised.text[0];
    if (first >= 'a' && first <= 'z') first = static_cast<char>(first - 'a' + 'A');
    return FixedString{"set"} + capitalised + FixedString{":"};
}

}  // namespace platform
