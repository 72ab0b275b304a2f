// Rows of pixels from `first` up to, not including, `end`.
#pragma once

#include <algorithm>

#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

struct Rows {
    int first = 0;
    int end = 0;

    bool empty() const { return first >= end; }
    int count() const { return end - first; }
};

inline Rows rowsOf(const Surface& surface) { return {0, surface.height()}; }

// In these rows the pixels of `to`, of the same size and format, become those of `from`.
void copyPixels(const Surface& from, const Surface& to, Rows rows);

inline bool meet(Rows one, Rows other) {
    return !one.empty() && !other.empty() && one.first < other.end && other.first < one.end;
}
inline bool contains(Rows outer, Rows inner) {
    return inner.empty() || (outer.first <= inner.first && inner.end <= outer.end);
}
inline Rows common(Rows one, Rows other) {
    return {std::max(one.first, other.first), std::min(one.end, other.end)};
}
// From the first row of either to the last.
inline Rows joined(Rows one, Rows other) {
    if (one.empty()) return other;
    if (other.empty()) return one;
    return {std::min(one.first, other.first), std::max(one.end, other.end)};
}
inline Rows widened(Rows rows, int by) {
    return rows.empty() ? rows : Rows{rows.first - by, rows.end + by};
}

}  // namespace simulator::rendering
