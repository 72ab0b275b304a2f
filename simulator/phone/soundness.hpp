// What must hold of the extension on any phone whenever nothing moves and no finger is down, whatever was
// done to it before: one window, a toolbar that is away or up by its own height and never between, one that
// counts as open is seen and takes touches, pages that can be turned, an application in its place or lifted
// by the height of a toolbar, and numbers of views, recognisers, observers and timers that do not grow.
// Lengths in points.
//
// What the extension does so on purpose is no fault; each such case is named in the source with its reason.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "simulator/springboard/gestures/system_gestures.hpp"

namespace simulator {

// How much there is of what grows when something is not given back.
struct Extent {
    long views = 0;  // of the extension's windows and of the toolbar behind applications
    long recognizers = 0;
    long observers = 0;  // registered with the default notification centre
    long timers = 0;     // and other work that waits for its time

    static Extent now();
};

// Which toolbars count as open.
struct OpenToolbars {
    bool aboveSpringBoard = false;
    bool behindApplications = false;
};
OpenToolbars openToolbars();

class Soundness {
  public:
    enum class Reporter { switcher, controlCenter, statusBar };

    // What is done to the phone, as far as it says what may be found afterwards.
    void reported(Reporter reporter, GestureStage stage);
    void takenBack();  // a pull by a finger, cancelled
    void posted(const std::string& notification);
    void announced();

    // Why nothing can be said yet: a pull is on its way.
    std::optional<std::string> unsettled() const;
    // What does not hold, the first that is found; nothing on a phone without the extension.
    std::optional<std::string> fault();

  private:
    void noteHeights();
    bool isHeight(double length) const;
    void noteTurns();
    void noteLaunches();
    std::optional<std::string> toolbarFault(Object toolbar);
    std::optional<std::string> sceneFault();
    std::optional<std::string> growth();

    std::set<double> heights_;  // that the toolbars said they have, so far
    std::set<Reporter> pulling_;
    bool leftInBetween_ = false;  // see takenBack()
    bool movedAway_ = false;      // see noteTurns()
    long turns_ = 0;
    bool sceneLeft_ = false;             // see announced()
    std::optional<double> announcedAt_;  // seconds of the phone's time
    bool launched_ = false;              // see noteLaunches()
    long launches_ = 0;

    // The least of each in the checks of one period, and in those of the first.
    static constexpr int period = 24;
    Extent least_;
    std::optional<Extent> first_;
    int checks_ = 0;
};

}  // namespace simulator
