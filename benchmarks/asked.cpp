// The runtime's objc_msg_lookup is asked for the implementation of each message; this one stands in front
// of it. The journal has the arguments of the latest run of each operation, so a message is complete when
// the next one is on its way.
#include "benchmarks/asked.hpp"

#include <dlfcn.h>
#include <ffi.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "benchmarks/allocations.hpp"
#include "platform/ownership.hpp"
#include "simulator/runtime/journal.hpp"

namespace benchmarks {

namespace {

using platform::Object;
using platform::Strong;
using simulator::Argument;

// Beginnings of messages that are not sent again.
constexpr std::array<std::string_view, 9> leftOut{
    "init", "alloc", "add", "remove", "insert", "animate", "retain", "release", "autorelease"};

bool isLeftOut(std::string_view selector) {
    return std::ranges::any_of(leftOut, [&](auto start) { return selector.starts_with(start); });
}

struct Sent {
    id receiver;
    SEL selector;
};

std::function<void(Sent)>* listener = nullptr;

ffi_type* structureOf(std::size_t doubles) {
    static std::array<ffi_type*, 7> elements{&ffi_type_double, &ffi_type_double, &ffi_type_double,
                                             &ffi_type_double, &ffi_type_double, &ffi_type_double,
                                             nullptr};
    static std::array<ffi_type, 7> types = [] {
        std::array<ffi_type, 7> made{};
        for (std::size_t count = 1; count < made.size(); ++count)
            made[count] = {0, 0, FFI_TYPE_STRUCT, elements.data() + (6 - count)};
        return made;
    }();
    return &types[doubles];
}

// What an answer or an argument of that encoding is for a call; nothing for those that no message here has.
ffi_type* typeOf(char first, std::string_view encoding) {
    switch (first) {
        case 'v':
            return &ffi_type_void;
        case 'f':
            return &ffi_type_float;
        case 'd':
            return &ffi_type_double;
        case 'B':
        case 'c':
        case 'C':
            return &ffi_type_uint8;
        case 'i':
        case 'I':
            return &ffi_type_sint32;
        case 'q':
        case 'Q':
        case 'l':
        case 'L':
            return &ffi_type_sint64;
        case '@':
        case '#':
        case ':':
        case '^':
        case '*':
            return &ffi_type_pointer;
        case '{':
            break;
        default:
            return nullptr;
    }
    if (encoding.starts_with("{CGRect")) return structureOf(4);
    if (encoding.starts_with("{CGAffineTransform")) return structureOf(6);
    if (encoding.starts_with("{CGPoint") || encoding.starts_with("{CGSize")) return structureOf(2);
    return nullptr;
}

// The bytes of an argument as its type wants them.
union Bytes {
    std::uint8_t byte;
    std::int32_t word;
    std::int64_t integer;
    float single;
    double real;
    const void* pointer;
    CGRect rect;
    CGAffineTransform transform;
};

struct Filled {
    Bytes& bytes;
    const ffi_type* type;
    void whole(std::int64_t value) const {
        if (type == &ffi_type_uint8)
            bytes.byte = static_cast<std::uint8_t>(value);
        else if (type == &ffi_type_sint32)
            bytes.word = static_cast<std::int32_t>(value);
        else
            bytes.integer = value;
    }
    void operator()(bool value) const { whole(value); }
    void operator()(long value) const { whole(value); }
    void operator()(double value) const {
        if (type == &ffi_type_float)
            bytes.single = static_cast<float>(value);
        else
            bytes.real = value;
    }
    void operator()(const Strong<Object>& value) const { bytes.pointer = value.get(); }
    void operator()(Class value) const { bytes.pointer = value; }
    void operator()(SEL value) const { bytes.pointer = value; }
    void operator()(const void* value) const { bytes.pointer = value; }
    template <class Structure>
    void operator()(const Structure& value) const {
        std::memcpy(&bytes, &value, sizeof value);
    }
};

}  // namespace

struct Asked::Message {
    Strong<Object> receiver;
    SEL selector = nullptr;
    std::vector<Argument> kept;
    std::vector<ffi_type*> types;
    std::vector<Bytes> values;
    std::vector<void*> places;
    ffi_cif call{};

    // Whether it can be sent; `arguments` are the journal's.
    bool prepare(Sent sent, std::vector<Argument> arguments);
    void send();
};

bool Asked::Message::prepare(Sent sent, std::vector<Argument> arguments) {
    Class cls = object_getClass(sent.receiver);
    Method method = class_getInstanceMethod(cls, sent.selector);
    if (!method || method_getNumberOfArguments(method) != arguments.size() + 2) return false;
    if (isOfLibrary(reinterpret_cast<const void*>(method_getImplementation(method)))) return false;
    const auto typeAt = [&](unsigned index) {
        char* text = method_copyArgumentType(method, index);
        ffi_type* type = typeOf(*text, text);
        std::free(text);
        return type;
    };
    char* text = method_copyReturnType(method);
    ffi_type* answer = typeOf(*text, text);
    std::free(text);
    receiver = platform::retained(Object(sent.receiver));
    selector = sent.selector;
    kept = std::move(arguments);
    for (unsigned i = 0; i < kept.size() + 2; ++i) types.push_back(typeAt(i));
    if (!answer || std::ranges::count(types, nullptr) > 0) return false;
    values.resize(types.size());
    values[0].pointer = receiver.get();
    values[1].pointer = selector;
    for (std::size_t i = 0; i < kept.size(); ++i)
        std::visit(Filled{values[i + 2], types[i + 2]}, kept[i]);
    for (Bytes& value : values) places.push_back(&value);
    return ffi_prep_cif(&call, FFI_DEFAULT_ABI, static_cast<unsigned>(types.size()), answer,
                        types.data()) == FFI_OK;
}

void Asked::Message::send() {
    alignas(16) std::array<std::byte, sizeof(CGAffineTransform)> answer;
    IMP implementation = objc_msg_lookup(receiver.get(), selector);
    ffi_call(&call, reinterpret_cast<void (*)()>(implementation), answer.data(), places.data());
}

Asked::Asked(const std::function<void()>& work) {
    std::optional<Sent> before;
    // The latest message, now that its arguments are known.
    const auto take = [&] {
        if (!before) return;
        const Sent sent = *std::exchange(before, std::nullopt);
        listener = nullptr;
        auto arguments = simulator::Journal::last(class_getName(object_getClass(sent.receiver)),
                                                  sel_getName(sent.selector));
        auto message = std::make_unique<Message>();
        if (arguments && message->prepare(sent, std::move(*arguments)))
            messages_.push_back(std::move(message));
    };
    std::function<void(Sent)> note = [&](Sent sent) {
        take();
        if (sent.receiver && !isLeftOut(sel_getName(sent.selector))) before = sent;
        listener = &note;
    };
    listener = &note;
    work();
    take();
    listener = nullptr;
}

Asked::~Asked() = default;

void Asked::again() const {
    for (const auto& message : messages_) message->send();
}

}  // namespace benchmarks

extern "C" __attribute__((visibility("default"))) IMP objc_msg_lookup(id receiver, SEL selector) {
    static const auto system =
        reinterpret_cast<IMP (*)(id, SEL)>(dlsym(RTLD_NEXT, "objc_msg_lookup"));
    if (benchmarks::listener && benchmarks::isOfLibrary(__builtin_return_address(0)))
        (*benchmarks::listener)({receiver, selector});
    return system(receiver, selector);
}
