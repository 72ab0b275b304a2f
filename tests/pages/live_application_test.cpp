// Hosting on phones as real ones are, none of whose processes knows of scenes: the application is shown
// live in the host's view.
#include "pages/live_application.hpp"

#include <algorithm>

#include "hooks/hook_report.hpp"
#include "pages/application_host.hpp"
#include "platform/springboard_icons.hpp"
#include "simulator/runtime/system_log.hpp"
#include "tests/library_phone.hpp"
#include "tests/order.hpp"

namespace vantori::tests {
namespace {

constexpr const char* notes = "com.example.notes";
constexpr const char* maps = "com.example.maps";

id refuse(id raw, SEL, id) {
    Object(raw).send<"release">();
    return nullptr;
}
id refuseController(id raw, SEL, id, id) {
    Object(raw).send<"release">();
    return nullptr;
}

class RealHost : public LibraryPhone {
  protected:
    void bootReal(const char* system) {
        phone_->system(system);
        phone_->real();
        boot();
        host_ = create<VNTApplicationHostViewController>();
    }
    static SBApplication application(const char* identifier) {
        return SBApplicationController::shared().application(NSString::from(identifier));
    }
    template <class Replacement>
    static void replace(const char* cls, SEL message, Replacement replacement) {
        IMP system = nullptr;
        MSHookMessageEx(objc_getClass(cls), message, reinterpret_cast<IMP>(replacement), &system);
    }
    // The controller whose view the host shows; the scene is in it once it hosts an application.
    Object live() {
        NSArray children = host_.send<"childViewControllers", NSArray>();
        return children.count() > 0 ? children.at(0) : Object();
    }
    bool shows() { return live().send<"isHostingAnApp", bool>(); }
    int entities() {
        return phone_->calledCount("SBDeviceApplicationSceneEntity",
                                   "initWithApplicationForMainDisplay:");
    }
    // Told once, with that reason, word for word.
    static void expectOff(const std::string& reason) {
        const std::string line = "[Vantori] hosting an application is off: " + reason;
        EXPECT_EQ(std::ranges::count(simulator::SystemLog::shared().lines(), line), 1);
    }
    Strong<VNTApplicationHostViewController> host_;
};

class HostOnSystem : public RealHost, public testing::WithParamInterface<const char*> {};

TEST_P(HostOnSystem, ShowsTheApplicationOnceItsSceneIsMade) {
    bootReal(GetParam());
    host_.launchApplication(application(notes));
    EXPECT_EQ(phone_->launchedSuspendedCount(notes), 1);
    EXPECT_FALSE(shows());  // made later, on the main queue
    phone_->wait(0.5);
    EXPECT_TRUE(shows());
    ASSERT_EQ(host_.view().subviews().count(), 1u);
    EXPECT_EQ(host_.view().subviews().at<UIView>(0).frame(), host_.view().bounds());
    EXPECT_EQ(phone_->loggedCount("[Vantori]"), 0);
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(Systems, HostOnSystem,
                         testing::Values("11.0", "11.4", "12.4", "13.3", "13.5", "14.2", "14.8"));

// Live, and as large as the host whatever becomes of that.
TEST_F(RealHost, TheViewIsLiveAndStretches) {
    bootReal("14.2");
    Spy<"setIgnoresOcclusions:", bool>::on("SBAppViewController", [](Object, bool ignores) {
        Order::note(ignores ? "ignores" : "heeds");
    });
    Spy<"setRequestedMode:", long>::on("SBAppViewController", [](Object, long mode) {
        Order::note("mode " + std::to_string(mode));
    });
    Spy<"didMoveToParentViewController:", id>::on("SBAppViewController", [&](Object, id parent) {
        const bool isIn = host_.view().subviews().count() == 1;
        Order::note(Object(parent) == host_ && isIn ? "in its host" : "elsewhere");
    });
    host_.launchApplication(application(notes));
    EXPECT_EQ(Order::events(), (std::vector<std::string>{"heeds", "mode 2", "in its host"}));
    UIView view = host_.view().subviews().at<UIView>(0);
    EXPECT_EQ((view.send<"autoresizingMask", unsigned long>()), 2u | 16u);  // width and height
    const auto made =
        phone_->lastCall("SBAppViewController", "initWithIdentifier:andApplicationSceneEntity:");
    ASSERT_TRUE(made);
    const NSString identifier(*simulator::scenario::asObject(made->front()));
    EXPECT_STREQ(identifier.utf8(), "com.ferolin.vantori.host");
}

// As a container lets a child go: told before, out of the tree, out of the list.
TEST_F(RealHost, TheViewIsLetGoInOrder) {
    bootReal("14.2");
    host_.launchApplication(application(notes));
    Strong<UIViewController> child = retained(as<UIViewController>(live()));
    const auto note = [&](const char* what) {
        Order::note(std::string(what) + (child.view().superview() ? " in the tree" : " out of it"));
    };
    Spy<"invalidate">::on("SBAppViewController", [&](Object) { note("invalidated"); });
    Spy<"willMoveToParentViewController:", id>::on(
        "SBAppViewController", [&](Object, id parent) { note(parent ? "moves" : "leaves"); });
    Spy<"removeFromParentViewController">::on("SBAppViewController", [&](Object) { note("left"); });
    host_.launchApplicationWithApplication(application(notes));
    EXPECT_EQ(Order::events(), (std::vector<std::string>{"invalidated in the tree",
                                                         "leaves in the tree", "left out of it"}));
}

TEST_F(RealHost, AnotherTakesThePlace) {
    bootReal("14.2");
    host_.launchApplication(application(notes));
    Strong<Object> first = retained(live());
    host_.launchApplication(application(maps));
    phone_->wait(0.5);
    EXPECT_FALSE((first.send<"isHostingAnApp", bool>()));  // invalidated before its scene came
    EXPECT_FALSE(live() == first);
    EXPECT_TRUE(shows());
    EXPECT_EQ(host_.view().subviews().count(), 1u);
    EXPECT_EQ((host_.send<"childViewControllers", NSArray>().count()), 1u);
}

TEST_F(RealHost, LaunchingIntoTheViewLetsItGo) {
    bootReal("13.5");
    host_.launchApplication(application(notes));
    phone_->wait(0.5);
    Strong<Object> controller = retained(live());
    host_.launchApplicationWithApplication(application(maps));
    EXPECT_EQ(host_.view().subviews().count(), 0u);
    EXPECT_FALSE((controller.send<"isHostingAnApp", bool>()));
    EXPECT_EQ(phone_->calledCount("SBAppViewController", "invalidate"), 1);
}

TEST_F(RealHost, TheEndOfTheHostIsTheEndOfTheScene) {
    bootReal("14.2");
    {
        AutoreleasePool pool;
        host_.launchApplication(application(notes));
        phone_->clear();  // the journal holds the latest arguments, the host among them
        host_ = {};
    }
    phone_->wait(0.5);
    EXPECT_EQ(phone_->calledCount("SBAppViewController", "invalidate"), 1);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(RealHost, NothingToLaunchIsNothing) {
    bootReal("14.2");
    host_.launchApplication({});
    host_.launchApplication(application("com.example.gone"));
    EXPECT_EQ(entities(), 0);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(RealHost, ARefusedEntityTurnsItOff) {
    bootReal("14.2");
    replace("SBDeviceApplicationSceneEntity", selector<"initWithApplicationForMainDisplay:">(),
            &refuse);
    host_.launchApplication(application(notes));
    host_.launchApplication(application(maps));
    phone_->wait(0.5);
    EXPECT_EQ(host_.view().subviews().count(), 0u);
    expectOff("the system gives the application no scene entity");
    EXPECT_NE(std::string(hookReport().utf8())
                  .find("form hosting an application: a live view of its scene, switched off\n"),
              std::string::npos);
    EXPECT_EQ(phone_->launchedSuspendedCount(maps), 1);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(RealHost, ARefusedControllerTurnsItOff) {
    bootReal("12.4");
    replace("SBAppViewController", selector<"initWithIdentifier:andApplicationSceneEntity:">(),
            &refuseController);
    host_.launchApplication(application(notes));
    host_.launchApplication(application(notes));
    EXPECT_EQ(entities(), 1);  // not asked again
    expectOff("the system gives no controller for the application's scene");
    EXPECT_FALSE(phone_->crashed());
}

}  // namespace
}  // namespace vantori::tests
