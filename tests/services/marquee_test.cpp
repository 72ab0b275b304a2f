// Marquees scroll in the phone's own time: 2 s at rest, then 30 points a second until the content has
// come round.
#include <gtest/gtest.h>

#include "platform/now_playing.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/uikit/scene.hpp"

namespace simulator::tests {
namespace {

class Marquee : public ::testing::Test {
  protected:
    Marquee() : phone_(makePhone({})) {
        phone_->withoutExtension();
        phone_->boot();
        marquee_ = create<MPUMarqueeView, "initWithFrame:">(rect(0, 0, 100, 16));
        content_ = create<UIView, "initWithFrame:">(rect(0, 0, 240, 18));
        inside().addSubview(content_);
        marquee_.setViewForContentSize(content_);
    }
    UIView inside() const { return marquee_.subviews().at<UIView>(0); }
    double offset() const { return inside().bounds().origin.x; }
    rendering::Node shown() const { return sceneOf(layerOf(inside())); }

    AutoreleasePool pool_;
    std::unique_ptr<Phone> phone_;
    Strong<MPUMarqueeView> marquee_;
    Strong<UIView> content_;
};

TEST_F(Marquee, RestsUntilItIsEnabled) {
    EXPECT_TRUE(inside() == (marquee_.send<"contentView", UIView>()));
    phone_->wait(10);
    EXPECT_EQ(offset(), 0);
    EXPECT_EQ(shown().children.size(), 1u);
    EXPECT_FALSE(shown().mask);
}

TEST_F(Marquee, ScrollsItsContentRound) {
    marquee_.setMarqueeEnabled(true);
    phone_->wait(2);
    EXPECT_NEAR(offset(), 0, 1e-6);
    phone_->wait(1);
    EXPECT_NEAR(offset(), 30, 1e-6);
    phone_->wait(5);
    EXPECT_NEAR(offset(), 180, 1e-6);
    phone_->wait(3);  // round after 240 / 30 = 8 s
    EXPECT_NEAR(offset(), 0, 1e-6);
    phone_->wait(2);
    EXPECT_NEAR(offset(), 30, 1e-6);  // 13 s: the second round has scrolled for 13 - 10 - 2 = 1 s
}

TEST_F(Marquee, ShowsTheBeginningBehindTheEnd) {
    marquee_.setMarqueeEnabled(true);
    phone_->wait(3);
    rendering::Node node = shown();
    ASSERT_EQ(node.children.size(), 2u);
    EXPECT_EQ(node.children[1].position.x - node.children[0].position.x, 240);
    EXPECT_TRUE(node.mask);
}

TEST_F(Marquee, WhatFitsStays) {
    content_.setFrame(rect(0, 0, 100, 18));
    marquee_.setMarqueeEnabled(true);
    phone_->wait(5);
    EXPECT_EQ(offset(), 0);
    EXPECT_EQ(shown().children.size(), 1u);
}

TEST_F(Marquee, AnotherContentBeginsAnew) {
    marquee_.setMarqueeEnabled(true);
    phone_->wait(5);
    content_.setFrame(rect(0, 0, 300, 18));
    phone_->wait(0.1);
    EXPECT_EQ(offset(), 0);
    phone_->wait(2.9);
    EXPECT_NEAR(offset(), 30, 1);
}

TEST_F(Marquee, GoesBackWhenItIsDisabled) {
    marquee_.setMarqueeEnabled(true);
    phone_->wait(5);
    marquee_.setMarqueeEnabled(false);
    EXPECT_EQ(offset(), 0);
    phone_->wait(5);
    EXPECT_EQ(offset(), 0);
    EXPECT_EQ(shown().children.size(), 1u);
}

TEST_F(Marquee, MayGoWhileItScrolls) {
    marquee_.setMarqueeEnabled(true);
    phone_->wait(3);
    marquee_ = Strong<MPUMarqueeView>();
    phone_->wait(3);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(Marquee, WithoutContentNothingMoves) {
    auto empty = create<MPUMarqueeView, "initWithFrame:">(rect(0, 0, 100, 16));
    empty.setMarqueeEnabled(true);
    phone_->wait(5);
    EXPECT_EQ(empty.subviews().at<UIView>(0).bounds().origin.x, 0);
}

}  // namespace
}  // namespace simulator::tests
