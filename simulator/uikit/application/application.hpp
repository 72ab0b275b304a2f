// The application object. The phone's SpringBoard is a subclass of UIApplication: the first
// application that is made is the shared one.
#pragma once

#include <string>

#include "simulator/uikit/classes.hpp"

namespace simulator {

void setSharedApplication(UIApplication application);

// Who opens addresses: `opens` answers whether anyone does, `open` does it. Nobody until it is said.
struct AddressOpener {
    bool (*opens)(const std::string& address);
    void (*open)(const std::string& address);
};
void setAddressOpener(AddressOpener opener);

void registerApplication();

}  // namespace simulator
