// Putting views together when any class may be missing: what does not exist is left out.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

inline void addPart(UIView whole, UIView part) {
    if (whole && part) whole.addSubview(part);
}

}  // namespace simulator
