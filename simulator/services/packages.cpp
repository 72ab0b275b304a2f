#include "simulator/services/packages.hpp"

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/package_view.hpp"
#include "simulator/foundation/bundles.hpp"
#include "simulator/rendering/picture.hpp"
#include "simulator/rendering/symbols.hpp"
#include "simulator/uikit/image/image.hpp"
#include "simulator/uikit/layer/layer.hpp"
#include "simulator/uikit/raise.hpp"

// The one kind of package that the phone knows.
extern "C" {
__attribute__((visibility("default"))) id kCAPackageTypeCAMLBundle = nullptr;
}

namespace simulator {

namespace {

constexpr double side = 30;  // of every drawing

struct PackageState {
    const GlyphPackage* package;
    Strong<CALayer> rootLayer;
};
struct PackageViewState {
    Strong<CAPackage> package;
    Copied<NSString> stateName;
};

rendering::PictureRef drawingOf(const GlyphState& state) {
    const auto parts = state.parts;
    return rendering::Picture::drawing({side, side}, [parts](cairo_t* context) {
        for (const GlyphPart& part : parts) {
            const rendering::Colour colour{part.red / 255.0, part.green / 255.0, part.blue / 255.0,
                                           1};
            rendering::drawSymbol(context, {part.symbol, colour, part.progress},
                                  {{0, 0}, {side, side}});
        }
    });
}

// A name that the package does not know shows its first state.
const GlyphState& stateNamed(const GlyphPackage& package, std::string_view name) {
    auto found = std::ranges::find(
        package.states, name, [](const GlyphState& state) { return std::string_view(state.name); });
    return found == package.states.end() ? package.states.front() : *found;
}

// Drawn once for each state and phone.
UIImage imageOf(const GlyphState& state) {
    static auto& images = *new std::map<const GlyphState*, Strong<UIImage>>;
    Strong<UIImage>& image = images[&state];
    if (!image) image = retained(makeImage(drawingOf(state)));
    return image;
}

bool isOnPhone(const GlyphPackage& package) {
    std::string_view path = package.path;
    return !isMissingBundle(std::string(path.substr(0, path.rfind('/'))));
}

// Nothing for another path, another type, or a bundle that is not there.
const GlyphPackage* packageAt(std::string_view path, NSString type) {
    if (!NSString(kCAPackageTypeCAMLBundle).equals(type)) return nullptr;
    for (const GlyphPackage& package : glyphPackages()) {
        if (path == package.path && isOnPhone(package)) return &package;
    }
    return nullptr;
}

CAPackage makePackage(const GlyphPackage& package) {
    auto made = create<CAPackage>();
    if (!made) return CAPackage();
    PackageState& state = stateOf<PackageState>(made);
    state.package = &package;
    state.rootLayer = create<CALayer>();
    state.rootLayer.send<"setBounds:">(rect(0, 0, side, side));
    return made.autoreleased();
}

void show(CCUICAPackageView view) {
    const PackageViewState& state = stateOf<PackageViewState>(view);
    if (!state.package) return;
    const PackageState& package = stateOf<PackageState>(state.package);
    package.rootLayer.send<"setContents:">(
        imageOf(stateNamed(*package.package, text(state.stateName))));
}

// In the middle, in its own size, whatever the size of the view.
void centre(CCUICAPackageView view) {
    const PackageViewState& state = stateOf<PackageViewState>(view);
    if (!state.package) return;
    const CGRect bounds = view.bounds();
    stateOf<PackageState>(state.package)
        .rootLayer.send<"setPosition:">(CGPoint{bounds.origin.x + bounds.size.width / 2,
                                                bounds.origin.y + bounds.size.height / 2});
}

void setPackage(CCUICAPackageView view, CAPackage package) {
    PackageViewState& state = stateOf<PackageViewState>(view);
    if (state.package) {
        stateOf<PackageState>(state.package).rootLayer.send<"removeFromSuperlayer">();
    }
    state.package = retained(package);
    if (!package) return;
    view.layer().send<"addSublayer:">(stateOf<PackageState>(package).rootLayer);
    show(view);
    centre(view);
}

}  // namespace

void registerPackages() {
    if (!kCAPackageTypeCAMLBundle) {
        kCAPackageTypeCAMLBundle = retained("com.apple.coreanimation-bundle"_ns).leak();
    }
    table<CAPackage, Object, PackageState>()
        .classMethod<"packageWithContentsOfURL:type:options:error:">(
            [](Class, NSURL url, NSString type, Object, id* error) -> CAPackage {
                if (error) *error = nullptr;
                const std::string path = text(url.send<"path", NSString>());
                const GlyphPackage* found = packageAt(path, type);
                return found ? makePackage(*found) : CAPackage();
            })
        .readonly<"rootLayer", &PackageState::rootLayer>();
    table<CCUICAPackageView, UIView, PackageViewState>()
        .method<"initWithFrame:">([](CCUICAPackageView self, CGRect frame) -> CCUICAPackageView {
            auto view = super<CCUICAPackageView, "initWithFrame:", CCUICAPackageView>(self, frame);
            view.setUserInteractionEnabled(false);
            return view;
        })
        .readonly<"package", &PackageViewState::package>()
        .readonly<"stateName", &PackageViewState::stateName>()
        .method<"setPackage:">(
            [](CCUICAPackageView self, CAPackage package) { setPackage(self, package); })
        .method<"setStateName:">([](CCUICAPackageView self, NSString name) {
            stateOf<PackageViewState>(self).stateName = Copied<NSString>(name);
            show(self);
        })
        .method<"layoutSubviews">([](CCUICAPackageView self) { centre(self); });
}

}  // namespace simulator
