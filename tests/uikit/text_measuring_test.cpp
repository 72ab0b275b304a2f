// The room that a string says it takes is the room that a label takes for it.
#include "platform/uikit_controls.hpp"
#include "tests/uikit/support.hpp"

namespace simulator::tests {
namespace {

class TextMeasuring : public UIKit {
  protected:
    static Strong<UILabel> label(NSString text, UIFont font) {
        auto made = create<UILabel>();
        made.setText(text);
        made.setFont(font);
        made.setNumberOfLines(0);
        return made;
    }
    static constexpr const char* sentence =
        "Pull up from the bottom edge, and everything comes up under your thumb.";
};

TEST_F(TextMeasuring, AgreesWithTheLabel) {
    NSString text = NSString::from(sentence);
    for (double size : {12.0, 17.0, 25.0}) {
        auto font = UIFont::system(size);
        const CGSize room = textSize(text, font, 200);
        const CGSize fit = label(text, font).send<"sizeThatFits:", CGSize>(CGSize{200, 1000});
        EXPECT_EQ(room, fit) << size;
        EXPECT_LE(room.width, 200);
        EXPECT_GT(room.height, 2 * size);  // more than one line
    }
}

TEST_F(TextMeasuring, BoldIsWider) {
    NSString text = NSString::from(sentence);
    EXPECT_GT(textSize(text, UIFont::boldSystem(17), 10000).width,
              textSize(text, UIFont::system(17), 10000).width);
}

TEST_F(TextMeasuring, WithoutLineFragmentsAllIsOneLine) {
    NSString text = NSString::from(sentence);
    auto measure = [&](unsigned long options) {
        return text
            .send<"boundingRectWithSize:options:attributes:context:", CGRect>(
                CGSize{100, 1000}, options, NSDictionary(), Object())
            .size;
    };
    EXPECT_GT(measure(0).width, 100);
    EXPECT_LT(measure(0).height, measure(1).height);
    EXPECT_EQ(measure(0), (text.send<"sizeWithAttributes:", CGSize>(NSDictionary())));
}

TEST_F(TextMeasuring, NoTextTakesNoRoom) {
    EXPECT_EQ(textSize(""_ns, UIFont::system(17), 100), (CGSize{0, 0}));
    EXPECT_EQ(textSize(NSString(), UIFont::system(17), 100), (CGSize{0, 0}));
}

}  // namespace
}  // namespace simulator::tests
