// Files of the phone: paths led into the device root, property lists of every kind and the broken
// ones that must come back as nothing, bundles, preferences, conversions.
#include "simulator/foundation/files.hpp"

#include <gtest/gtest.h>
#include <unistd.h>
#include <nlohmann/json.hpp>

#include "platform/core_foundation.hpp"
#include "simulator/foundation/bundles.hpp"
#include "simulator/foundation/conversions.hpp"
#include "simulator/foundation/device_root.hpp"
#include "simulator/foundation/notification_counts.hpp"
#include "simulator/foundation/notification_order.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/foundation/property_list.hpp"

namespace {

using platform::NSArray;
using platform::NSBundle;
using platform::NSDictionary;
using platform::NSFileHandle;
using platform::NSNumber;
using platform::NSString;
using platform::Object;
using namespace simulator;

NSString text(const std::string& string) { return NSString::from(string.c_str()); }

using platform::NSFileManager;

class Files : public testing::Test {
  protected:
    void SetUp() override {
        root_ = std::filesystem::temp_directory_path() /
                ("vantori-files-test-" + std::to_string(getpid()));
        DeviceRoot::shared().set(root_);
        installFiles();
        installBundles();
        installConversions();
    }
    void TearDown() override { std::filesystem::remove_all(root_); }
    void write(const std::string& phonePath, std::string_view bytes) {
        writeFile(DeviceRoot::shared().locate(phonePath), bytes);
    }
    std::filesystem::path root_;
    platform::AutoreleasePool pool_;
};

TEST_F(Files, PhonePathsLieInTheRootAndHostPathsStay) {
    DeviceRoot& root = DeviceRoot::shared();
    EXPECT_EQ(root.map("/var/mobile/a"), root.path().string() + "/var/mobile/a");
    EXPECT_EQ(root.map("/private/var/mobile/a"), root.path().string() + "/var/mobile/a");
    EXPECT_EQ(root.map("/usr/share/x"), "/usr/share/x");
    EXPECT_EQ(root.map(root.map("/var/a")), root.map("/var/a"));
    EXPECT_EQ(root.locate("/var/../../../etc/passwd"), root.path() / "etc/passwd");
}

// As documented.
TEST_F(Files, WhatIsNoPropertyListIsNotWritten) {
    NSString path = text("/var/mobile/list.plist");
    NSArray plain = NSArray::with(text("a"));
    NSArray odd = NSArray::with(NSArray::with(NSBundle::withPath(text("/System/X.bundle"))));
    EXPECT_FALSE((odd.send<"writeToFile:atomically:", bool>(path, true)));
    EXPECT_FALSE(NSFileManager::shared().fileExists(path));
    EXPECT_TRUE((plain.send<"writeToFile:atomically:", bool>(path, true)));
    auto byNumber = platform::sendClass<NSDictionary, "dictionaryWithObject:forKey:", NSDictionary>(
        text("a"), platform::sendClass<NSNumber, "numberWithInt:", NSNumber>(1));
    EXPECT_FALSE((byNumber.send<"writeToFile:atomically:", bool>(path, true)));
    EXPECT_EQ(NSArray::withContentsOfFile(path).count(), 1u);
}

TEST_F(Files, ArraysGoOutAndComeBack) {
    NSString path = text("/var/mobile/Library/Preferences/list.plist");
    EXPECT_FALSE(NSFileHandle::forReading(path));
    EXPECT_TRUE(NSArray::with(text("1.2.1")).writeToFile(path, true));
    EXPECT_TRUE(std::filesystem::exists(root_ / "var/mobile/Library/Preferences/list.plist"));
    EXPECT_TRUE(NSFileHandle::forReading(path));
    NSArray back = NSArray::withContentsOfFile(path);
    ASSERT_EQ(back.count(), 1u);
    EXPECT_STREQ(platform::as<NSString>(back.last()).utf8(), "1.2.1");
    EXPECT_FALSE(NSDictionary::withContentsOfFile(path)) << "another root type";
}

TEST_F(Files, WritingMakesNoFolders) {
    EXPECT_FALSE(NSArray::with(text("x")).writeToFile(text("/var/nowhere/deep/x.plist"), true));
}

TEST_F(Files, TheFileManagerSeesThePhone) {
    auto manager = platform::sendClass<NSFileManager, "defaultManager", NSFileManager>();
    write("/var/mobile/x", "abc");
    EXPECT_TRUE((manager.send<"fileExistsAtPath:", bool>(text("/var/mobile/x"))));
    EXPECT_TRUE((manager.send<"removeItemAtPath:error:", bool>(text("/var/mobile/x"),
                                                               static_cast<id*>(nullptr))));
    EXPECT_FALSE((manager.send<"fileExistsAtPath:", bool>(text("/var/mobile/x"))));
}

TEST_F(Files, PropertyListsKeepTheKindOfTheirValues) {
    auto json = nlohmann::json::parse(R"({"yes": true, "three": 3, "half": 0.5, "list": ["a"]})");
    for (auto format : {PropertyListFormat::xml, PropertyListFormat::binary}) {
        write("/var/x.plist", encodePropertyList(propertyListObject(json), format));
        NSDictionary read = NSDictionary::withContentsOfFile(text("/var/x.plist"));
        ASSERT_TRUE(read);
        EXPECT_TRUE((read.at(text("yes")).send<"boolValue", bool>()));
        EXPECT_EQ((read.at(text("three")).send<"intValue", int>()), 3);
        EXPECT_EQ((read.at(text("half")).send<"doubleValue", double>()), 0.5);
        EXPECT_EQ(platform::as<NSArray>(read.at(text("list"))).count(), 1u);
    }
    EXPECT_THROW(propertyListObject(nullptr), std::invalid_argument);
}

struct Broken {
    const char* what;
    std::string bytes;
};
void PrintTo(const Broken& broken, std::ostream* out) { *out << broken.what; }

// A binary list of one array that holds itself.
std::string endlessList() {
    std::string bytes = "bplist00";
    bytes += "\xA1";                // array of one
    bytes += std::string(1, '\0');  // object 0: itself
    bytes += "\x08";                // the only offset
    bytes += std::string(6, '\0') + "\x01\x01";
    bytes += std::string(7, '\0') + "\x01" + std::string(8, '\0');
    bytes += std::string(7, '\0') + "\x0A";
    return bytes;
}

class BrokenFiles : public Files, public testing::WithParamInterface<Broken> {};

TEST_P(BrokenFiles, ReadAsNothing) {
    write("/var/broken.plist", GetParam().bytes);
    EXPECT_FALSE(NSDictionary::withContentsOfFile(text("/var/broken.plist")));
    EXPECT_FALSE(NSArray::withContentsOfFile(text("/var/broken.plist")));
    EXPECT_FALSE(
        (platform::create<NSDictionary, "initWithContentsOfFile:">(text("/var/broken.plist"))));
}

INSTANTIATE_TEST_SUITE_P(
    All, BrokenFiles,
    testing::Values(Broken{"empty", ""}, Broken{"words", "this is no list"},
                    Broken{"deep", std::string(100'000, '(')},
                    Broken{"deep braces", std::string(100'000, '{')},
                    Broken{"huge number", "<*I" + std::string(9'000'000, '1') + ">"},
                    Broken{"cut XML", "<?xml version=\"1.0\"?><plist><dict><key>a</key>"},
                    Broken{"cut binary", "bplist00\xD1\x01"}, Broken{"endless", endlessList()},
                    Broken{"binary rubbish", "bplist00" + std::string(64, '\xFF')}));

TEST_F(Files, SystemBundlesLoadUnlessTheyAreMissing) {
    int brought = 0;
    onBundleLoad("/System/Library/A.bundle", [&] { ++brought; });
    setMissingBundle("/System/Library/B.bundle");
    NSBundle bundle = NSBundle::withPath(text("/System/Library/A.bundle"));
    EXPECT_TRUE(bundle.load());
    EXPECT_TRUE(bundle.load());
    EXPECT_EQ(brought, 1);
    NSBundle missing = NSBundle::withPath(text("/System/Library/B.bundle"));
    ASSERT_TRUE(missing);
    EXPECT_FALSE(missing.load());
}

TEST_F(Files, PreferencesStayAsTheyWereUntilSynchronised) {
    NSString domain = text("com.example.test"), key = text("size");
    writePreference("com.example.test", "size", 1);
    platform::synchronizePreferences(domain);
    writePreference("com.example.test", "size", 2);
    EXPECT_EQ((platform::preferenceValue(key, domain).send<"intValue", int>()), 1);
    platform::synchronizePreferences(domain);
    EXPECT_EQ((platform::preferenceValue(key, domain).send<"intValue", int>()), 2);
    writePreference("com.example.test", "size", std::nullopt);
    platform::synchronizePreferences(domain);
    EXPECT_FALSE(platform::preferenceValue(key, domain));
}

struct Conversion {
    const char* text;
    bool boolean;
    int integer;
};

class Conversions : public Files, public testing::WithParamInterface<Conversion> {};

TEST_P(Conversions, AreThePlatforms) {
    const Conversion& expected = GetParam();
    NSString string = text(expected.text);
    EXPECT_EQ((string.send<"boolValue", bool>()), expected.boolean) << expected.text;
    EXPECT_EQ((string.send<"intValue", int>()), expected.integer) << expected.text;
}

INSTANTIATE_TEST_SUITE_P(Strings, Conversions,
                         testing::Values(Conversion{"yes", true, 0}, Conversion{"true", true, 0},
                                         Conversion{"no", false, 0}, Conversion{"on", false, 0},
                                         Conversion{"1abc", true, 1}, Conversion{"0", false, 0},
                                         Conversion{"-1", true, -1}, Conversion{"", false, 0},
                                         Conversion{"  007", true, 7},
                                         Conversion{"99999999999", true, 2147483647},
                                         Conversion{"-99999999999", true, -2147483647 - 1}));

TEST(NotificationCounts, CountEveryPost) {
    platform::AutoreleasePool pool;
    installNotificationCounts();
    auto centre = platform::NSNotificationCenter::defaultCenter();
    centre.post(text("one"));
    centre.send<"postNotificationName:object:">(text("one"), Object());
    centre.post(text("two"));
    EXPECT_EQ(notificationPosts("one"), 2);
    EXPECT_EQ(notificationPosts("two"), 1);
    EXPECT_EQ(notificationPosts("three"), 0);
}

// Observed on devices; the documentation promises no order.
TEST(NotificationOrder, IsThatOfRegistration) {
    platform::AutoreleasePool pool;
    installNotificationOrder();
    static std::string& told = *new std::string;
    told.clear();
    Class cls = objc_allocateClassPair(objc_getClass("NSObject"), "OrderWitness", 0);
    class_addMethod(cls, sel_registerName("told:"), reinterpret_cast<IMP>(+[](id self, SEL, id) {
                        told += Object(self).send<"description", NSString>().utf8();
                    }),
                    "v@:@");
    class_addMethod(cls, sel_registerName("description"),
                    reinterpret_cast<IMP>(+[](id self, SEL) -> id {
                        Ivar number = class_getInstanceVariable(object_getClass(self), "number");
                        auto* place = reinterpret_cast<char*>(self) + ivar_getOffset(number);
                        return text(std::to_string(*reinterpret_cast<int*>(place))).get();
                    }),
                    "@@:");
    class_addIvar(cls, "number", sizeof(int), 2, "i");
    objc_registerClassPair(cls);
    auto centre = platform::NSNotificationCenter::defaultCenter();
    std::vector<Object> witnesses;
    for (int i = 1; i <= 4; ++i) {
        witnesses.push_back(Object(platform::classObject(cls)).send<"new", Object>());
        Ivar number = class_getInstanceVariable(cls, "number");
        auto* place = reinterpret_cast<char*>(witnesses.back().get()) + ivar_getOffset(number);
        *reinterpret_cast<int*>(place) = i;
        NSString name = i == 3 ? NSString() : text("ordered");  // 3 hears of everything
        centre.addObserver(witnesses.back(), sel_registerName("told:"), name);
    }
    centre.post(text("ordered"));
    EXPECT_EQ(told, "1234");
    centre.send<"postNotificationName:object:">(text("other"), Object());
    EXPECT_EQ(told, "12343");
    centre.send<"removeObserver:">(witnesses[1]);
    centre.send<"removeObserver:name:object:">(witnesses[3], text("ordered"), Object());
    centre.post(text("ordered"));
    EXPECT_EQ(told, "1234313");
    for (Object witness : witnesses) {
        centre.send<"removeObserver:">(witness);
        witness.send<"release">();
    }
}

}  // namespace
