// A phone that shows the welcome pager, and ways to find its parts.
#pragma once

#include "hooks/hook_welcome.hpp"
#include "platform/uikit_controls.hpp"
#include "tests/library_phone.hpp"
#include "toolbar/welcome_pager.hpp"

namespace vantori::tests {

class WelcomePhone : public LibraryPhone {
  protected:
    static UIView homeScreen() {
        NSArray windows = UIApplication::shared().send<"windows", NSArray>();
        for (unsigned long i = 0; i < windows.count(); ++i) {
            if (UIView found = find(windows.at<UIView>(i), "SBHomeScreenView")) return found;
        }
        return {};
    }
    // The view of that class in the tree, or nothing.
    static UIView find(UIView view, const char* className) {
        if (view.isKindOfClass(objc_getClass(className))) return view;
        NSArray subviews = view.subviews();
        for (unsigned long i = 0; i < subviews.count(); ++i) {
            if (UIView found = find(subviews.at<UIView>(i), className)) return found;
        }
        return {};
    }
    static VNTUpdateViewController controllerOf(UIView view) {
        Object controller = view.send<"nextResponder", Object>();
        return controller.isKindOfClass(objc_getClass("VNTUpdateViewController"))
                   ? as<VNTUpdateViewController>(controller)
                   : VNTUpdateViewController();
    }
    // The controllers of the pagers on the home screen, from back to front.
    static std::vector<VNTUpdateViewController> pagers() {
        std::vector<VNTUpdateViewController> found;
        NSArray subviews = homeScreen().subviews();
        for (unsigned long i = 0; i < subviews.count(); ++i) {
            if (auto pager = controllerOf(subviews.at<UIView>(i))) found.push_back(pager);
        }
        return found;
    }
    static VNTUpdateViewController pager() {
        return pagers().empty() ? VNTUpdateViewController() : pagers().back();
    }
    template <Handle T>
    static T part(const char* key) {
        return pager().send<"valueForKey:", T>(NSString::from(key));
    }
    static UIScrollView scrollView() { return part<UIScrollView>("scrollView"); }
    static std::string counter() { return part<UILabel>("pageLabel").text().utf8(); }
};

}  // namespace vantori::tests
