// What the tests of the phone's UIKit share: a registered UIKit with an autorelease pool around each
// case, short names for frames, a visible window.
#pragma once

#include <gtest/gtest.h>

#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/controller/controller.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/uikit.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator::tests {

class UIKit : public ::testing::Test {
  protected:
    UIKit() {
        static bool registered = (registerUIKit(), true);
        EXPECT_TRUE(registered);
    }
    static Strong<UIView> makeView(CGRect frame) { return create<UIView, "initWithFrame:">(frame); }
    static Strong<UIWindow> makeWindow(CGRect frame = rect(0, 0, 375, 812)) {
        auto window = create<UIWindow, "initWithFrame:">(frame);
        window.makeKeyAndVisible();
        return window;
    }
    static void pass(double seconds) { Clock::shared().advance(seconds); }
    static void expectRect(CGRect met, CGRect wanted, double tolerance = 1e-9) {
        EXPECT_NEAR(met.origin.x, wanted.origin.x, tolerance);
        EXPECT_NEAR(met.origin.y, wanted.origin.y, tolerance);
        EXPECT_NEAR(met.size.width, wanted.size.width, tolerance);
        EXPECT_NEAR(met.size.height, wanted.size.height, tolerance);
    }

  private:
    AutoreleasePool pool_;
};

}  // namespace simulator::tests
