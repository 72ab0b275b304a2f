// The pages of a toolbar, one row each. What a toolbar makes, names, places and puts above one another, it
// does by going through these rows in their order. The modules page is none of them: it stands beside
// the pages.
#pragma once

#include <type_traits>

#include "pages/everyday_page.hpp"
#include "pages/pages.hpp"
#include "toggles/controls.hpp"

namespace vantori {

struct PagePlace {
    static constexpr int none = -1;

    int listed = none;  // its index in the list of pages
    // Its cell in the grid that pages form when the phone lies on its side, from the upper left.
    int column = none, row = none;

    constexpr bool isListed() const { return listed != none; }
    constexpr bool isInGrid() const { return column != none; }
};

// The class of a page's controller, the toolbar's property that holds it, and its name in the list.
template <class Page, FixedString propertyName, FixedString identifierText, PagePlace where>
struct PageRow {
    using Controller = Page;
    static constexpr auto property = propertyName;
    static constexpr auto identifier = identifierText;
    static constexpr PagePlace place = where;
};

template <class... Rows>
struct PageRows {};

// The everyday page is never in the list: its view keeps alpha 0 and its first frame. Deliberate.
using PageTable = PageRows<
    PageRow<VNTConnectivityBarViewController, "connectivityBarViewController", "connectivityBar",
            PagePlace{.listed = 0, .column = 0, .row = 0}>,
    PageRow<VNTMediaPlayerViewController, "mediaPlayerViewController", "musicBar",
            PagePlace{.listed = 1, .column = 1, .row = 0}>,
    PageRow<VNTIconsContainerViewController, "iconsContainerViewController", "appsBar",
            PagePlace{.listed = 4}>,
    PageRow<VNTDailyToolBarViewController, "dailyControlViewController", "dailyBar", PagePlace{}>,
    PageRow<VNTBrightnessSliderContainerViewController, "brightnessSliderContainerViewController",
            "brightnessBar", PagePlace{.listed = 2, .column = 1, .row = 1}>,
    PageRow<VNTVolumeSliderContainerViewController, "volumeSliderContainerViewController",
            "volumeBar", PagePlace{.listed = 3, .column = 0, .row = 1}>>;

namespace detail {

template <class Controller, class Rows>
struct RowOf;
template <class Controller, class First, class... Rest>
struct RowOf<Controller, PageRows<First, Rest...>>
    : std::conditional_t<std::is_same_v<Controller, typename First::Controller>,
                         std::type_identity<First>, RowOf<Controller, PageRows<Rest...>>> {};

}  // namespace detail

// The row of a controller's class; there is one, or it does not compile.
template <class Controller>
using RowOf = typename detail::RowOf<Controller, PageTable>::type;

}  // namespace vantori
