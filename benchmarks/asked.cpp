// The runtime's objc_msg_lookup is asked for the implementation of each message; this one stands in front
// of it and notes the receiver. When a stand-in's operation begins, the journal has the arguments.
#include "benchmarks/asked.hpp"

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "benchmarks/allocations.hpp"
#include "platform/ownership.hpp"
#include "simulator/runtime/history.hpp"
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

// Where an operation writes that answers through a pointer: the library's own place is gone by now.
constexpr std::size_t largestAnswer = 256;
const void* roomForAnswers() {
    alignas(16) static std::array<std::byte, largestAnswer> room;
    return room.data();
}

template <class R = void, class... A>
std::function<void()> message(const Sent& sent, A... arguments) {
    return [receiver = platform::retained(Object(sent.receiver)), selector = sent.selector,
            arguments...] {
        const id self = receiver.get();
        reinterpret_cast<R (*)(id, SEL, A...)>(objc_msg_lookup(self, selector))(self, selector,
                                                                                arguments...);
    };
}

// A message without arguments. Answers that are no larger than two registers may be left there.
std::function<void()> question(const Sent& sent, std::string_view answer) {
    if (answer.starts_with("{CGRect")) return message<CGRect>(sent);
    if (answer.starts_with("{CGAffineTransform")) return message<CGAffineTransform>(sent);
    return message(sent);
}

// A message with one argument, whose encoding is told.
struct Order {
    Sent sent;
    std::string_view encoding;

    std::function<void()> operator()(double value) const {
        if (encoding.starts_with('f')) return message(sent, static_cast<float>(value));
        return message(sent, value);
    }
    std::function<void()> operator()(const Strong<Object>& value) const {
        return [kept = value, send = message(sent, value.get())] { send(); };
    }
    std::function<void()> operator()(const void* value) const {
        return message(sent, value ? roomForAnswers() : nullptr);
    }
    template <class T>
    std::function<void()> operator()(const T& value) const {
        return message(sent, value);
    }
};

std::string taken(char* text) {
    const std::unique_ptr<char, decltype(&std::free)> owned(text, &std::free);
    return text;
}

bool isPointer(const Argument& argument) { return std::holds_alternative<const void*>(argument); }

// What sends it again; nothing for the library's own methods, and for shapes that none of the messages has.
std::function<void()> again(const Sent& sent, const std::vector<Argument>& arguments) {
    Method method = class_getInstanceMethod(object_getClass(sent.receiver), sent.selector);
    if (!method || isOfLibrary(reinterpret_cast<const void*>(method_getImplementation(method))))
        return {};
    switch (arguments.size()) {
        case 0:
            return question(sent, taken(method_copyReturnType(method)));
        case 1:
            return std::visit(Order{sent, taken(method_copyArgumentType(method, 2))}, arguments[0]);
        case 2:
            if (!std::ranges::all_of(arguments, isPointer)) return {};
            return message(sent, roomForAnswers(), roomForAnswers());
        default:
            return {};
    }
}

}  // namespace

Asked::Asked(const std::function<void()>& work) {
    std::optional<Sent> sent;
    std::function<void(Sent)> note = [&](Sent message) {
        sent.reset();
        if (message.receiver && !isLeftOut(sel_getName(message.selector))) sent = message;
    };
    const auto take = [&](simulator::Happening, const std::string&) {
        if (!sent) return;
        const Sent begun = *std::exchange(sent, std::nullopt);
        const auto arguments = simulator::Journal::last(
            class_getName(object_getClass(begun.receiver)), sel_getName(begun.selector));
        if (!arguments) return;
        if (auto send = benchmarks::again(begun, *arguments)) messages_.push_back(std::move(send));
    };
    auto& history = simulator::History::shared();
    const auto ticket = history.watch({simulator::Happening::called}, take);
    listener = &note;
    work();
    listener = nullptr;
    history.unwatch(ticket);
}

void Asked::again() const {
    for (const auto& send : messages_) send();
}

}  // namespace benchmarks

extern "C" __attribute__((visibility("default"))) IMP objc_msg_lookup(id receiver, SEL selector) {
    static const auto system =
        reinterpret_cast<IMP (*)(id, SEL)>(dlsym(RTLD_NEXT, "objc_msg_lookup"));
    if (benchmarks::listener && benchmarks::isOfLibrary(__builtin_return_address(0)))
        (*benchmarks::listener)({receiver, selector});
    return system(receiver, selector);
}
