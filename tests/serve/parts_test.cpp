// The parts that need neither a server nor a phone.
#include <gtest/gtest.h>
#include <zlib.h>

#include "simulator/live/pace.hpp"
#include "simulator/serve/events.hpp"
#include "simulator/serve/replay.hpp"
#include "simulator/serve/requests.hpp"
#include "simulator/serve/screen_rows.hpp"

namespace simulator::serve {
namespace {

using nlohmann::json;

rendering::Surface filled(int width, int height, rendering::Colour colour, Band band) {
    rendering::Surface surface(width, height);
    const rendering::Context context = rendering::contextOf(surface);
    rendering::setSource(context.get(), {0, 0, 0, 1});
    cairo_paint(context.get());
    rendering::setSource(context.get(), colour);
    cairo_rectangle(context.get(), 0, band.top, width, band.rows);
    cairo_fill(context.get());
    cairo_surface_flush(surface.get());
    return surface;
}

std::uint32_t number(const std::string& message, std::size_t index) {
    std::uint32_t value = 0;
    for (std::size_t byte = 4; byte-- > 0;)
        value = value << 8 | static_cast<unsigned char>(message[index * 4 + byte]);
    return value;
}

std::string pixelsOf(const std::string& message, std::size_t numbers, std::size_t size) {
    std::string pixels(size, '\0');
    uLongf length = size;
    EXPECT_EQ(uncompress(reinterpret_cast<Bytef*>(pixels.data()), &length,
                         reinterpret_cast<const Bytef*>(message.data() + numbers * 4),
                         message.size() - numbers * 4),
              Z_OK);
    EXPECT_EQ(length, size);
    return pixels;
}

bool show(ScreenRows& rows, const rendering::Surface& picture) {
    return rows.show(picture, rendering::rowsOf(picture));
}

TEST(ScreenRows, TellsOfTheRowsThatAreNewToAPage) {
    ScreenRows rows;
    EXPECT_TRUE(show(rows, filled(4, 10, {1, 0, 0, 1}, {2, 3})));
    EXPECT_EQ(rows.frame(), 1U);
    EXPECT_EQ(rows.changedSince(0), (std::vector<Band>{{0, 10}}));
    EXPECT_FALSE(show(rows, filled(4, 10, {1, 0, 0, 1}, {2, 3})));
    EXPECT_EQ(rows.frame(), 1U);
    // The red rows go from 2..4 to 3..5: 2 and 5 change.
    EXPECT_TRUE(show(rows, filled(4, 10, {1, 0, 0, 1}, {3, 3})));
    EXPECT_EQ(rows.changedSince(1), (std::vector<Band>{{2, 1}, {5, 1}}));
    EXPECT_TRUE(show(rows, filled(4, 10, {1, 0, 0, 1}, {4, 3})));
    // Who missed the second frame gets its rows with those of the third.
    EXPECT_EQ(rows.changedSince(1), (std::vector<Band>{{2, 2}, {5, 2}}));
    EXPECT_EQ(rows.changedSince(2), (std::vector<Band>{{3, 1}, {6, 1}}));
    EXPECT_TRUE(rows.changedSince(3).empty());
}

// Whoever paints goes on in the same pixels and says which of them may be others.
TEST(ScreenRows, KeepsWhatWasShown) {
    ScreenRows rows;
    const rendering::Surface canvas = filled(4, 10, {1, 0, 0, 1}, {2, 3});
    rows.show(canvas, rendering::rowsOf(canvas));
    rendering::copyPixels(filled(4, 10, {1, 0, 0, 1}, {3, 3}), canvas, {0, 10});
    EXPECT_TRUE(rows.show(canvas, {4, 8}));
    EXPECT_EQ(rows.changedSince(1), (std::vector<Band>{{5, 1}}));
    EXPECT_TRUE(rows.show(canvas, {0, 10}));
    EXPECT_EQ(rows.changedSince(2), (std::vector<Band>{{2, 1}}));
}

TEST(ScreenRows, SendsNumbersThenPixels) {
    ScreenRows rows;
    show(rows, filled(2, 4, {1, 0.5, 0, 1}, {1, 1}));
    show(rows, filled(2, 4, {1, 0.5, 0, 1}, {1, 2}));
    const std::string message = rows.message(1);
    EXPECT_EQ(number(message, 0), 2U);  // the frame
    EXPECT_EQ(number(message, 1), 2U);
    EXPECT_EQ(number(message, 2), 4U);
    EXPECT_EQ(number(message, 3), 1U);  // one band
    EXPECT_EQ(number(message, 4), 2U);
    EXPECT_EQ(number(message, 5), 1U);
    EXPECT_EQ(pixelsOf(message, 6, 8), std::string("\xff\x80\x00\xff\xff\x80\x00\xff", 8));
}

TEST(ScreenRows, AnotherSizeIsNewAltogether) {
    ScreenRows rows;
    show(rows, filled(2, 4, {1, 1, 1, 1}, {0, 4}));
    EXPECT_TRUE(show(rows, filled(4, 2, {1, 1, 1, 1}, {0, 2})));
    EXPECT_EQ(rows.changedSince(1), (std::vector<Band>{{0, 2}}));
}

TEST(Events, AreKeptForPagesThatCome) {
    Events events(3);
    for (int i = 0; i < 5; ++i) events.add(i);
    Events::Part part = events.from(0, 10);
    EXPECT_EQ(part.lost, 2U);
    EXPECT_EQ(part.events, (json{2, 3, 4}));
    EXPECT_EQ(part.next, 5U);
    part = events.from(3, 1);
    EXPECT_EQ(part.lost, 0U);
    EXPECT_EQ(part.events, json{3});
    EXPECT_EQ(part.next, 4U);
}

int closingOf(std::string_view message) {
    const auto result = readRequest(message);
    const auto* closing = std::get_if<Closing>(&result);
    return closing != nullptr ? closing->status : 0;
}

TEST(Requests, AreReadWithTheirParticulars) {
    const auto result = readRequest(R"({"do":"touch","phase":"move","x":1.5,"y":-2})");
    const auto* request = std::get_if<Request>(&result);
    ASSERT_NE(request, nullptr);
    const auto& touch = std::get<TouchRequest>(*request);
    EXPECT_EQ(touch.phase, TouchRequest::Phase::move);
    EXPECT_EQ(touch.x, 1.5);
    EXPECT_EQ(touch.y, -2);
}

TEST(Requests, WhatIsBrokenShutsThePageOut) {
    EXPECT_EQ(closingOf(""), 1007);
    EXPECT_EQ(closingOf("{"), 1007);
    EXPECT_EQ(closingOf("\xff"), 1007);
    EXPECT_EQ(closingOf(std::string(60000, '[')), 1007);
    EXPECT_EQ(closingOf("[]"), 1008);
    EXPECT_EQ(closingOf("{}"), 1008);
    EXPECT_EQ(closingOf(R"({"do":"fly"})"), 1008);
    EXPECT_EQ(closingOf(R"({"do":7})"), 1008);
    EXPECT_EQ(closingOf(R"({"do":"touch","phase":"down"})"), 1008);
    EXPECT_EQ(closingOf(R"({"do":"touch","phase":"down","x":"1","y":2})"), 1008);
    EXPECT_EQ(closingOf(R"({"do":"touch","phase":"sideways","x":1,"y":2})"), 1008);
    EXPECT_EQ(closingOf(R"({"do":"look","scale":1e999})"), 1007);
    EXPECT_EQ(closingOf(R"({"do":"seen"})"), 0);
}

TEST(Replay, LetsNoMoreTimePassThanIsAllowed) {
    Replay replay("device iPhone8,1\nboot\n\nwait 0.5 times 2\nhome\nwait 2\nlock\n");
    EXPECT_EQ(replay.beforeBoot(), "device iPhone8,1");
    EXPECT_EQ(replay.beforeBoot(), std::nullopt);
    // The phone's clock stands at 10 when it begins.
    EXPECT_EQ(replay.next(10), std::nullopt);
    replay.allow(0.25);
    EXPECT_EQ(replay.next(10), "wait 0.5");
    EXPECT_EQ(replay.next(10.5), std::nullopt);
    replay.allow(0.5);
    EXPECT_EQ(replay.next(10.5), "wait 0.5");
    EXPECT_EQ(replay.next(11), std::nullopt);
    replay.allow(0.5);
    EXPECT_EQ(replay.next(11), "home");
    EXPECT_EQ(replay.next(11), "wait 2");
    EXPECT_FALSE(replay.isOver());
    replay.allow(3);
    EXPECT_EQ(replay.next(13), "lock");
    EXPECT_TRUE(replay.isOver());
}

TEST(Pace, FollowsRealTimeSlowlyOrNotAtAll) {
    using namespace std::chrono_literals;
    const live::Pace::Moment start{};
    live::Pace pace(start);
    EXPECT_EQ(pace.frames(start + 20ms), 1);  // 3.33 ms are left
    EXPECT_EQ(pace.frames(start + 30ms), 0);
    EXPECT_EQ(pace.frames(start + 34ms), 1);
    EXPECT_DOUBLE_EQ(pace.frameTime(), 1.0 / 60);
    EXPECT_EQ(pace.frames(start + 10s), 6);  // no more than a tenth of a second is made up for
    pace.setSlow(true);
    EXPECT_DOUBLE_EQ(pace.frameTime(), 1.0 / 600);
    pace.setPaused(true);
    EXPECT_EQ(pace.frames(start + 11s), 0);
    pace.step();
    EXPECT_DOUBLE_EQ(pace.frameTime(), 1.0 / 60);
    EXPECT_EQ(pace.frames(start + 12s), 1);
    EXPECT_EQ(pace.frames(start + 13s), 0);
    pace.setPaused(false);
    EXPECT_EQ(pace.frames(start + 13s + 17ms), 1);
}

}  // namespace
}  // namespace simulator::serve
