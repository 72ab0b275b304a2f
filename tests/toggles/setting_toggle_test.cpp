// What a structure must have to be the setting of a toggle, and that nothing optional is left to drop.
#include "toggles/setting_toggle.hpp"

#include <gtest/gtest.h>

namespace vantori::tests {
namespace {

struct Complete {
    using Toggle = VNTDailyToggleViewController;
    static constexpr double duration = 1;
    static constexpr bool fadesImages = false;
    static void prepare(Toggle) {}
    static std::optional<bool> read(Toggle) { return true; }
    static void write(Toggle, bool) {}
    static void shown(Toggle, bool) {}
};

struct WithoutFading {
    using Toggle = VNTDailyToggleViewController;
    static constexpr double duration = 1;
    static void prepare(Toggle) {}
    static std::optional<bool> read(Toggle) { return true; }
    static void write(Toggle, bool) {}
    static void shown(Toggle, bool) {}
};

struct Misspelt {
    using Toggle = VNTDailyToggleViewController;
    static constexpr double duration = 1;
    static constexpr bool fadesImages = false;
    static void prepares(Toggle) {}
    static std::optional<bool> read(Toggle) { return true; }
    static void write(Toggle, bool) {}
    static void shown(Toggle, bool) {}
};

TEST(SettingOfAToggle, HasEveryMember) {
    EXPECT_TRUE(ToggleSetting<Complete>);
    EXPECT_FALSE(ToggleSetting<WithoutFading>);
    EXPECT_FALSE(ToggleSetting<Misspelt>);
}

}  // namespace
}  // namespace vantori::tests
