#include "toolbar/update_view_controller.hpp"

#include "platform/definition.hpp"

namespace vantori {

namespace {

// The view is empty and lets touches through to the home screen.
void viewDidLoad(VNTUpdateViewController self) {
    super<VNTUpdateViewController, "viewDidLoad">(self);
    self.view().setUserInteractionEnabled(false);
}

}  // namespace

void registerUpdateViewController() {
    define<VNTUpdateViewController, UIViewController>().method<"viewDidLoad", &viewDidLoad>();
}

}  // namespace vantori
