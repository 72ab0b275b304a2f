#include "simulator/loader/border_functions.hpp"

#if defined(__aarch64__)

#include <link.h>

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "platform/core_foundation.hpp"
#include "platform/dispatch.hpp"
#include "platform/runtime.hpp"
#include "simulator/loader/signing.hpp"
#include "simulator/loader/system_symbols.hpp"
#include "simulator/uikit/raise.hpp"

namespace simulator::loader {

namespace {

// The function that a library with plain pointers gets under the name.
template <class Function>
Function* inner(std::string_view name) {
    return reinterpret_cast<Function*>(const_cast<void*>(plainSymbol(name)));
}

template <class Function>
Function* plain(Function* function, std::string_view taker) {
    if (!function) return nullptr;
    const std::uint64_t found =
        authenticated(reinterpret_cast<std::uintptr_t>(function), functionSigning, 0);
    if (found == 0)
        raise("NSInternalInconsistencyException"_ns,
              std::string(taker) +
                  " gets a function whose pointer is not signed as one: a phone "
                  "of arm64e stops at its first call");
    return reinterpret_cast<Function*>(found);
}

template <class Pointer>
Pointer withSignature(Pointer function) {
    const auto pointer = reinterpret_cast<std::uintptr_t>(function);
    return reinterpret_cast<Pointer>(signedFor(pointer, functionSigning, 0));
}

constexpr std::string_view addMethodName = "class_addMethod";
bool addMethod(Class cls, SEL selector, IMP implementation, const char* types) {
    static auto* const add = inner<decltype(addMethod)>(addMethodName);
    return add(cls, selector, plain(implementation, addMethodName), types);
}

constexpr std::string_view hookName = "MSHookMessageEx";
void hook(Class cls, SEL selector, IMP replacement, IMP* saved) {
    IMP system = nullptr;
    MSHookMessageEx(cls, selector, plain(replacement, hookName), &system);
    if (system && saved) *saved = withSignature(system);
}

constexpr std::string_view observeName = "CFNotificationCenterAddObserver";
void observe(CFNotificationCenterRef center, const void* observer, CFNotificationCallback callback,
             CFStringRef name, const void* object, long behavior) {
    CFNotificationCenterAddObserver(center, observer, plain(callback, observeName), name, object,
                                    behavior);
}

constexpr std::string_view asyncName = "dispatch_async_f";
void async(dispatch_queue_s* queue, void* context, void (*work)(void*)) {
    dispatch_async_f(queue, context, plain(work, asyncName));
}

constexpr std::string_view afterName = "dispatch_after_f";
void after(std::uint64_t when, dispatch_queue_s* queue, void* context, void (*work)(void*)) {
    dispatch_after_f(when, queue, context, plain(work, afterName));
}

// Whether the address lies in code of this process.
bool isCode(const void* address) {
    const auto search = [](dl_phdr_info* object, std::size_t, void* wanted) -> int {
        const auto place = reinterpret_cast<std::uintptr_t>(wanted);
        const std::span headers(object->dlpi_phdr, object->dlpi_phnum);
        return std::ranges::any_of(headers, [&](const ElfW(Phdr) & header) {
            const std::uintptr_t start = object->dlpi_addr + header.p_vaddr;
            return header.p_type == PT_LOAD && (header.p_flags & PF_X) != 0 && place >= start &&
                   place - start < header.p_memsz;
        });
    };
    return dl_iterate_phdr(search, const_cast<void*>(address)) != 0;
}

// What is looked up by name is signed where it is a function.
constexpr std::string_view lookUpName = "dlsym";
void* lookUp(void* handle, const char* name) {
    static auto* const find = inner<decltype(lookUp)>(lookUpName);
    void* found = find(handle, name);
    return isCode(found) ? withSignature(found) : found;
}

struct Border {
    std::string_view name;
    const void* address;
};

template <class Function>
const void* address(Function* function) {
    return reinterpret_cast<const void*>(function);
}

}  // namespace

const void* borderFunction(std::string_view name) {
    static const Border borders[] = {
        {addMethodName, address(&addMethod)}, {hookName, address(&hook)},
        {observeName, address(&observe)},     {asyncName, address(&async)},
        {afterName, address(&after)},         {lookUpName, address(&lookUp)},
    };
    auto found = std::ranges::find(borders, name, &Border::name);
    return found == std::end(borders) ? nullptr : found->address;
}

}  // namespace simulator::loader

#else

namespace simulator::loader {

const void* borderFunction(std::string_view) { return nullptr; }

}  // namespace simulator::loader

#endif
