#include "pages/modules_hooks.hpp"

namespace vantori {

void moduleSetAvailable(System<void(bool)> system, Object, bool) { system(true); }

bool moduleAvailable(System<bool()>, Object) { return true; }

}  // namespace vantori
