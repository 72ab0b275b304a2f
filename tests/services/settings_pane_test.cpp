// Panes of the Settings application, from property lists on the phone.
#include "simulator/services/settings_pane.hpp"

#include <gtest/gtest.h>

#include "simulator/scenario/phone.hpp"

namespace simulator {
namespace {

constexpr const char* file = "/Library/PreferenceLoader/Preferences/";

class SettingsPaneTest : public testing::Test {
  protected:
    std::unique_ptr<Phone> phone_ = makePhone({});
};

TEST_F(SettingsPaneTest, IsReadFromItsPropertyList) {
    phone_->plist(
        std::string(file) + "B.plist",
        {{"entry", {{"label", "Second"}}}, {"title", "T"}, {"items", nlohmann::json::array()}});
    phone_->plist(std::string(file) + "A.plist",
                  {{"entry", {{"label", "First"}}},
                   {"title", "One"},
                   {"items",
                    {{{"cell", "PSGroupCell"}, {"label", "Group"}, {"footerText", "Below it."}},
                     {{"cell", "PSSwitchCell"},
                      {"label", "On"},
                      {"key", "isOn"},
                      {"default", true},
                      {"defaults", "a.domain"},
                      {"PostNotification", "a/changed"}},
                     {{"cell", "PSSegmentCell"},
                      {"key", "which"},
                      {"default", 3},
                      {"defaults", "a.domain"},
                      {"validValues", {3, 1}},
                      {"validTitles", {"Three", "One"}}}}}});
    phone_->file(std::string(file) + "C.plist", "no property list");
    phone_->plist(std::string(file) + "D.plist", {{"items", 7}});
    const auto panes = settingsPanes();
    ASSERT_EQ(panes.size(), 2U);
    EXPECT_EQ(panes[0].entry, "First");
    EXPECT_EQ(panes[1].entry, "Second");
    ASSERT_EQ(panes[0].cells.size(), 3U);
    EXPECT_EQ(panes[0].cells[0].kind, PaneCell::Kind::group);
    EXPECT_EQ(panes[0].cells[0].footer, "Below it.");
    const PaneCell& toggle = panes[0].cells[1];
    EXPECT_EQ(toggle.kind, PaneCell::Kind::toggle);
    EXPECT_EQ(valueOf(toggle), true);
    setValue(toggle, false);
    EXPECT_EQ(valueOf(toggle), false);
    EXPECT_EQ(phone_->darwinPostedCount("a/changed"), 1);
    const PaneCell& choice = panes[0].cells[2];
    EXPECT_EQ(choice.kind, PaneCell::Kind::choice);
    EXPECT_EQ(valueOf(choice), 3);
    EXPECT_EQ(choice.titles, (std::vector<std::string>{"Three", "One"}));
    setValue(choice, 1);
    EXPECT_EQ(valueOf(choice), 1);
    EXPECT_EQ(valueOf(toggle), false);
}

}  // namespace
}  // namespace simulator
