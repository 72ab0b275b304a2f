#include "toolbar/welcome_pager.hpp"

#include "platform/definition.hpp"
#include "settings/device_profile.hpp"
#include "toolbar/welcome_pages.hpp"

namespace vantori {

namespace {

struct State {
    Strong<NSArray> updatePictures;
    Strong<UIScrollView> scrollView;
    Strong<UILabel> header;
    Strong<UIPageControl> pageControl;
    Strong<UILabel> pageLabel;

    // A pager that another one replaced could no longer be left: its screen goes with it.
    ~State() {
        scrollView.setDelegate(Object());
        scrollView.superview().removeFromSuperview();
    }
};

State& stateIn(VNTUpdateViewController self) { return stateOf<State>(self); }

WelcomeLayout layoutNow() {
    return {UIScreen::mainScreen().bounds().size,
            UIApplication::shared().statusBarFrame().size.height};
}

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

Strong<UILabel> createLabel(CGRect frame, NSString text, UIFont font) {
    Strong<UILabel> label = create<UILabel, "initWithFrame:">(frame);
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

void createHeader(State& state, const WelcomeLayout& layout) {
    state.header =
        createLabel(layout.header(), welcomeHeader(), UIFont::boldSystem(headerFontSize));
    state.pageLabel =
        createLabel(layout.counter(), counterText(0), UIFont::system(counterFontSize));
    state.pageLabel.setTextAlignment(UILabel::right);
}

void createScrollView(VNTUpdateViewController self, State& state, const WelcomeLayout& layout) {
    state.scrollView = create<UIScrollView, "initWithFrame:">(layout.scroll());
    state.scrollView.setPagingEnabled(true);
    state.scrollView.setShowsHorizontalScrollIndicator(false);
    state.scrollView.setShowsVerticalScrollIndicator(false);
    state.scrollView.setContentSize(layout.content());
    state.scrollView.setDelegate(self);
}

// The white dot of the current page shows on a white screen because of the grey behind the dots.
// They only tell the page: a tap on them turns nothing.
void createPageControl(State& state, const WelcomeLayout& layout) {
    state.pageControl = create<UIPageControl, "initWithFrame:">(layout.dots());
    state.pageControl.setNumberOfPages(static_cast<long>(welcomePageCount));
    state.pageControl.setCurrentPage(0);
    state.pageControl.setCurrentPageIndicatorTintColor(UIColor::white());
    state.pageControl.setPageIndicatorTintColor(UIColor::rgba(0.5, 0.5, 0.5, 0.5));
    state.pageControl.setBackgroundColor(UIColor::rgba(0, 0, 0, 0.2));
    state.pageControl.layer().setCornerRadius(layout.dots().size.height / 2);
    state.pageControl.setUserInteractionEnabled(false);
}

void addPicture(State& state, const WelcomeLayout& layout, unsigned long page) {
    auto view = create<UIImageView, "initWithFrame:">(layout.picture(page));
    view.setContentMode(UIImageView::aspectFit);
    if (page < state.updatePictures.count()) {
        view.setImage(state.updatePictures.at<UIImage>(page));
    }
    state.scrollView.addSubview(view);
}

void addTexts(State& state, const WelcomeLayout& layout, unsigned long page) {
    const WelcomeText text = welcomeText(page);
    auto title = createLabel(layout.title(page), text.title, UIFont::boldSystem(titleFontSize));
    title.setTextAlignment(UILabel::center);
    state.scrollView.addSubview(title);

    UIFont font = UIFont::system(descriptionFontSize);
    const double height = textSize(text.description, font, layout.textWidth()).height;
    auto description = createLabel(layout.description(page, height), text.description, font);
    description.setTextAlignment(UILabel::center);
    description.setNumberOfLines(0);
    state.scrollView.addSubview(description);
}

void addButton(VNTUpdateViewController self, CGRect frame, NSString title, SEL action) {
    UIButton button = UIButton::plain();
    button.setFrame(frame);
    button.setTitle(title);
    button.setTitleColor(UIColor::white());
    button.titleLabel().setFont(UIFont::boldSystem(buttonFontSize));
    button.setBackgroundColor(sendClass<UIColor, "systemBlueColor", UIColor>());
    button.layer().setCornerRadius(20);
    button.addTarget(self, action, UIControl::touchUpInside);
    stateIn(self).scrollView.addSubview(button);
}

void viewDidLoad(VNTUpdateViewController self) {
    super<VNTUpdateViewController, "viewDidLoad">(self);
    State& state = stateIn(self);
    UIView view = self.view();
    const WelcomeLayout layout = layoutNow();
    view.setFrame(layout.view());
    view.setBackgroundColor(groundColor());

    createHeader(state, layout);
    state.updatePictures = loadPictures();
    createScrollView(self, state, layout);
    createPageControl(state, layout);
    for (unsigned long page = 0; page < welcomePageCount; ++page) {
        addPicture(state, layout, page);
        addTexts(state, layout, page);
    }
    addButton(self, layout.fullVersionButton(), "Get Full Version"_ns, selector<"launchApp">());
    addButton(self, layout.backButton(), "Back"_ns, selector<"back">());

    view.addSubview(state.header);
    view.addSubview(state.pageLabel);
    view.addSubview(state.scrollView);
    view.addSubview(state.pageControl);
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
