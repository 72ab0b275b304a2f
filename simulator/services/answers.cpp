#include "simulator/services/answers.hpp"

#include "simulator/runtime/clock.hpp"
#include "simulator/services/callback_thread.hpp"

namespace simulator {

Manner& serviceManner() {
    static Manner manner;
    return manner;
}

void answer(const std::function<void()>& call) {
    const Manner manner = serviceManner();
    auto delivery = [call, manner] {
        for (int i = 0; i < manner.times; ++i) {
            if (manner.onOtherThread) {
                onCallbackThread(call);
            } else {
                call();
            }
        }
    };
    Clock::shared().after(manner.after, [delivery] { Clock::shared().post(delivery); });
}

}  // namespace simulator
