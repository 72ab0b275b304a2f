#include "simulator/foundation/binary_list.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace simulator {

namespace {

using Number = std::uint64_t;

// What an object stands for: how many objects, itself included, in how many levels below it.
struct Measure {
    Number objects = 0;
    int height = 0;
};

class BinaryList {
  public:
    BinaryList(std::string_view bytes, int deepest, Number most)
        : bytes_(bytes), deepest_(deepest), most_(most) {}

    // The last 32 bytes say how wide offsets and references are, how many objects there are, which
    // of them is the root, and where the offsets begin.
    bool isBounded() {
        constexpr std::size_t trailerSize = 32;
        if (bytes_.size() < 8 + trailerSize) return false;
        const std::size_t trailer = bytes_.size() - trailerSize;
        offsetWidth_ = number(trailer + 6, 1);
        referenceWidth_ = number(trailer + 7, 1);
        const Number objects = number(trailer + 8, 8);
        table_ = number(trailer + 24, 8);
        if (!isWidth(offsetWidth_) || !isWidth(referenceWidth_)) return false;
        if (table_ > trailer || objects > (trailer - table_) / offsetWidth_) return false;
        measured_.assign(objects, {});
        isOpen_.assign(objects, false);
        return measure(number(trailer + 16, 8), 0).has_value();
    }

  private:
    // The references that follow in an object, and how many there are.
    struct Content {
        Number at = 0, references = 0;
    };

    static bool isWidth(Number width) { return width >= 1 && width <= 8; }

    Number number(Number at, Number width) const {
        Number value = 0;
        for (Number i = 0; i < width; ++i) {
            value = value << 8 | static_cast<unsigned char>(bytes_[at + i]);
        }
        return value;
    }
    bool holds(Number at, Number size) const {
        return at <= bytes_.size() && size <= bytes_.size() - at;
    }

    // Once for each object, whatever refers to it. Nothing for one that holds itself.
    std::optional<Measure> measure(Number object, int depth) {
        if (object >= measured_.size() || depth > deepest_ || isOpen_[object]) return {};
        Measure& known = measured_[object];
        if (known.objects == 0) {
            isOpen_[object] = true;
            const auto found = measureContent(object, depth);
            if (!found) return {};
            isOpen_[object] = false;
            known = *found;
        }
        if (depth + known.height > deepest_ || known.objects > most_) return {};
        return known;
    }

    std::optional<Measure> measureContent(Number object, int depth) {
        const auto content = contentOf(number(table_ + object * offsetWidth_, offsetWidth_));
        if (!content) return {};
        Measure sum{.objects = 1, .height = 0};
        for (Number i = 0; i < content->references; ++i) {
            const auto part =
                measure(number(content->at + i * referenceWidth_, referenceWidth_), depth + 1);
            if (!part) return {};
            sum.objects += part->objects;
            sum.height = std::max(sum.height, part->height + 1);
            if (sum.objects > most_) return {};
        }
        return sum;
    }

    std::optional<Content> contentOf(Number at) const {
        if (!holds(at, 1)) return {};
        const unsigned kind = static_cast<unsigned char>(bytes_[at]) >> 4;
        Number count = static_cast<unsigned char>(bytes_[at]) & 15;
        ++at;
        constexpr unsigned real = 3, data = 4, ascii = 5, unicode = 6, identifier = 8, array = 10,
                           set = 12, dictionary = 13;
        if (kind < data || kind == identifier) {
            const Number size = kind == identifier ? count + 1
                                : kind == 0        ? 0
                                : kind == real     ? 8
                                                   : Number{1} << std::min<Number>(count, 4);
            if (!holds(at, size)) return {};
            return Content{};
        }
        if (count == 15 && !readCount(at, count)) return {};
        if (count > bytes_.size()) return {};
        switch (kind) {
            case data:
                return holds(at, count) ? std::optional(Content{}) : std::nullopt;
            case ascii:
                return isText(at, count, 1) ? std::optional(Content{}) : std::nullopt;
            case unicode:
                return isText(at, count, 2) ? std::optional(Content{}) : std::nullopt;
            case array:
            case set:
                break;
            case dictionary:
                count *= 2;
                break;
            default:
                return {};
        }
        if (!holds(at, count * referenceWidth_)) return {};
        return Content{.at = at, .references = count};
    }

    // No character is zero: libplist ends the process when a text ends before its length says.
    bool isText(Number at, Number count, Number width) const {
        if (!holds(at, count * width)) return false;
        for (Number i = 0; i < count; ++i) {
            if (number(at + i * width, width) == 0) return false;
        }
        return true;
    }

    // A count of 15 and more follows as an integer object.
    bool readCount(Number& at, Number& count) const {
        if (!holds(at, 1) || static_cast<unsigned char>(bytes_[at]) >> 4 != 1) return false;
        const Number width = Number{1} << (bytes_[at] & 15);
        if (width > 8 || !holds(at + 1, width)) return false;
        count = number(at + 1, width);
        at += 1 + width;
        return true;
    }

    std::string_view bytes_;
    int deepest_;
    Number most_;
    Number offsetWidth_ = 0;
    Number referenceWidth_ = 0;
    Number table_ = 0;
    std::vector<Measure> measured_;
    std::vector<bool> isOpen_;
};

}  // namespace

bool isBoundedBinaryList(std::string_view bytes, int deepest, std::size_t mostObjects) {
    return BinaryList(bytes, deepest, mostObjects).isBounded();
}

}  // namespace simulator
