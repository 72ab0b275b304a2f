// What the welcome pager's four pages say, and where it lies on a screen. All in points; pages are
// placed from the origin of the scroll view, everything else from that of the pager's view. On a phone
// on its side the picture is on the left of its text, and the buttons stand side by side.
#pragma once

#include "platform/uikit_controls.hpp"

namespace vantori {

using namespace platform;

inline constexpr unsigned long welcomePageCount = 4;

struct WelcomeText {
    NSString title;
    NSString description;
};

NSString welcomeHeader();
WelcomeText welcomeText(unsigned long page);

// Fonts, in points.
inline constexpr double headerFontSize = 30, titleFontSize = 25, descriptionFontSize = 17,
                        counterFontSize = 17, buttonFontSize = 17;

class WelcomeLayout {
  public:
    WelcomeLayout(CGSize screen, double statusBarHeight);

    CGRect view() const { return rect(0, 0, screen_.width, screen_.height); }
    CGRect header() const;
    CGRect counter() const;
    CGRect scroll() const;
    CGSize content() const;
    CGRect dots() const;

    CGRect picture(unsigned long page) const;
    CGRect title(unsigned long page) const;
    CGRect description(unsigned long page, double height) const;
    double textWidth() const;

    // On the last page, one above the other.
    CGRect fullVersionButton() const;
    CGRect backButton() const;

    // Where the pager goes when it is left: off the top.
    CGRect away() const;

  private:
    bool isFlat() const { return screen_.width > screen_.height; }
    double sideMargin() const;
    double left(unsigned long page) const;
    double textLeft(unsigned long page) const;
    double textTop() const;
    double pictureTop() const;
    double pictureHeight() const;
    double pictureBottom() const { return pictureTop() + pictureHeight(); }
    CGRect button(double fromBelow) const;
    CGRect flatButton(int column) const;

    CGSize screen_;
    double headerTop_;
};

}  // namespace vantori
