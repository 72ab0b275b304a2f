#include "toolbar/welcome_pager.hpp"

#include <array>
#include <cmath>

#include "platform/definition.hpp"
#include "settings/device_profile.hpp"
#include "toolbar/welcome_pages.hpp"

namespace vantori {

namespace {

struct PageViews {
    Strong<UIImageView> picture;
    Strong<UILabel> title;
    Strong<UILabel> description;
};

struct State {
    Strong<NSArray> updatePictures;
    Strong<UIScrollView> scrollView;
    Strong<UILabel> header;
    Strong<UIPageControl> pageControl;
    Strong<UILabel> pageLabel;
    std::array<PageViews, welcomePageCount> pages;
    Strong<UIButton> fullVersionButton;
    Strong<UIButton> backButton;
    CGSize placedIn;  // the size for which all this was placed

    // A pager that another one replaced could no longer be left: its screen goes with it.
    ~State() {
        scrollView.setDelegate(Object());
        scrollView.superview().removeFromSuperview();
    }
};

State& stateIn(VNTUpdateViewController self) { return stateOf<State>(self); }

WelcomeLayout layoutIn(CGSize size) {
    return {size, UIApplication::shared().statusBarFrame().size.height};
}
WelcomeLayout layoutNow() { return layoutIn(UIScreen::mainScreen().bounds().size); }

UIColor textColor() {
    return isSystem13OrLater() ? sendClass<UIColor, "labelColor", UIColor>() : UIColor::black();
}
UIColor groundColor() {
    return isSystem13OrLater() ? sendClass<UIColor, "systemBackgroundColor", UIColor>()
                               : UIColor::white();
}

NSString supportFile(NSString fileName) {
    return "/Library/Application Support/Vantori/"_ns.send<"stringByAppendingString:", NSString>(
        fileName);
}

UIImage supportPicture(NSString fileName) {
    return UIImage::withContentsOfFile(supportFile(fileName));
}

// Always one picture a page: what is not there is an empty image. The first is looked for in
// SpringBoard's own bundle, where a theme may put one of its own, before the support folder.
Strong<NSArray> loadPictures() {
    UIImage first = UIImage::named("update0.png"_ns);
    if (!first) first = supportPicture("update0.png"_ns);
    const UIImage found[welcomePageCount] = {
        first,
        supportPicture("update0.png"_ns),
        supportPicture("update1.png"_ns),
        supportPicture("update2.png"_ns),
    };
    NSMutableArray pictures = NSMutableArray::empty();
    for (UIImage picture : found) {
        Strong<UIImage> kept = picture ? retained(picture) : create<UIImage>();
        if (kept) pictures.add(kept);
    }
    return retained<NSArray>(pictures);
}

Strong<UILabel> createLabel(NSString text, UIFont font) {
    Strong<UILabel> label = create<UILabel>();
    label.setText(text);
    label.setFont(font);
    label.setTextColor(textColor());
    return label;
}

// "2/4" for the page of index 1.
NSString counterText(int page) {
    NSString number = NSNumber::fromInt(page + 1).send<"stringValue", NSString>();
    return number.send<"stringByAppendingString:", NSString>("/4"_ns);
}

void createHeader(State& state) {
    state.header = createLabel(welcomeHeader(), UIFont::boldSystem(headerFontSize));
    state.pageLabel = createLabel(counterText(0), UIFont::system(counterFontSize));
    state.pageLabel.setTextAlignment(UILabel::right);
}

void createScrollView(VNTUpdateViewController self, State& state) {
    state.scrollView = create<UIScrollView>();
    state.scrollView.setPagingEnabled(true);
    state.scrollView.setShowsHorizontalScrollIndicator(false);
    state.scrollView.setShowsVerticalScrollIndicator(false);
    state.scrollView.setDelegate(self);
}

// The white dot of the current page shows on a white screen because of the grey behind the dots.
// They only tell the page: a tap on them turns nothing.
void createPageControl(State& state) {
    state.pageControl = create<UIPageControl>();
    state.pageControl.setNumberOfPages(static_cast<long>(welcomePageCount));
    state.pageControl.setCurrentPage(0);
    state.pageControl.setCurrentPageIndicatorTintColor(UIColor::white());
    state.pageControl.setPageIndicatorTintColor(UIColor::rgba(0.5, 0.5, 0.5, 0.5));
    state.pageControl.setBackgroundColor(UIColor::rgba(0, 0, 0, 0.2));
    state.pageControl.setUserInteractionEnabled(false);
}

void addPicture(State& state, unsigned long page) {
    Strong<UIImageView>& view = state.pages[page].picture;
    view = create<UIImageView>();
    view.setContentMode(UIImageView::aspectFit);
    if (page < state.updatePictures.count()) {
        view.setImage(state.updatePictures.at<UIImage>(page));
    }
    state.scrollView.addSubview(view);
}

void addTexts(State& state, unsigned long page) {
    const WelcomeText text = welcomeText(page);
    PageViews& views = state.pages[page];
    views.title = createLabel(text.title, UIFont::boldSystem(titleFontSize));
    views.title.setTextAlignment(UILabel::center);
    state.scrollView.addSubview(views.title);

    views.description = createLabel(text.description, UIFont::system(descriptionFontSize));
    views.description.setTextAlignment(UILabel::center);
    views.description.setNumberOfLines(0);
    state.scrollView.addSubview(views.description);
}

Strong<UIButton> addButton(VNTUpdateViewController self, NSString title, SEL action) {
    UIButton button = UIButton::plain();
    button.setTitle(title);
    button.setTitleColor(UIColor::white());
    button.titleLabel().setFont(UIFont::boldSystem(buttonFontSize));
    button.setBackgroundColor(sendClass<UIColor, "systemBlueColor", UIColor>());
    button.layer().setCornerRadius(20);
    button.addTarget(self, action, UIControl::touchUpInside);
    stateIn(self).scrollView.addSubview(button);
    return retained(button);
}

void placePage(const State& state, const WelcomeLayout& layout, unsigned long page) {
    const PageViews& views = state.pages[page];
    views.picture.setFrame(layout.picture(page));
    views.title.setFrame(layout.title(page));
    const double height = textSize(welcomeText(page).description,
                                   UIFont::system(descriptionFontSize), layout.textWidth())
                              .height;
    views.description.setFrame(layout.description(page, height));
}

// The page in front stays in front.
void placeScrollView(const State& state, const WelcomeLayout& layout) {
    const double width = state.scrollView.frame().size.width;
    const double pages = width > 0 ? std::round(state.scrollView.contentOffset().x / width) : 0;
    state.scrollView.setFrame(layout.scroll());
    state.scrollView.setContentSize(layout.content());
    state.scrollView.setContentOffset({pages * layout.scroll().size.width, 0});
}

void place(VNTUpdateViewController self) {
    State& state = stateIn(self);
    state.placedIn = self.view().bounds().size;
    const WelcomeLayout layout = layoutIn(state.placedIn);
    state.header.setFrame(layout.header());
    state.pageLabel.setFrame(layout.counter());
    state.pageControl.setFrame(layout.dots());
    state.pageControl.layer().setCornerRadius(layout.dots().size.height / 2);
    placeScrollView(state, layout);
    for (unsigned long page = 0; page < welcomePageCount; ++page) placePage(state, layout, page);
    state.fullVersionButton.setFrame(layout.fullVersionButton());
    state.backButton.setFrame(layout.backButton());
}

void viewDidLoad(VNTUpdateViewController self) {
    super<VNTUpdateViewController, "viewDidLoad">(self);
    State& state = stateIn(self);
    UIView view = self.view();
    view.setFrame(layoutNow().view());
    view.setBackgroundColor(groundColor());

    createHeader(state);
    state.updatePictures = loadPictures();
    createScrollView(self, state);
    createPageControl(state);
    for (unsigned long page = 0; page < welcomePageCount; ++page) {
        addPicture(state, page);
        addTexts(state, page);
    }
    state.fullVersionButton = addButton(self, "Get Full Version"_ns, selector<"launchApp">());
    state.backButton = addButton(self, "Back"_ns, selector<"back">());
    place(self);

    view.addSubview(state.header);
    view.addSubview(state.pageLabel);
    view.addSubview(state.scrollView);
    view.addSubview(state.pageControl);
}

// The home screen turns with the phone, and the pager with it.
void viewDidLayoutSubviews(VNTUpdateViewController self) {
    super<VNTUpdateViewController, "viewDidLayoutSubviews">(self);
    const CGSize size = self.view().bounds().size, placed = stateIn(self).placedIn;
    if (size.width != placed.width || size.height != placed.height) place(self);
}

void scrollViewDidEndDecelerating(VNTUpdateViewController self, UIScrollView scrollView) {
    const double width = scrollView.bounds().size.width;
    if (width <= 0) return;
    const int page = static_cast<int>(scrollView.contentOffset().x / width);
    State& state = stateIn(self);
    state.pageLabel.setText(counterText(page));
    state.pageControl.setCurrentPage(page);
}

// Slower than the toolbar. Interrupted, the pager stays where it is.
void backToHome(VNTUpdateViewController self) {
    UIView view = self.view();
    auto leave = block([view = retained(view), away = layoutNow().away()] { view.setFrame(away); });
    auto remove = block<void(bool)>([view = retained(view)](bool finished) {
        if (!finished) return;
        view.setHidden(true);
        view.removeFromSuperview();
    });
    UIView::animateWithSpring(1.5, 0, 0.6f, 0.3f, 0, leave, remove);
}

void back(VNTUpdateViewController self) { self.send<"backToHome">(); }

void launchApp(VNTUpdateViewController self) {
    UIApplication::shared().open(NSURL::from("cydia://package/com.ferolin.vantori.full"_ns));
    self.send<"backToHome">();
}

}  // namespace

void registerWelcomePager() {
    define<VNTUpdateViewController, UIViewController, State>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"viewDidLayoutSubviews", &viewDidLayoutSubviews>()
        .method<"scrollViewDidEndDecelerating:", &scrollViewDidEndDecelerating>()
        .method<"backToHome", &backToHome>()
        .method<"back", &back>()
        .method<"launchApp", &launchApp>()
        .property<"updatePictures", &State::updatePictures>()
        .property<"scrollView", &State::scrollView>()
        .property<"header", &State::header>()
        .property<"pageControl", &State::pageControl>()
        .property<"pageLabel", &State::pageLabel>();
}

}  // namespace vantori
