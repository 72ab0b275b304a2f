// PNG files there and back, and the sentences for what goes wrong; montages of pictures.
#include "simulator/rendering/png.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <fstream>

#include "simulator/rendering/montage.hpp"
#include "simulator/rendering/phone_case.hpp"
#include "tests/rendering/drawing.hpp"

namespace simulator::rendering {
namespace {

class Png : public testing::Test {
  protected:
    void SetUp() override {
        folder_ = std::filesystem::temp_directory_path() / ("png-test-" + std::to_string(getpid()));
        std::filesystem::create_directory(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }
    std::filesystem::path folder_;
};

TEST_F(Png, ReadsWhatItWrote) {
    Node root = screenNode(8, 6);
    root.children.push_back(fillNode({{2, 2}, {3, 3}}, {1, 0.5, 0.25, 1}));
    const Surface picture = render(root, {8, 6}, 2);
    ASSERT_EQ(writePng(picture, folder_ / "a.png"), std::nullopt);
    const ReadPng read = readPng(folder_ / "a.png");
    ASSERT_TRUE(read) << read.error;
    EXPECT_EQ(largestDifference(read.surface, picture), 0);
}

TEST_F(Png, WritingIntoAMissingFolderNamesTheFile) {
    const auto problem = writePng(Surface(2, 2), folder_ / "missing" / "a.png");
    ASSERT_TRUE(problem.has_value());
    EXPECT_NE(problem->find("missing/a.png"), std::string::npos) << *problem;
}

TEST_F(Png, WritingNothingIsAProblem) {
    EXPECT_NE(writePng(Surface(), folder_ / "a.png"), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "a.png"));
}

TEST_F(Png, ReadingAMissingFileNamesTheFile) {
    const ReadPng read = readPng(folder_ / "none.png");
    EXPECT_FALSE(read);
    EXPECT_NE(read.error.find("none.png"), std::string::npos) << read.error;
}

TEST_F(Png, ReadingAFolderIsAProblem) {
    const ReadPng read = readPng(folder_);
    EXPECT_FALSE(read);
    EXPECT_NE(read.error.find("folder"), std::string::npos) << read.error;
}

TEST_F(Png, ReadingTextOrHalfAFileIsAProblem) {
    std::ofstream(folder_ / "text.png") << "this is no picture";
    EXPECT_FALSE(readPng(folder_ / "text.png"));
    ASSERT_EQ(writePng(Surface(64, 64), folder_ / "whole.png"), std::nullopt);
    std::filesystem::resize_file(folder_ / "whole.png", 60);
    EXPECT_FALSE(readPng(folder_ / "whole.png"));
}

TEST_F(Png, DecodesBytes) {
    ASSERT_EQ(writePng(Surface(5, 4), folder_ / "a.png"), std::nullopt);
    std::ifstream file(folder_ / "a.png", std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    const ReadPng read = decodePng(std::as_bytes(std::span(bytes)));
    ASSERT_TRUE(read) << read.error;
    EXPECT_EQ(read.surface.width(), 5);
    EXPECT_FALSE(decodePng({}));
    EXPECT_NE(decodePng({}, "cover").error.find("cover"), std::string::npos);
}

TEST_F(Png, EncodesBytesThatDecodeToThePicture) {
    Node root = screenNode(8, 6);
    root.children.push_back(fillNode({{2, 2}, {3, 3}}, {1, 0.5, 0.25, 1}));
    const Surface picture = render(root, {8, 6}, 2);
    const ReadPng read = decodePng(encodePng(picture));
    ASSERT_TRUE(read) << read.error;
    EXPECT_EQ(largestDifference(read.surface, picture), 0);
    EXPECT_TRUE(encodePng(Surface()).empty());
}

TEST(FilmStrip, PutsFramesBesideOneAnother) {
    Node root = screenNode(10, 10);
    root.background = red;
    const Surface frameOne = render(root, {10, 10}, 1);
    root.background = blue;
    const Surface frameTwo = render(root, {10, 10}, 1);
    const Surface strip = filmStrip({frameOne, frameTwo}, 4);
    EXPECT_EQ(strip.width(), 24);
    EXPECT_EQ(strip.height(), 10);
    EXPECT_EQ(strip.pixel(5, 5), redPixel);
    EXPECT_EQ(strip.pixel(12, 5), 0u);
    EXPECT_EQ(strip.pixel(14, 5), bluePixel);
}

TEST(FilmStrip, OfNothingIsAPixel) { EXPECT_EQ(filmStrip({}).width(), 1); }

TEST(SideBySide, AddsRoomForCaptionsOnlyWhenThereAreSome) {
    EXPECT_EQ(sideBySide({{Surface(10, 10), ""}}).height(), 10);
    EXPECT_GT(sideBySide({{Surface(10, 10), "A"}}).height(), 10);
}

TEST(Frame, KeepsTheScreenInTheMiddleAndRoundsItsCorners) {
    Node root = screenNode(200, 400);
    root.background = red;
    const Surface phone = frame(render(root, {200, 400}, 1), 1, false);
    const int left = (phone.width() - 200) / 2;
    const int top = (phone.height() - 400) / 2;
    EXPECT_EQ(phone.pixel(left + 100, top + 200), redPixel);
    EXPECT_EQ(redOf(phone.pixel(left + 7, top + 7)), 5);  // the glass around the screen
    EXPECT_EQ(alphaOf(phone.pixel(0, 0)), 0);
}

// Around 200 x 400 points: 25.7 of glass, metal, button and air on all sides, and a home button below one.
TEST(Case, HasAHoleForTheScreenAndNothingElseToSeeThrough) {
    const Surface phone = casePicture({}, {200, 400}, 1, blue);
    EXPECT_EQ(phone.width(), 252);
    EXPECT_EQ(phone.height(), 452);
    EXPECT_EQ(phone.pixel(126, 226), 0u);
    EXPECT_EQ(phone.pixel(0, 0), bluePixel);
    EXPECT_EQ(redOf(phone.pixel(126, 20)), 5);  // glass above the screen
    EXPECT_EQ(redOf(phone.pixel(126, 30)), 5);  // the notch
    EXPECT_EQ(phone.pixel(126, 420), 0u);
}

TEST(Case, TurnsWithThePhone) {
    const PhoneCase lying{false, 3};  // its top to the left
    const Surface phone = casePicture(lying, {400, 200}, 1, blue);
    EXPECT_EQ(phone.width(), 452);
    EXPECT_EQ(redOf(phone.pixel(30, 126)), 5);
    EXPECT_EQ(phone.pixel(420, 126), 0u);
    const PhoneCase withButton{true, 1};  // its top to the right
    EXPECT_EQ(roomAround(withButton).width, roomAround({true, 0}).height);
    const Surface button = casePicture(withButton, {400, 200}, 1, blue);
    const int middle =
        static_cast<int>(roomAround(withButton).width - 34);  // of the glass at its end
    EXPECT_EQ(redOf(button.pixel(middle, button.height() / 2)), 13);
    EXPECT_EQ(redOf(button.pixel(button.width() - middle, 10 + 5 + 13)), 5);
}

}  // namespace
}  // namespace simulator::rendering
