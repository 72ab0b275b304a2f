// A real phone of every system: nothing of what the tables say its system lacks is there, under any class that
// stands in; what its system raises on, it raises on.
#include <gtest/gtest.h>

#include "simulator/phone/extension.hpp"
#include "simulator/phone/hook_report_notes.hpp"
#include "simulator/runtime/presence.hpp"
#include "simulator/scenario/phone.hpp"

namespace simulator {
namespace {

class RealPhone : public testing::TestWithParam<const char*> {
  protected:
    void boot() {
        phone_->system(GetParam());
        phone_->real();
        phone_->withoutExtension();
        phone_->boot();
    }
    platform::AutoreleasePool pool_;
    std::unique_ptr<Phone> phone_ = makePhone({});
};

bool answers(std::string_view className, Kind kind, std::string_view name) {
    Class cls = objc_getClass(std::string(className).c_str());
    if (!cls || kind == Kind::type) return cls != nullptr;
    const std::string text(name);
    if (kind == Kind::variable) return class_getInstanceVariable(cls, text.c_str()) != nullptr;
    if (kind == Kind::classMethod) cls = object_getClass(reinterpret_cast<id>(cls));
    return class_getInstanceMethod(cls, sel_registerName(text.c_str())) != nullptr;
}

TEST_P(RealPhone, BootsAndHasNothingThatItsSystemLacks) {
    boot();
    EXPECT_FALSE(phone_->crashed()) << *phone_->crashed();
    eachSystemName([](std::string_view cls, Kind kind, std::string_view name) {
        if (finding(cls, kind, name, realRelease())->found != Found::absent) return;
        EXPECT_FALSE(answers(cls, kind, name)) << static_cast<char>(kind) << cls << " " << name;
    });
}

TEST_P(RealPhone, RaisesOnAMessageThatItsSystemLacks) {
    boot();
    platform::Object controller(platform::classObject(objc_getClass("SBControlCenterController")));
    bool raised = false;
    try {
        controller.send<"sharedInstance", platform::Object>().send<"preparedForExpanding">();
    } catch (...) {
        raised = true;
    }
    EXPECT_TRUE(raised);
}

TEST_P(RealPhone, MissingTakesAwayMore) {
    phone_->missingClass("SBMediaController");
    boot();
    EXPECT_FALSE(answers("SBMediaController", Kind::type, ""));
    EXPECT_TRUE(answers("SBLockScreenManager", Kind::type, ""));
}

INSTANTIATE_TEST_SUITE_P(Systems, RealPhone,
                         testing::Values("11.0", "11.1", "11.4", "12.0", "12.4", "13.0", "13.3",
                                         "13.4", "13.5", "13.6", "14.0", "14.2", "14.6", "14.8"));

TEST(RealPhones, AreOfKnownSystems) {
    auto phone = makePhone({});
    phone->system("15.0");
    phone->real();
    EXPECT_THROW(phone->boot(), PhoneError);
}

TEST(HookReportNotes, SayWhereNobodyLooked) {
    const std::string known =
        "1 -[SBHomeScreenView didMoveToWindow] own, expected v@:, met v@:, calls 1";
    const std::string unknown =
        "35 -[RPControlCenterModuleViewController setAvailable:] own, calls 0";
    EXPECT_EQ(withNotes(known + "\n" + unknown + "\nform x: y\n", 1303),
              known + "\n" + unknown + ", ? as on 11.3\nform x: y\n");
    EXPECT_EQ(withNotes(unknown + "\n", 1104), unknown + "\n");
}

}  // namespace
}  // namespace simulator
