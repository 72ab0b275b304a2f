// UIResponder: what it does not handle goes to the next one.
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

UIResponder next(UIResponder self) { return self.send<"nextResponder", UIResponder>(); }

}  // namespace

void registerResponder() {
    table<UIResponder, Object>()
        .method<"nextResponder">([](UIResponder) { return UIResponder(); })
        .method<"touchesBegan:withEvent:">([](UIResponder self, Object touches, UIEvent event) {
            next(self).send<"touchesBegan:withEvent:">(touches, event);
        })
        .method<"touchesMoved:withEvent:">([](UIResponder self, Object touches, UIEvent event) {
            next(self).send<"touchesMoved:withEvent:">(touches, event);
        })
        .method<"touchesEnded:withEvent:">([](UIResponder self, Object touches, UIEvent event) {
            next(self).send<"touchesEnded:withEvent:">(touches, event);
        })
        .method<"touchesCancelled:withEvent:">([](UIResponder self, Object touches, UIEvent event) {
            next(self).send<"touchesCancelled:withEvent:">(touches, event);
        })
        .method<"canBecomeFirstResponder">([](UIResponder) -> bool { return false; })
        .method<"becomeFirstResponder">([](UIResponder) -> bool { return false; })
        .method<"resignFirstResponder">([](UIResponder) -> bool { return true; })
        .method<"isFirstResponder">([](UIResponder) -> bool { return false; });
}

}  // namespace simulator
