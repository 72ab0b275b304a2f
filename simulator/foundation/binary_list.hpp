// How much a binary property list holds when it is written out. Its objects refer to one another by
// number, so that a few bytes can stand for any number of objects, one inside another or many times
// over; libplist copies each as often as it is referred to.
#pragma once

#include <cstddef>
#include <string_view>

namespace simulator {

// Whether it is well-formed, no deeper than that, and stands for no more objects than that. No text in
// it holds the character zero.
bool isBoundedBinaryList(std::string_view bytes, int deepest, std::size_t mostObjects);

}  // namespace simulator
