// Looking a method up, laying its arguments out in memory and calling it.
#include "simulator/scenario/messages.hpp"

#include <algorithm>
#include <cstddef>

#include "simulator/scenario/encoding.hpp"
#include "simulator/scenario/errors.hpp"
#include "simulator/scenario/objective_c.hpp"

namespace simulator::scenario {
namespace {

// A method as the receiver's class has it, or as a forwarding object describes it.
struct Target {
    SEL selector = nullptr;
    const char* encoding = nullptr;
};

Target forwardedTarget(id receiver, const std::string& selector) {
    const Class cls = object_getClass(receiver);
    const SEL describe = sel_registerName("methodSignatureForSelector:");
    if (class_getInstanceMethod(cls, describe) == nullptr) return {};
    const id signature =
        send<id>(receiver, "methodSignatureForSelector:", sel_registerName(selector.c_str()));
    const auto* encoding = send<const char*>(signature, "methodType");
    if (encoding == nullptr) return {};
    // A forwarded message finds its signature by the type that the selector carries.
    return {sel_registerTypedName(selector.c_str(), encoding), encoding};
}

Target findTarget(id receiver, const std::string& selector) {
    const Class cls = object_getClass(receiver);
    const Method method = class_getInstanceMethod(cls, sel_registerName(selector.c_str()));
    if (method == nullptr) return forwardedTarget(receiver, selector);
    return {method_getName(method), method_getTypeEncoding(method)};
}

std::string described(id receiver, const std::string& selector) {
    return std::string(isClass(receiver) ? "+[" : "-[") + classNameOf(receiver) + " " + selector +
           "]";
}

// Room for one value of a type, aligned for any.
class Slot {
  public:
    explicit Slot(const Type& type)
        : room_(std::max(type.size(), sizeof(ffi_arg)) / sizeof(std::max_align_t) + 1) {}

    void* get() { return room_.data(); }

  private:
    std::vector<std::max_align_t> room_;
};

Value call(id receiver, const Target& target, const Signature& signature,
           const std::vector<Value>& arguments, const std::string& name) {
    std::vector<ffi_type*> types{&ffi_type_pointer, &ffi_type_pointer};
    SEL selector = target.selector;
    std::vector<void*> places{&receiver, &selector};
    std::vector<Slot> slots;
    slots.reserve(arguments.size());
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const Type& type = signature.arguments[index];
        slots.emplace_back(type);
        try {
            type.store(arguments[index], slots.back().get());
        } catch (const EvaluationError& error) {
            throw EvaluationError("argument " + std::to_string(index + 1) + " of " + name + ": " +
                                  error.what());
        }
        types.push_back(type.forCalls());
        places.push_back(slots.back().get());
    }
    ffi_cif interface;
    const auto count = static_cast<unsigned>(types.size());
    if (ffi_prep_cif(&interface, FFI_DEFAULT_ABI, count, signature.result.forCalls(),
                     types.data()) != FFI_OK)
        throw EvaluationError(name + " cannot be called by its encoding " + target.encoding);
    Slot result(signature.result);
    const auto function = reinterpret_cast<void (*)()>(objc_msg_lookup(receiver, selector));
    // A small integer comes back widened to a word, of which the low bytes come first.
    static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__);
    ffi_call(&interface, function, result.get(), places.data());
    return signature.result.load(result.get());
}

id receiverOf(const Value& value) {
    if (const auto object = asObject(value)) return *object;
    if (!std::holds_alternative<Number>(value))
        throw EvaluationError("a message cannot be sent to " + printed(value));
    const char* encoding = "@";
    id box = nullptr;
    Type::read(encoding).store(value, &box);
    return box;
}

}  // namespace

Value sendMessage(const Value& receiver, const std::string& selector,
                  const std::vector<Value>& arguments) {
    const id object = receiverOf(receiver);
    if (object == nullptr) return Nothing{};
    const std::string name = described(object, selector);
    const Target target = findTarget(object, selector);
    if (target.selector == nullptr) throw EvaluationError(name + ": unknown selector");
    const Signature signature = readSignature(target.encoding);
    if (signature.arguments.size() != arguments.size())
        throw EvaluationError(name + " takes " + std::to_string(signature.arguments.size()) +
                              " arguments, got " + std::to_string(arguments.size()));
    return call(object, target, signature, arguments, name);
}

bool understands(objc_object* receiver, const std::string& selector) {
    return class_getInstanceMethod(object_getClass(receiver), sel_registerName(selector.c_str())) !=
           nullptr;
}

}  // namespace simulator::scenario
