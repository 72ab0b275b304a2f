// Forms: what one system calls so another calls otherwise. A feature says in one table which forms of
// its platform operations it knows, the required one first, each with what it needs to be there:
//
//     using OnForReason = InstanceMethod<"SBUIFlashlightController", "turnFlashlightOnForReason:", void(NSString)>;
//     using PlainlyOn = InstanceMethod<"SBUIFlashlightController", "turnFlashlightOn", void()>;
//
//     struct TorchFunctions {
//         void (*turnOn)(SBUIFlashlightController);
//     };
//     constexpr TorchFunctions reasoned{[](auto torch) { OnForReason::send(torch, "..."_ns); }};
//     constexpr TorchFunctions plain{[](auto torch) { PlainlyOn::send(torch); }};
//
//     using Torch = Feature<"flashlight", Form<"with a reason", reasoned, OnForReason>,
//                                         Form<"plain", plain, PlainlyOn>>;
//
//     if (auto* torch = Torch::taken()) torch->turnOn(controller);
//
// The first form whose needs are met is taken, when the feature is first used, and kept. With none the
// feature is off, in silence; it is looked for again at the next use, since frameworks load late. Only a
// form that fails leaves a line in the log. A need is any type with isThere() and text. A table is also one line
// of text in the library: the audit of the device build reads it and holds each need against what the
// systems have.
#pragma once

#include "platform/encoding.hpp"
#include "platform/foundation.hpp"
#include "platform/loading.hpp"

