#include "pages/connectivity_page.hpp"

#include <sys/utsname.h>
#include <algorithm>

#include "pages/page_height.hpp"
#include "platform/control_center.hpp"
#include "platform/definition.hpp"
#include "platform/subviews.hpp"

namespace vantori {

namespace {

struct State {
    Strong<UIViewController> airplane;
    Strong<UIViewController> cellular;
    Strong<UIViewController> hotspot;
    Strong<UIViewController> wifi;
    Strong<UIViewController> bluetooth;
    Strong<UIViewController> airDrop;        // a slot that the page never fills
    Strong<NSArray> controllers;             // in display order
    Strong<NSArray> readControllers;         // not used by the page
    Strong<NSDictionary> controllersByName;  // likewise
    Strong<UIView> container;
    bool hasSetUp;
    bool hasBeenLaidOut;
};

constexpr double buttonTop = 25;
constexpr double smallPhoneScale = 0.95;
constexpr double scale = 0.9;

struct Model {
    std::string_view machine;
    std::string_view name;
};

constexpr Model models[] = {
    {"iPhone6,1", "iPhone 5s"},      {"iPhone6,2", "iPhone 5s"},
    {"iPhone7,1", "iPhone 6 Plus"},  {"iPhone7,2", "iPhone 6"},
    {"iPhone8,1", "iPhone 6s"},      {"iPhone8,2", "iPhone 6s Plus"},
    {"iPhone8,4", "iPhone SE"},      {"iPhone9,1", "iPhone 7"},
    {"iPhone9,3", "iPhone 7"},       {"iPhone9,2", "iPhone 7 Plus"},
    {"iPhone9,4", "iPhone 7 Plus"},  {"iPhone10,1", "iPhone 8"},
    {"iPhone10,4", "iPhone 8"},      {"iPhone10,2", "iPhone 8 Plus"},
    {"iPhone10,5", "iPhone 8 Plus"}, {"iPhone10,3", "iPhone X"},
    {"iPhone10,6", "iPhone X"},      {"iPhone11,2", "iPhone XS"},
    {"iPhone11,4", "iPhone XS Max"}, {"iPhone11,6", "iPhone XS Max"},
    {"iPhone11,8", "iPhone XR"},     {"i386", "Simulator 32"},
    {"x86_64", "Simulator 64"},
};

State& stateIn(VNTConnectivityBarViewController self) { return stateOf<State>(self); }

CGSize screenSizeNow() { return UIScreen::mainScreen().bounds().size; }
double shortSide() { return std::min(screenSizeNow().width, screenSizeNow().height); }

bool isPlaceholder(Object entry) { return entry.isKindOfClass(objc_getClass("NSNull")); }

// The everyday toggles' list; only its existence counts here.
bool hasToggleList() {
    return NSFileManager::shared().fileExists(
        "/var/mobile/Library/Preferences/com.ferolin.VNTToggleList.plist"_ns);
}

// Placeholders are passed over only while the list is there. Without it one keeps its place in the
// row, though there is nothing to show.
bool isPassedOver(Object entry) { return isPlaceholder(entry) && hasToggleList(); }

// What holds the round button of a controller: its view, or where that is of another kind, something
// in it that the controller names. Which it is only the objects tell.
UIView viewItself(UIViewController controller) { return controller.view(); }
UIView containerInView(UIViewController controller) {
    return controller.sendIfAnswered<"buttonContainer", UIView>();
}
constexpr UIView (*buttonHolders[])(UIViewController) = {&viewItself, &containerInView};

CCUIRoundButton buttonOf(UIViewController controller) {
    for (auto holderOf : buttonHolders) {
        auto holder = as<CCUILabeledRoundButton>(holderOf(controller));
        if (holder.respondsTo(selector<"buttonView">())) return holder.buttonView();
    }
    return {};
}

Strong<UIViewController> makeController(const char* className) {
    Object raw = Object(classObject(objc_getClass(className))).send<"alloc", Object>();
    return adopted(raw.send<"init", UIViewController>());
}

// Like a list that ends at its first missing element.
NSArray controllersInOrder(const State& state) {
    NSMutableArray all = NSMutableArray::empty();
    for (UIViewController controller :
         {UIViewController(state.airplane), UIViewController(state.cellular),
          UIViewController(state.hotspot), UIViewController(state.wifi),
          UIViewController(state.bluetooth)}) {
        if (!controller) break;
        all.add(controller);
    }
    return all;
}

void createControllers(State& state) {
    state.airplane = makeController("CCUIConnectivityAirplaneViewController");
    state.cellular = makeController("CCUIConnectivityCellularDataViewController");
    state.hotspot = makeController("CCUIConnectivityHotspotViewController");
    state.wifi = makeController("CCUIConnectivityWifiViewController");
    state.bluetooth = makeController("CCUIConnectivityBluetoothViewController");
    state.controllers = retained(controllersInOrder(state));
}

void adoptChild(VNTConnectivityBarViewController self, UIViewController controller) {
    self.send<"addChildViewController:">(controller);
}

void placeButton(VNTConnectivityBarViewController self, UIViewController controller, CGRect frame) {
    adoptChild(self, controller);
    UIView view = controller.view();
    view.setFrame(frame);
    CCUIRoundButton button = buttonOf(controller);
    button.glyphImageView().send<"setTintColor:">(UIColor::white());
    button.selectedGlyphView().send<"setTintColor:">(UIColor::white());
    stateIn(self).container.addSubview(view);
}

// With all five buttons of 60 points on a screen 375 wide, the six gaps are (375 - 5 * 60) / 6 = 12.5:
// the buttons start at 12.5, 85, 157.5, 230 and 302.5. A placeholder that is not passed over leaves its
// place empty: it takes the width of a button and its gap, and yet the count that the gap comes from
// leaves it out. Deliberate.
void placeRow(VNTConnectivityBarViewController self, CGSize button) {
    NSArray controllers = stateIn(self).controllers;
    const double count = static_cast<double>(self.togglesCount());
    const double gap = (shortSide() - button.width * count) / (count + 1);
    double placed = 0;
    for (unsigned long i = 0; i < controllers.count(); ++i) {
        Object entry = controllers.at(i);
        if (isPassedOver(entry)) continue;
        const double x = button.width * placed + gap * (placed + 1);
        if (!isPlaceholder(entry)) {
            placeButton(self, as<UIViewController>(entry),
                        rect(x, buttonTop, button.width, button.height));
        }
        placed += 1;
    }
}

void scaleContainer(const State& state, double factor) {
    state.container.setTransform({factor, 0, 0, factor, 0, 0});
}

// The two smallest phones are shrunk less.
double scaleOfModel(NSString model) {
    const bool small = model.equals("iPhone 5s"_ns) || model.equals("iPhone SE"_ns);
    return small ? smallPhoneScale : scale;
}

bool canShowWhileLocked(VNTConnectivityBarViewController) { return true; }

void viewDidLoad(VNTConnectivityBarViewController self) {
    super<VNTConnectivityBarViewController, "viewDidLoad">(self);
    State& state = stateIn(self);
    state.hasSetUp = false;
    state.hasBeenLaidOut = false;
    state.container =
        create<UIView, "initWithFrame:">(rect(0, 0, screenSizeNow().width, pageHeight));
    self.view().addSubview(state.container);
}

void viewDidLayoutSubviews(VNTConnectivityBarViewController self) {
    super<VNTConnectivityBarViewController, "viewDidLayoutSubviews">(self);
    self.view().setBounds(rect(0, 0, shortSide(), pageHeight));
}

void setUpConnectivityButtonSet(VNTConnectivityBarViewController self) {
    State& state = stateIn(self);
    if (state.hasSetUp) return;
    NSBundle module =
        NSBundle::withPath("/System/Library/ControlCenter/Bundles/ConnectivityModule.bundle"_ns);
    if (!module.load()) return;
    createControllers(state);
    for (unsigned long i = 0; i < state.controllers.count(); ++i) {
        UIViewController controller = state.controllers.at<UIViewController>(i);
        if (isPassedOver(controller)) continue;
        adoptChild(self, controller);
        state.container.addSubview(controller.view());
    }
    state.hasSetUp = bool(state.airplane);
}

long getTogglesCount(VNTConnectivityBarViewController self) {
    NSArray controllers = stateIn(self).controllers;
    long count = 0;
    for (unsigned long i = 0; i < controllers.count(); ++i) {
        if (!isPlaceholder(controllers.at(i))) ++count;
    }
    return count;
}

void layoutConnectivityButton(VNTConnectivityBarViewController self) {
    State& state = stateIn(self);
    if (state.hasBeenLaidOut) return;
    const CGSize button = buttonOf(state.airplane).intrinsicContentSize();
    placeRow(self, button);
    scaleContainer(state, scaleOfModel(self.currentModel()));
    // The module has not produced its buttons yet: the next call lays out again.
    state.hasBeenLaidOut = button.width != 0 && button.height != 0;
}

void refreshAllToggles(VNTConnectivityBarViewController self) {
    State& state = stateIn(self);
    removeSubviews(state.container);
    state.hasSetUp = false;
    state.hasBeenLaidOut = false;
    self.setUpConnectivityButtonSet();
    self.layoutConnectivityButton();
}

void reloadTransform(VNTConnectivityBarViewController self) {
    stateIn(self).container.setTransform(identityTransform);
}

void reloadTransformByDevices(VNTConnectivityBarViewController self) {
    scaleContainer(stateIn(self), scaleOfModel(self.currentModel()));
}

NSString currentModel(VNTConnectivityBarViewController) {
    utsname system{};
    uname(&system);
    // The names are literals, so data() is a C string.
    return NSString::from(connectivityModelName(system.machine).data());
}

}  // namespace

std::string_view connectivityModelName(std::string_view machine) {
    for (const Model& model : models) {
        if (model.machine == machine) return model.name;
    }
    return "unknown device";
}

void registerConnectivityPage() {
    define<VNTConnectivityBarViewController, UIViewController, State>()
        .method<"_canShowWhileLocked", &canShowWhileLocked>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"viewDidLayoutSubviews", &viewDidLayoutSubviews>()
        .method<"setUpConnectivityButtonSet", &setUpConnectivityButtonSet>()
        .method<"getTogglesCount", &getTogglesCount>()
        .method<"layoutConnectivityButton", &layoutConnectivityButton>()
        .method<"refreshAllToggles", &refreshAllToggles>()
        .method<"reloadTransform", &reloadTransform>()
        .method<"reloadTransformByDevices", &reloadTransformByDevices>()
        .method<"currentModel", &currentModel>()
        .property<"airplane", &State::airplane>()
        .property<"cellular", &State::cellular>()
        .property<"hotspot", &State::hotspot>()
        .property<"wifi", &State::wifi>()
        .property<"bluetooth", &State::bluetooth>()
        .property<"airDrop", &State::airDrop>()
        .property<"connectivityButtonControllers", &State::controllers>()
        .property<"connectivityReadButtonControllers", &State::readControllers>()
        .property<"connectivityButtonControllersDic", &State::controllersByName>()
        .property<"connectivityContainerView", &State::container>()
        .property<"hasSetupConnectivityButtonSet", &State::hasSetUp>()
        .property<"hasBeenLayouted", &State::hasBeenLaidOut>();
}

}  // namespace vantori
