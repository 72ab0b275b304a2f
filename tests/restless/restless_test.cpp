// A fault that is planted in the library is found, made small, and saved as a scenario that shows it.
#include "simulator/restless/restless.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "hooks/start_up.hpp"
#include "simulator/phone/extension.hpp"
#include "simulator/restless/hand.hpp"
#include "simulator/restless/life.hpp"
#include "simulator/scenario/runner.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace simulator::restless {
namespace {

namespace fs = std::filesystem;
using namespace vantori;

void replace(const char* className, const char* selector, IMP planted) {
    method_setImplementation(
        class_getInstanceMethod(objc_getClass(className), sel_registerName(selector)), planted);
}

// A dismissal that forgets to move the toolbar.
void forgetToMove(id toolbar, SEL) { VNTSBToolBarController(toolbar).setIsEnabled(false); }
void startForgetful() {
    startUp();
    replace("VNTSBToolBarController", "dismissVNTSB", reinterpret_cast<IMP>(&forgetToMove));
}

// A reload that says what nobody knows.
void sayNonsense(id toolbar, SEL) { Object(toolbar).send<"doNonsense">(); }
void startNonsensical() {
    startUp();
    replace("VNTToolBarController", "refreshAllPages", reinterpret_cast<IMP>(&sayNonsense));
}

// A first pull that ends the process.
void endIt(id, SEL) { std::abort(); }
void startMortal() {
    startUp();
    replace("VNTSBToolBarController", "makeKeyWindow", reinterpret_cast<IMP>(&endIt));
}

class RestlessHand : public testing::Test {
  protected:
    void SetUp() override {
        folder_ = fs::temp_directory_path() / ("restless-" + std::to_string(getpid()));
        options_ = {.seed = 1, .events = 150, .eventsOfALife = 150, .save = folder_};
    }
    void TearDown() override { fs::remove_all(folder_); }

    int run(void (*library)()) {
        setExtensionLoader(library);
        said_.str("");
        return runRestless(options_, makePhone, said_);
    }
    // The one scenario that was saved.
    fs::path saved() const {
        std::vector<fs::path> files;
        for (const auto& entry : fs::directory_iterator(folder_)) files.push_back(entry.path());
        EXPECT_EQ(files.size(), 1u) << said_.str();
        return files.empty() ? fs::path() : files.front();
    }
    static std::size_t statements(const fs::path& file) {
        std::ifstream text(file);
        std::size_t count = 0;
        for (std::string line; std::getline(text, line);) count += !line.starts_with("#");
        return count;
    }
    // What running the scenario by itself says; it fails.
    std::string again(const fs::path& file) const {
        std::ostringstream output;
        EXPECT_EQ(scenario::runFiles({file}, {}, makePhone, output), 1);
        return output.str();
    }
    bool said(const std::string& text) const { return said_.str().find(text) != std::string::npos; }

    fs::path folder_;
    RestlessOptions options_;
    std::ostringstream said_;
};

TEST_F(RestlessHand, FindsNothingInTheLibraryAsItIs) {
    EXPECT_EQ(run(&startUp), 0);
    EXPECT_TRUE(said("seed 1: 15")) << said_.str();
    EXPECT_TRUE(said("0 findings")) << said_.str();
    EXPECT_FALSE(fs::exists(folder_));
    const std::string first = said_.str();
    run(&startUp);
    EXPECT_EQ(said_.str(), first);
}

TEST_F(RestlessHand, FindsAToolbarThatStaysAndSavesAFewLines) {
    EXPECT_EQ(run(&startForgetful), 1);
    EXPECT_TRUE(said("the toolbar is up and counts as closed")) << said_.str();
    const fs::path file = saved();
    EXPECT_LE(statements(file), 7u) << said_.str();
    testing::internal::CaptureStdout();
    (void)again(file);
    const std::string shown = testing::internal::GetCapturedStdout();
    EXPECT_NE(shown.find("the toolbar is up and counts as closed"), std::string::npos) << shown;
}

TEST_F(RestlessHand, FindsAnUnknownMessage) {
    EXPECT_EQ(run(&startNonsensical), 1);
    EXPECT_TRUE(said("doNonsense")) << said_.str();
}

TEST_F(RestlessHand, FindsAPhoneThatDies) {
    EXPECT_EQ(run(&startMortal), 1);
    EXPECT_TRUE(said("the phone died: Aborted")) << said_.str();
    EXPECT_LE(statements(saved()), 4u) << said_.str();
}

TEST(Life, TellsWhereItFailed) {
    setExtensionLoader(&startMortal);
    const std::vector<Event> events{{.line = "boot", .kind = setUp},
                                    {.line = "open com.example.nothing", .kind = "application"},
                                    {.line = "pull 60 300 over 0.3", .kind = "pull"},
                                    {.line = "home", .kind = "home"}};
    const Outcome outcome = Life(events, makePhone, true).outcome();
    ASSERT_TRUE(outcome.finding);
    EXPECT_EQ(outcome.finding->line, 2u);
    EXPECT_EQ(outcome.run, 3u);
}

TEST(Life, CountsWhatThePhoneRefusesAndHowOftenItOpened) {
    setExtensionLoader(&startUp);
    const std::vector<Event> events{{.line = "boot", .kind = setUp},
                                    {.line = "touch up", .kind = "touch"},
                                    {.line = "pull 60 300 over 0.3", .kind = "pull"},
                                    {.line = "wait 2", .kind = rest},
                                    {.line = "expect nothing wrong", .kind = rest},
                                    {.line = "pull 60 300 over 0.3", .kind = "pull"}};
    const Outcome outcome = Life(events, makePhone, true).outcome();
    EXPECT_FALSE(outcome.finding);
    EXPECT_EQ(outcome.refused, 1);
    EXPECT_EQ(outcome.openings, 1);
    EXPECT_EQ(outcome.rests, 1);
    EXPECT_EQ(outcome.run, events.size());
}

}  // namespace
}  // namespace simulator::restless
