// The statements that look into a real simulated phone: mistakes in names, places of views, texts, the
// order of events, elements; and recordings that come out the same to the byte.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "simulator/runtime/date.hpp"
#include "simulator/scenario/completion.hpp"
#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/runner.hpp"
#include "simulator/scenario/session.hpp"

namespace simulator::scenario {
namespace {

namespace fs = std::filesystem;

class OnAPhone : public testing::Test {
  protected:
    void SetUp() override {
        phone_ = makePhone({});
        folder_ = fs::temp_directory_path() / ("on-a-phone-" + std::to_string(getpid()));
        fs::create_directories(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    // What it says, behind `boot`; lines count from there.
    std::string run(const std::string& text, const std::string& before = "") {
        std::ostringstream output;
        Session session(*phone_, "t", folder_, output);
        for (const Statement& statement : parse(before + "without extension\nboot\n" + text))
            session.run(statement);
        return output.str();
    }

    std::unique_ptr<Phone> phone_;
    fs::path folder_;
};

// A view of its own window in front of everything: window, view, label.
constexpr const char* ownWindow =
    "let window = [[[UIWindow alloc] initWithFrame: {0, 0, W, H}] autorelease]\n"
    "do [window setWindowLevel: 5000]\n"
    "let view = [[[UIView alloc] initWithFrame: {20, 100, 200, 50}] autorelease]\n"
    "let label = [[[UILabel alloc] initWithFrame: {10, 10, 100, 20}] autorelease]\n"
    "do [label setText: \"Ready\"]\n"
    "do [view addSubview: label]\n"
    "do [window addSubview: view]\n"
    "do [window setHidden: NO]\n"
    "wait 0.1\n";

TEST_F(OnAPhone, AMissingMethodIsAnsweredByNobody) {
    EXPECT_EQ(
        run("expect [SBLockScreenManager respondsToSelector: @selector(sharedInstance)] == NO\n"
            "expect [UILabel instancesRespondToSelector: @selector(setText:)] == NO\n"
            "expect [UILabel instancesRespondToSelector: @selector(text)] == YES\n"
            "expect [UIButton instancesRespondToSelector: @selector(setTitle:forState:)] == YES\n",
            "missing method SBLockScreenManager sharedInstance\n"
            "missing method UILabel setText:\n"),
        "");
}

TEST_F(OnAPhone, AMissingFileIsNotThere) {
    EXPECT_EQ(run("expect [UIImage imageWithContentsOfFile: "
                  "\"/Library/Application Support/Vantori/nightshift.png\"] == nil\n"
                  "expect [UIImage imageWithContentsOfFile: "
                  "\"/Library/Application Support/Vantori/flashlight_on.png\"] != nil\n",
                  "missing file \"/Library/Application Support/Vantori/nightshift.png\"\n"
                  "missing file \"/Library/Application Support/Vantori/nightshift@2x.png\"\n"
                  "missing file \"/Library/Application Support/Vantori/nightshift@3x.png\"\n"),
              "");
}

TEST_F(OnAPhone, ASlipInAMethodsNameIsAMistake) {
    EXPECT_EQ(
        run("expect called SBMediaControler setMediaVolume: 0\n"
            "expect unhooked Typo foo\n"
            "expect called SBLockScreenManager lockUIFromSource:withOption: 0\n"
            "expect called SBLockScreenManager lockUIFromSource:withOptions: 0\n"
            "expect called UILabel setAlpha: 0\n"
            "expect called SBDockView foo 0\n",
            "missing class SBDockView\n"),
        "t:4: expected called SBMediaControler setMediaVolume: 0, but there is no class "
        "SBMediaControler (is SBMediaController meant?)\n"
        "t:5: expected unhooked Typo foo, but there is no class Typo\n"
        "t:6: expected called SBLockScreenManager lockUIFromSource:withOption: 0, but SBLockScreenManager "
        "has no method lockUIFromSource:withOption: (is lockUIFromSource:withOptions: meant?)\n");
}

TEST_F(OnAPhone, AViewIsTappedInItsMiddle) {
    EXPECT_EQ(run(std::string(ownWindow) +
                  "let button = [UIButton buttonWithType: 0]\n"
                  "do [button setFrame: {100, 300, 80, 40}]\n"
                  "do [window addSubview: button]\n"
                  "clear\n"
                  "touch down button\n"
                  "expect [button isHighlighted]\n"
                  "touch up\n"
                  "tap label\n"  // takes no touches: the view that it lies on has them
                  "drag view -5 5 over 0.1\n"
                  "print 1"),
              "1\n");
}

TEST_F(OnAPhone, AViewThatNoFingerReachesIsAMistake) {
    EXPECT_EQ(
        run(std::string(ownWindow) +
            "tap [[UIView new] autorelease]\n"
            "do [view setHidden: YES]\n"
            "tap label\n"
            "do [view setHidden: NO]\n"
            "do [view setFrame: {W - 10, 100, 200, 50}]\n"
            "tap view\n"
            "do [view setFrame: {W, 100, 200, 50}]\n"
            "tap view\n"
            "do [view setFrame: {0, 100, 200, 50}]\n"
            "do [window addSubview: [[[UIControl alloc] initWithFrame: {0, 0, W, H}] autorelease]]\n"
            "tap view\n"),
        "t:12: tap [[UIView new] autorelease]: <UIView>: it is in no window\n"
        "t:14: tap label: <UILabel>: <UIView> above it is hidden\n"
        "t:17: tap view: <UIView>: its middle is off the screen\n"
        "t:19: tap view: <UIView>: it is off the screen\n"
        "t:22: tap view: <UIView>: <UIControl> would take the touch\n");
}

TEST_F(OnAPhone, TextsCanBeSeenOrSayWhyNot) {
    EXPECT_EQ(
        run(std::string(ownWindow) + "expect shown \"Ready\"\n"
                                     "expect not-shown \"Redy\"\n"
                                     "expect shown \"Redy\"\n"
                                     "do [label setAlpha: 0.01]\n"
                                     "expect not-shown \"Ready\"\n"
                                     "do [label setAlpha: 0.02]\n"
                                     "expect shown \"Ready\"\n"
                                     "do [view setFrame: {-120, 100, 200, 50}]\n"
                                     "expect shown \"Ready\"\n"
                                     "do [window setHidden: YES]\n"
                                     "expect shown \"Ready\"\n"),
        "t:14: expected shown \"Redy\", got no label or button has that text (is Ready meant?)\n"
        "t:20: expected shown \"Ready\", got it is off the screen\n"
        "t:22: expected shown \"Ready\", got its window is hidden\n");
}

TEST_F(OnAPhone, TreesSayWhereViewsAreInTheInterfaceAsItIsTurned) {
    EXPECT_EQ(run(std::string(ownWindow) + "tree view\n"),
              "UIView {20, 100, 200, 50} at {20, 100, 200, 50} alpha 1\n"
              "  UILabel {10, 10, 100, 20} at {30, 110, 100, 20} \"Ready\" alpha 1\n");
}

TEST_F(OnAPhone, EventsAreKnownInTheirOrder) {
    EXPECT_EQ(
        run("clear\n"
            "post \"first\"\n"
            "do [[[[UIImpactFeedbackGenerator alloc] initWithStyle: 2] autorelease] impactOccurred]\n"
            "darwin \"second\"\n"
            "do [SpringBoard sharedApplication]\n"
            "do [[UIApplication sharedApplication] launchApplicationWithIdentifier: "
            "\"com.example.notes\" suspended: NO]\n"
            "post \"first\"\n"
            "expect order posted \"first\", haptic 2, darwin-posted second, called SpringBoard "
            "launchApplicationWithIdentifier:suspended:, launched com.example.notes, posted "
            "\"first\"\n"
            "expect order posted \"first\", posted \"first\", posted \"first\"\n"
            "expect order haptic 2, haptic 2\n"
            "expect order darwin-posted second, haptic 2\n"
            "clear\n"
            "expect order posted \"first\"\n"),
        "t:11: expected order posted \"first\", posted \"first\", posted \"first\", got no posted "
        "\"first\" after posted \"first\" (2 in all)\n"
        "t:12: expected order haptic 2, haptic 2, got no haptic 2 after haptic 2 (1 in all)\n"
        "t:13: expected order darwin-posted second, haptic 2, got no haptic 2 after darwin-posted "
        "second (1 in all)\n"
        "t:15: expected order posted \"first\", got no posted \"first\" at all\n");
}

TEST_F(OnAPhone, ElementsAreReadFromTheTopAndActivatedByTheirLabel) {
    EXPECT_EQ(run(std::string(ownWindow) + "let button = [UIButton buttonWithType: 0]\n"
                                           "do [button setFrame: {100, 50, 80, 40}]\n"
                                           "do [button setTitle: \"Go on\" forState: 0]\n"
                                           "do [window addSubview: button]\n"
                                           "do [view setAccessibilityLabel: \"State\"]\n"
                                           "wait 0.1\n"),
              "");
    const std::string elements = phone_->elements();
    EXPECT_TRUE(
        elements.starts_with("\"Go on\" button at {100, 50, 80, 40}\n"
                             "\"State\" at {20, 100, 200, 50}\n"))
        << elements;
    EXPECT_THROW(phone_->activate("Go"), PhoneError);
    phone_->activate("Go on");
    EXPECT_EQ(phone_->calledCount("UIButton", "setHighlighted:"), 2);
}

TEST_F(OnAPhone, SpeaksTheLanguageThatItIsTold) {
    EXPECT_EQ(run("print [[NSLocale preferredLanguages] objectAtIndex: 0]\n"
                  "print [[NSLocale currentLocale] localeIdentifier]\n",
                  "language pt-BR\n"),
              "\"pt-BR\"\n\"pt_BR\"\n");
}

TEST_F(OnAPhone, HasADateOfItsOwn) {
    EXPECT_EQ(run("print [[NSDate date] description]\n"
                  "let then = [NSDate dateWithTimeIntervalSinceNow: 90]\n"
                  "let launched = [NSDate timeIntervalSinceReferenceDate]\n"
                  "wait 30\n"
                  "expect [then timeIntervalSinceNow] == 60\n"
                  "expect [NSDate timeIntervalSinceReferenceDate] == launched + 30\n"
                  "expect [[[[NSDate alloc] init] autorelease] timeIntervalSinceNow] == 0\n"
                  "expect [[[[NSDate alloc] initWithTimeIntervalSinceNow: 5] autorelease] "
                  "timeIntervalSinceNow] == 5\n"
                  "date 2019-12-31 23:59:30\n"
                  "expect posted NSSystemClockDidChangeNotification 1\n"
                  "wait 31\n"
                  "print [[NSDate date] description]\n"
                  "expect [[NSTimeZone defaultTimeZone] secondsFromGMT] == 0\n",
                  "date 2019-06-01 7:30\n"),
              "\"2019-06-01 07:30:00 +0000\"\n\"2020-01-01 00:00:01 +0000\"\n");
}

TEST_F(OnAPhone, ShowsTheTimeAsItPasses) {
    auto shot = [&](const std::string& name) {
        phone_->shot(folder_ / name, 1);
        return readFile(folder_ / name);
    };
    run("open com.example.notes\nwait 1\n");
    const std::string first = shot("first.png");
    phone_->wait(60);
    const std::string later = shot("later.png");
    EXPECT_NE(later, first);
    phone_->date(firstDate);
    EXPECT_EQ(shot("back.png"), first);
    phone_->lock();
    phone_->wait(1);
    const std::string today = shot("today.png");
    phone_->date(firstDate + 24 * 60 * 60);
    EXPECT_NE(shot("tomorrow.png"), today);
    phone_->date(firstDate);
    EXPECT_EQ(shot("today.png"), today);
}

TEST_F(OnAPhone, KeepsTheJournalOfWhatHappened) {
    run("clear\npost \"a name\"\n");
    const auto lines = phone_->journal(1);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(lines[0].ends_with(" posted a name")) << lines[0];
}

TEST_F(OnAPhone, CompletesWhatMayComeNext) {
    run("print 1");
    using Words = std::vector<std::string>;
    EXPECT_EQ(completions("", "br", {}), (Words{"brightness"}));
    EXPECT_EQ(completions("appearance ", "", {}), (Words{"dark", "light"}));
    EXPECT_EQ(completions("toggle ", "true", {}), (Words{"truetone"}));
    EXPECT_EQ(completions("toggle truetone ", "o", {}), (Words{"off", "on"}));
    EXPECT_EQ(completions("device ", "iPhone10,", {}).size(), 6u);
    EXPECT_EQ(completions("setting ", "tap", {}), (Words{"tapToOpen"}));
    EXPECT_EQ(completions("open ", "com.example.n", {}), (Words{"com.example.notes"}));
    EXPECT_EQ(completions("expect called ", "SBLockScreenM", {}), (Words{"SBLockScreenManager"}));
    EXPECT_EQ(completions("expect called SBLockScreenManager ", "lockUIFrom", {}),
              (Words{"lockUIFromSource:withOptions:"}));
    EXPECT_EQ(completions("print [", "too", {"toolbar"}), (Words{"toolbar"}));
    EXPECT_EQ(completions("print [SpringBoard ", "activeInt", {}),
              (Words{"activeInterfaceOrientation"}));
    EXPECT_EQ(completions("watch ", "n", {}), (Words{"notifications"}));
    EXPECT_EQ(completions("help ", "sho", {}), (Words{"shot"}));
    EXPECT_EQ(completions("touch ", "u", {}), (Words{"up"}));
}

}  // namespace
}  // namespace simulator::scenario
