#include "simulator/springboard/applications/settings_application.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "simulator/hardware/display.hpp"
#include "simulator/rendering/app_style.hpp"
#include "simulator/runtime/handle.hpp"
#include "simulator/services/settings_pane.hpp"
#include "simulator/springboard/display/artwork.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/parts.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/view/control/control.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(PSListView, UIView);         // a list that fills the application
VANTORI_CLASS(PSTableCell, UIControl);     // a row that opens something
VANTORI_CLASS(PSSwitchTableCell, UIView);  // a row with a switch

// Points.
constexpr double statusBar = 44;
constexpr double barHeight = 44;
constexpr double rowHeight = 46;
constexpr double gap = 38;                      // above a card, with its heading in it
constexpr double side = rendering::margin - 4;  // beside the cards
constexpr double indent = 16;
constexpr double textSide = side + indent;
constexpr double pushing = 0.35;    // seconds
constexpr double systemRows = 754;  // where the picture of them ends
constexpr double bottom = 60;

struct ListState {
    Strong<UIScrollView> scroll;
    std::vector<SettingsPane> panes;  // that it opens; of a pane, that one
    Strong<UIView> pushed;            // over it
};
struct SwitchCellState {
    Strong<UISwitch> toggle;
};

const char listKey = 0;

ListState& list(PSListView view) { return stateOf<ListState>(view); }

const std::vector<PaneCell>& cellsOf(PSListView pane) { return list(pane).panes.front().cells; }

NSString text(const std::string& words) { return NSString::from(words.c_str()); }

UIColor colour(rendering::Colour c) { return makeColor({c.red, c.green, c.blue, c.alpha}); }

rendering::AppStyle style() {
    constexpr long dark = 2;  // UIUserInterfaceStyle
    return rendering::appStyle(screen().style == dark);
}

double widthOf(UIView view) { return view.bounds().size.width; }

void addLabel(UIView parent, CGRect frame, const std::string& words, double size,
              rendering::Colour ink, long alignment = 0, bool bold = false) {
    auto label = create<UILabel, "initWithFrame:">(frame);
    if (!label) return;
    label.setText(text(words));
    label.setFont(bold ? UIFont::boldSystem(size) : UIFont::system(size));
    label.setTextColor(colour(ink));
    label.setTextAlignment(alignment);
    label.setNumberOfLines(0);
    addPart(parent, label);
}

double textHeight(const std::string& words, double size, double width) {
    return textSize(text(words), UIFont::system(size), width).height;
}

void addCard(UIView parent, double top, double rows) {
    auto card = create<UIView, "initWithFrame:">(
        rect(side, top, widthOf(parent) - 2 * side, rows * rowHeight));
    if (!card) return;
    card.setBackgroundColor(colour(style().card));
    layerState(layerOf(card)).values.cornerRadius = 12;
    addPart(parent, card);
}

CGRect rowFrame(UIView parent, double top) {
    return rect(side, top, widthOf(parent) - 2 * side, rowHeight);
}

// A row that opens something: its name, and a mark at its end.
void addLink(UIView parent, double top, const std::string& words, Object target, SEL action,
             long tag) {
    auto row = create<PSTableCell, "initWithFrame:">(rowFrame(parent, top));
    if (!row) return;
    viewState(row).tag = tag;
    row.send<"setAccessibilityLabel:">(text(words));
    const double width = row.bounds().size.width;
    addLabel(row, rect(indent, 0, width - 60, rowHeight), words, 17, style().ink);
    addLabel(row, rect(width - 28, 0, 14, rowHeight), "\u203a", 22, style().faint);
    row.addTarget(target, action, UIControl::touchUpInside);
    addPart(parent, row);
}

void addSwitch(UIView parent, double top, const PaneCell& cell, PSListView self, long tag) {
    auto row = create<PSSwitchTableCell, "initWithFrame:">(rowFrame(parent, top));
    auto toggle = create<UISwitch, "initWithFrame:">(rect(0, 0, 0, 0));
    if (!row || !toggle) return;
    const double width = row.bounds().size.width;
    row.send<"setAccessibilityLabel:">(text(cell.label));
    addLabel(row, rect(indent, 0, width - 90, rowHeight), cell.label, 17, style().ink);
    toggle.setCenter({width - indent - toggle.bounds().size.width / 2, rowHeight / 2});
    viewState(toggle).tag = tag;
    toggle.send<"setOn:">(valueOf(cell) == true);
    toggle.addTarget(self, selector<"switched:">(), valueChanged);
    addPart(row, toggle);
    addPart(parent, row);
    stateOf<SwitchCellState>(row).toggle = std::move(toggle);
}

// A button for each value; the tag holds the cell and which of its values.
constexpr long valuesOfACell = 100;

