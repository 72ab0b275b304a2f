#include "simulator/foundation/property_list_guard.hpp"

#include <cstdint>
#include <vector>

namespace simulator {

namespace {

constexpr std::size_t largest = std::size_t{1} << 20;
constexpr int deepest = 200;

// XML: elements that hold others.
bool xmlIsShallow(std::string_view text) {
    int depth = 0;
    for (std::size_t i = text.find('<'); i != std::string_view::npos; i = text.find('<', i + 1)) {
        std::string_view rest = text.substr(i + 1);
        if (rest.starts_with("dict") || rest.starts_with("array")) ++depth;
        if (rest.starts_with("/dict") || rest.starts_with("/array")) --depth;
        if (depth > deepest) return false;
    }
    return true;
}

// Old text lists: brackets outside quoted strings.
bool textIsShallow(std::string_view text) {
    int depth = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '\\') {
            ++i;
        } else if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && (c == '(' || c == '{' || c == '<')) {
            ++depth;
        } else if (!quoted && (c == ')' || c == '}' || c == '>')) {
            --depth;
        }
        if (depth > deepest) return false;
    }
    return true;
}

// Binary lists: an object table with references, which may go round in circles. The last 32 bytes
// say how wide offsets and references are, how many objects there are, and where the offsets begin.
class BinaryList {
  public:
    explicit BinaryList(std::string_view bytes) : bytes_(bytes) {}

    bool isShallow() {
        constexpr std::size_t trailerSize = 32;
        if (bytes_.size() < 8 + trailerSize) return false;
        std::size_t trailer = bytes_.size() - trailerSize;
        offsetWidth_ = number(trailer + 6, 1);
        referenceWidth_ = number(trailer + 7, 1);
        objects_ = number(trailer + 8, 8);
        table_ = number(trailer + 24, 8);
        if (offsetWidth_ < 1 || offsetWidth_ > 8 || referenceWidth_ < 1 || referenceWidth_ > 8) {
            return false;
        }
        if (table_ > trailer || objects_ > (trailer - table_) / offsetWidth_) return false;
        visited_.assign(objects_, Visit::none);
        return visit(number(trailer + 16, 8), 0);
    }

  private:
    enum class Visit : unsigned char { none, open, done };

    std::uint64_t number(std::uint64_t at, std::uint64_t width) const {
        std::uint64_t value = 0;
        for (std::uint64_t i = 0; i < width; ++i) {
            value = value << 8 | static_cast<unsigned char>(bytes_[at + i]);
        }
        return value;
    }
    bool holds(std::uint64_t at, std::uint64_t size) const {
        return at <= bytes_.size() && size <= bytes_.size() - at;
    }

    // An object that holds itself is refused.
    bool visit(std::uint64_t object, int depth) {
        if (object >= objects_ || depth > deepest) return false;
        if (visited_[object] == Visit::done) return true;
        if (visited_[object] == Visit::open) return false;
        visited_[object] = Visit::open;
        std::uint64_t at = number(table_ + object * offsetWidth_, offsetWidth_);
        if (!holds(at, 1) || !visitContents(at, depth)) return false;
        visited_[object] = Visit::done;
        return true;
    }

    bool visitContents(std::uint64_t at, int depth) {
        unsigned kind = static_cast<unsigned char>(bytes_[at]) >> 4;
        std::uint64_t count = static_cast<unsigned char>(bytes_[at]) & 15;
        ++at;
        constexpr unsigned data = 4, ascii = 5, unicode = 6, array = 10, set = 12, dictionary = 13;
        bool counted = kind == data || kind == ascii || kind == unicode || kind >= array;
        if (counted && count == 15) {  // the count follows as an integer object
            if (!holds(at, 1) || static_cast<unsigned char>(bytes_[at]) >> 4 != 1) return false;
            std::uint64_t width = std::uint64_t{1} << (bytes_[at] & 15);
            if (width > 8 || !holds(at + 1, width)) return false;
            count = number(at + 1, width);
            at += 1 + width;
        }
        if (counted && count > bytes_.size()) return false;
        if (kind == unicode) return holds(at, count * 2);
        if (kind == data || kind == ascii) return holds(at, count);
        if (kind < array) return holds(at, kind == 3 ? 8 : std::uint64_t{1} << (count & 3));
        if (kind != array && kind != set && kind != dictionary) return false;
        std::uint64_t references = kind == dictionary ? count * 2 : count;
        if (!holds(at, references * referenceWidth_)) return false;
        for (std::uint64_t i = 0; i < references; ++i) {
            if (!visit(number(at + i * referenceWidth_, referenceWidth_), depth + 1)) return false;
        }
        return true;
    }

    std::string_view bytes_;
    std::uint64_t offsetWidth_ = 0;
    std::uint64_t referenceWidth_ = 0;
    std::uint64_t objects_ = 0;
    std::uint64_t table_ = 0;
    std::vector<Visit> visited_;
};

}  // namespace

bool isHarmlessPropertyList(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > largest) return false;
    if (bytes.starts_with("bplist")) return BinaryList(bytes).isShallow();
    bool xml = bytes.substr(0, 256).find("<?xml") != std::string_view::npos ||
               bytes.substr(0, 256).find("<plist") != std::string_view::npos ||
               bytes.substr(0, 256).find("<!DOCTYPE") != std::string_view::npos;
    return xml ? xmlIsShallow(bytes) : textIsShallow(bytes);
}

}  // namespace simulator
