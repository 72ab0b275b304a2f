// What the phone shows, against pictures (half a pixel for a point) and view trees that were looked
// at and kept. Glyphs and curves may differ a little from one machine to the next, trees may not.
// A normal run never writes them: scripts/goldens does.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "hooks/start_up.hpp"
#include "platform/ownership.hpp"
#include "simulator/phone/extension.hpp"
#include "simulator/phone/screen_picture.hpp"
#include "simulator/rendering/png.hpp"
#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/scenario/session.hpp"
#include "tests/golden/scenes.hpp"

namespace {

using golden::Scene;
using simulator::rendering::Surface;

const std::filesystem::path kept = GOLDEN_FOLDER;
const std::filesystem::path met = MET_FOLDER;  // where a test that fails leaves what it saw
constexpr double pixelsPerPoint = 0.5;

// A pixel differs when one of its channels does by more than this; so many may.
constexpr int channelTolerance = 24;
constexpr double pixelTolerance = 0.005;

bool pixelsDiffer(unsigned one, unsigned other) {
    for (int shift = 0; shift < 32; shift += 8) {
        const int a = static_cast<int>((one >> shift) & 0xff);
        const int b = static_cast<int>((other >> shift) & 0xff);
        if (std::abs(a - b) > channelTolerance) return true;
    }
    return false;
}

// The part of the pixels that differ, from 0 to 1; 1 for pictures of different sizes.
double difference(const Surface& one, const Surface& other) {
    if (one.width() != other.width() || one.height() != other.height()) return 1;
    long differing = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            differing += pixelsDiffer(one.pixel(x, y), other.pixel(x, y));
        }
    }
    return static_cast<double>(differing) / (static_cast<double>(one.width()) * one.height());
}

std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// What parts the trees, as diff writes it: "-" before what was kept, "+" before what was met.
std::string differences(const std::string& expected, const std::string& found) {
    return testing::internal::edit_distance::CreateUnifiedDiff(linesOf(expected), linesOf(found));
}

class Golden : public testing::TestWithParam<Scene> {
  protected:
    Golden() : phone_(simulator::makePhone({})) {
        simulator::setExtensionLoader(&vantori::startUp);
    }

    void play() {
        std::string text(hasSeenWelcome(GetParam()) ? golden::historySeen : "");
        text += GetParam().scenario;
        std::ostringstream said;
        simulator::scenario::Session session(*phone_, std::string(GetParam().name), met, said);
        for (const auto& statement : simulator::scenario::parse(text)) session.run(statement);
        ASSERT_EQ(session.failed(), 0) << said.str();
        picture_ = simulator::screenPicture(pixelsPerPoint);
        tree_ = phone_->tree(nullptr);
    }
    void write(const std::filesystem::path& folder) {
        std::filesystem::create_directories(folder);
        const std::filesystem::path stem = folder / GetParam().name;
        EXPECT_EQ(simulator::rendering::writePng(picture_, stem.string() + ".png"), std::nullopt);
        std::ofstream(stem.string() + ".txt") << tree_;
    }

    platform::AutoreleasePool pool_;
    std::unique_ptr<simulator::Phone> phone_;
    Surface picture_;
    std::string tree_;
};

TEST_P(Golden, LooksAsItDid) {
    ASSERT_NO_FATAL_FAILURE(play());
    if (std::getenv("VANTORI_RENEW_GOLDENS")) return write(kept);

    const std::filesystem::path stem = kept / GetParam().name;
    const auto expected = simulator::rendering::readPng(stem.string() + ".png");
    ASSERT_TRUE(expected) << expected.error;
    EXPECT_LE(difference(expected.surface, picture_), pixelTolerance);
    const std::string keptTree = contents(stem.string() + ".txt");
    EXPECT_TRUE(keptTree == tree_) << differences(keptTree, tree_);
    if (HasFailure()) {
        write(met);
        ADD_FAILURE() << "What was met is in " << met.string()
                      << "; if it is right, scripts/goldens " << GetParam().name << " keeps it.";
    }
}

INSTANTIATE_TEST_SUITE_P(Scenes, Golden, testing::ValuesIn(golden::scenes),
                         [](const auto& scene) { return std::string(scene.param.name); });

Surface filled(int width, int height, double gray) {
    Surface surface(width, height);
    auto context = simulator::rendering::contextOf(surface);
    simulator::rendering::setSource(context.get(), {gray, gray, gray, 1});
    cairo_paint(context.get());
    return surface;
}

// 0.5 is 128 of 255: 0.55 lies 12 above it, 0.7 lies 51 above it.
TEST(GoldenComparison, ForgivesALittleAndNoMore) {
    EXPECT_EQ(difference(filled(20, 10, 0.5), filled(20, 10, 0.5)), 0);
    EXPECT_EQ(difference(filled(20, 10, 0.5), filled(20, 10, 0.55)), 0);
    EXPECT_EQ(difference(filled(20, 10, 0.5), filled(20, 10, 0.7)), 1);
    EXPECT_EQ(difference(filled(20, 10, 0.5), filled(10, 20, 0.5)), 1);
    Surface dotted = filled(20, 10, 0.5);
    auto context = simulator::rendering::contextOf(dotted);
    cairo_rectangle(context.get(), 3, 3, 1, 1);
    cairo_set_source_rgb(context.get(), 1, 0, 0);
    cairo_fill(context.get());
    EXPECT_EQ(difference(filled(20, 10, 0.5), dotted), 1.0 / 200);
}

TEST(GoldenComparison, NamesEveryLineThatDiffers) {
    EXPECT_EQ(differences("a\nb\n", "a\nb\n"), "");
    EXPECT_EQ(differences("a\nb\nc\n", "a\nB\nc\nd\n"), "@@ -1,3 +1,4 @@\n a\n-b\n+B\n c\n+d\n");
}

}  // namespace
