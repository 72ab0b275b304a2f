#include "simulator/uikit/raise.hpp"

#include <cstdlib>

namespace simulator {

void raise(NSString exceptionName, const std::string& reason) {
    auto exception = sendClass<NSException, "exceptionWithName:reason:userInfo:", NSException>(
        exceptionName, string(reason), Object());
    exception.send<"raise">();
    std::abort();  // -raise does not return
}

void raiseWrongClass(const char* operation, Object object, const char* wanted) {
    std::string met = object ? class_getName(object_getClass(object.get())) : "nil";
    raise("NSInvalidArgumentException"_ns,
          std::string(operation) + ": expected a " + wanted + ", got " + met);
}

}  // namespace simulator
