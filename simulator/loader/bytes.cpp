#include "simulator/loader/bytes.hpp"

#include <algorithm>
#include <charconv>

namespace simulator::loader {

namespace {

constexpr unsigned bitsPerByte = 7;
constexpr unsigned numberBits = 64;
constexpr std::uint8_t more = 0x80;
constexpr std::uint8_t sign = 0x40;

[[noreturn]] void cutOff(std::string_view what) {
    throw BadImage("the file ends inside " + std::string(what));
}

}  // namespace

Bytes Bytes::part(std::uint64_t offset, std::uint64_t size, std::string_view what) const {
    if (offset > bytes_.size() || size > bytes_.size() - offset) cutOff(what);
    return Bytes(bytes_.subspan(offset, size));
}

Bytes Bytes::from(std::uint64_t offset, std::string_view what) const {
    if (offset > bytes_.size()) cutOff(what);
    return Bytes(bytes_.subspan(offset));
}

std::string_view Bytes::text(std::uint64_t offset, std::string_view what) const {
    std::span<const std::byte> rest = from(offset, what).bytes_;
    auto end = std::ranges::find(rest, std::byte{0});
    if (end == rest.end()) cutOff(what);
    return {reinterpret_cast<const char*>(rest.data()),
            static_cast<std::size_t>(end - rest.begin())};
}

std::string_view Bytes::field(std::uint64_t offset, std::size_t size, std::string_view what) const {
    std::span<const std::byte> bytes = part(offset, size, what).bytes_;
    auto end = std::ranges::find(bytes, std::byte{0});
    return {reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::size_t>(end - bytes.begin())};
}

std::uint64_t Cursor::uleb() {
    std::uint64_t value = 0;
    for (unsigned shift = 0;; shift += bitsPerByte) {
        const std::uint8_t next = byte();
        const std::uint64_t bits = next & ~more & 0xff;
        if (shift >= numberBits || (bits << shift >> shift) != bits)
            throw BadImage("a number in " + what_ + " has more than 64 bits");
        value |= bits << shift;
        if (!(next & more)) return value;
    }
}

std::int64_t Cursor::sleb() {
    std::uint64_t value = 0;
    unsigned shift = 0;
    std::uint8_t next = more;
    while (next & more) {
        next = byte();
        if (shift >= numberBits) throw BadImage("a number in " + what_ + " has more than 64 bits");
        value |= static_cast<std::uint64_t>(next & 0x7f) << shift;
        shift += bitsPerByte;
    }
    if (shift < numberBits && (next & sign)) value |= ~std::uint64_t{0} << shift;
    return static_cast<std::int64_t>(value);
}

std::string_view Cursor::text() {
    std::string_view text = bytes_.text(at_, what_);
    at_ += text.size() + 1;
    return text;
}

std::string hexadecimal(std::uint64_t number) {
    char digits[2 * sizeof number];
    auto end = std::to_chars(std::begin(digits), std::end(digits), number, 16).ptr;
    return "0x" + std::string(std::begin(digits), end);
}

}  // namespace simulator::loader
