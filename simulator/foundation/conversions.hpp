// boolValue and intValue of strings as the platform has them; GNUstep's differ for some texts.
#pragma once

namespace simulator {

void installConversions();

}  // namespace simulator
