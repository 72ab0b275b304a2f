#include "simulator/loader/system_symbols.hpp"

#include <dlfcn.h>

#include <string>

#include "simulator/loader/border_functions.hpp"
#include "simulator/loader/shape.hpp"
#include "simulator/loader/signed_image.hpp"
#include "simulator/uikit/raise.hpp"

#if defined(__aarch64__)
#include <sys/utsname.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "simulator/loader/messages.hpp"
#include "simulator/runtime/system_libraries.hpp"
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
    if (const void* library = path ? systemLibrary(path) : nullptr)
        return const_cast<void*>(library);
    constexpr int now = 2;
    constexpr int global = 8;
    return dlopen(path, (mode & now ? RTLD_NOW : RTLD_LAZY) | (mode & global ? RTLD_GLOBAL : 0));
}

// Only the phone's libraries are asked: whoever looks a function up must say where.
void* phoneDlsym(void* handle, const char* name) {
    return const_cast<void*>(symbolOfLibrary(handle, name));
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
        {"dlsym", address(&phoneDlsym)},
        {"__sincos_stret", address(&sineAndCosine)},
        {"memset_pattern16", address(&fillPattern)},
        {"__stack_chk_guard", &stackGuard},
        {"dyld_stub_binder", address(&bindAtFirstCall)},
    };
    auto found = std::ranges::find(replacements, name, &Replacement::name);
    return found == std::end(replacements) ? nullptr : found->address;
}

}  // namespace

#else

namespace {

const void* replacement(std::string_view) { return nullptr; }

}  // namespace

#endif

const void* plainSymbol(std::string_view name) {
    constexpr std::string_view classPrefix = "OBJC_CLASS_$_";
    const std::string text(name);
    if (name.starts_with(classPrefix)) return objc_getClass(text.c_str() + classPrefix.size());
    if (const void* address = replacement(name)) return address;
    return dlsym(RTLD_DEFAULT, text.c_str());
}

const void* systemSymbol(std::string_view name) {
    const void* border = hasSignedImage() ? borderFunction(name) : nullptr;
    return border ? border : plainSymbol(name);
}

}  // namespace simulator::loader
