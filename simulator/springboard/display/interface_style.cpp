#include "simulator/springboard/display/interface_style.hpp"

#include <cstdlib>

#include "platform/system_settings.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

// Systems before 13.0 have no dark style to turn to.
bool knowsStyles() { return std::atof(screen().systemVersion.c_str()) >= 13.0; }

}  // namespace

void turnStyle(long style) {
    setInterfaceStyle(style);
    refreshWindows();
}

void registerInterfaceStyle() {
    struct State {
        long mode;
    };
    table<UISUserInterfaceStyleMode, Object, State>()
        .method<"modeValue">([](UISUserInterfaceStyleMode self) -> long {
            const long own = stateOf<State>(self).mode;
            return own ? own : screen().style;
        })
        .method<"setModeValue:">([](UISUserInterfaceStyleMode self, long mode) {
            if (mode != UISUserInterfaceStyleMode::light && mode != UISUserInterfaceStyleMode::dark)
                return;
            stateOf<State>(self).mode = mode;
            if (!knowsStyles()) return;
            turnStyle(mode);
        });
}

}  // namespace simulator
