#include "hooks/pull_scene.hpp"

#include "pages/spring.hpp"

namespace vantori {

UIView sceneContainer() {
    return SBMainDisplaySceneLayoutViewController::main().sceneContainerView();
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

}  // namespace vantori
