#include "simulator/uikit/application/application.hpp"

#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

struct ApplicationState {
    Object delegate;
    bool idleTimerDisabled;
};

// Kept for ever, as a process has one application.
Strong<UIApplication>& sharedSlot() {
    static auto& slot = *new Strong<UIApplication>;
    return slot;
}

UIApplication shared() {
    if (!sharedSlot()) sharedSlot() = create<UIApplication>();
    return sharedSlot();
}

// Without a target the action goes up the responders from the sender.
bool sendAction(SEL action, Object target, Object sender, Object event) {
    Object receiver = target;
    if (!receiver) {
        receiver = sender;
        while (receiver && !receiver.respondsTo(action)) {
            receiver = receiver.send<"nextResponder", Object>();
        }
    }
    if (!receiver) return false;
    sendMessage<void>(receiver.get(), action, sender.get(), event.get());
    return true;
}

AddressOpener addressOpener{[](const std::string&) { return false; }, [](const std::string&) {}};

std::string addressIn(NSURL url) { return text(url.send<"absoluteString", NSString>()); }

bool canOpen(NSURL url) { return url && addressOpener.opens(addressIn(url)); }

// The other application comes to the front in a later turn, never inside the message.
bool open(NSURL url) {
    if (!canOpen(url)) return false;
    Clock::shared().post([address = addressIn(url)] { addressOpener.open(address); });
    return true;
}

void openThenTell(NSURL url, BlockRef<void(bool)> completion) {
    bool opened = open(url);
    Clock::shared().post([kept = KeptBlock<void(bool)>(completion), opened] { kept(opened); });
}

}  // namespace

void setAddressOpener(AddressOpener opener) { addressOpener = opener; }

void setSharedApplication(UIApplication application) { sharedSlot() = retained(application); }

void registerApplication() {
    table<UIApplication, UIResponder, ApplicationState>()
        .classMethod<"sharedApplication">([](Class) { return shared(); })
        .method<"keyWindow">([](UIApplication) { return keyWindow(); })
        .method<"windows">([](UIApplication) -> NSArray {
            auto array = NSMutableArray::empty();
            for (auto& window : applicationWindows()) array.add(window);
            return array;
        })
        .method<"sendAction:to:from:forEvent:">(
            [](UIApplication, SEL action, Object target, Object sender, Object event) -> bool {
                return sendAction(action, target, sender, event);
            })
        .method<"statusBarOrientation">([](UIApplication) { return screen().orientation; })
        .method<"statusBarFrame">([](UIApplication) -> CGRect {
            CGRect bounds = screen().bounds();
            double height = screen().portrait.height >= 812 ? 44 : 20;
            return rect(0, 0, bounds.size.width, height);
        })
        .method<"canOpenURL:">([](UIApplication, NSURL url) { return canOpen(url); })
        .method<"openURL:">([](UIApplication, NSURL url) { return open(url); })
        .method<"openURL:options:completionHandler:">(
            [](UIApplication, NSURL url, NSDictionary, BlockRef<void(bool)> completion) {
                openThenTell(url, completion);
            })
        .method<"applicationState">([](UIApplication) -> long { return 0; })
        .flag<"isIdleTimerDisabled",
              "setIdleTimerDisabled:", &ApplicationState::idleTimerDisabled>()
        .property<"delegate", &ApplicationState::delegate>();
}

}  // namespace simulator
