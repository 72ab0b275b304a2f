// The application host: its view, and starting an application until its process has a main scene.
#include "pages/application_host.hpp"

#include <algorithm>

#include "platform/springboard_icons.hpp"
#include "simulator/runtime/system_log.hpp"
#include "simulator/springboard/applications/processes.hpp"
#include "tests/library_phone.hpp"

namespace vantori::tests {
namespace {

class Host : public LibraryPhone {
  protected:
    static constexpr const char* notes = "com.example.notes";
    static constexpr const char* line = "[Vantori] mainScene not found, create process again.";

    void bootHost() {
        boot();
        host_ = create<VNTApplicationHostViewController>();
        ASSERT_TRUE(host_);
    }
    static SBApplication application(const char* identifier = notes) {
        return SBApplicationController::shared().application(NSString::from(identifier));
    }
    int suspended() { return phone_->launchedSuspendedCount(notes); }
    int creations() {
        return phone_->calledCount("FBProcessManager", "createApplicationProcessForBundleID:");
    }
    Strong<VNTApplicationHostViewController> host_;
};

TEST_F(Host, StandsInTheMiddleOfTheBackdrop) {
    bootHost();
    // y = (812 - 100) / 2 + 7.5, height = (812 - 115) / 2
    EXPECT_EQ(host_.view().frame(), (rect(0, 363.5, 375, 348.5)));
    EXPECT_TRUE(host_.view().layer().masksToBounds());
    EXPECT_FALSE((host_.send<"applicationHostWrapperView", Object>()));
}

TEST_F(Host, StandsThereOnASmallScreenToo) {
    phone_->device("iPhone8,4");  // 320 x 568
    bootHost();
    EXPECT_EQ(host_.view().frame(), (rect(0, 241.5, 320, 226.5)));
}

TEST_F(Host, KeepsAWrapper) {
    bootHost();
    auto wrapper = create<FBSceneHostWrapperView>();
    host_.send<"setApplicationHostWrapperView:">(wrapper);
    EXPECT_EQ((host_.send<"applicationHostWrapperView", Object>()), wrapper);
}

TEST_F(Host, ASceneAtOnceNeedsNoRetry) {
    bootHost();
    host_.launchApplication(application());
    EXPECT_EQ(phone_->loggedCount(line), 0);
    EXPECT_EQ(suspended(), 1);
    EXPECT_EQ(creations(), 1);
    phone_->wait(3);
    EXPECT_EQ(suspended(), 1);
    EXPECT_EQ(creations(), 1);
    EXPECT_EQ(phone_->launchedCount(notes), 0);
}

struct Retries {
    int sceneAfter, failures;
};
class LateScene : public Host, public testing::WithParamInterface<Retries> {};

// Each failed test: one line, one more attempt at once, one more a second later.
TEST_P(LateScene, IsAskedForAgainEagerly) {
    const int failures = GetParam().failures;
    phone_->sceneAfter(notes, GetParam().sceneAfter);
    bootHost();
    phone_->wait(2);  // so that a second from now is not the phone's first
    host_.launchApplication(application());
    EXPECT_EQ(phone_->loggedCount(line), failures);
    EXPECT_EQ(suspended(), 1 + failures);
    EXPECT_EQ(creations(), 1 + failures);
    phone_->wait(0.9);
    EXPECT_EQ(suspended(), 1 + failures);
    phone_->wait(0.2);
    EXPECT_EQ(suspended(), 1 + 2 * failures);
    EXPECT_EQ(creations(), 1 + 2 * failures);
    phone_->wait(5);
    EXPECT_EQ(suspended(), 1 + 2 * failures);
    EXPECT_EQ(phone_->loggedCount(line), failures);
}

// The line, word for word, then it is started; a second later, too, that comes before its process.
TEST_F(Host, EachAttemptGoesInOrder) {
    phone_->sceneAfter(notes, 2);
    bootHost();
    host_.launchApplication(application());
    EXPECT_EQ(std::ranges::count(simulator::SystemLog::shared().lines(), line), 1);
    using Kind = simulator::Event::Kind;
    const std::vector<simulator::Event> lineFirst{
        {Kind::logged, line, ""},
        {Kind::called, "SpringBoard", "launchApplicationWithIdentifier:suspended:"}};
    EXPECT_EQ(phone_->inOrder(lineFirst).met, 2u);
    phone_->clear();
    phone_->wait(1.1);
    const std::vector<simulator::Event> inOrder{
        {Kind::called, "SpringBoard", "launchApplicationWithIdentifier:suspended:"},
        {Kind::called, "FBProcessManager", "createApplicationProcessForBundleID:"}};
    EXPECT_EQ(phone_->inOrder(inOrder).met, 2u);
}

INSTANTIATE_TEST_SUITE_P(Creations, LateScene,
                         testing::Values(Retries{1, 0}, Retries{2, 1}, Retries{3, 2},
                                         Retries{10, 9}, Retries{1000, 999}));

TEST_F(Host, TheDelayedAttemptOutlivesTheHost) {
    phone_->sceneAfter(notes, 2);
    bootHost();
    host_.launchApplication(application());
    host_ = {};
    phone_->wait(2);
    EXPECT_EQ(suspended(), 3);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(Host, LaunchingIntoTheViewEmptiesIt) {
    bootHost();
    for (int i = 0; i < 3; ++i) {
        auto part = create<UIView>();
        host_.view().addSubview(part);
    }
    host_.launchApplicationWithApplication(application());
    EXPECT_EQ(host_.view().subviews().count(), 0u);
    EXPECT_EQ(suspended(), 1);
    EXPECT_EQ(creations(), 0);
}

TEST_F(Host, NothingToLaunchIsNothing) {
    bootHost();
    host_.launchApplication(application("com.example.gone"));
    host_.launchApplication({});
    host_.launchApplicationWithApplication({});
    EXPECT_EQ(creations(), 0);
    EXPECT_EQ(phone_->loggedCount(line), 0);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(Host, WithoutAProcessManagerItOnlyLaunches) {
    phone_->missingClass("FBProcessManager");
    bootHost();
    host_.launchApplication(application());
    EXPECT_EQ(suspended(), 1);
    EXPECT_EQ(phone_->loggedCount(line), 0);
}

TEST_F(Host, WithoutAWrapperClassNothingChanges) {
    phone_->missingClass("FBSceneHostWrapperView");
    bootHost();
    host_.launchApplication(application());
    EXPECT_EQ(creations(), 1);
    EXPECT_FALSE(phone_->crashed());
}

}  // namespace
}  // namespace vantori::tests
