#include "pages/app_button.hpp"

#include "platform/definition.hpp"

namespace vantori {

namespace {

struct AppButtonState {
    Strong<NSString> applicationIdentifier;
    Strong<SBApplication> application;  // kept for whoever sets it
    Strong<UIButton> appButton;
    Strong<UIImage> appImage;
};

void loadImageView(VNTAppButton self, UIImage image) {
    self.setAppImage(image);
    const double side = self.bounds().size.width;
    auto button = create<UIButton, "initWithFrame:">(rect(0, 0, side, side));
    self.setAppButton(button);
    button.setImage(image);
    self.addSubview(button);
}

}  // namespace

void registerAppButton() {
    define<VNTAppButton, UIView, AppButtonState>()
        .method<"loadImageView:", &loadImageView>()
        .property<"applicationIdentifier", &AppButtonState::applicationIdentifier>()
        .property<"application", &AppButtonState::application>()
        .property<"appButton", &AppButtonState::appButton>()
        .property<"appImage", &AppButtonState::appImage>();
}

}  // namespace vantori
