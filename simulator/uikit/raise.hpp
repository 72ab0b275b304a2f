// Exceptions as the platform raises them for wrong arguments.
#pragma once

#include <string>

#include "simulator/uikit/classes.hpp"

namespace simulator {

[[noreturn]] void raise(NSString exceptionName, const std::string& reason);
// NSInvalidArgumentException unless object is a kind of T.
[[noreturn]] void raiseWrongClass(const char* operation, Object object, const char* wanted);

template <Handle T>
void requireKind(const char* operation, Object object) {
    if (!object.isKindOfClass(classOf<T>())) raiseWrongClass(operation, object, T::name.data());
}

inline std::string text(NSString string) {
    const char* utf8 = string.utf8();
    return utf8 ? utf8 : "";
}
inline NSString string(const std::string& utf8) { return NSString::from(utf8.c_str()); }

}  // namespace simulator
