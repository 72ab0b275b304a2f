#include "simulator/uikit/feedback/feedback.hpp"

#include <map>

#include "simulator/runtime/history.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

namespace {

struct FeedbackState {
    long style;
};

std::map<long, long>& counts() {
    static auto& all = *new std::map<long, long>;
    return all;
}

}  // namespace

long hapticCount(long style) {
    auto found = counts().find(style);
    return found == counts().end() ? 0 : found->second;
}

void clearHapticCounts() { counts().clear(); }

void registerFeedback() {
    table<UIImpactFeedbackGenerator, Object, FeedbackState>()
        .method<"init">([](UIImpactFeedbackGenerator self) -> UIImpactFeedbackGenerator {
            return self.send<"initWithStyle:", UIImpactFeedbackGenerator>(
                UIImpactFeedbackGenerator::medium);
        })
        .method<"initWithStyle:">([](UIImpactFeedbackGenerator self,
                                     long style) -> UIImpactFeedbackGenerator {
            auto made = super<UIImpactFeedbackGenerator, "init", UIImpactFeedbackGenerator>(self);
            if (made) stateOf<FeedbackState>(made).style = style;
            return made;
        })
        .method<"prepare">([](UIImpactFeedbackGenerator) {})
        .method<"impactOccurred">([](UIImpactFeedbackGenerator g) {
            const long style = stateOf<FeedbackState>(g).style;
            ++counts()[style];
            History::shared().happened(Happening::haptic, std::to_string(style));
        });
}

}  // namespace simulator
