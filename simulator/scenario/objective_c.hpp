// GCC's Objective-C runtime as the scenario's sources use it: its functions without its macros,
// one cast for messages whose signature is known beforehand, and Foundation's strings, numbers
// and autorelease pools. Messages of any signature are sent by messages.hpp.
#pragma once

#include <objc/message.h>
#include <objc/runtime.h>

#include <optional>
#include <string>
#include <string_view>

#undef YES
#undef NO
#undef nil
#undef Nil

namespace simulator::scenario {

// A message of known signature. Nothing is sent to a null receiver: the result is zero.
template <typename Result, typename... Arguments>
Result send(id receiver, const char* selector, Arguments... arguments) {
    if (receiver == nullptr) return Result();
    const SEL name = sel_registerName(selector);
    // By way of a function of no signature, as the compiler asks of such a cast.
    const auto untyped = reinterpret_cast<void (*)()>(objc_msg_lookup(receiver, name));
    const auto function = reinterpret_cast<Result (*)(id, SEL, Arguments...)>(untyped);
    return function(receiver, name, arguments...);
}

// The class of that name as an object, or null.
id classNamed(const char* name);

bool isClass(id object);
bool isKindOf(id object, const char* className);

// The name of an object's class; a class answers its own.
std::string classNameOf(id object);

// An autoreleased NSString, or null when the bytes are not UTF-8.
id makeString(std::string_view bytes);

// The bytes of an NSString in UTF-8; nothing for any other object.
std::optional<std::string> stringBytes(id object);

// Objects autoreleased while it lives are released when it ends.
class AutoreleasePool {
  public:
    AutoreleasePool();
    ~AutoreleasePool();
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;

  private:
    id pool_;
};

}  // namespace simulator::scenario
