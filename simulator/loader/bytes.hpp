// Reading a file's bytes without ever leaving them. Offsets and sizes come from the file itself, so
// each is checked before it is used; what does not fit throws BadImage with the name of what was
// read. Numbers are little-endian, as in every image for a phone and on every host of the project.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace simulator::loader {

// The file is not a library that a phone would load; the text says why, for a reader.
class BadImage : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Bytes that someone else owns. `what` names the thing read, for the error.
class Bytes {
  public:
    Bytes() = default;
    explicit Bytes(std::span<const std::byte> bytes) : bytes_(bytes) {}

    std::size_t size() const { return bytes_.size(); }
    std::span<const std::byte> span() const { return bytes_; }

    // That many bytes from the offset on.
    Bytes part(std::uint64_t offset, std::uint64_t size, std::string_view what) const;
    // From the offset to the end.
    Bytes from(std::uint64_t offset, std::string_view what) const;
    // The text at the offset up to its zero byte, which must be inside.
    std::string_view text(std::uint64_t offset, std::string_view what) const;
    // A text of at most that many bytes, with or without a zero byte: segment and section names.
    std::string_view field(std::uint64_t offset, std::size_t size, std::string_view what) const;

    template <std::integral T>
    T read(std::uint64_t offset, std::string_view what) const {
        T value;
        std::memcpy(&value, part(offset, sizeof value, what).bytes_.data(), sizeof value);
        return value;
    }

  private:
    std::span<const std::byte> bytes_;
};

// Reads forward through bytes, one item after another.
class Cursor {
  public:
    Cursor(Bytes bytes, std::string_view what) : bytes_(bytes), what_(what) {}

    bool done() const { return at_ >= bytes_.size(); }
    std::uint8_t byte() { return take<std::uint8_t>(); }
    // A number of seven bits a byte, the lowest first; the high bit says that more follow.
    std::uint64_t uleb();
    std::int64_t sleb();
    std::string_view text();

    template <std::integral T>
    T take() {
        T value = bytes_.read<T>(at_, what_);
        at_ += sizeof value;
        return value;
    }

  private:
    Bytes bytes_;
    std::string what_;
    std::uint64_t at_ = 0;
};

// "0x4000", as addresses are written in messages.
std::string hexadecimal(std::uint64_t number);

}  // namespace simulator::loader
