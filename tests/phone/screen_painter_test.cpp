// Pictures of a phone in use, painted one after the other, are those of a painting from nothing.
#include "simulator/phone/screen_picture.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "tests/library_phone.hpp"

namespace vantori::tests {
namespace {

using simulator::PullPhase;
using simulator::ScreenPainter;
using simulator::rendering::Rows;
using simulator::rendering::Surface;

bool sameRow(const Surface& one, const Surface& other, int y) {
    const auto row = [&](const Surface& surface) {
        return cairo_image_surface_get_data(surface.get()) +
               y * cairo_image_surface_get_stride(surface.get());
    };
    return std::memcmp(row(one), row(other), static_cast<std::size_t>(one.width()) * 4) == 0;
}

class PaintedPhone : public LibraryPhone, public testing::WithParamInterface<unsigned> {
  protected:
    PaintedPhone() : engine_(GetParam()) {}

    int upTo(int most) { return static_cast<int>(engine_() % static_cast<unsigned>(most)); }

    void pull() {
        const double place = 30 + upTo(300);
        phone_->grabber(PullPhase::began, place, 10, 0);
        for (int i = upTo(4); i >= 0; --i) {
            phone_->grabber(PullPhase::updated, place, 20 + upTo(400), 200);
            phone_->wait(1.0 / 60);
            compare();
        }
        phone_->grabber(PullPhase::ended, place, 300, upTo(2) ? 0 : -500);
    }

    void act() {
        switch (upTo(6)) {
            case 0:
                return phone_->home();
            case 1:
                return phone_->open("com.example.notes");
            case 2:
                return phone_->appearance(upTo(2) == 0);
            case 3:
                set("alwaysSpringBoardStyle", upTo(2) == 0);
                return announceSettings();
            default:
                return pull();
        }
    }

    void compare() {
        const Rows changed = painter_.paint();
        const Surface whole = simulator::screenPicture();
        ASSERT_EQ(painter_.picture().height(), whole.height());
        for (int y = 0; y < whole.height(); ++y) {
            ASSERT_TRUE(sameRow(painter_.picture(), whole, y)) << "row " << y;
            const bool told = changed.first <= y && y < changed.end;
            if (before_ && !told) {
                ASSERT_TRUE(sameRow(before_, whole, y)) << "row " << y << " was not told";
            }
        }
        before_ = whole;
    }

  private:
    std::mt19937 engine_;
    ScreenPainter painter_;
    Surface before_;
};

TEST_P(PaintedPhone, LooksToTheByteAsPaintedFromNothing) {
    boot();
    for (int i = 0; i < 6; ++i) {
        ASSERT_NO_FATAL_FAILURE(act()) << "action " << i;
        for (int frame = 0; frame < 4; ++frame) {
            phone_->wait(1.0 / 60);
            ASSERT_NO_FATAL_FAILURE(compare()) << "action " << i << ", frame " << frame;
        }
        phone_->wait(1);
        ASSERT_NO_FATAL_FAILURE(compare()) << "action " << i << ", at rest";
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, PaintedPhone, testing::Range(1u, 5u));

}  // namespace
}  // namespace vantori::tests
