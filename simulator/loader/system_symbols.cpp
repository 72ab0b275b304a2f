#include "simulator/loader/system_symbols.hpp"

#include <dlfcn.h>

#include <string>

#include "simulator/loader/shape.hpp"
#include "simulator/uikit/raise.hpp"

#if defined(__aarch64__)
#include <sys/utsname.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <span>

#include "platform/core_foundation.hpp"
#include "platform/dispatch.hpp"
#include "platform/runtime.hpp"
#include "simulator/loader/messages.hpp"
#include "simulator/loader/signed_image.hpp"
#include "simulator/loader/signing.hpp"
#endif

namespace simulator::loader {

#if defined(__aarch64__)

namespace {

// The structure of uname on iOS: five texts of 256 bytes.
struct PhoneNames {
    char texts[5][256];
};

int phoneUname(PhoneNames* answer) {
    utsname names{};
    const int status = uname(&names);
    const char* texts[] = {names.sysname, names.nodename, names.release, names.version,
                           names.machine};
    for (std::size_t index = 0; index < std::size(texts); ++index) {
        std::string_view text = texts[index];
        std::ranges::fill(answer->texts[index], '\0');
        std::ranges::copy(text.substr(0, sizeof answer->texts[index] - 1), answer->texts[index]);
    }
    return status;
}

// The bits of iOS: 1 lazily, 2 at once, 4 for itself, 8 for all.
void* phoneDlopen(const char* path, int mode) {
    constexpr int now = 2;
    constexpr int global = 8;
    return dlopen(path, (mode & now ? RTLD_NOW : RTLD_LAZY) | (mode & global ? RTLD_GLOBAL : 0));
}

Class classOfObject(id object) { return object ? object_getClass(object) : nullptr; }

// A method that takes the place of an inherited one must be called as that one is.
bool addMethod(Class cls, SEL selector, IMP implementation, const char* types) {
    Class above = cls ? class_getSuperclass(cls) : nullptr;
    Method inherited = above ? class_getInstanceMethod(above, selector) : nullptr;
    if (inherited && shape(types) != shape(method_getTypeEncoding(inherited)))
        raise("NSInternalInconsistencyException"_ns,
              std::string(class_getName(cls)) + " adds " + sel_getName(selector) + " as " + types +
                  ", which " + class_getName(above) + " has as " +
                  method_getTypeEncoding(inherited));
    return class_addMethod(cls, selector, implementation, types);
}

// What an arm64e library hands over and gets back is signed; the phone's own pointers are not.
template <class Function>
Function* plain(Function* function, const char* taker) {
    if (!function) return nullptr;
    const std::uint64_t found =
        authenticated(reinterpret_cast<std::uintptr_t>(function), functionSigning, 0);
    if (found == 0)
        raise("NSInternalInconsistencyException"_ns,
              std::string(taker) +
                  " gets a function whose pointer is not signed as one: a phone of "
                  "arm64e stops at its first call");
    return reinterpret_cast<Function*>(found);
}

bool addSignedMethod(Class cls, SEL selector, IMP implementation, const char* types) {
    return addMethod(cls, selector, plain(implementation, "class_addMethod"), types);
}

void hookSigned(Class cls, SEL selector, IMP replacement, IMP* saved) {
    IMP system = nullptr;
    MSHookMessageEx(cls, selector, plain(replacement, "MSHookMessageEx"), &system);
    if (!system || !saved) return;
    *saved = reinterpret_cast<IMP>(
        signedFor(reinterpret_cast<std::uintptr_t>(system), functionSigning, 0));
}

void observeSigned(CFNotificationCenterRef center, const void* observer,
                   CFNotificationCallback callback, CFStringRef name, const void* object,
                   long behavior) {
    CFNotificationCenterAddObserver(center, observer,
                                    plain(callback, "CFNotificationCenterAddObserver"), name,
                                    object, behavior);
}

void asyncSigned(dispatch_queue_s* queue, void* context, void (*work)(void*)) {
    dispatch_async_f(queue, context, plain(work, "dispatch_async_f"));
}

void afterSigned(std::uint64_t when, dispatch_queue_s* queue, void* context, void (*work)(void*)) {
    dispatch_after_f(when, queue, context, plain(work, "dispatch_after_f"));
}

struct SineCosine {
    double sine;
    double cosine;
};
SineCosine sineAndCosine(double angle) { return {std::sin(angle), std::cos(angle)}; }

void fillPattern(void* to, const void* pattern, std::size_t length) {
    constexpr std::size_t size = 16;
    auto* bytes = static_cast<char*>(to);
    for (std::size_t at = 0; at < length; at += size)
        std::memcpy(bytes + at, pattern, std::min(size, length - at));
}

std::uint64_t stackGuard = 0x00c0ffee12345678;

[[noreturn]] void bindAtFirstCall() { std::abort(); }  // all functions are bound before they run

struct Replacement {
    std::string_view name;
    const void* address;
};

template <class Function>
const void* address(Function* function) {
    return reinterpret_cast<const void*>(function);
}

// Functions that take or give back functions, for a library whose pointers are signed.
const Replacement signedReplacements[] = {
    {"class_addMethod", address(&addSignedMethod)},
    {"MSHookMessageEx", address(&hookSigned)},
    {"CFNotificationCenterAddObserver", address(&observeSigned)},
    {"dispatch_async_f", address(&asyncSigned)},
    {"dispatch_after_f", address(&afterSigned)},
};

const void* find(std::span<const Replacement> table, std::string_view name) {
    auto found = std::ranges::find(table, name, &Replacement::name);
    return found == table.end() ? nullptr : found->address;
}

const void* replacement(std::string_view name) {
    static const Replacement replacements[] = {
        {"objc_msgSend", address(&vantoriMessage)},
        {"objc_msgSendSuper", address(&vantoriMessageSuper)},
        {"objc_msgSendSuper2", address(&vantoriMessageSuper2)},
        {"object_getClass", address(&classOfObject)},
        {"class_addMethod", address(&addMethod)},
        {"NSLog", address(&vantoriLog)},
        {"uname", address(&phoneUname)},
        {"dlopen", address(&phoneDlopen)},
        {"__sincos_stret", address(&sineAndCosine)},
        {"memset_pattern16", address(&fillPattern)},
        {"__stack_chk_guard", &stackGuard},
        {"dyld_stub_binder", address(&bindAtFirstCall)},
    };
    if (hasSignedImage()) {
        if (const void* address = find(signedReplacements, name)) return address;
    }
    return find(replacements, name);
}

}  // namespace

#else

namespace {

const void* replacement(std::string_view) { return nullptr; }

}  // namespace

#endif

const void* systemSymbol(std::string_view name) {
    constexpr std::string_view classPrefix = "OBJC_CLASS_$_";
    const std::string text(name);
    if (name.starts_with(classPrefix)) return objc_getClass(text.c_str() + classPrefix.size());
    if (const void* address = replacement(name)) return address;
    return dlsym(RTLD_DEFAULT, text.c_str());
}

}  // namespace simulator::loader
