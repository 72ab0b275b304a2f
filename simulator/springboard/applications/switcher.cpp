#include "simulator/springboard/applications/switcher.hpp"

#include <algorithm>
#include <vector>

#include "simulator/runtime/stand_in.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/springboard/applications/recents.hpp"
#include "simulator/springboard/applications/scene_layout.hpp"
#include "simulator/springboard/display/artwork.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/uikit/parts.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(SBMainSwitcherViewController, UIViewController);
VANTORI_CLASS(SBMainSwitcherWindow, UIWindow);
VANTORI_CLASS(SBMainDisplayLayoutState, Object);
VANTORI_CLASS(SBLayoutStateTransitionContext, Object);
VANTORI_CLASS(SBLayoutStateTransitionCoordinator, Object);
VANTORI_CLASS(SBWorkspaceApplicationSceneTransitionContext, Object);

struct SwitcherState {
    Strong<UIWindow> window;
    std::vector<std::string> cards;  // bundle identifiers, newest first
    long inFront;                    // an Environment; 0 before the first transition
    bool visible;
};
struct LayoutState {
    long environment;
};
template <Handle Context>
struct ContextState {
    Strong<SBMainDisplayLayoutState> origin;
    Strong<SBMainDisplayLayoutState> target;
};

constexpr double level = 2;         // over the scenes
constexpr double cardScale = 0.58;  // of the screen
constexpr double cardGap = 24, cardRadius = 16;
constexpr double duration = 0.35;  // seconds
constexpr std::size_t mostCards = 4;

SBMainSwitcherViewController controller() {
    static auto& shared = *new Strong<SBMainSwitcherViewController>;
    if (!shared) shared = create<SBMainSwitcherViewController>();
    return shared;
}

SwitcherState& state() { return stateOf<SwitcherState>(controller()); }

SBMainSwitcherViewController sharedInstance(Class) { return controller(); }

CGRect cardFrame(CGSize screen, std::size_t index) {
    const double width = screen.width * cardScale, height = screen.height * cardScale;
    const double left = (screen.width - width) / 2;
    return rect(left - static_cast<double>(index) * (width + cardGap), (screen.height - height) / 2,
                width, height);
}

void addCard(UIView whole, const std::string& identifier, CGRect frame) {
    auto card = create<UIView, "initWithFrame:">(frame);
    card.layer().setCornerRadius(cardRadius);
    card.setClipsToBounds(true);
    card.setUserInteractionEnabled(false);
    dressAsApplication(card, identifier);
    addPart(whole, card);
}

void fillWindow(SBMainSwitcherViewController self) {
    UIWindow window = state().window;
    const CGSize screen = window.bounds().size;
    NSArray parts = window.subviews();
    while (parts.count() > 0) {
        parts.at<UIView>(0).removeFromSuperview();
        parts = window.subviews();
    }
    auto ground = create<UIVisualEffectView, "initWithEffect:">(
        Object(UIBlurEffect::withStyle(UIBlurEffect::dark)));
    ground.setFrame(window.bounds());
    auto tap =
        create<UITapGestureRecognizer, "initWithTarget:action:">(self, selector<"_handleTap:">());
    ground.addGestureRecognizer(tap);
    addPart(window, ground);
    std::vector<std::string>& cards = state().cards;
    cards = recentIdentifiers();
    if (cards.size() > mostCards) cards.resize(mostCards);
    for (std::size_t i = 0; i < cards.size(); ++i) {
        addCard(window, cards[i], cardFrame(screen, i));
    }
}

void setVisible(SBMainSwitcherViewController self, bool visible) {
    SwitcherState& switcher = state();
    if (std::exchange(switcher.visible, visible) == visible) return;
    if (visible && !switcher.window) {
        switcher.window =
            create<SBMainSwitcherWindow, "initWithFrame:">(UIScreen::mainScreen().bounds());
        switcher.window.setWindowLevel(level);
    }
    UIWindow window = switcher.window;
    if (visible) {
        fillWindow(self);
        window.setAlpha(0);
        window.setHidden(false);
    }
    UIView::animateWithSpring(duration, 0, 1, 0, 0,
                              block([window, visible] { window.setAlpha(visible ? 1 : 0); }),
                              block<void(bool)>([window](bool) {
                                  if (!state().visible) window.setHidden(true);
                              }));
}

// The system's part of a transition: the switcher comes or goes.
void follow(SBMainSwitcherViewController self, SBMainDisplayLayoutState target) {
    setVisible(self, target && stateOf<LayoutState>(target).environment == switcherInFront);
}

template <Handle Context>
SBMainDisplayLayoutState targetOf(Context context) {
    return stateOf<ContextState<Context>>(context).target;
}

