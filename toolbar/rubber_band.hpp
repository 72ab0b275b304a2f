// The resistance of whatever follows a finger beyond its height: a pulled toolbar, a dragged one, a
// lifted application. Points.
#pragma once

namespace vantori {

// The finger's distance, and beyond the height that much more: the excess divided by how many heights
// have been pulled.
constexpr double rubberBand(double distance, double height) {
    if (distance < height || height <= 0) return distance;
    return height + (distance - height) / (distance / height);
}

}  // namespace vantori
