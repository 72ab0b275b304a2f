// Helpers of the drawing tests: small trees and the colours of single pixels.
#pragma once

#include <cstdlib>

#include "simulator/rendering/canvas.hpp"
#include "simulator/rendering/nodes.hpp"

namespace simulator::rendering {

inline constexpr Colour red{1, 0, 0, 1};
inline constexpr Colour green{0, 1, 0, 1};
inline constexpr Colour blue{0, 0, 1, 1};
inline constexpr Colour white{1, 1, 1, 1};
inline constexpr Colour black{0, 0, 0, 1};
inline constexpr Colour clear{0, 0, 0, 0};

inline constexpr unsigned redPixel = 0xffff0000;
inline constexpr unsigned greenPixel = 0xff00ff00;
inline constexpr unsigned bluePixel = 0xff0000ff;
inline constexpr unsigned whitePixel = 0xffffffff;
inline constexpr unsigned blackPixel = 0xff000000;

inline Node screenNode(double width, double height) {
    return nodeWithFrame("screen", {{0, 0}, {width, height}});
}

inline int redOf(unsigned pixel) { return static_cast<int>((pixel >> 16) & 0xff); }
inline int greenOf(unsigned pixel) { return static_cast<int>((pixel >> 8) & 0xff); }
inline int blueOf(unsigned pixel) { return static_cast<int>(pixel & 0xff); }
inline int alphaOf(unsigned pixel) { return static_cast<int>(pixel >> 24); }

// The largest difference of a channel between two pictures; 255 when their sizes differ.
inline int largestDifference(const Surface& one, const Surface& other) {
    if (one.width() != other.width() || one.height() != other.height()) return 255;
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const unsigned a = one.pixel(x, y), b = other.pixel(x, y);
            for (int shift = 0; shift < 32; shift += 8) {
                const int difference = std::abs(static_cast<int>((a >> shift) & 0xff) -
                                                static_cast<int>((b >> shift) & 0xff));
                if (difference > largest) largest = difference;
            }
        }
    }
    return largest;
}

}  // namespace simulator::rendering
