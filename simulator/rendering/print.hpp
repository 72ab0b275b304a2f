// The sum from which the fingerprints of nodes are made.
#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <cstdint>
#include <string_view>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

// FNV-1a, eight bytes at a time, in four sums that take turns: the processor need not wait for one before
// it goes on with the next.
class Print {
  public:
    template <std::integral T>
    void add(T value) {
        const std::uint64_t sum = mixed(next_[0], static_cast<std::uint64_t>(value));
        next_ = {next_[1], next_[2], next_[3], sum};
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

    // Where the node lies and how see-through it is: what composing it depends on.
    void addPlace(const Node& n) { addAll(n.position, n.transform, n.opacity, n.hidden); }
    // What is drawn of the node itself, and how it cuts what is under it.
    void addLooks(const Node& n) {
        addAll(n.bounds, n.anchor, n.cornerRadius, n.continuousCorners, n.masksToBounds,
               n.background, n.filtersBehind, n.multiply, n.borderWidth, n.border, n.shadow,
               n.content.index());
        std::visit([this](const auto& content) { add(content); }, n.content);
    }
    // What lies in the node: its mask and all that is under it.
    void addInside(const Node& n) {
        add(n.mask != nullptr);
        if (n.mask) add(*n.mask);
        add(n.children.size());
        for (const Node& child : n.children) add(child);
    }
    void add(const Node& n) {
        addPlace(n);
        addLooks(n);
        addInside(n);
    }

    std::uint64_t value() const {
        return mixed(mixed(mixed(next_[0], next_[1]), next_[2]), next_[3]);
    }

  private:
    static std::uint64_t mixed(std::uint64_t sum, std::uint64_t value) {
        sum = (sum ^ value) * 0x100000001b3;
        return sum ^ (sum >> 29);
    }

    template <class... T>
    void addAll(const T&... values) {
        (add(values), ...);
    }

    static constexpr std::uint64_t basis = 0xcbf29ce484222325;
    std::array<std::uint64_t, 4> next_{basis, basis, basis, basis};
};

}  // namespace simulator::rendering
