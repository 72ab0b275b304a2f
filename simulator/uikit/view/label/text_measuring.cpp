// What UIKit adds to strings: the room that a text takes when it is drawn. The attributes name the
// font under "NSFont"; without one it is that of a plain label.
#include "simulator/rendering/text.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/view/label/label.hpp"

namespace simulator {

namespace {

constexpr long usesLineFragmentOrigin = 1;  // else all is one line

CGSize measured(NSString string, NSDictionary attributes, double width, int lines) {
    const FontTraits font = traitsOf(as<UIFont>(attributes.at("NSFont"_ns)));
    const auto size = rendering::measure(text(string), font.size, font.weight, width, lines);
    return {size.width, size.height};
}

}  // namespace

void addTextMeasuring() {
    category<NSString>()
        .method<"boundingRectWithSize:options:attributes:context:">(
            [](NSString self, CGSize room, long options, NSDictionary attributes,
               Object) -> CGRect {
                const bool inLines = options & usesLineFragmentOrigin;
                const CGSize size = inLines
                                        ? measured(self, attributes, room.width, 0)
                                        : measured(self, attributes, rendering::unlimitedWidth, 1);
                return {{0, 0}, size};
            })
        .method<"sizeWithAttributes:">([](NSString self, NSDictionary attributes) {
            return measured(self, attributes, rendering::unlimitedWidth, 0);
        });
}

}  // namespace simulator
