#include "pages/everyday_page.hpp"

#include "pages/toolbar_messages.hpp"
#include "platform/definition.hpp"
#include "platform/subviews.hpp"
#include "settings/notifications.hpp"
#include "toggles/brightness_panel.hpp"
#include "toggles/strip.hpp"
#include "toggles/toggle_list.hpp"
#include "toggles/toggle_making.hpp"
#include "toggles/volume_panel.hpp"

namespace vantori {

namespace {

using Page = VNTDailyToolBarViewController;

constexpr double slidingDuration = 0.3;  // seconds

// All eight toggles exist whether the list names them or not.
struct PageState {
    Copied<NSMutableArray> toggleControllers;
    Strong<VNTAppearanceToggleViewController> appearance;
    Strong<VNTOrientationLockToggleViewController> orientation;
    Strong<VNTMuteToggleViewController> mute;
    Strong<VNTLowPowerToggleViewController> lowPower;
    Strong<VNTDNDToggleViewController> doNotDisturb;
    Strong<VNTFlashlightToggleViewController> flashlight;
    Strong<VNTSwitchModuleToggleViewController> brightness;
    Strong<VNTSwitchModuleToggleViewController> volume;
    Strong<VNTBrightnessSliderContainerViewController> brightnessPanel;
    Strong<VNTVolumeSliderContainerViewController> volumePanel;
    Strong<UIView> toggleContainerView;
};

PageState& stateIn(Page self) { return stateOf<PageState>(self); }

double screenWidth() { return UIScreen::mainScreen().bounds().size.width; }

CGRect stripBounds() { return rect(0, 0, screenWidth(), strip::height); }

void createToggles(PageState& state) {
    state.appearance = createAppearanceToggle();
    state.orientation = createOrientationLockToggle();
    state.mute = createMuteToggle();
    state.lowPower = createLowPowerToggle();
    state.doNotDisturb = createDoNotDisturbToggle();
    state.flashlight = createFlashlightToggle();
    state.brightness = createBrightnessSwitch();
    state.volume = createVolumeSwitch();
}

// Off for good: a tap on a switch never changes it, so these two always ask to show their panel.
void prepareSwitches(PageState& state) {
    state.brightness.setOnMessage(local::shouldShowBrightnessSlider());
    state.brightness.setOffMessage(local::shouldHideBrightnessSlider());
    state.brightness.setIsOn(false);
    state.volume.setOnMessage(local::shouldShowVolumeSlider());
    state.volume.setOffMessage(local::shouldHideVolumeSlider());
    state.volume.setIsOn(false);
}

void colourImages(PageState& state) {
    for (VNTDailyToggleButton button :
         {state.brightness.toggleButton(), state.volume.toggleButton(),
          state.flashlight.toggleButton()}) {
        button.setOffColor(UIColor::white());
        button.setOnColor(UIColor::systemBlue());
    }
}

Page pageOf(Object toolbar) { return toolbar.send<"dailyControlViewController", Page>(); }

// A Darwin callback: whichever page registered it, those of both toolbars read their list again.
void refreshBothPages(CFNotificationCenterRef, void*, CFStringRef, const void*, CFDictionaryRef) {
    pageOf(toolbars::springBoardSide()).refreshAllToggles();
    pageOf(toolbars::applicationSide()).refreshAllToggles();
}

void observeNotifications(Page self) {
    observeDarwin(darwin::refreshDailyToggles(), &refreshBothPages);
    observe(self, selector<"showBrightnessSlider">(), local::shouldShowBrightnessSlider());
    observe(self, selector<"hideBrightnessSlider">(), local::shouldHideBrightnessSlider());
    observe(self, selector<"showVolumeSlider">(), local::shouldShowVolumeSlider());
    observe(self, selector<"hideVolumeSlider">(), local::shouldHideVolumeSlider());
}

void viewDidLoad(Page self) {
    super<Page, "viewDidLoad">(self);
    PageState& state = stateIn(self);
    state.toggleContainerView = create<UIView>();
    UIView view = self.view();
    view.setBounds(stripBounds());
    view.addSubview(state.toggleContainerView);
    view.layer().setMasksToBounds(true);  // panels wait above and below the strip
    observeNotifications(self);
    createToggles(state);
    prepareSwitches(state);
    colourImages(state);
    self.setupDailyToggles();
    self.layoutDailyToggles();
    self.setupSliderContainer();
}

NSMutableArray defaultToggles(const PageState& state) {
    NSMutableArray toggles = NSMutableArray::empty();
    for (UIViewController toggle :
         {UIViewController(state.brightness), UIViewController(state.orientation),
          UIViewController(state.lowPower), UIViewController(state.flashlight)}) {
        if (toggle) toggles.add(toggle);
    }
    return toggles;
}

NSMutableArray listedToggles(const PageState& state) {
    return toggleSlots(toggleList(), {{"Appearance"_ns, state.appearance},
                                      {"OrientationLock"_ns, state.orientation},
                                      {"Mute"_ns, state.mute},
                                      {"LowPower"_ns, state.lowPower},
                                      {"DND"_ns, state.doNotDisturb},
                                      {"flashlight"_ns, state.flashlight},
                                      {"display"_ns, state.brightness},
                                      {"volume"_ns, state.volume}});
}

// Kept as it is, not as a copy, which could not change any more.
void setupDailyToggles(Page self) {
    PageState& state = stateIn(self);
    Strong<NSMutableArray>& kept = state.toggleControllers;
    kept = retained(toggleListExists() ? listedToggles(state) : defaultToggles(state));
}

void layoutDailyToggles(Page self) {
    PageState& state = stateIn(self);
    removeSubviews(state.toggleContainerView);
    NSArray slots = state.toggleControllers;
    double count = 0;
    for (unsigned long i = 0; i < slots.count(); ++i) count += isFilled(slots.at(i)) ? 1 : 0;
    const auto places = strip::Row::ofToggles(self.view().bounds().size.width, count);
    double index = 0;
    for (unsigned long i = 0; i < slots.count(); ++i) {
        if (!isFilled(slots.at(i))) continue;
        UIView toggle = slots.at<UIViewController>(i).view();
        toggle.setFrame(places.toggle(index++));
        state.toggleContainerView.addSubview(toggle);
    }
}

void refreshAllToggles(Page self) {
    self.setupDailyToggles();
    self.layoutDailyToggles();
}

// Where a part of the strip stands: in it, or so far below it (above it when negative).
CGRect shifted(Page self, double down) {
    return rect(0, down, self.view().bounds().size.width, strip::height);
}

constexpr double inStrip = 0, below = strip::height, above = -strip::height;

void setupSliderContainer(Page self) {
    PageState& state = stateIn(self);
    state.brightnessPanel = create<VNTBrightnessSliderContainerViewController>();
    state.brightnessPanel.view().setFrame(shifted(self, below));
    state.brightnessPanel.setShouldShowSwitcher(true);
    state.volumePanel = create<VNTVolumeSliderContainerViewController>();
    state.volumePanel.view().setFrame(shifted(self, above));
    self.view().addSubview(state.brightnessPanel.view());
    self.view().addSubview(state.volumePanel.view());
}

struct Slide {
    double rowAlpha, rowPlace;
    double panelAlpha, panelPlace;
};

void slide(Page self, UIViewController panel, const Slide& to) {
    UIView::animate(slidingDuration, block([page = retained(self), panel = retained(panel), to] {
                        UIView row = page.toggleContainerView();
                        row.setAlpha(to.rowAlpha);
                        row.setFrame(shifted(page, to.rowPlace));
                        panel.view().setAlpha(to.panelAlpha);
                        panel.view().setFrame(shifted(page, to.panelPlace));
                    }));
}

// The brightness panel comes from below and the row leaves upward; the volume panel comes from above
// and the row leaves downward. Deliberate.
void showBrightnessSlider(Page self) {
    slide(self, stateIn(self).brightnessPanel, {0, above, 1, inStrip});
}
void hideBrightnessSlider(Page self) {
    slide(self, stateIn(self).brightnessPanel, {1, inStrip, 0, below});
}
void showVolumeSlider(Page self) { slide(self, stateIn(self).volumePanel, {0, below, 1, inStrip}); }
void hideVolumeSlider(Page self) { slide(self, stateIn(self).volumePanel, {1, inStrip, 0, above}); }

void viewDidLayoutSubviews(Page self) {
    super<Page, "viewDidLayoutSubviews">(self);
    self.view().setBounds(stripBounds());
    stateIn(self).volumePanel.view().setBounds(stripBounds());
    stateIn(self).brightnessPanel.view().setBounds(stripBounds());
}

bool canShowWhileLocked(Page) { return true; }

}  // namespace

void registerEverydayPage() {
    define<VNTDailyToolBarViewController, UIViewController, PageState>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"setupDailyToggles", &setupDailyToggles>()
        .method<"layoutDailyToggles", &layoutDailyToggles>()
        .method<"refreshAllToggles", &refreshAllToggles>()
        .method<"setupSliderContainer", &setupSliderContainer>()
        .method<"showBrightnessSlider", &showBrightnessSlider>()
        .method<"hideBrightnessSlider", &hideBrightnessSlider>()
        .method<"showVolumeSlider", &showVolumeSlider>()
        .method<"hideVolumeSlider", &hideVolumeSlider>()
        .method<"viewDidLayoutSubviews", &viewDidLayoutSubviews>()
        .method<"_canShowWhileLocked", &canShowWhileLocked>()
        .property<"toggleControllers", &PageState::toggleControllers>()
        .property<"appearanceVC", &PageState::appearance>()
        .property<"orientationVC", &PageState::orientation>()
        .property<"muteVC", &PageState::mute>()
        .property<"lowPowerVC", &PageState::lowPower>()
        .property<"dndVC", &PageState::doNotDisturb>()
        .property<"flashlightVC", &PageState::flashlight>()
        .property<"brightnessVC", &PageState::brightness>()
        .property<"volumeVC", &PageState::volume>()
        .property<"brightnessSliderContainerVC", &PageState::brightnessPanel>()
        .property<"volumeSliderContainerVC", &PageState::volumePanel>()
        .property<"toggleContainerView", &PageState::toggleContainerView>();
}

}  // namespace vantori
