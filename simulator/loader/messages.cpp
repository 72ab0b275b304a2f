#include "simulator/loader/messages.hpp"

#if defined(__aarch64__)

#include <objc/message.h>
#include <objc/runtime.h>

#include <algorithm>
#include <cstdarg>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "simulator/uikit/raise.hpp"

// The registers of arguments: x0 to x8, then q0 to q7, with the caller's frame above them. What
// comes back in x0 is called with all of them as they were; for super x0 becomes the receiver, which
// the structure has first.
asm(R"(
.text
.macro saveArguments
    .cfi_startproc
    stp x29, x30, [sp, #-16]!
    .cfi_def_cfa_offset 16
    .cfi_offset x29, -16
    .cfi_offset x30, -8
    mov x29, sp
    .cfi_def_cfa x29, 16
    sub sp, sp, #208
    stp x0, x1, [sp]
    stp x2, x3, [sp, #16]
    stp x4, x5, [sp, #32]
    stp x6, x7, [sp, #48]
    str x8, [sp, #64]
    stp q0, q1, [sp, #80]
    stp q2, q3, [sp, #112]
    stp q4, q5, [sp, #144]
    stp q6, q7, [sp, #176]
    mov x2, sp
.endm
.macro loadArguments
    mov x16, x0
    ldp x0, x1, [sp]
    ldp x2, x3, [sp, #16]
    ldp x4, x5, [sp, #32]
    ldp x6, x7, [sp, #48]
    ldr x8, [sp, #64]
    ldp q0, q1, [sp, #80]
    ldp q2, q3, [sp, #112]
    ldp q4, q5, [sp, #144]
    ldp q6, q7, [sp, #176]
    mov sp, x29
    ldp x29, x30, [sp], #16
    .cfi_def_cfa sp, 0
    .cfi_restore x29
    .cfi_restore x30
.endm
.macro answerZero
    mov x0, #0
    mov x1, #0
    movi d0, #0
    movi d1, #0
    movi d2, #0
    movi d3, #0
    ret
.endm

.globl vantoriMessage
.hidden vantoriMessage
.type vantoriMessage, %function
.p2align 4
vantoriMessage:
    cbz x0, 1f
    saveArguments
    bl vantoriImplementation
    loadArguments
    br x16
    .cfi_endproc
1:  answerZero
.size vantoriMessage, . - vantoriMessage

.globl vantoriMessageSuper
.hidden vantoriMessageSuper
.type vantoriMessageSuper, %function
.p2align 4
vantoriMessageSuper:
    saveArguments
    bl vantoriSuperImplementation
    loadArguments
    ldr x0, [x0]
    cbz x0, 1f
    br x16
1:  answerZero
    .cfi_endproc
.size vantoriMessageSuper, . - vantoriMessageSuper

.globl vantoriMessageSuper2
.hidden vantoriMessageSuper2
.type vantoriMessageSuper2, %function
.p2align 4
vantoriMessageSuper2:
    saveArguments
    bl vantoriSuper2Implementation
    loadArguments
    ldr x0, [x0]
    cbz x0, 1f
    br x16
1:  answerZero
    .cfi_endproc
.size vantoriMessageSuper2, . - vantoriMessageSuper2

.globl vantoriLog
.hidden vantoriLog
.type vantoriLog, %function
.p2align 4
vantoriLog:
    mov x1, sp
    b vantoriLogFromStack
.size vantoriLog, . - vantoriLog
)");

extern "C" void NSLogv(id format, va_list arguments);

namespace simulator::loader {

namespace {

// Messages with variable arguments. A phone's compiler passes these on the stack, behind the last
// named one, and never in registers; a call through a cast that does not say so leaves garbage for
// the receiver to read. Here, where both conventions read registers first, it would pass unseen.
constexpr const char* formatMessages[] = {
    "stringWithFormat:",
    "localizedStringWithFormat:",
    "initWithFormat:",
    "initWithFormat:locale:",
    "stringByAppendingFormat:",
    "appendFormat:",
    "raise:format:",
    "predicateWithFormat:",
    "handleFailureInMethod:object:file:lineNumber:description:",
    "handleFailureInFunction:file:lineNumber:description:",
};
// Lists that nil ends: when the named one is nil already, nothing behind it is read.
constexpr const char* listMessages[] = {
    "arrayWithObjects:",
    "setWithObjects:",
    "orderedSetWithObjects:",
    "initWithObjects:",
    "dictionaryWithObjectsAndKeys:",
    "initWithObjectsAndKeys:",
    "appearanceWhenContainedIn:",
    "initWithTitle:message:delegate:cancelButtonTitle:otherButtonTitles:",
    "initWithTitle:delegate:cancelButtonTitle:destructiveButtonTitle:otherButtonTitles:",
};

enum class Tail { none, format, list };

// By the selector's identity, which typed and untyped ones of a name share.
const void* identity(SEL selector) { return *reinterpret_cast<void* const*>(selector); }

const std::unordered_map<const void*, Tail>& variadicMessages() {
    static const auto& messages = *[] {
        auto* made = new std::unordered_map<const void*, Tail>;
        for (const char* name : formatMessages)
            (*made)[identity(sel_registerName(name))] = Tail::format;
        for (const char* name : listMessages)
            (*made)[identity(sel_registerName(name))] = Tail::list;
        return made;
    }();
    return messages;
}

void refuseVariableArguments(SEL selector, const std::uint64_t* registers) {
    auto found = variadicMessages().find(identity(selector));
    if (found == variadicMessages().end()) return;
    const std::string_view name = sel_getName(selector);
    const auto named = static_cast<std::size_t>(std::ranges::count(name, ':'));
    if (found->second == Tail::list && registers[1 + named] == 0) return;
    raise("NSInternalInconsistencyException"_ns,
          std::string(name) +
              " takes variable arguments, which a phone reads from the stack: this call leaves "
              "them in registers");
}

}  // namespace

}  // namespace simulator::loader

extern "C" {

__attribute__((used, visibility("hidden"))) IMP
vantoriImplementation(id receiver, SEL selector, const std::uint64_t* registers) {
    simulator::loader::refuseVariableArguments(selector, registers);
    return objc_msg_lookup(receiver, selector);
}

__attribute__((used, visibility("hidden"))) IMP
vantoriSuperImplementation(objc_super* super, SEL selector, const std::uint64_t* registers) {
    simulator::loader::refuseVariableArguments(selector, registers);
    return objc_msg_lookup_super(super, selector);
}

__attribute__((used, visibility("hidden"))) IMP
vantoriSuper2Implementation(objc_super* super, SEL selector, const std::uint64_t* registers) {
    simulator::loader::refuseVariableArguments(selector, registers);
    objc_super above{super->self, class_getSuperclass(super->super_class)};
    return objc_msg_lookup_super(&above, selector);
}

// No register is left to read, so that va_arg takes the stack from the first argument on.
__attribute__((used, visibility("hidden"))) void vantoriLogFromStack(id format, void* stack) {
    va_list arguments{};
    arguments.__stack = stack;
    NSLogv(format, arguments);
}
}

#endif
