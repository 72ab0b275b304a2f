#include "core/lifted_scene.hpp"

namespace vantori {

UIView liftedContainer() {
    NSArray views = SBMainDisplaySceneLayoutViewController::main().view().subviews();
    return views.count() > 1 ? views.at<UIView>(1) : UIView();
}

void restScene(UIView container) {
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    container.setFrame(rect(0, 0, screen.width, screen.height));
    container.layer().setCornerRadius(0);
}

}  // namespace vantori
