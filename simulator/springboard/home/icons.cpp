#include "simulator/springboard/home/icons.hpp"

#include <map>
#include "simulator/uikit/parts.hpp"

#include "simulator/hardware/configuration.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/springboard/display/artwork.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/uikit/raise.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(SBIconModel, Object);
VANTORI_CLASS(SBIconController, UIViewController);

struct IconState {
    Copied<NSString> identifier;
};
struct IconControllerState {
    Strong<SBIconModel> model;
};
struct IconViewState {
    Strong<SBIcon> icon;
};

constexpr double labelHeight = 16;
constexpr double labelOverhang = 10;  // points on each side

NSString applicationBundleId(SBIcon self) { return stateOf<IconState>(self).identifier; }

NSString displayName(SBIcon self) { return NSString::from(titleOf(identifierOf(self)).c_str()); }

// An icon of no application has no picture.
UIImage render(SBIcon icon, double side) {
    const std::string identifier = identifierOf(icon);
    return identifier.empty() || !(side > 0) ? UIImage() : iconImage(identifier, side);
}

// The format picks a size on the platform; all of them are the home screen's here.
UIImage generateIconImage(SBIcon self, int) { return render(self, iconLength); }

UIImage generateIconImageWithInfo(SBIcon self, SBIconImageInfo info) {
    return render(self, info.size.width);
}

SBIcon expectedIcon(SBIconModel, NSString identifier) {
    return identifier ? SBIcon(iconOf(identifier.utf8()).get()) : SBIcon();
}

SBIconController sharedInstance(Class cls) {
    static id shared = Object(classObject(cls)).send<"new", Object>().get();
    return SBIconController(shared);
}

SBIconModel model(SBIconController self) {
    Strong<SBIconModel>& iconModel = stateOf<IconControllerState>(self).model;
    if (!iconModel) iconModel = create<SBIconModel>();
    return iconModel;
}

void tapped(SBIconView self, UIGestureRecognizer) {
    launchApplication(identifierOf(iconOfView(self)), false);
    refreshWindows();
}

void addLabel(SBIconView view, SBIcon icon) {
    auto label = create<UILabel, "initWithFrame:">(
        rect(-labelOverhang, iconLength + 5, iconLength + 2 * labelOverhang, labelHeight));
    label.send<"setText:">(displayName(icon));
    label.send<"setTextAlignment:">(1L);  // centred
    label.send<"setTextColor:">(UIColor::white());
    label.send<"setFont:">(sendClass<UIFont, "systemFontOfSize:", UIFont>(11.5));
    addPart(view, label);
}

}  // namespace

SBApplicationIcon iconOf(const std::string& identifier) {
    static auto& icons = *new std::map<std::string, Strong<SBApplicationIcon>>;
    if (!isInstalled(identifier)) return {};
    Strong<SBApplicationIcon>& icon = icons[identifier];
    if (!icon) {
        icon = create<SBApplicationIcon>();
        if (icon) {
            stateOf<IconState>(icon).identifier =
                Copied<NSString>(NSString::from(identifier.c_str()));
        }
    }
    return icon;
}

std::string identifierOf(SBIcon icon) {
    return icon ? text(stateOf<IconState>(icon).identifier) : "";
}

Strong<SBIconView> makeIconView(SBIcon icon, bool labelled) {
    auto view = create<SBIconView, "initWithFrame:">(rect(0, 0, iconLength, iconLength));
    if (!view) return view;
    stateOf<IconViewState>(view).icon = retained(icon);
    auto image = create<UIImageView, "initWithImage:">(iconImage(identifierOf(icon), iconLength));
    image.setFrame(rect(0, 0, iconLength, iconLength));
    addPart(view, image);
    if (labelled) addLabel(view, icon);
    auto tap =
        create<UITapGestureRecognizer, "initWithTarget:action:">(view, selector<"_tapped:">());
    if (tap) view.addGestureRecognizer(tap);
    return view;
}

SBIcon iconOfView(SBIconView view) { return stateOf<IconViewState>(view).icon; }

void registerIcons() {
    standIn<SBIcon, Object, IconState>()
        .method<"applicationBundleID", &applicationBundleId>()
        .method<"displayName", &displayName>()
        .method<"generateIconImage:", &generateIconImage>()
        .method<"generateIconImageWithInfo:", &generateIconImageWithInfo>();
    standIn<SBLeafIcon, SBIcon>();
    standIn<SBApplicationIcon, SBLeafIcon>();
    standIn<SBIconModel, Object>().method<"expectedIconForDisplayIdentifier:", &expectedIcon>();
    standIn<SBIconController, UIViewController, IconControllerState>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"model", &model>();
    standIn<SBIconView, UIView, IconViewState>().method<"_tapped:", &tapped>();
}

}  // namespace simulator