void transitionBegan(SBMainSwitcherViewController self, Object,
                     SBLayoutStateTransitionContext context) {
    follow(self, targetOf(context));
}

void sceneTransitionBegan(SBMainSwitcherViewController self, Object,
                          SBWorkspaceApplicationSceneTransitionContext context) {
    follow(self, targetOf(context));
}

NSArray recentLayouts(SBMainSwitcherViewController) { return recentLayoutObjects(); }

bool isVisible(SBMainSwitcherViewController) { return state().visible; }

bool activate(SBMainSwitcherViewController, long, bool) {
    beginTransition(switcherInFront);
    return true;
}

bool activateEarly(SBMainSwitcherViewController self, long source) {
    return activate(self, source, true);
}

// What stands on the card that was tapped comes to the front; beside the cards, the home screen.
void handleTap(SBMainSwitcherViewController, UIGestureRecognizer tap) {
    UIWindow window = state().window;
    const CGPoint place = tap.locationInView(window);
    for (std::size_t i = 0; i < state().cards.size(); ++i) {
        const CGRect card = cardFrame(window.bounds().size, i);
        const bool inside = place.x >= card.origin.x && place.x < card.origin.x + card.size.width &&
                            place.y >= card.origin.y && place.y < card.origin.y + card.size.height;
        if (!inside) continue;
        const std::string identifier = state().cards[i];
        if (identifier == frontMostIdentifier()) {
            beginTransition(applicationInFront);
        } else {
            openApplication(identifier);
        }
        refreshWindows();
        return;
    }
    if (frontMostIdentifier().empty()) {
        beginTransition(homeScreenInFront);
    } else {
        goHome();
    }
    refreshWindows();
}

Strong<SBMainDisplayLayoutState> layoutState(long environment) {
    auto made = create<SBMainDisplayLayoutState>();
    if (made) stateOf<LayoutState>(made).environment = environment;
    return made;
}

template <class Context>
Strong<Context> contextBetween(long origin, long target) {
    auto context = create<Context>();
    if (!context) return context;
    stateOf<ContextState<Context>>(context).origin = layoutState(origin);
    stateOf<ContextState<Context>>(context).target = layoutState(target);
    return context;
}

}  // namespace

void beginTransition(Environment target) {
    SBMainSwitcherViewController switcher = controller();
    if (!switcher) return;
    const long origin = state().inFront ? state().inFront : long{homeScreenInFront};
    state().inFront = target;
    if (auto context = contextBetween<SBLayoutStateTransitionContext>(origin, target)) {
        auto coordinator = create<SBLayoutStateTransitionCoordinator>();
        switcher.sendIfAnswered<
            "layoutStateTransitionCoordinator:transitionDidBeginWithTransitionContext:">(
            coordinator, context);
    }
    if (auto workspace =
            contextBetween<SBWorkspaceApplicationSceneTransitionContext>(origin, target)) {
        switcher.sendIfAnswered<"sceneLayoutController:didBeginLayoutStateTransitionWithContext:">(
            sceneLayoutController(), workspace);
    }
}

void registerSwitcher() {
    realStandIn<SBMainDisplayLayoutState, Object, LayoutState>()
        .readonly<"unlockedEnvironmentMode", &LayoutState::environment>();
    realStandIn<SBLayoutStateTransitionCoordinator, Object>();
    using Coordinated = ContextState<SBLayoutStateTransitionContext>;
    realStandIn<SBLayoutStateTransitionContext, Object, Coordinated>()
        .readonly<"fromLayoutState", &Coordinated::origin>()
        .readonly<"toLayoutState", &Coordinated::target>();
    using InWorkspace = ContextState<SBWorkspaceApplicationSceneTransitionContext>;
    realStandIn<SBWorkspaceApplicationSceneTransitionContext, Object, InWorkspace>()
        .readonly<"previousLayoutState", &InWorkspace::origin>()
        .readonly<"layoutState", &InWorkspace::target>();
    realStandIn<SBMainSwitcherViewController, UIViewController, SwitcherState>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"_handleTap:", &handleTap>()
        .method<"recentAppLayouts", &recentLayouts>()
        .method<"isVisible", &isVisible>()
        .method<"isMainSwitcherVisible", &isVisible>()
        .method<"isAnySwitcherVisible", &isVisible>()
        .method<"activateMainSwitcherNoninteractivelyWithSource:animated:", &activate>()
        .method<"activateSwitcherNoninteractivelyWithSource:", &activateEarly>()
        .method<"layoutStateTransitionCoordinator:transitionDidBeginWithTransitionContext:",
                &transitionBegan>()
        .method<"sceneLayoutController:didBeginLayoutStateTransitionWithContext:",
                &sceneTransitionBegan>();
}

}  // namespace simulator
