// What the pages may ask of the toolbar that they stand on, which lies above them: by message alone.
#pragma once

#include "platform/foundation.hpp"

namespace vantori {

using namespace platform;

// The toolbar below the application in front. Makes the single instance when there is none.
struct ApplicationToolbar : Object {
    using Object::Object;
    static ApplicationToolbar shared() {
        Object cls(classObject(objc_getClass("VNTToolBarController")));
        return cls.send<"sharedInstance", ApplicationToolbar>();
    }
    void setIsEnabled(bool enabled) const { send<"setIsEnabled:">(enabled); }
};

}  // namespace vantori
