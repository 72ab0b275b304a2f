#include "pages/applications_page.hpp"

#include "platform/definition.hpp"

namespace vantori {

void registerApplicationsPage() { define<VNTIconsContainerViewController, UIViewController>(); }

}  // namespace vantori
