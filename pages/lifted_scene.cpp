#include "pages/lifted_scene.hpp"

#include "platform/springboard.hpp"

namespace vantori {

UIView liftedContainer() {
    NSArray views = SBMainDisplaySceneLayoutViewController::main().view().subviews();
    return views.count() > 1 ? views.at<UIView>(1) : UIView();
}

void lowerLiftedScene(UIView::Completion completion) {
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    auto lower = block([container = retained(liftedContainer()), screen] {
        container.setFrame(rect(0, 0, screen.width, screen.height));
        container.layer().setCornerRadius(0);
    });
    animateWithSharedSpring(lower, completion);
}

}  // namespace vantori