void addChoice(UIView parent, double top, const PaneCell& cell, PSListView self, long tag) {
    const double width = widthOf(parent) - 2 * side - 2 * indent;
    const double each = width / static_cast<double>(std::max<std::size_t>(1, cell.values.size()));
    const nlohmann::json chosen = valueOf(cell);
    for (std::size_t i = 0; i < cell.values.size(); ++i) {
        const UIButton button = UIButton::plain();
        if (!button) return;
        button.setFrame(
            rect(textSide + each * static_cast<double>(i) + 1, top + 8, each - 2, rowHeight - 16));
        button.setTitle(text(cell.titles[i]));
        const bool isChosen = cell.values[i] == chosen;
        button.setTitleColor(isChosen ? UIColor::white() : colour(style().ink));
        button.setBackgroundColor(isChosen ? UIColor::systemBlue() : colour(style().grouped));
        layerState(layerOf(button)).values.cornerRadius = 7;
        viewState(button).tag = tag * valuesOfACell + static_cast<long>(i);
        button.addTarget(self, selector<"chosen:">(), UIControl::touchUpInside);
        addPart(parent, button);
    }
}

// How many rows stand together from that cell on.
double rowsFrom(const std::vector<PaneCell>& cells, std::size_t first) {
    const auto end =
        std::find_if(cells.begin() + static_cast<std::ptrdiff_t>(first), cells.end(),
                     [](const PaneCell& cell) { return cell.kind == PaneCell::Kind::group; });
    return static_cast<double>(end - cells.begin()) - static_cast<double>(first);
}

double addFooter(UIView parent, double y, const std::string& footer) {
    if (footer.empty()) return y;
    const double width = widthOf(parent) - 2 * textSide, height = textHeight(footer, 13, width);
    addLabel(parent, rect(textSide, y + 7, width, height), footer, 13, style().secondary);
    return y + 7 + height;
}

// The cells one below the other; answers where they end.
double addCells(UIView parent, const std::vector<PaneCell>& cells, PSListView self) {
    double y = 8;
    std::string footer;
    bool opensCard = true;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const PaneCell& cell = cells[i];
        if (cell.kind == PaneCell::Kind::group) {
            y = addFooter(parent, y, footer) + gap;
            if (!cell.label.empty())
                addLabel(parent, rect(textSide, y - 24, widthOf(parent) - 2 * textSide, 18),
                         cell.label, 13, style().secondary);
            footer = cell.footer;
            opensCard = true;
            continue;
        }
        if (opensCard) addCard(parent, y, rowsFrom(cells, i));
        opensCard = false;
        if (cell.kind == PaneCell::Kind::toggle)
            addSwitch(parent, y, cell, self, static_cast<long>(i));
        if (cell.kind == PaneCell::Kind::choice)
            addChoice(parent, y, cell, self, static_cast<long>(i));
        y += rowHeight;
    }
    return addFooter(parent, y, footer);
}

Strong<UIScrollView> addScroll(UIView parent, double top) {
    const CGSize size = parent.bounds().size;
    auto scroll =
        create<UIScrollView, "initWithFrame:">(rect(0, top, size.width, size.height - top));
    if (scroll) scroll.setClipsToBounds(true);
    addPart(parent, scroll);
    return scroll;
}

// The system's, which the pane would cover.
void addStatusBar(PSListView self) {
    auto bar = create<UIView, "initWithFrame:">(self.bounds());
    if (!bar) return;
    viewState(bar).interactionDisabled = true;
    addPart(self, bar);
    dressAsStatusBar(bar, StatusBarParts::all, wantsWhiteStatusBar(settingsApplication));
}

void fillPane(PSListView self, const SettingsPane& pane) {
    ListState& state = list(self);
    state.panes = {pane};
    self.setBackgroundColor(colour(style().grouped));
    const double width = widthOf(self);
    addLabel(self, rect(90, statusBar, width - 180, barHeight), pane.title, 17, style().ink,
             UILabel::center, true);
    const UIButton back = UIButton::plain();
    if (back) {
        back.setFrame(rect(8, statusBar, 100, barHeight));
        back.setTitle(text("\u2039 Settings"));
        back.setTitleColor(UIColor::systemBlue());
        back.addTarget(self, selector<"back:">(), UIControl::touchUpInside);
        addPart(self, back);
    }
    state.scroll = addScroll(self, statusBar + barHeight);
    if (!state.scroll) return;
    const double end = addCells(state.scroll, cellsOf(self), self);
    state.scroll.setContentSize({width, end + bottom});
    addStatusBar(self);
}

// The system's rows as a picture, the packages' below them.
void fillFirst(PSListView self) {
    ListState& state = list(self);
    state.panes = settingsPanes();
    state.scroll = addScroll(self, statusBar);
    if (!state.scroll) return;
    const double width = widthOf(self), rows = static_cast<double>(state.panes.size());
    const double height = systemRows + rows * rowHeight + bottom;
    auto picture = create<UIView, "initWithFrame:">(rect(0, -statusBar, width, height));
    viewState(picture).interactionDisabled = true;
    addPart(state.scroll, picture);
    dressAsApplication(picture, settingsApplication);
    const double top = systemRows - statusBar;
    addCard(state.scroll, top, rows);
    for (std::size_t i = 0; i < state.panes.size(); ++i)
        addLink(state.scroll, top + rowHeight * static_cast<double>(i), state.panes[i].entry, self,
                selector<"opened:">(), static_cast<long>(i));
    state.scroll.setContentSize({width, height - statusBar});
}

