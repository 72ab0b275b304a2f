// The C side of the phone: tied objects, the main queue, the Darwin centre, uname, the log, and what
// counts as a crash.
#include <gtest/gtest.h>
#include <sys/utsname.h>

#include <vector>

#include "platform/core_foundation.hpp"
#include "simulator/runtime/associations.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/crash.hpp"
#include "simulator/runtime/darwin.hpp"
#include "simulator/runtime/machine.hpp"
#include "simulator/runtime/system_log.hpp"

extern "C" {
struct dispatch_queue_s;
extern dispatch_queue_s _dispatch_main_q;
std::uint64_t dispatch_time(std::uint64_t when, std::int64_t delta);
void dispatch_async_f(dispatch_queue_s* queue, void* context, void (*work)(void*));
void dispatch_after_f(std::uint64_t when, dispatch_queue_s* queue, void* context,
                      void (*work)(void*));
}

namespace {

using platform::create;
using platform::NSString;
using platform::Object;
using simulator::Clock;

unsigned long references(const Object& object) {
    return object.send<"retainCount", unsigned long>();
}

const char firstKey = 0;
const char secondKey = 0;

TEST(Associations, KeepWhatTheyRetainAndLetGoWithTheOwner) {
    platform::AutoreleasePool pool;
    auto value = create<Object>();
    {
        auto owner = create<Object>();
        objc_setAssociatedObject(owner.get(), &firstKey, value.get(), 1);
        EXPECT_EQ(objc_getAssociatedObject(owner.get(), &firstKey), value.get());
        EXPECT_EQ(objc_getAssociatedObject(owner.get(), &secondKey), nullptr);
        EXPECT_EQ(references(value), 2u);
    }
    EXPECT_EQ(references(value), 1u);
    EXPECT_EQ(simulator::associatedOwners(), 0u);
}

TEST(Associations, ReplacingAndClearingLetGo) {
    platform::AutoreleasePool pool;
    auto owner = create<Object>(), first = create<Object>(), second = create<Object>();
    objc_setAssociatedObject(owner.get(), &firstKey, first.get(), 0x301);
    objc_setAssociatedObject(owner.get(), &firstKey, second.get(), 0);
    EXPECT_EQ(references(first), 1u);
    EXPECT_EQ(references(second), 1u);
    objc_setAssociatedObject(owner.get(), &firstKey, nullptr, 1);
    EXPECT_EQ(objc_getAssociatedObject(owner.get(), &firstKey), nullptr);
    EXPECT_EQ(simulator::associatedOwners(), 0u);
}

int heard = 0;
void hear(CFNotificationCenterRef, void*, CFStringRef, const void*, CFDictionaryRef) { ++heard; }

TEST(DarwinCentre, DeliversLaterAndPostsOfOneNameAsOne) {
    platform::AutoreleasePool pool;
    heard = 0;
    platform::observeDarwin(NSString::from("a.name"), &hear);
    platform::postDarwin(NSString::from("a.name"));
    platform::postDarwin(NSString::from("a.name"));
    platform::postDarwin(NSString::from("another.name"));
    EXPECT_EQ(heard, 0);
    Clock::shared().turn();
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(simulator::darwinPosts("a.name"), 2);
    EXPECT_EQ(simulator::darwinPosts("another.name"), 1);
    platform::postDarwin(NSString::from("a.name"));
    Clock::shared().turn();
    EXPECT_EQ(heard, 2);
}

TEST(DarwinCentre, EveryAddedObserverIsCalled) {
    platform::AutoreleasePool pool;
    heard = 0;
    platform::observeDarwin(NSString::from("twice"), &hear);
    platform::observeDarwin(NSString::from("twice"), &hear);
    platform::postDarwin(NSString::from("twice"));
    Clock::shared().turn();
    EXPECT_EQ(heard, 2);
}

void note(void* context) {
    static_cast<std::vector<double>*>(context)->push_back(Clock::shared().now());
}

TEST(MainQueue, RunsInALaterTurnAndAfterADelay) {
    std::vector<double> times;
    dispatch_async_f(&_dispatch_main_q, &times, &note);
    dispatch_after_f(dispatch_time(0, 1'000'000'000), &_dispatch_main_q, &times, &note);
    EXPECT_TRUE(times.empty());
    Clock::shared().advance(0.5);
    ASSERT_EQ(times.size(), 1u);
    Clock::shared().advance(0.6);
    ASSERT_EQ(times.size(), 2u);
    EXPECT_NEAR(times[1], 1.0, Clock::frame);
    EXPECT_GE(times[1], 1.0 - 1e-9);
}

TEST(Machine, IsWhatUnameReports) {
    simulator::setMachine("iPhone12,1");
    utsname answer{};
    ASSERT_EQ(uname(&answer), 0);
    EXPECT_STREQ(answer.machine, "iPhone12,1");
    EXPECT_STREQ(answer.sysname, "Linux");
}

TEST(Crash, IsWhatEscapesToTheTop) {
    platform::AutoreleasePool pool;
    simulator::installCrashReport();
    auto object = create<Object>();
    bool caught = false;
    EXPECT_TRUE(simulator::guarded([&] {
        try {
            object.send<"thisIsUnknown">();
        } catch (...) {
            caught = true;
        }
    }));
    EXPECT_TRUE(caught);
    EXPECT_FALSE(simulator::crash());
    EXPECT_FALSE(simulator::guarded([&] { object.send<"thisIsUnknown">(); }));
    ASSERT_TRUE(simulator::crash());
    EXPECT_NE(simulator::crash()->find("thisIsUnknown"), std::string::npos);
}

extern "C" void NSLog(id format, ...);

TEST(SystemLog, HoldsWhatIsLoggedWithoutTheTime) {
    platform::AutoreleasePool pool;
    simulator::SystemLog::shared().install();
    NSLog(NSString::from("[Vantori] hello").get());
    ASSERT_EQ(simulator::SystemLog::shared().lines().size(), 1u);
    EXPECT_EQ(simulator::SystemLog::shared().lines()[0], "[Vantori] hello");
}

}  // namespace
