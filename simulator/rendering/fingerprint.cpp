#include "simulator/rendering/fingerprint.hpp"

#include <bit>
#include <concepts>
#include <string_view>

namespace simulator::rendering {

namespace {

// FNV-1a, eight bytes at a time.
class Sum {
  public:
    template <std::integral T>
    void add(T value) {
        sum_ = (sum_ ^ static_cast<std::uint64_t>(value)) * 0x100000001b3;
        sum_ ^= sum_ >> 29;
    }
    void add(double value) { add(std::bit_cast<std::uint64_t>(value)); }
    void add(std::string_view text) {
        add(text.size());
        for (char c : text) add(c);
    }
    void add(Point p) { addAll(p.x, p.y); }
    void add(Size s) { addAll(s.width, s.height); }
    void add(Rect r) { addAll(r.origin, r.size); }
    void add(const Transform& t) { addAll(t.a, t.b, t.c, t.d, t.tx, t.ty); }
    void add(const Colour& c) { addAll(c.red, c.green, c.blue, c.alpha); }
    template <class T>
    void add(const std::optional<T>& value) {
        add(value.has_value());
        if (value) add(*value);
    }
    void add(const Shadow& s) { addAll(s.colour, s.radius, s.offset); }
    void add(const PictureRef& picture) { add(std::bit_cast<std::uintptr_t>(picture.get())); }

    void add(std::monostate) {}
    void add(const Text& t) {
        addAll(std::string_view(t.text), t.fontSize, t.weight, t.colour,
               static_cast<int>(t.alignment), t.lines, t.truncatesTail);
    }
    void add(const Image& i) { addAll(i.picture, i.contentMode, i.tint); }
    void add(const Blur& b) { addAll(b.radius, b.tint, b.saturation); }
    void add(const GradientStop& stop) { addAll(stop.offset, stop.colour); }
    void add(const Gradient& g) {
        addAll(g.stops.size(), g.start, g.end, g.radial);
        for (const GradientStop& stop : g.stops) add(stop);
    }
    void add(const Symbol& s) { addAll(std::string_view(s.name), s.colour, s.progress); }

    void add(const Node& n) {
        addAll(n.bounds, n.position, n.anchor, n.transform, n.opacity, n.hidden, n.cornerRadius,
               n.continuousCorners, n.masksToBounds, n.background, n.filtersBehind, n.multiply,
               n.borderWidth, n.border, n.shadow, n.content.index());
        std::visit([this](const auto& content) { add(content); }, n.content);
        add(n.mask != nullptr);
        if (n.mask) add(*n.mask);
        add(n.children.size());
        for (const Node& child : n.children) add(child);
    }

    std::uint64_t value() const { return sum_; }

  private:
    template <class... T>
    void addAll(const T&... values) {
        (add(values), ...);
    }

    std::uint64_t sum_ = 0xcbf29ce484222325;
};

}  // namespace

std::uint64_t fingerprint(const Node& root) {
    Sum sum;
    sum.add(root);
    return sum.value();
}

}  // namespace simulator::rendering
