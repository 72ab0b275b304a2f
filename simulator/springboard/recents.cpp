#include "simulator/springboard/recents.hpp"

namespace simulator {

namespace {

struct DisplayItemState {
    Copied<NSString> identifier;
};
struct AppLayoutState {
    Strong<SBDisplayItem> item;
};
struct RecentsState {
    Strong<NSMutableArray> layouts;
};

// The role of the only application of a layout.
constexpr long primaryRole = 1;

NSString identifierOf(SBDisplayItem self) { return stateOf<DisplayItemState>(self).identifier; }

NSDictionary rolesToLayoutItemsMap(SBAppLayout self) {
    return sendClass<NSDictionary, "dictionaryWithObject:forKey:", NSDictionary>(
        Object(stateOf<AppLayoutState>(self).item.get()),
        Object(sendClass<NSNumber, "numberWithLong:", NSNumber>(primaryRole).get()));
}

NSArray allItems(SBAppLayout self) { return NSArray::with(stateOf<AppLayoutState>(self).item); }

Strong<SBAppLayout> layoutOf(NSString identifier) {
    auto item = create<SBDisplayItem>();
    if (item) stateOf<DisplayItemState>(item).identifier = Copied<NSString>(identifier);
    auto layout = create<SBAppLayout>();
    if (layout) stateOf<AppLayoutState>(layout).item = std::move(item);
    return layout;
}

NSMutableArray layouts(SBRecentAppLayouts self) {
    RecentsState& state = stateOf<RecentsState>(self);
    if (!state.layouts) state.layouts = retained(NSMutableArray::empty());
    return state.layouts;
}

void replaceLayouts(SBRecentAppLayouts self, NSArray fresh) {
    if (fresh) layouts(self).send<"setArray:">(fresh);
}

void validateAndUpdateRecents(SBRecentAppLayouts self, NSArray fresh) {
    replaceLayouts(self, fresh);
}

// The phone keeps its recents in memory only.
void saveRecents(SBRecentAppLayouts) {}

bool isOf(SBAppLayout layout, NSString identifier) {
    return identifierOf(stateOf<AppLayoutState>(layout).item).equals(identifier);
}

}  // namespace

SBRecentAppLayouts recentAppLayouts() {
    static Strong<SBRecentAppLayouts>& shared = *new Strong<SBRecentAppLayouts>;
    if (!shared) shared = create<SBRecentAppLayouts>();
    return shared;
}

void noteRecent(const std::string& identifier) {
    SBRecentAppLayouts recents = recentAppLayouts();
    if (!recents || !classOf<SBAppLayout>() || !classOf<SBDisplayItem>()) return;
    NSString name = NSString::from(identifier.c_str());
    NSMutableArray fresh = NSMutableArray::empty();
    fresh.add(layoutOf(name));
    NSArray old = layouts(recents);
    for (unsigned long i = 0; i < old.count(); ++i) {
        if (!isOf(old.at<SBAppLayout>(i), name)) fresh.add(old.at(i));
    }
    recents.send<"_validateAndUpdateRecents:">(fresh);
    recents.send<"_saveRecents">();
}

void setRecents(const std::vector<std::string>& identifiers) {
    SBRecentAppLayouts recents = recentAppLayouts();
    if (!recents) return;
    NSMutableArray fresh = NSMutableArray::empty();
    for (const std::string& identifier : identifiers) {
        fresh.add(layoutOf(NSString::from(identifier.c_str())));
    }
    replaceLayouts(recents, fresh);
}

void registerRecents() {
    standIn<SBDisplayItem, Object, DisplayItemState>()
        .method<"displayIdentifier", &identifierOf>()
        .method<"bundleIdentifier", &identifierOf>();
    standIn<SBAppLayout, Object, AppLayoutState>()
        .method<"rolesToLayoutItemsMap", &rolesToLayoutItemsMap>()
        .method<"allItems", &allItems>();
    // Up to system 12 the list is the variable _recents, from 13 on _allRecents; both are reached
    // by key here.
    standIn<SBRecentAppLayouts, Object, RecentsState>()
        .method<"_recents", &layouts>()
        .method<"_allRecents", &layouts>()
        .method<"_validateAndUpdateRecents:", &validateAndUpdateRecents>()
        .method<"_saveRecents", &saveRecents>();
}

}  // namespace simulator
