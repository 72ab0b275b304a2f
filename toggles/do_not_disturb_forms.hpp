// How do not disturb is read and written: Control Center's module where it can be told, the services
// behind it from iOS 12 on, the gateway to the notification settings on 11.
#pragma once

#include "platform/form.hpp"

namespace vantori {

using namespace platform;

struct DoNotDisturbFunctions {
    // The system's object, which a toggle holds. Empty where none is to be held.
    Strong<Object> (*create)();
    bool (*isActive)(Object held);
    void (*setActive)(Object held, bool active);
};

// Of the form that this system has; none: do not disturb reads off and cannot be written.
const DoNotDisturbFunctions* doNotDisturbForm();

}  // namespace vantori
