// The phone's UIKit: registers every stand-in class of it, superclasses first, and ties layout to
// the display's frame. Call once, before anything of UIKit is used.
#pragma once

namespace simulator {

void registerUIKit();

}  // namespace simulator
