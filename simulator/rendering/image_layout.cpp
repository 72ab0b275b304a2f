// The content modes as a table: how the size is found, and which part of the slack lies before it.
#include "simulator/rendering/image_layout.hpp"

#include <algorithm>
#include <array>

namespace simulator::rendering {

namespace {

enum class Sizing { stretch, fit, cover, natural };

struct Mode {
    Sizing sizing;
    Point slack;  // part of the free room left of and above the picture
};

constexpr std::array<Mode, 13> modes{{
    {Sizing::stretch, {0, 0}},
    {Sizing::fit, {0.5, 0.5}},
    {Sizing::cover, {0.5, 0.5}},
    {Sizing::stretch, {0, 0}},
    {Sizing::natural, {0.5, 0.5}},
    {Sizing::natural, {0.5, 0}},
    {Sizing::natural, {0.5, 1}},
    {Sizing::natural, {0, 0.5}},
    {Sizing::natural, {1, 0.5}},
    {Sizing::natural, {0, 0}},
    {Sizing::natural, {1, 0}},
    {Sizing::natural, {0, 1}},
    {Sizing::natural, {1, 1}},
}};

}  // namespace

Rect imageRect(Size picture, Rect bounds, int contentMode) {
    if (!(picture.width > 0 && picture.height > 0)) return {bounds.origin, {}};
    const bool known = contentMode >= 0 && contentMode < static_cast<int>(modes.size());
    const Mode& mode = modes[known ? static_cast<std::size_t>(contentMode) : 0];
    const double across = bounds.size.width / picture.width;
    const double down = bounds.size.height / picture.height;
    Size size = bounds.size;
    if (mode.sizing == Sizing::natural) size = picture;
    if (mode.sizing == Sizing::fit || mode.sizing == Sizing::cover) {
        const double factor =
            mode.sizing == Sizing::fit ? std::min(across, down) : std::max(across, down);
        size = {picture.width * factor, picture.height * factor};
    }
    return {{bounds.origin.x + (bounds.size.width - size.width) * mode.slack.x,
             bounds.origin.y + (bounds.size.height - size.height) * mode.slack.y},
            size};
}

}  // namespace simulator::rendering
