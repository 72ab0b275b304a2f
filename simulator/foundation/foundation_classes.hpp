// Handles of Foundation's classes that several files of this folder use and the library does not.
#pragma once

#include "platform/foundation.hpp"

namespace simulator {

struct NSMutableDictionary : platform::NSDictionary {
    static constexpr platform::FixedString name{"NSMutableDictionary"};
    using NSDictionary::NSDictionary;
};
struct NSData : platform::Object {
    static constexpr platform::FixedString name{"NSData"};
    using Object::Object;
};

}  // namespace simulator
