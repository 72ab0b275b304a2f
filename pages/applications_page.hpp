// The page of dock or recent applications. It lays itself out in a view of one screen width by 100
// points, which the toolbar places and shows or hides by alpha.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTIconsContainerViewController : UIViewController {
    static constexpr FixedString name{"VNTIconsContainerViewController"};
    using UIViewController::UIViewController;
};

void registerApplicationsPage();

}  // namespace vantori