namespace platform {

namespace detail {

// "-[Class message] encoding", "+[Class message] encoding".
template <FixedString sign, FixedString owner, FixedString message, class Encoding>
inline constexpr auto methodText = sign + FixedString{"["} + owner + FixedString{" "} + message +
                                   FixedString{"] "} + Encoding::value;

}  // namespace detail

// A method of a class of the system, its own or inherited. What is needed is also how it is sent, so
// that the signature is written once.
template <FixedString owner, FixedString message, class Signature>
struct InstanceMethod;
template <FixedString owner, FixedString message, class R, class... A>
struct InstanceMethod<owner, message, R(A...)> {
    static constexpr auto text = detail::methodText<"-", owner, message, MethodEncoding<R, A...>>;
    static bool isThere() {
        Class cls = objc_getClass(owner.data());
        return cls && class_getInstanceMethod(cls, selector<message>());
    }
    static R send(Object receiver, std::type_identity_t<A>... arguments) {
        return receiver.send<message, R>(arguments...);
    }
};

template <FixedString owner, FixedString message, class Signature>
struct ClassMethod;
template <FixedString owner, FixedString message, class R, class... A>
struct ClassMethod<owner, message, R(A...)> {
    static constexpr auto text = detail::methodText<"+", owner, message, MethodEncoding<R, A...>>;
    static bool isThere() {
        Class cls = objc_getClass(owner.data());
        return cls &&
               class_getInstanceMethod(object_getClass(classObject(cls)), selector<message>());
    }
    static R send(std::type_identity_t<A>... arguments) {
        return Object(classObject(objc_getClass(owner.data()))).send<message, R>(arguments...);
    }
};

template <FixedString owner>
struct ClassNamed {
    static constexpr auto text = FixedString{"class "} + owner;
    static bool isThere() { return objc_getClass(owner.data()) != nullptr; }
};

namespace detail {

template <FixedString text>
NSString keyNamed() {
    return operator""_ns < text>();
}

}  // namespace detail

// A variable that holds an object and is read by key, which would raise where it is not.
template <FixedString owner, FixedString variable>
struct InstanceVariable {
    static constexpr auto text = FixedString{"ivar "} + owner + FixedString{" "} + variable;
    static bool isThere() {
        Class cls = objc_getClass(owner.data());
        return cls && class_getInstanceVariable(cls, variable.data());
    }
    // Empty where the object is of a class that has no such variable.
    template <Handle T = Object>
    static T of(Object object) {
        if (!object || !class_getInstanceVariable(object_getClass(object.get()), variable.data()))
            return T();
        return object.send<"valueForKey:", T>(detail::keyNamed<variable>());
    }
};

namespace detail {

// Looked up once: what a library of the system does not export it never will.
template <FixedString library, FixedString symbol>
void* addressOf() {
    static std::atomic<bool> looked{false};
    static std::atomic<void*> address{nullptr};
    if (!looked.load(std::memory_order_acquire)) {
        address.store(symbolIn(library.data(), symbol.data()), std::memory_order_relaxed);
        looked.store(true, std::memory_order_release);
    }
    return address.load(std::memory_order_relaxed);
}

template <FixedString library, FixedString symbol>
inline constexpr auto symbolText = FixedString{"symbol "} + symbol + FixedString{" of "} + library;

}  // namespace detail

// A C function of a library of the system, looked up at run time. To be called only where it is there.
template <FixedString library, FixedString symbol, class Signature>
struct LibraryFunction;
template <FixedString library, FixedString symbol, class R, class... A>
struct LibraryFunction<library, symbol, R(A...)> {
    static constexpr auto text = detail::symbolText<library, symbol>;
    static bool isThere() { return detail::addressOf<library, symbol>() != nullptr; }
    static R call(std::type_identity_t<A>... arguments) {
        auto function = reinterpret_cast<R (*)(A...)>(detail::addressOf<library, symbol>());
        return function(arguments...);
    }
};

// A constant string of a library of the system: its value is at the address of the symbol.
template <FixedString library, FixedString symbol>
struct LibraryString {
    static constexpr auto text = detail::symbolText<library, symbol>;
    static bool isThere() { return detail::addressOf<library, symbol>() != nullptr; }
    static NSString value() {
        return NSString(*static_cast<id*>(detail::addressOf<library, symbol>()));
    }
};

namespace detail {

template <FixedString separator, class First, class... Rest>
inline constexpr auto joined = (First::text + ... + (separator + Rest::text));

}  // namespace detail

// One row of a table: what the form is called, the functions that do it, what they need.
template <FixedString formName, const auto& functionsOfForm, class... Needs>
struct Form {
    static constexpr auto label = formName;
    static constexpr const auto& functions = functionsOfForm;
    static constexpr auto text = formName + FixedString{" = "} + detail::joined<" & ", Needs...>;
    static bool areNeedsMet() { return (Needs::isThere() && ...); }
};

// What is known of a feature while the process runs.
struct FeatureRecord {
    const char* name;
    const char* table;                       // all of it, in one line
    std::atomic<const char*> form{nullptr};  // the name of the one that is taken
    std::atomic<bool> isOff{false};          // for good: its form failed
    std::atomic<bool> isListed{false};
    const FeatureRecord* next = nullptr;  // of those that were used
};

// The feature that was first used last, for the report; the others follow it. None at first.
const FeatureRecord* usedFeatures();

// Turns the feature off for good and says so in the log, once, with what the system gave as the error.
void switchOff(FeatureRecord& feature, const char* reason, Object error);

namespace detail {

void list(FeatureRecord& feature);

}  // namespace detail

// A table. The forms are in the order in which they are tried.
template <FixedString featureName, class First, class... Rest>
class Feature {
  public:
    using Functions = std::remove_cvref_t<decltype(First::functions)>;

    // The functions of the form that this system has. None: the feature is off. On any thread.
    static const Functions* taken() {
        if (record_.isOff.load(std::memory_order_relaxed)) return nullptr;
        const Functions* found = taken_.load(std::memory_order_acquire);
        return found ? found : look();
    }
    // The service behind the taken form refuses or fails: it is not asked again.
    static void switchOff(const char* reason, Object error = Object()) {
        platform::switchOff(record_, reason, error);
    }
    static const FeatureRecord& record() { return record_; }

    // "feature: form = need & need; form = need". Read by the audit.
    static constexpr auto formTable =
        featureName + FixedString{": "} + detail::joined<"; ", First, Rest...>;

  private:
    template <class Candidate>
    static bool take() {
        if (!Candidate::areNeedsMet()) return false;
        record_.form.store(Candidate::label.data(), std::memory_order_relaxed);
        taken_.store(&Candidate::functions, std::memory_order_release);
        return true;
    }
    static const Functions* look() {
        detail::list(record_);
        (void)(take<First>() || ... || take<Rest>());
        return taken_.load(std::memory_order_acquire);
    }

    static inline std::atomic<const Functions*> taken_{nullptr};
    static inline FeatureRecord record_{featureName.data(), formTable.data()};
};

}  // namespace platform
