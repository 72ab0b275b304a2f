// The toolbar: a strip at the bottom of the screen that holds a scroll view of content pages over
// a blurred backdrop, with a grabber bar on top and a page indicator. VNTToolBarController sits behind
// the applications' scenes; its subclass VNTSBToolBarController has a window of its own.
#pragma once

#include "platform/springboard.hpp"
#include "toolbar/page_table.hpp"

namespace vantori {

struct VNTToolBarController : UIViewController {
    static constexpr FixedString name{"VNTToolBarController"};
    using UIViewController::UIViewController;

    // The one instance of the process, made on first use.
    static VNTToolBarController shared() {
        return sendClass<VNTToolBarController, "sharedInstance", VNTToolBarController>();
    }
    static bool exists() {
        return sendClass<VNTToolBarController, "sharedInstanceIfExisted", bool>();
    }

    bool isEnabled() const { return send<"isEnabled", bool>(); }
    void setIsEnabled(bool isOpen) const { send<"setIsEnabled:">(isOpen); }
    bool canToggleReachability() const { return send<"canToggleReachability", bool>(); }
    void setCanToggleReachability(bool can) const { send<"setCanToggleReachability:">(can); }
    // In points.
    double maxHeight() const { return send<"maxHeight", double>(); }
    void setMaxHeight(double points) const { send<"setMaxHeight:">(points); }
    NSArray pages() const { return send<"pages", NSArray>(); }
    void setPages(NSArray pages) const { send<"setPages:">(pages); }

    UIScrollView vantoriScrollView() const { return send<"vantoriScrollView", UIScrollView>(); }
    UIPageControl scrollViewPageController() const {
        return send<"scrollViewPageController", UIPageControl>();
    }
    UIView grabberView() const { return send<"grabberView", UIView>(); }
    UIView tintColorView() const { return send<"tintColorView", UIView>(); }
    SBWallpaperEffectView backgroundWallpaperView() const {
        return send<"backgroundWallpaperView", SBWallpaperEffectView>();
    }

    // One of its pages, by the class of its controller.
    template <class Controller>
    Controller page() const {
        return send<RowOf<Controller>::property, Controller>();
    }
    VNTCCTogglesBarViewController ccTogglesViewControllerForApp() const {
        return send<"ccTogglesViewControllerForApp", VNTCCTogglesBarViewController>();
    }

    // Applies an arrangement (3 stacks the pages, any other number puts them side by side).
    void refreshLayoutForDirection(int direction) const {
        send<"refreshLayoutForDirection:">(direction);
    }
    // Reads the arrangement afresh, and places and shows every page.
    void refreshAllPages() const { send<"refreshAllPages">(); }
    void fixPageControl() const { send<"fixPageControl">(); }
    void setUpConnectivityButtonSet() const { send<"setUpConnectivityButtonSet">(); }
    void layoutConnectivityButton() const { send<"layoutConnectivityButton">(); }
};

// Has the sliders show the phone's brightness and volume, for openings without the zone test, which
// posts for that. No post here: nobody but the sliders is to hear of it.
void showLevels(VNTToolBarController toolbar);

void registerToolBarController();

}  // namespace vantori
