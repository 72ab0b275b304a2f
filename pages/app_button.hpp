// One application in the row: a view that knows what it launches, and a button over all of it that
// shows the icon.
#pragma once

#include "platform/springboard_icons.hpp"

namespace vantori {

using namespace platform;

struct VNTAppButton : UIView {
    static constexpr FixedString name{"VNTAppButton"};
    using UIView::UIView;
    // What the icon launches.
    NSString applicationIdentifier() const { return send<"applicationIdentifier", NSString>(); }
    void setApplicationIdentifier(NSString identifier) const {
        send<"setApplicationIdentifier:">(identifier);
    }
    UIButton appButton() const { return send<"appButton", UIButton>(); }
    void setAppButton(UIButton button) const { send<"setAppButton:">(button); }
    void setAppImage(UIImage image) const { send<"setAppImage:">(image); }
    // Makes the button, a square on the view's width; without an image it stays empty.
    void loadImageView(UIImage image) const { send<"loadImageView:">(image); }
};

void registerAppButton();

}  // namespace vantori
