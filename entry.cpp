// The one load-time constructor: whoever loads the library starts it.
#include "hooks/start_up.hpp"

namespace {

[[gnu::constructor]] void load() { vantori::startUp(); }

}  // namespace
