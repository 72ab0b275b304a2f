// The toggle that turns a tap into a message.
#pragma once

namespace vantori {

void registerSwitchToggle();

}  // namespace vantori
