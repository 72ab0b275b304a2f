// Settings from outside a phone: the file, the socket, and both at once with a phone that listens.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "simulator/live/darwin_socket.hpp"
#include "simulator/live/live_phone.hpp"
#include "simulator/live/settings_command.hpp"
#include "simulator/phone/temporary_root.hpp"
#include "simulator/scenario/parser.hpp"

namespace {

using namespace simulator;
using namespace simulator::live;

class SettingsCommand : public testing::Test {
  protected:
    std::string get(const std::optional<std::string>& key = {}) {
        std::ostringstream output;
        getSettings(root_.path(), key, output);
        return output.str();
    }
    TemporaryRoot root_{{}};
    std::ostringstream said_;
};

TEST_F(SettingsCommand, AreWrittenAndReadBackByKind) {
    setSetting(root_.path(), "layoutDirection", "1", said_);
    setSetting(root_.path(), "tapToOpen", "false", said_);
    setSetting(root_.path(), "dailyBar", R"({"index": 2, "name": "daily"})", said_);
    EXPECT_EQ(get("layoutDirection"), "1\n");
    EXPECT_EQ(get("tapToOpen"), "false\n");
    EXPECT_EQ(get(),
              "dailyBar {\"index\":2,\"name\":\"daily\"}\nlayoutDirection 1\ntapToOpen false\n");
    unsetSetting(root_.path(), "dailyBar", said_);
    EXPECT_EQ(get(), "layoutDirection 1\ntapToOpen false\n");
}

TEST_F(SettingsCommand, SayWhenNobodyListens) {
    setSetting(root_.path(), "tapToOpen", "true", said_);
    EXPECT_NE(said_.str().find("only the file was written"), std::string::npos);
}

TEST_F(SettingsCommand, RefuseWhatCannotBe) {
    EXPECT_THROW(setSetting(root_.path() / "nowhere", "a", "1", said_), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(root_.path() / "nowhere"));
    EXPECT_THROW(setSetting(root_.path(), "a", "{", said_), std::runtime_error);
    EXPECT_THROW(setSetting(root_.path(), "a", "null", said_), std::runtime_error);
    EXPECT_THROW(setSetting(root_.path(), "", "1", said_), std::runtime_error);
    EXPECT_THROW(get("a"), std::runtime_error);
    EXPECT_EQ(get(), "");
}

TEST_F(SettingsCommand, TellAListenerInAnotherProcess) {
    DarwinListener listener(root_.path());
    const pid_t pane = fork();
    if (pane == 0) {
        setSetting(root_.path(), "layoutDirection", "1", said_);
        _exit(said_.str().empty() ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(pane, &status, 0), pane);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(listener.take(), std::vector<std::string>{"VantoriPB/reloadSettings"});
    EXPECT_EQ(get("layoutDirection"), "1\n");
}

TEST(DarwinSocket, IsOfTheUserAloneAndGoesWithItsListener) {
    const TemporaryRoot root({});
    const std::filesystem::path file = root.path() / ".vantori-darwin";
    {
        const DarwinListener listener(root.path());
        struct stat info{};
        ASSERT_EQ(stat(file.c_str(), &info), 0);
        EXPECT_TRUE(S_ISSOCK(info.st_mode));
        EXPECT_EQ(info.st_mode & 0777, 0600U);
        EXPECT_THROW(DarwinListener{root.path()}, std::runtime_error);
    }
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_FALSE(sendDarwin(root.path(), "name"));
}

TEST(DarwinSocket, TakesThePlaceOfWhatADeadPhoneLeft) {
    const TemporaryRoot root({});
    std::ofstream(root.path() / ".vantori-darwin") << "left";
    EXPECT_FALSE(sendDarwin(root.path(), "name"));
    DarwinListener listener(root.path());
    EXPECT_TRUE(sendDarwin(root.path(), "one"));
    EXPECT_TRUE(sendDarwin(root.path(), "two"));
    EXPECT_EQ(listener.take(), (std::vector<std::string>{"one", "two"}));
    EXPECT_TRUE(listener.take().empty());
}

TEST(DarwinSocket, TakesNamesOfUpTo255Bytes) {
    const TemporaryRoot root({});
    DarwinListener listener(root.path());
    EXPECT_THROW(sendDarwin(root.path(), ""), std::runtime_error);
    EXPECT_THROW(sendDarwin(root.path(), std::string(256, 'n')), std::runtime_error);
    EXPECT_TRUE(sendDarwin(root.path(), std::string(255, 'n')));
    EXPECT_EQ(listener.take(), std::vector<std::string>{std::string(255, 'n')});
}

TEST(DarwinSocket, LiesInFoldersOfAnyDepth) {
    const TemporaryRoot root({});
    const std::filesystem::path deep = root.path() / std::string(120, 'd') / std::string(120, 'e');
    std::filesystem::create_directories(deep);
    DarwinListener listener(deep);
    EXPECT_TRUE(sendDarwin(deep, "name"));
    EXPECT_EQ(listener.take(), std::vector<std::string>{"name"});
}

TEST(LivePhone, PostsWhatOtherProcessesSend) {
    const TemporaryRoot root({});
    std::ostringstream said;
    LivePhone live({.device = "iPhone10,1",
                    .system = "",
                    .settings = {},
                    .root = root.path(),
                    .pictures = {},
                    .recording = {}},
                   false, said);
    live.console().take("without extension");
    live.console().take("boot");
    ASSERT_EQ(live.console().status(), 0) << said.str();
    EXPECT_EQ(live.phone().screenBounds().height, 667);
    EXPECT_TRUE(sendDarwin(root.path(), "some.name"));
    live.hearNotifications();
    EXPECT_EQ(live.phone().darwinPostedCount("some.name"), 1);
}

TEST(LivePhone, RecordsWhatIsInItsFolderAndWhatOtherProcessesWriteThere) {
    const TemporaryRoot root({}), folder({});
    std::filesystem::create_directories(root.path() / "var/mobile");
    std::ofstream(root.path() / "var/mobile/kept") << "a\n\"b\"";
    std::ostringstream said;
    const std::filesystem::path recording = folder.path() / "all.scenario";
    {
        LivePhone live({.device = "",
                        .system = "",
                        .settings = {},
                        .root = root.path(),
                        .real = true,
                        .pictures = {},
                        .recording = recording},
                       false, said);
        live.console().take("without extension");
        live.console().take("boot");
        const pid_t pane = fork();
        if (pane == 0) {
            setSetting(root.path(), "layoutDirection", "1", said);
            _exit(0);
        }
        ASSERT_EQ(waitpid(pane, nullptr, 0), pane);
        live.hearNotifications();
    }
    const std::string text = scenario::readFile(recording);
    EXPECT_NE(
        text.find("\nfile \"/var/mobile/kept\" \"a\\n\\\"b\\\"\"\nreal\nwithout extension\nboot\n"),
        std::string::npos)
        << text;
    const auto written =
        text.find("file \"/var/mobile/Library/Preferences/com.ferolin.vantoripb.plist\"");
    ASSERT_NE(written, std::string::npos) << text;
    EXPECT_GT(text.find("layoutDirection", written), written);
    EXPECT_TRUE(text.ends_with("darwin \"VantoriPB/reloadSettings\"\nwait 0\n")) << text;
}

TEST(LivePhone, RefusesSettingsWithoutAValue) {
    EXPECT_EQ(parseSetting("a=1").first, "a");
    EXPECT_EQ(parseSetting("a=\"b=c\"").second, "b=c");
    EXPECT_THROW(parseSetting("a"), std::runtime_error);
    EXPECT_THROW(parseSetting("=1"), std::runtime_error);
    EXPECT_THROW(parseSetting("a=b"), std::runtime_error);
}

}  // namespace
