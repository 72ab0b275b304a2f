// The translucent materials of the system, from iOS 13 on.
#pragma once

#include "platform/uikit.hpp"

namespace platform {

struct MTMaterialView : UIView {
    static constexpr FixedString name{"MTMaterialView"};
    using UIView::UIView;
    // Empty where the system has no materials.
    static MTMaterialView with(long recipe, long configuration) {
        return sendClass<MTMaterialView, "materialViewWithRecipe:configuration:", MTMaterialView>(
            recipe, configuration);
    }
};

}  // namespace platform
