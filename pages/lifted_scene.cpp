#include "pages/lifted_scene.hpp"

#include "platform/springboard.hpp"

namespace vantori {

UIView sceneContainer() {
    return SBMainDisplaySceneLayoutViewController::main().sceneContainerView();
}

UIView liftedContainer() {
    NSArray views = SBMainDisplaySceneLayoutViewController::main().view().subviews();
    return views.count() > 1 ? views.at<UIView>(1) : UIView();
}

void placeScene(UIView container, double lift, double cornerRadius) {
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    container.setFrame(rect(0, -lift, screen.width, screen.height));
    container.layer().setCornerRadius(cornerRadius);
}

void springScene(double lift, double cornerRadius) {
    auto changes = block([container = retained(sceneContainer()), lift, cornerRadius] {
        placeScene(container, lift, cornerRadius);
    });
    animateWithSharedSpring(changes);
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
