#include "toolbar/welcome_pages.hpp"

#include <algorithm>

namespace vantori {

namespace {

constexpr double headerMargin = 15, textMargin = 20, lowerMargin = 30;
constexpr double headerHeight = 50;
// Of the height below the header: the picture's share, and how much of what a tall screen has beyond
// the smallest one (568 points) lies above the picture.
constexpr double pictureShare = 0.4, spareShare = 0.15, smallestHeight = 478;
constexpr double pictureHighest = 340;
constexpr double dotsGap = 12, dotsHeight = 10, titleGap = 12, titleHeight = 32, textGap = 6;
constexpr double buttonHeight = 40, buttonGap = 10;
// On a phone on its side: half the gap between picture and text, the margin at the ends of phones so
// long that a notch is there, and what is kept free above and below the buttons.
constexpr double middleGap = 10, notchMargin = 44, longPhone = 2, flatButtonMargin = 10;

}  // namespace

NSString welcomeHeader() { return "Vantori Lite"_ns; }

WelcomeText welcomeText(unsigned long page) {
    switch (page) {
        case 0:
            return {"Welcome to Vantori"_ns,
                    "Nice to have you here. Pull up from the left of the bottom edge, and your "
                    "toggles, music and apps come up under your thumb."_ns};
        case 1:
            return {"The Full Edition"_ns,
                    "All in one toolbar: connections, music, apps, brightness and volume, upright "
                    "or sideways, light or dark, with your app in sight."_ns};
        case 2:
            return {"All Your Toggles"_ns,
                    "Every Control Center toggle has a place in the toolbar. Swipe left to see "
                    "them, and long press one to expand it."_ns};
        default:
            return {"Made to Extend"_ns,
                    "Extensions add pages of their own to the toolbar. Pick yours in Settings, "
                    "and they are one pull away."_ns};
    }
}

WelcomeLayout::WelcomeLayout(CGSize screen, double statusBarHeight)
    : screen_(screen), headerTop_(statusBarHeight + 10) {}

CGRect WelcomeLayout::header() const { return rect(headerMargin, headerTop_, 300, headerHeight); }

CGRect WelcomeLayout::counter() const {
    constexpr double width = 50;
    return rect(screen_.width - width - textMargin, headerTop_, width, headerHeight);
}

CGRect WelcomeLayout::scroll() const {
    const double top = headerTop_ + headerHeight + 10;
    return rect(0, top, screen_.width, screen_.height - top);
}

CGSize WelcomeLayout::content() const {
    return {screen_.width * static_cast<double>(welcomePageCount), scroll().size.height};
}

double WelcomeLayout::sideMargin() const {
    return isFlat() && screen_.width > longPhone * screen_.height ? notchMargin : textMargin;
}

double WelcomeLayout::pictureTop() const {
    if (isFlat()) return 0;
    return std::max((scroll().size.height - smallestHeight) * spareShare, 0.0);
}

double WelcomeLayout::pictureHeight() const {
    if (isFlat()) {
        return scroll().size.height - 2 * flatButtonMargin - buttonHeight - dotsHeight - dotsGap;
    }
    return std::min(scroll().size.height * pictureShare, pictureHighest);
}

double WelcomeLayout::left(unsigned long page) const {
    return screen_.width * static_cast<double>(page);
}

double WelcomeLayout::textWidth() const {
    if (isFlat()) return screen_.width / 2 - middleGap - sideMargin();
    return screen_.width - 2 * sideMargin();
}

double WelcomeLayout::textLeft(unsigned long page) const {
    return left(page) + (isFlat() ? screen_.width / 2 + middleGap : sideMargin());
}

double WelcomeLayout::textTop() const {
    return isFlat() ? 0 : pictureBottom() + dotsGap + dotsHeight + titleGap;
}

CGRect WelcomeLayout::picture(unsigned long page) const {
    return rect(left(page) + sideMargin(), pictureTop(), textWidth(), pictureHeight());
}

CGRect WelcomeLayout::dots() const {
    const double width = 100;
    return rect((screen_.width - width) / 2, scroll().origin.y + pictureBottom() + dotsGap, width,
                dotsHeight);
}

CGRect WelcomeLayout::title(unsigned long page) const {
    return rect(textLeft(page), textTop(), textWidth(), titleHeight);
}

CGRect WelcomeLayout::description(unsigned long page, double height) const {
    const CGRect above = title(page);
    return rect(above.origin.x, above.origin.y + above.size.height + textGap, textWidth(), height);
}

CGRect WelcomeLayout::button(double fromBelow) const {
    const double bottom = scroll().size.height - lowerMargin;
    return rect(left(welcomePageCount - 1) + lowerMargin, bottom - fromBelow - buttonHeight,
                screen_.width - 2 * lowerMargin, buttonHeight);
}

CGRect WelcomeLayout::flatButton(int column) const {
    const double margin = std::max(lowerMargin, sideMargin());
    const double width = (screen_.width - 2 * margin - buttonGap) / 2;
    const double bottom = scroll().size.height - flatButtonMargin;
    return rect(left(welcomePageCount - 1) + margin + column * (width + buttonGap),
                bottom - buttonHeight, width, buttonHeight);
}

CGRect WelcomeLayout::fullVersionButton() const {
    return isFlat() ? flatButton(0) : button(buttonHeight + buttonGap);
}
CGRect WelcomeLayout::backButton() const { return isFlat() ? flatButton(1) : button(0); }

CGRect WelcomeLayout::away() const {
    return rect(0, -50 - screen_.height, screen_.width, screen_.height);
}

}  // namespace vantori
