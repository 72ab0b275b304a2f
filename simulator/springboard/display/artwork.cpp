#include "simulator/springboard/display/artwork.hpp"

#include <functional>

#include "simulator/hardware/configuration.hpp"
#include "simulator/hardware/uikit_bridge.hpp"
#include "simulator/rendering/app_art.hpp"
#include "simulator/rendering/chrome.hpp"
#include "simulator/rendering/icon_art.hpp"
#include "simulator/rendering/nodes.hpp"
#include "simulator/rendering/painter.hpp"
#include "simulator/rendering/wallpaper.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/date.hpp"
#include "simulator/services/radios.hpp"
#include "simulator/services/system_settings.hpp"
#include "simulator/uikit/parts.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/view/view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

using rendering::Node;
using rendering::PictureRef;

constexpr long darkStyle = 2;

const char imageKey = 0;
const char timeKey = 0;

// What draws a picture anew that tells the time, as wide and high as it was.
using Draw = std::function<PictureRef()>;
struct TimeState {
    Draw draw;
};
VANTORI_CLASS(SBTimePicture, Object);

bool isDark() { return screen().style == darkStyle; }

rendering::Size sizeOf(UIView view) {
    CGSize size = view.bounds().size;
    return {size.width, size.height};
}

PictureRef pictureOf(Node node, rendering::Size size) {
    return rendering::Picture::drawing(size, [node = std::move(node)](cairo_t* context) {
        auto surface =
            rendering::Surface::adopt(cairo_surface_reference(cairo_get_target(context)));
        rendering::Painter(surface, context).paint(node);
    });
}

// One image view behind whatever else the view holds.
UIImageView imageViewOf(UIView view) {
    UIImageView image(objc_getAssociatedObject(view.get(), &imageKey));
    if (image) return image;
    auto fresh = create<UIImageView, "initWithFrame:">(view.bounds());
    if (!fresh) return {};
    fresh.send<"setAutoresizingMask:">(flexibleSize);
    view.send<"insertSubview:atIndex:">(UIView(fresh), 0L);
    objc_setAssociatedObject(view.get(), &imageKey, fresh.get(), associationRetainNonatomic);
    return fresh;
}

void wear(UIView view, const PictureRef& picture) {
    UIImageView image = imageViewOf(view);
    if (!image) return;
    image.setFrame(view.bounds());
    image.send<"setImage:">(imageOfPicture(picture));
}

void wearTime(UIView view, Draw draw) {
    wear(view, draw());
    auto kept = create<SBTimePicture>();
    if (!kept) return;
    stateOf<TimeState>(kept).draw = std::move(draw);
    objc_setAssociatedObject(view.get(), &timeKey, kept.get(), associationRetainNonatomic);
}

void tellTimeBelow(UIView view) {
    const SBTimePicture kept(objc_getAssociatedObject(view.get(), &timeKey));
    if (kept) imageViewOf(view).send<"setImage:">(imageOfPicture(stateOf<TimeState>(kept).draw()));
    const auto below = viewState(view).subviews;
    for (const Strong<UIView>& each : below) tellTimeBelow(each);
}

rendering::Colour ink(bool white) {
    return white ? rendering::Colour{1, 1, 1, 1} : rendering::Colour{0, 0, 0, 1};
}

rendering::Rect whole(rendering::Size size) { return {{0, 0}, size}; }

// A phone with a notch shows none while it lies on its side.
void addStatusBar(Node& root, rendering::Size size, bool white) {
    bool notch = !configuration().homeButton;
    bool upright = size.height > size.width;
    if (notch && !upright) return;
    rendering::StatusBar bar;
    bar.time = shownTime(Clock::shared().date());
    bar.colour = ink(white);
    bar.airplane = isOn(Radio::airplane);
    bar.wifiOn = isOn(Radio::wifi);
    if (!bar.wifiOn && isOn(Radio::cellular)) bar.network = "LTE";
    bar.lowPower = isOn(Setting::lowPower);
    root.children.push_back(rendering::statusBar(bar, size.width, notch));
}

}  // namespace

UIImage iconImage(const std::string& identifier, double side) {
    PictureRef icon = rendering::iconPicture(identifier);
    rendering::Size size{side, side};
    if (icon->size().width == side) return imageOfPicture(icon);
    return imageOfPicture(pictureOf(rendering::imageNode(whole(size), icon), size));
}

void dressAsApplication(UIView view, const std::string& identifier) {
    wearTime(view, [identifier, size = sizeOf(view)] {
        Node root = rendering::nodeWithFrame("Application", whole(size));
        root.children.push_back(rendering::appScreen(identifier, size, isDark()));
        addStatusBar(root, size, wantsWhiteStatusBar(identifier));
        return pictureOf(std::move(root), size);
    });
}

void dressAsWallpaper(UIView view) {
    rendering::Size size = sizeOf(view);
    wear(view, rendering::wallpaper(size, isDark()));
}

void dressAsStatusBar(UIView view, StatusBarParts parts, bool white) {
    wearTime(view, [parts, white, size = sizeOf(view)] {
        Node root = rendering::nodeWithFrame("StatusBar", whole(size));
        if (parts == StatusBarParts::all) addStatusBar(root, size, white);
        if (!configuration().homeButton)
            root.children.push_back(rendering::homeIndicator(size, ink(white)));
        return pictureOf(std::move(root), size);
    });
}

void dressAsLockScreen(UIView view) {
    wearTime(view, [size = sizeOf(view)] {
        const double date = Clock::shared().date();
        Node root = rendering::nodeWithFrame("LockScreen", whole(size));
        root.children.push_back(
            rendering::imageNode(whole(size), rendering::wallpaper(size, isDark())));
        root.children.push_back(rendering::lockClock(shownTime(date), shownDay(date), size));
        return pictureOf(std::move(root), size);
    });
}

void tellTime() {
    for (const Strong<UIWindow>& window : allWindows()) tellTimeBelow(window);
}

void registerArtwork() { standIn<SBTimePicture, Object, TimeState>(); }

bool wantsWhiteStatusBar(const std::string& frontIdentifier) {
    return frontIdentifier.empty() || rendering::hasDarkTop(frontIdentifier, isDark());
}

}  // namespace simulator
