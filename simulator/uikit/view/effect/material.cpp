#include "simulator/uikit/view/effect/material.hpp"

#include "platform/materials.hpp"
#include "simulator/uikit/scene.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

struct MaterialState {
    long recipe;
    long configuration;
};

constexpr long lightGround = 3;  // the configuration of what lies on top

rendering::Colour colourOf(const MaterialState& material, bool dark) {
    if (material.configuration == lightGround) {
        return dark ? rendering::Colour{1, 1, 1, 0.76} : rendering::Colour{1, 1, 1, 0.82};
    }
    return dark ? rendering::Colour{0.62, 0.62, 0.66, 0.26} : rendering::Colour{0, 0, 0, 0.2};
}

rendering::Content contentOf(UIView view) {
    if (!view.isKindOfClass(classOf<MTMaterialView>())) return {};
    const bool dark = styleOf(view) == UITraitCollection::dark;
    const rendering::Colour colour = colourOf(stateOf<MaterialState>(view), dark);
    rendering::Gradient even;
    even.stops = {{0, colour}, {1, colour}};
    return even;
}

MTMaterialView make(Class cls, long recipe, long configuration) {
    Object raw = Object(classObject(cls)).send<"alloc", Object>();
    auto view = adopted(raw.send<"initWithFrame:", MTMaterialView>(CGRect{}));
    if (!view) return MTMaterialView();
    stateOf<MaterialState>(view) = {recipe, configuration};
    return view.autoreleased();
}

}  // namespace

void registerMaterials() {
    table<MTMaterialView, UIView, MaterialState>()
        .classMethod<"materialViewWithRecipe:configuration:">(
            [](Class cls, long recipe, long configuration) -> MTMaterialView {
                return make(cls, recipe, configuration);
            })
        .readonly<"recipe", &MaterialState::recipe>()
        .readonly<"configuration", &MaterialState::configuration>();
    addContentSource(&contentOf);
}

}  // namespace simulator
