// An application that is shown in the toolbar's area: a controller of the system has its scene made and
// draws it, live, in a view of its own.
#pragma once

#include "platform/form.hpp"
#include "platform/springboard_icons.hpp"

namespace vantori {

using namespace platform;

using SceneEntity = InstanceMethod<"SBDeviceApplicationSceneEntity",
                                   "initWithApplicationForMainDisplay:", Object(SBApplication)>;
using LiveView =
    InstanceMethod<"SBAppViewController",
                   "initWithIdentifier:andApplicationSceneEntity:", Object(NSString, Object)>;

class LiveApplication {
  public:
    LiveApplication() = default;
    LiveApplication(const LiveApplication&) = delete;
    LiveApplication& operator=(const LiveApplication&) = delete;
    // The host's views and children go with it.
    ~LiveApplication() { controller_.sendIfAnswered<"invalidate">(); }

    // Fills the view of the host with the application, in place of one that is there. Answers what was
    // refused; null when the application is shown, or will be once its scene is made.
    const char* show(SBApplication application, UIViewController host);
    // Takes it away and lets the system have its scene back.
    void end();

  private:
    Strong<UIViewController> controller_;
};

}  // namespace vantori
