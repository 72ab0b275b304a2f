#include "simulator/springboard/applications/recents.hpp"

#include "platform/springboard_icons.hpp"
#include "simulator/foundation/device_root.hpp"
#include "simulator/foundation/property_list.hpp"
#include "simulator/hardware/configuration.hpp"
#include "simulator/uikit/raise.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(SBAppLayout, Object);
VANTORI_CLASS(SBDisplayItem, Object);

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

constexpr const char* savedList = "/var/mobile/Library/SpringBoard/RecentAppLayouts.plist";

NSString identifierOf(SBDisplayItem self) { return stateOf<DisplayItemState>(self).identifier; }

NSDictionary rolesToLayoutItemsMap(SBAppLayout self) {
    if (!stateOf<AppLayoutState>(self).item) {
        return sendClass<NSDictionary, "dictionary", NSDictionary>();
    }
    return sendClass<NSDictionary, "dictionaryWithObject:forKey:", NSDictionary>(
        Object(stateOf<AppLayoutState>(self).item.get()),
        Object(sendClass<NSNumber, "numberWithLong:", NSNumber>(primaryRole).get()));
}

// A name for allValues that the platform's dictionaries have beside it.
NSArray allObjects(Object dictionary) { return dictionary.send<"allValues", NSArray>(); }

NSArray allItems(SBAppLayout self) {
    Object item = stateOf<AppLayoutState>(self).item;
    return item ? NSArray::with(item) : sendClass<NSArray, "array", NSArray>();
}

SBDisplayItem itemForRole(SBAppLayout self, long role) {
    return role == primaryRole ? SBDisplayItem(stateOf<AppLayoutState>(self).item)
                               : SBDisplayItem();
}

bool canMakeLayouts() { return classOf<SBAppLayout>() && classOf<SBDisplayItem>(); }

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

SBRecentAppLayouts sharedInstance(Class) { return recentAppLayouts(); }

// Empty for anything else than a layout with an item.
NSString identifierIn(Object layout) {
    if (!layout.isKindOfClass(classOf<SBAppLayout>())) return {};
    SBDisplayItem item = stateOf<AppLayoutState>(layout).item;
    return item ? NSString(stateOf<DisplayItemState>(item).identifier) : NSString();
}

void saveRecents(SBRecentAppLayouts self) {
    NSMutableArray identifiers = NSMutableArray::empty();
    NSArray all = layouts(self);
    for (unsigned long i = 0; i < all.count(); ++i) {
        if (NSString identifier = identifierIn(all.at(i))) identifiers.add(identifier);
    }
    writeFile(DeviceRoot::shared().locate(savedList),
              encodePropertyList(identifiers, PropertyListFormat::binary));
}

// Whatever is no list of texts reads as nothing.
std::vector<std::string> savedRecents() {
    auto bytes = readFile(DeviceRoot::shared().locate(savedList));
    NSArray saved = bytes ? as<NSArray>(decodePropertyList(*bytes)) : NSArray();
    std::vector<std::string> identifiers;
    if (!saved.isKindOfClass(classOf<NSArray>())) return identifiers;
    for (unsigned long i = 0; i < saved.count(); ++i) {
        if (saved.at(i).isKindOfClass(classOf<NSString>())) {
            identifiers.push_back(text(saved.at<NSString>(i)));
        }
    }
    return identifiers;
}

}  // namespace

SBRecentAppLayouts recentAppLayouts() {
    static Strong<SBRecentAppLayouts>& shared = *new Strong<SBRecentAppLayouts>;
    if (!shared) shared = create<SBRecentAppLayouts>();
    return shared;
}

void noteRecent(const std::string& identifier) {
    SBRecentAppLayouts recents = recentAppLayouts();
    if (!recents || !canMakeLayouts()) return;
    NSString name = NSString::from(identifier.c_str());
    NSMutableArray fresh = NSMutableArray::empty();
    fresh.add(layoutOf(name));
    NSArray old = layouts(recents);
    for (unsigned long i = 0; i < old.count(); ++i) {
        if (!identifierIn(old.at(i)).equals(name)) fresh.add(old.at(i));
    }
    if (recents.respondsTo(selector<"_validateAndUpdateRecents:">())) {
        recents.send<"_validateAndUpdateRecents:">(fresh);
    } else {
        replaceLayouts(recents, fresh);
    }
    recents.send<"_saveRecents">();
}

NSArray recentLayoutObjects() {
    SBRecentAppLayouts recents = recentAppLayouts();
    return recents ? NSArray(layouts(recents)) : NSArray();
}

std::vector<std::string> recentIdentifiers() {
    std::vector<std::string> identifiers;
    NSArray all = recentLayoutObjects();
    for (unsigned long i = 0; i < all.count(); ++i) {
        if (NSString identifier = identifierIn(all.at(i))) identifiers.push_back(text(identifier));
    }
    return identifiers;
}

void setRecents(const std::vector<std::string>& identifiers) {
    SBRecentAppLayouts recents = recentAppLayouts();
    if (!recents || !canMakeLayouts()) return;
    NSMutableArray fresh = NSMutableArray::empty();
    for (const std::string& identifier : identifiers) {
        fresh.add(layoutOf(NSString::from(identifier.c_str())));
    }
    replaceLayouts(recents, fresh);
}

void restoreRecents() {
    const std::vector<std::string>& said = configuration().recents;
    setRecents(said.empty() ? savedRecents() : said);
}

void registerRecents() {
    addMethod<"allObjects", &allObjects>(classOf<NSDictionary>());
    standIn<SBDisplayItem, Object, DisplayItemState>()
        .method<"displayIdentifier", &identifierOf>()
        .method<"bundleIdentifier", &identifierOf>();
    standIn<SBAppLayout, Object, AppLayoutState>()
        .method<"rolesToLayoutItemsMap", &rolesToLayoutItemsMap>()
        .method<"itemForLayoutRole:", &itemForRole>()
        .method<"allItems", &allItems>();
    // Up to system 12 the list is the variable _recents, from 13 on _allRecents.
    standIn<SBRecentAppLayouts, Object, RecentsState>(Variables{"_recents", "_allRecents"})
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"_recents", &layouts>()
        .method<"_allRecents", &layouts>()
        .method<"_validateAndUpdateRecents:", &validateAndUpdateRecents>()
        .method<"_saveRecents", &saveRecents>();
}

}  // namespace simulator
