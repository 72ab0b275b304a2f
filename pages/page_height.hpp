// The heights of the pages and of the band above them. Points.
#pragma once

namespace vantori {

inline constexpr double bandHeight = 15;  // above the pages
inline constexpr double pageHeight = 100;
inline constexpr double stripHeight = bandHeight + pageHeight;
inline constexpr double gridHeight = bandHeight + 2 * pageHeight;  // of a phone on its side

}  // namespace vantori
