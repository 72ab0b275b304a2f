// Every file that the library and the phone read, as anything may have left it: no file, cut off, at
// random, a folder, a link in a circle, too large, too deep, of wrong types, gone or replaced between
// two reads. The phone starts, the toolbar opens and closes, and nothing is raised.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>

#include "platform/uikit.hpp"
#include "simulator/foundation/device_root.hpp"
#include "simulator/foundation/property_list.hpp"
#include "simulator/runtime/replacement.hpp"
#include "tests/toolbar/welcome_pager.hpp"

namespace vantori::tests {
namespace {

using nlohmann::json;
using simulator::PullPhase;

constexpr const char* settings = "/var/mobile/Library/Preferences/com.ferolin.vantoripb.plist";
constexpr const char* dailyToggles =
    "/var/mobile/Library/Preferences/com.ferolin.VNTDailyToggleList.plist";
constexpr const char* history =
    "/var/mobile/Library/Preferences/com.ferolin.VantoriHistoryVersion.plist";
constexpr const char* files[] = {
    settings,
    dailyToggles,
    "/var/mobile/Library/Preferences/com.ferolin.VNTToggleList.plist",
    history,
    "/Library/Application Support/Vantori/Play@3x.png",
    "/Library/Application Support/Vantori/nightshift@3x.png",
    "/Library/Application Support/Vantori/update0@3x.png",
};

class BadFilePhone : public WelcomePhone {
  protected:
    static std::filesystem::path onHost(const char* path) {
        return simulator::DeviceRoot::shared().locate(path);
    }
    // What a day brings: pulls, the notifications after which files are read again, a settings change.
    void use() {
        for (const char* name :
             {"VantoriPB/reloadSettings", "com.ferolin.vantori.refresh-all-daily-toggles",
              "com.ferolin.vantori.refresh-all-toggles"}) {
            phone_->postDarwin(name);
            phone_->wait(0.1);
        }
        phone_->grabber(PullPhase::began, 60, 10, 0);
        phone_->grabber(PullPhase::ended, 60, 100, 0);
        phone_->wait(1);
        phone_->tree(nullptr);
        VNTSBToolBarController::shared().dismiss();
        phone_->wait(1);
    }
    void moveHomeScreen() {
        UIView home = homeScreen();
        const Strong<UIView> kept = retained(home);
        UIView window = home.superview();
        home.removeFromSuperview();
        window.addSubview(home);
    }
};

struct Bad {
    const char* what;
    void (*make)(const std::filesystem::path& file);
};
void PrintTo(const Bad& bad, std::ostream* out) { *out << bad.what; }

std::string randomBytes(std::size_t size) {
    std::mt19937 random(7);
    std::string bytes;
    while (bytes.size() < size) bytes += static_cast<char>(random());
    return bytes;
}
void replaceBy(const std::filesystem::path& file, std::string_view bytes) {
    simulator::writeFile(file, bytes);
}

constexpr Bad ways[] = {
    {"empty", [](const std::filesystem::path& file) { replaceBy(file, ""); }},
    {"random", [](const std::filesystem::path& file) { replaceBy(file, randomBytes(5000)); }},
    {"cut off",
     [](const std::filesystem::path& file) {
         replaceBy(file, "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>enabled</key><");
     }},
    {"enormous",
     [](const std::filesystem::path& file) { replaceBy(file, std::string(20'000'000, '{')); }},
    {"deep",
     [](const std::filesystem::path& file) {
         std::string text = "<plist version=\"1.0\">";
         for (int i = 0; i < 60'000; ++i) text += "<array>";
         replaceBy(file, text);
     }},
    {"a folder",
     [](const std::filesystem::path& file) {
         std::filesystem::remove_all(file);
         std::filesystem::create_directories(file / "inside");
     }},
    {"a link in a circle",
     [](const std::filesystem::path& file) {
         std::filesystem::create_directories(file.parent_path());
         std::filesystem::remove_all(file);
         std::filesystem::create_symlink(file, file);
     }},
};

class BadFile : public BadFilePhone,
                public testing::WithParamInterface<std::tuple<const char*, Bad>> {};

TEST_P(BadFile, ThePhoneStartsAndTheToolbarOpens) {
    const auto& [path, bad] = GetParam();
    set("layoutDirection", 1);  // the file and its folder are there
    bad.make(onHost(path));
    boot();
    use();
    bad.make(onHost(path));
    use();
    EXPECT_EQ(phone_->crashed(), std::nullopt);
    EXPECT_TRUE(VNTSBToolBarController::exists());
}

INSTANTIATE_TEST_SUITE_P(All, BadFile,
                         testing::Combine(testing::ValuesIn(files), testing::ValuesIn(ways)));

TEST_F(BadFilePhone, SettingsCutOffAtEachByteAreTheDefaults) {
    set("layoutDirection", 1);
    set("rightGestureEnabled", true);
    const auto whole = simulator::readFile(onHost(settings));
    ASSERT_TRUE(whole);
    boot();
    announceSettings();
    EXPECT_EQ(layoutDirection, 1);
    for (std::size_t size = 0; size < whole->size(); ++size) {
        phone_->file(settings, whole->substr(0, size));
        phone_->postDarwin("VantoriPB/reloadSettings");
        phone_->wait(0.02);
        EXPECT_EQ(layoutDirection, 3) << size;
        EXPECT_FALSE(rightGestureEnabled) << size;
    }
    EXPECT_EQ(phone_->crashed(), std::nullopt);
}

// Of every type that a property list has.
const json types[] = {true,
                      0,
                      -1,
                      3,
                      2147483648,
                      -9.75,
                      1e300,
                      "",
                      "YES",
                      "3",
                      "words",
                      json::array(),
                      json::object(),
                      json::array({1, "x"}),
                      json::object({{"a", 1}})};

TEST_F(BadFilePhone, EverySettingOfEveryType) {
    boot();
    for (const char* key :
         {"enabled", "replaceCC", "reachability", "layoutDirection", "gestureLocation",
          "noCornerRadius", "tapToOpen", "alwaysSpringBoardStyle", "leftGestureEnabled",
          "middleGestureEnabled", "rightGestureEnabled", "hideGrabber"}) {
        for (const json& value : types) {
            set(key, value);
            phone_->postDarwin("VantoriPB/reloadSettings");
            phone_->wait(0.02);
            ASSERT_EQ(phone_->crashed(), std::nullopt) << key << " " << value;
        }
        phone_->setting(key, std::nullopt);
    }
    use();
    EXPECT_EQ(phone_->crashed(), std::nullopt);
}

// What they are at start-up, where others are read.
class SettingAtStart : public BadFilePhone, public testing::WithParamInterface<json> {};

TEST_P(SettingAtStart, OfThisTypeStartsThePhone) {
    for (const char* key : {"replaceCC", "reachability", "layoutDirection", "noCornerRadius",
                            "tapToOpen", "alwaysSpringBoardStyle", "hideGrabber"}) {
        set(key, GetParam());
    }
    boot();
    use();
    EXPECT_EQ(phone_->crashed(), std::nullopt);
    EXPECT_TRUE(VNTSBToolBarController::exists());
}

INSTANTIATE_TEST_SUITE_P(Types, SettingAtStart, testing::ValuesIn(types));

TEST_F(BadFilePhone, TheDailyTogglesOfEveryShape) {
    boot();
    const json lists[] = {
        json::object(),
        json::object({{"0", json::array({"Mute"})}}),
        json::array(),
        json::array({true}),
        json::array({"Mute"}),
        json::array({1, 2}),
        json::array({json::object()}),
        json::array({json::array()}),
        json::array({json::array({1, true, "Mute", json::array({"DND"}), json::object()})}),
        json::array({json::array({"Mute", "Mute", "", "display"}), "more", 7}),
        json::array({json::array({"a", "b", "c", "d", "e", "f", "Mute", "DND", "display"})}),
    };
    for (const json& list : lists) {
        phone_->plist(dailyToggles, list);
        phone_->postDarwin("com.ferolin.vantori.refresh-all-daily-toggles");
        phone_->wait(0.05);
        ASSERT_EQ(phone_->crashed(), std::nullopt) << list;
    }
}

// A history that is none counts as an empty one: the pager comes, and the history is whole again.
TEST_F(BadFilePhone, TheHistoryOfEveryShape) {
    boot();
    const json shapes[] = {
        json::object(),   json::object({{"1.2.1", true}}),       json::array(),
        json::array({1}), json::array({json::array({"1.2.1"})}), json::array({"1.2.1", 3})};
    for (const json& shape : shapes) {
        phone_->plist(history, shape);
        moveHomeScreen();
        ASSERT_EQ(phone_->crashed(), std::nullopt) << shape;
        NSArray written = NSArray::withContentsOfFile(NSString::from(history));
        ASSERT_TRUE(written) << shape;
        const NSString last = written.last().send<"description", NSString>();
        EXPECT_STREQ(last.utf8(), "1.2.1") << shape;
    }
}

// The file that a reader is about to open, as others may change it between two reads.
struct Changing {
    static inline IMP reader = nullptr;
    static inline std::function<void(int)> change;
    static inline int reads = 0;
    static id run(id self, SEL command, id path) {
        if (change && path && std::string_view(NSString(path).utf8()).ends_with(settings)) {
            change(reads++);
        }
        return reinterpret_cast<id (*)(id, SEL, id)>(reader)(self, command, path);
    }
    static void install() {
        reader =
            simulator::replaceMethod("NSDictionary", simulator::MethodKind::onClass,
                                     "dictionaryWithContentsOfFile:", reinterpret_cast<IMP>(&run));
    }
};

// Presence first, then the value: at each of the reads of a reload the file goes, or becomes another.
TEST_F(BadFilePhone, SettingsThatVanishBetweenTwoReads) {
    set("layoutDirection", 1);
    const auto whole = simulator::readFile(onHost(settings));
    ASSERT_TRUE(whole);
    boot();
    Changing::install();
    int reads = 0;
    Changing::change = [&](int) { ++reads; };
    announceSettings();
    ASSERT_GT(reads, 10);
    for (const char* other : {"", "{ layoutDirection = (); leftGestureEnabled = {}; }"}) {
        for (int at = 0; at < reads; ++at) {
            phone_->file(settings, *whole);
            Changing::reads = 0;
            Changing::change = [&](int read) {
                if (read != at) return;
                if (*other) {
                    phone_->file(settings, other);
                } else {
                    std::filesystem::remove(onHost(settings));
                }
            };
            phone_->postDarwin("VantoriPB/reloadSettings");
            phone_->wait(0.02);
            ASSERT_EQ(phone_->crashed(), std::nullopt) << other << " at read " << at;
        }
    }
    Changing::change = {};
    phone_->file(settings, *whole);
    announceSettings();
    EXPECT_EQ(layoutDirection, 1);
    use();
    EXPECT_EQ(phone_->crashed(), std::nullopt);
}

}  // namespace
}  // namespace vantori::tests
