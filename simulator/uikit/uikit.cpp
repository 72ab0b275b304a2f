#include "simulator/uikit/uikit.hpp"

#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/alert/alert.hpp"
#include "simulator/uikit/application/application.hpp"
#include "simulator/uikit/controller/controller.hpp"
#include "simulator/uikit/feedback/feedback.hpp"
#include "simulator/uikit/foundation/additions.hpp"
#include "simulator/uikit/gesture/recognizer.hpp"
#include "simulator/uikit/image/image.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/view/control/control.hpp"
#include "simulator/uikit/view/effect/effect.hpp"
#include "simulator/uikit/view/label/label.hpp"
#include "simulator/uikit/view/scroll/scroll_view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

void registerUIKit() {
    AutoreleasePool pool;
    registerColor();
    registerLayer();
    registerResponder();
    registerTraits();
    registerScreen();
    registerDevice();
    registerView();
    registerWindow();
    registerController();
    registerApplication();
    registerTouch();
    registerRecognizers();
    registerScrollView();
    registerControl();
    registerPageControl();
    registerSwitch();
    registerFont();
    registerLabel();
    addTextMeasuring();
    registerImage();
    registerImageView();
    registerButton();
    registerEffects();
    registerFeedback();
    registerAlerts();
    addValues();
    addTimers();
    Clock::shared().everyFrame([] { layoutWindows(); });
}

}  // namespace simulator
