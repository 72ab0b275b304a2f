// Putting views together. Any class may be missing: what does not exist is left out.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

// The autoresizing mask of a part that is as wide and as high as the whole.
inline constexpr unsigned long flexibleSize = 2 | 16;

inline void addPart(UIView whole, UIView part) {
    if (whole && part) whole.addSubview(part);
}

}  // namespace simulator
