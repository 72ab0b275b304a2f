// Addresses: who opens which, and that the application object says so.
#include "simulator/springboard/applications/addresses.hpp"

#include <gtest/gtest.h>

#include "platform/block.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {
namespace {

struct Address {
    const char* address;
    const char* application;
};

class Addresses : public testing::TestWithParam<Address> {};

TEST_P(Addresses, GoByTheirScheme) {
    EXPECT_EQ(applicationForAddress(GetParam().address), GetParam().application);
}

INSTANTIATE_TEST_SUITE_P(Schemes, Addresses,
                         testing::Values(Address{"http://example.com", "com.apple.mobilesafari"},
                                         Address{"HTTPS://example.com", "com.apple.mobilesafari"},
                                         Address{"tel:123", "com.apple.mobilephone"},
                                         Address{"sms:123", "com.apple.MobileSMS"},
                                         Address{"music://album", "com.apple.Music"},
                                         Address{"prefs:root=WIFI", "com.apple.Preferences"},
                                         Address{"App-prefs:root=WIFI", "com.apple.Preferences"},
                                         Address{"mailto:a@example.com", "com.example.mail"},
                                         Address{"maps://here", "com.example.maps"},
                                         Address{"unknown://x", ""}, Address{"no scheme", ""},
                                         Address{"", ""}));

class Opening : public testing::Test {
  protected:
    Opening() : phone_(makePhone({})) {
        phone_->withoutExtension();
        phone_->boot();
    }
    static UIApplication application() { return UIApplication::shared(); }
    static NSURL url(const char* address) { return NSURL::from(NSString::from(address)); }

    AutoreleasePool pool_;
    std::unique_ptr<Phone> phone_;
};

TEST_F(Opening, BringsTheApplicationToTheFrontInALaterTurn) {
    EXPECT_TRUE(application().open(url("https://example.com")));
    EXPECT_EQ(frontMostIdentifier(), "");
    phone_->wait(0.1);
    EXPECT_EQ(frontMostIdentifier(), "com.apple.mobilesafari");
    EXPECT_EQ(phone_->calledCount("UIApplication", "openURL:"), 1);
}

TEST_F(Opening, AnAddressOfNobodyChangesNothing) {
    EXPECT_FALSE(application().open(url("unknown://x")));
    EXPECT_FALSE(application().open(NSURL()));
    phone_->wait(1);
    EXPECT_EQ(frontMostIdentifier(), "");
}

TEST_F(Opening, CanBeAskedBefore) {
    EXPECT_TRUE((application().send<"canOpenURL:", bool>(url("tel:1"))));
    EXPECT_FALSE((application().send<"canOpenURL:", bool>(url("unknown:1"))));
    phone_->wait(1);
    EXPECT_EQ(frontMostIdentifier(), "");
}

TEST_F(Opening, TellsHowItWentAfterwards) {
    static int good, bad;
    auto count = block<void(bool)>([](bool opened) { ++(opened ? good : bad); });
    BlockRef<void(bool)> completion = count;
    for (const char* address : {"mailto:a@example.com", "unknown:1"}) {
        application().send<"openURL:options:completionHandler:">(url(address), NSDictionary(),
                                                                 completion.get());
    }
    EXPECT_EQ(good + bad, 0);
    phone_->wait(1);
    EXPECT_EQ(good, 1);
    EXPECT_EQ(bad, 1);
    EXPECT_EQ(frontMostIdentifier(), "com.example.mail");
}

}  // namespace
}  // namespace simulator