Strong<PSListView> makeList(CGRect frame) { return create<PSListView, "initWithFrame:">(frame); }

void opened(PSListView self, Object row) {
    ListState& state = list(self);
    const auto index = static_cast<std::size_t>(viewState(as<UIView>(row)).tag);
    if (state.pushed || index >= state.panes.size()) return;
    const CGRect full = self.bounds();
    auto pane = makeList(rect(full.size.width, 0, full.size.width, full.size.height));
    if (!pane) return;
    fillPane(pane, state.panes[index]);
    addPart(self, pane);
    state.pushed = retained(UIView(pane));
    UIView::animate(pushing, block([pane, full] { pane.setFrame(full); }));
}

void back(PSListView self, Object) {
    const UIView below = viewState(self).superview;
    if (!below.isKindOfClass(classOf<PSListView>())) return;
    list(as<PSListView>(below)).pushed = {};
    const Strong<PSListView> pane = retained(self);
    const CGRect full = self.bounds();
    UIView::animate(pushing, 0, 0, block([pane, full] {
                        pane.setFrame(rect(full.size.width, 0, full.size.width, full.size.height));
                    }),
                    block<void(bool)>([pane](bool) { pane.removeFromSuperview(); }));
}

void switched(PSListView self, Object sender) {
    const auto index = static_cast<std::size_t>(viewState(as<UIView>(sender)).tag);
    const auto& cells = cellsOf(self);
    if (index < cells.size()) setValue(cells[index], sender.send<"isOn", bool>());
}

void refill(PSListView pane) {
    const SettingsPane same = list(pane).panes.front();
    const CGPoint offset = list(pane).scroll.contentOffset();
    const auto subviews = viewState(pane).subviews;
    for (const auto& each : subviews) each.removeFromSuperview();
    fillPane(pane, same);
    list(pane).scroll.send<"setContentOffset:">(offset);
}

void chosen(PSListView self, Object sender) {
    const long tag = viewState(as<UIView>(sender)).tag;
    const auto index = static_cast<std::size_t>(tag / valuesOfACell);
    const auto which = static_cast<std::size_t>(tag % valuesOfACell);
    const std::vector<PaneCell> cells = cellsOf(self);
    if (index >= cells.size() || which >= cells[index].values.size()) return;
    setValue(cells[index], cells[index].values[which]);
    refill(self);
}

void scrollAs(PSListView old, PSListView fresh) {
    const UIScrollView from = list(old).scroll, to = list(fresh).scroll;
    if (!from || !to || widthOf(from) != widthOf(to)) return;
    to.send<"setContentOffset:">(from.contentOffset());
}

// A screen reader's double tap on the row is one on its switch.
CGPoint activationPoint(PSSwitchTableCell self) {
    const UIView toggle = stateOf<SwitchCellState>(self).toggle;
    if (!toggle) return {};
    const CGSize size = toggle.bounds().size;
    return toInterface(
        geometry::apply(conversionToScreen(toggle), {size.width / 2, size.height / 2}),
        activeOrientation());
}

NSString switchValue(PSSwitchTableCell self) {
    return text(stateOf<SwitchCellState>(self).toggle.send<"isOn", bool>() ? "1" : "0");
}

}  // namespace

// Dressed anew, in another appearance or lying on its side: what is open stays open, and scrolled as it was
// where that fits.
void showSettings(UIView scene) {
    const auto old = retained(PSListView(objc_getAssociatedObject(scene.get(), &listKey)));
    if (old) old.removeFromSuperview();
    auto first = makeList(scene.bounds());
    if (!first) return;
    fillFirst(first);
    addPart(scene, first);
    objc_setAssociatedObject(scene.get(), &listKey, first.get(), associationRetainNonatomic);
    if (!old) return;
    scrollAs(old, first);
    const UIView pushed = list(old).pushed;
    auto pane = pushed ? makeList(first.bounds()) : Strong<PSListView>();
    if (!pane) return;
    fillPane(pane, list(as<PSListView>(pushed)).panes.front());
    scrollAs(as<PSListView>(pushed), pane);
    addPart(first, pane);
    list(first).pushed = retained(UIView(pane));
}

void registerSettingsApplication() {
    standIn<PSListView, UIView, ListState>()
        .method<"opened:", &opened>()
        .method<"back:", &back>()
        .method<"switched:", &switched>()
        .method<"chosen:", &chosen>();
    standIn<PSTableCell, UIControl>();
    standIn<PSSwitchTableCell, UIView, SwitchCellState>()
        .method<"accessibilityActivationPoint", &activationPoint>()
        .method<"accessibilityValue", &switchValue>();
}

}  // namespace simulator
