#include "pages/connectivity_page.hpp"

#include "platform/definition.hpp"

namespace vantori {

namespace {

// What the toolbars ask of the page before it has content of its own.
void ignore(Object) {}

}  // namespace

void registerConnectivityPage() {
    define<VNTConnectivityBarViewController, UIViewController>()
        .method<"setUpConnectivityButtonSet", &ignore>()
        .method<"layoutConnectivityButton", &ignore>()
        .method<"reloadTransform", &ignore>()
        .method<"reloadTransformByDevices", &ignore>()
        .method<"refreshAllToggles", &ignore>();
}

}  // namespace vantori
