#include "simulator/springboard/control_center/module_grid.hpp"

#include <algorithm>
#include <vector>

#include "simulator/runtime/stand_in.hpp"
#include "simulator/services/modules.hpp"
#include "simulator/springboard/control_center/control_center.hpp"
#include "simulator/uikit/parts.hpp"

namespace simulator {

namespace {

struct CCUIContentModuleContainerView : UIView {
    static constexpr FixedString name{"CCUIContentModuleContainerView"};
    using UIView::UIView;
};

struct CCUIModularControlCenterViewController : UIViewController {
    static constexpr FixedString name{"CCUIModularControlCenterViewController"};
    using UIViewController::UIViewController;
};

struct ContainerState {
    Strong<CCUIModuleInstance> instance;
    CGRect compact;
    bool expanded;
};
using Tile = Strong<CCUIContentModuleContainerView>;
struct CollectionState {
    std::vector<Tile> tiles;
    Copied<NSString> expanded;  // identifier
    CGSize screen;
    double travel;
};

// Of a phone 375 points wide; narrower and lower screens have smaller cells.
constexpr double unit = 70, gap = 14;
constexpr double gridWidth = gridColumns * unit + (gridColumns - 1) * gap;
constexpr double gridHeight = gridRows * unit + (gridRows - 1) * gap;
constexpr double sideMargin = 20, topMargin = 96, footMargin = 28;
constexpr double cornerRadius = 18, expandedCornerRadius = 34;
constexpr double expandingDuration = 0.45, expandingDamping = 0.8;
constexpr double firstScale = 0.6;  // of an expanded module that comes by itself

CollectionState& state() { return stateOf<CollectionState>(moduleCollection()); }

ContainerState& stateIn(CCUIContentModuleContainerView tile) {
    return stateOf<ContainerState>(tile);
}

UIViewController contentIn(CCUIContentModuleContainerView tile) {
    return contentOf(stateIn(tile).instance);
}

bool answers(Object object, SEL message) { return object.respondsTo(message); }

CGSize expandedSize(UIViewController content) {
    if (!answers(content, selector<"preferredExpandedContentWidth">())) return {300, 300};
    return {content.send<"preferredExpandedContentWidth", double>(),
            content.send<"preferredExpandedContentHeight", double>()};
}

CGRect expandedFrame(UIViewController content) {
    CGSize screen = state().screen;
    CGSize size = expandedSize(content);
    size.height = std::min(size.height, screen.height - 2 * sideMargin);
    return rect((screen.width - size.width) / 2, (screen.height - size.height) / 2, size.width,
                size.height);
}

void setExpanded(CCUIContentModuleContainerView tile, bool expanded) {
    ContainerState& container = stateIn(tile);
    if (std::exchange(container.expanded, expanded) == expanded) return;
    UIViewController content = contentIn(tile);
    if (answers(content, selector<"willTransitionToExpandedContentMode:">())) {
        content.send<"willTransitionToExpandedContentMode:">(expanded);
    }
    tile.send<"_setContinuousCornerRadius:">(expanded ? expandedCornerRadius : cornerRadius);
}

// Frames and alphas for what is expanded now.
void arrange() {
    bool any = isModuleExpanded();
    for (const Tile& tile : state().tiles) {
        const ContainerState& container = stateIn(tile);
        tile.setAlpha(any && !container.expanded ? 0 : 1);
        tile.setFrame(container.expanded ? expandedFrame(contentIn(tile)) : container.compact);
        tile.send<"layoutIfNeeded">();
    }
}

void layoutContainer(CCUIContentModuleContainerView self) {
    super<CCUIContentModuleContainerView, "layoutSubviews">(self);
    if (stateIn(self).instance) contentIn(self).view().setFrame(self.bounds());
}

Tile makeTile(CCUIModuleCollectionViewController self, CCUIModuleInstance instance) {
    auto tile = create<CCUIContentModuleContainerView>();
    if (!tile) return tile;
    stateIn(tile).instance = retained(instance);
    tile.setBackgroundColor(UIColor::rgba(0, 0, 0, 0.38));
    tile.setClipsToBounds(true);
    tile.send<"_setContinuousCornerRadius:">(cornerRadius);
    UIViewController content = contentOf(instance);
    self.send<"addChildViewController:">(content);
    addPart(tile, content.view());
    auto press = create<UILongPressGestureRecognizer, "initWithTarget:action:">(
        self, selector<"_handleModulePress:">());
    if (press) tile.addGestureRecognizer(press);
    addPart(self.view(), tile);
    return tile;
}

bool hasTile(CCUIModuleInstance instance) {
    return std::ranges::any_of(
        state().tiles, [&](const Tile& tile) { return stateIn(tile).instance == instance; });
}

void makeTiles(CCUIModuleCollectionViewController self) {
    NSArray instances = moduleInstances();
    for (unsigned long i = 0; i < instances.count(); ++i) {
        auto instance = instances.at<CCUIModuleInstance>(i);
        if (hasTile(instance)) continue;
        if (Tile tile = makeTile(self, instance)) state().tiles.push_back(std::move(tile));
    }
}

CGRect compactFrame(const GridPlace& place, CGPoint corner, double scale) {
    auto length = [&](int cells) { return scale * (cells * unit + (cells - 1) * gap); };
    return rect(corner.x + scale * place.column * (unit + gap),
                corner.y + scale * place.row * (unit + gap), length(place.columns),
                length(place.rows));
}

CCUIContentModuleContainerView tileOf(NSString identifier) {
    for (const Tile& tile : state().tiles) {
        auto own = stateIn(tile).instance.send<"moduleIdentifier", NSString>();
        if (identifier && own.equals(identifier)) return tile;
    }
    return {};
}

void expand(CCUIModuleCollectionViewController self, NSString identifier) {
    makeTiles(self);
    CCUIContentModuleContainerView tile = tileOf(identifier);
    if (!tile || stateIn(tile).expanded) return;
    collapseModule();
    state().expanded = Copied<NSString>(identifier);
    self.view().bringSubviewToFront(tile);
    auto grow = block([tile = retained(tile)] {
        setExpanded(tile, true);
        arrange();
    });
    if (controlCenterIsOpen()) {
        UIView::animateWithSpring(expandingDuration, 0, expandingDamping, 0, 0, grow, {});
    } else {
        setExpanded(tile, true);
        arrange();
    }
}

CCUIModuleCollectionViewController sharedInstance(Class) { return moduleCollection(); }

void handleModulePress(CCUIModuleCollectionViewController self, UIGestureRecognizer press) {
    if (press.state() != UIGestureRecognizer::began || isModuleExpanded()) return;
    CCUIContentModuleContainerView tile(press.view().get());
    create<UIImpactFeedbackGenerator, "initWithStyle:">(UIImpactFeedbackGenerator::medium)
        .impactOccurred();
    self.send<"expandModuleWithIdentifier:">(
        stateIn(tile).instance.send<"moduleIdentifier", NSString>());
}

bool isExpandedFor(CCUIModuleCollectionViewController, NSString identifier) {
    return identifier && isModuleExpanded() && state().expanded.equals(identifier);
}

unsigned long expandedCount(CCUIModuleCollectionViewController) {
    return isModuleExpanded() ? 1 : 0;
}

CCUIModuleCollectionViewController modularCollection(CCUIModularControlCenterViewController) {
    return moduleCollection();
}

void expandInModular(CCUIModularControlCenterViewController, NSString identifier) {
    moduleCollection().send<"expandModuleWithIdentifier:">(identifier);
}

NSString expandedIdentifier(CCUIModuleCollectionViewController) { return state().expanded; }

CCUIContentModuleContainerView expandedTile() {
    return isModuleExpanded() ? tileOf(state().expanded) : CCUIContentModuleContainerView();
}

}  // namespace

CCUIModuleCollectionViewController moduleCollection() {
    static auto& shared = *new Strong<CCUIModuleCollectionViewController>;
    const bool ours = Defined<CCUIModuleCollectionViewController>::value != nullptr;
    if (!shared && ours) shared = create<CCUIModuleCollectionViewController>();
    return shared;
}

UIViewController modularControlCenter() {
    static auto& shared = *new Strong<CCUIModularControlCenterViewController>;
    if (!shared) shared = create<CCUIModularControlCenterViewController>();
    return shared;
}

void layModules(CGSize screen, GridSide side) {
    CCUIModuleCollectionViewController collection = moduleCollection();
    if (!collection) return;
    makeTiles(collection);
    CollectionState& all = state();
    all.screen = screen;
    const bool upright = screen.height > screen.width;
    const double margins = upright ? topMargin + footMargin : 2 * sideMargin;
    const double scale = std::min(
        {1.0, (screen.width - 2 * sideMargin) / gridWidth, (screen.height - margins) / gridHeight});
    const double height = scale * gridHeight;
    const double foot = upright ? footMargin : sideMargin;
    CGPoint corner{(screen.width - scale * gridWidth) / 2,
                   side == GridSide::top && upright ? topMargin : screen.height - foot - height};
    for (const Tile& tile : all.tiles) {
        stateIn(tile).compact = compactFrame(kindOf(stateIn(tile).instance).place, corner, scale);
    }
    all.travel = side == GridSide::top ? corner.y + height : screen.height - corner.y;
    UIView view = collection.view();
    view.setTransform(identityTransform);
    view.setFrame(rect(0, 0, screen.width, screen.height));
    arrange();
}

double gridTravel() { return moduleCollection() ? state().travel : gridHeight; }

bool isModuleExpanded() { return moduleCollection() && bool(state().expanded); }

void collapseModule() {
    if (!isModuleExpanded()) return;
    if (CCUIContentModuleContainerView tile = expandedTile()) setExpanded(tile, false);
    state().expanded = {};
    arrange();
}

void hideExpandedModule() {
    CCUIContentModuleContainerView tile = expandedTile();
    tile.setAlpha(0);
    tile.setTransform({firstScale, 0, 0, firstScale, 0, 0});
}

void showExpandedModule() {
    CCUIContentModuleContainerView tile = expandedTile();
    tile.setAlpha(1);
    tile.setTransform(identityTransform);
}

bool isInModule(UIView view) {
    for (; view; view = view.superview()) {
        if (view.isKindOfClass(classOf<CCUIContentModuleContainerView>())) return true;
    }
    return false;
}

void registerModuleGrid() {
    standIn<CCUIContentModuleContainerView, UIView, ContainerState>()
        .method<"layoutSubviews", &layoutContainer>();
    standIn<CCUIModuleCollectionViewController, UIViewController, CollectionState>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"expandModuleWithIdentifier:", &expand>()
        .realMethod<"isModuleExpandedForIdentifier:", &isExpandedFor>()
        .realMethod<"expandedModuleCount", &expandedCount>()
        .method<"expandedModuleIdentifier", &expandedIdentifier>()
        .method<"_handleModulePress:", &handleModulePress>();
    realStandIn<CCUIModularControlCenterViewController, UIViewController>()
        .classMethod<"_sharedCollectionViewController", &sharedInstance>()
        .method<"moduleCollectionViewController", &modularCollection>()
        .method<"expandModuleWithIdentifier:", &expandInModular>();
}

}  // namespace simulator
