#include "pages/pages.hpp"

#include "platform/definition.hpp"

namespace vantori {

namespace {

// What the toolbars ask of every page before it has content of its own.
void ignore(Object) {}

struct MediaPlayerState {
    bool allowOpenNowPlayingApp;
};

struct ModulesState {
    Strong<UIScrollView> scrollView;
};

void loadModulesView(VNTCCTogglesBarViewController self) {
    super<VNTCCTogglesBarViewController, "loadView">(self);
    auto& state = stateOf<ModulesState>(self);
    state.scrollView = create<UIScrollView>();
    self.view().addSubview(state.scrollView);
}

}  // namespace

void registerPages() {
    define<VNTConnectivityBarViewController, UIViewController>()
        .method<"setUpConnectivityButtonSet", &ignore>()
        .method<"layoutConnectivityButton", &ignore>()
        .method<"reloadTransform", &ignore>()
        .method<"reloadTransformByDevices", &ignore>()
        .method<"refreshAllToggles", &ignore>();

    define<VNTMediaPlayerViewController, UIViewController, MediaPlayerState>()
        .property<"allowOpenNowPlayingApp", &MediaPlayerState::allowOpenNowPlayingApp>();

    define<VNTIconsContainerViewController, UIViewController>();

    define<VNTCCTogglesBarViewController, UIViewController, ModulesState>()
        .method<"loadView", &loadModulesView>()
        .method<"setupButtons", &ignore>()
        .property<"scrollView", &ModulesState::scrollView>();
}

}  // namespace vantori
