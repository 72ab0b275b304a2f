// The two forms in which the system reports a pull to a gesture manager: three parts, and later a fourth, the
// gesture. A phone has one of them, the one that real systems of its version have.
#pragma once

#include "platform/springboard.hpp"
#include "simulator/hardware/configuration.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

template <class Manager>
using PullStage = void(Manager, SBGrabberTongue, double distance, double velocity);

template <class Manager, PullStage<Manager> handler>
void withGesture(Manager self, SBGrabberTongue tongue, double distance, double velocity,
                 UIGestureRecognizer) {
    handler(self, tongue, distance, velocity);
}

// Adds the four methods of a manager to its definition, in the form of this phone.
template <class Manager, PullStage<Manager> began, PullStage<Manager> updated,
          PullStage<Manager> ended, PullStage<Manager> canceled>
void answerPulls(const auto& definition) {
    if (pullReportsNameTheGesture()) {
        definition
            .template method<"grabberTongueBeganPulling:withDistance:andVelocity:andGesture:",
                             &withGesture<Manager, began>>()
            .template method<"grabberTongueUpdatedPulling:withDistance:andVelocity:andGesture:",
                             &withGesture<Manager, updated>>()
            .template method<"grabberTongueEndedPulling:withDistance:andVelocity:andGesture:",
                             &withGesture<Manager, ended>>()
            .template method<"grabberTongueCanceledPulling:withDistance:andVelocity:andGesture:",
                             &withGesture<Manager, canceled>>();
        return;
    }
    definition.template method<"grabberTongueBeganPulling:withDistance:andVelocity:", began>()
        .template method<"grabberTongueUpdatedPulling:withDistance:andVelocity:", updated>()
        .template method<"grabberTongueEndedPulling:withDistance:andVelocity:", ended>()
        .template method<"grabberTongueCanceledPulling:withDistance:andVelocity:", canceled>();
}

}  // namespace simulator
