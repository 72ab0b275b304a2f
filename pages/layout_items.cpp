#include "pages/layout_items.hpp"

#include "platform/form.hpp"

namespace vantori {

namespace {

using ItemsByRole = InstanceMethod<"SBAppLayout", "rolesToLayoutItemsMap", Object()>;
using ItemForRole = InstanceMethod<"SBAppLayout", "itemForLayoutRole:", SBDisplayItem(long)>;
using AllItems = InstanceMethod<"SBAppLayout", "allItems", NSArray()>;

SBDisplayItem firstOf(NSArray items) {
    return items.count() > 0 ? items.at<SBDisplayItem>(0) : SBDisplayItem();
}

SBDisplayItem firstByRole(SBAppLayout layout) {
    return firstOf(
        layout.sendIfAnswered<"rolesToLayoutItemsMap", Object>().send<"allObjects", NSArray>());
}

// One whose applications stand beside one another names the left one so.
SBDisplayItem primaryOrFirst(SBAppLayout layout) {
    SBDisplayItem left = ItemForRole::send(layout, SBAppLayout::primaryRole);
    return left ? left : firstOf(AllItems::send(layout));
}

struct LayoutItems {
    SBDisplayItem (*first)(SBAppLayout layout);
};
constexpr LayoutItems byRole{&firstByRole};
constexpr LayoutItems primary{&primaryOrFirst};

using RecentApplications = Feature<"recent applications",  //
                                   Form<"items by role", byRole, ItemsByRole>,
                                   Form<"primary item", primary, ItemForRole, AllItems>>;

}  // namespace

SBDisplayItem firstItemOf(SBAppLayout layout) {
    const LayoutItems* items = RecentApplications::taken();
    return items ? items->first(layout) : SBDisplayItem();
}

}  // namespace vantori
