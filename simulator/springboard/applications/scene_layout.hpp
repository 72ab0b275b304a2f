// The layout controller of the main display: its view holds the container of the scenes of the
// applications in front, and nothing else, so that what is put behind finds the container in front
// of it. The container holds one scene view, which opens out of the application's icon.
#pragma once

#include <string>

#include "platform/springboard.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

SBMainDisplaySceneLayoutViewController sceneLayoutController();

void showScene(const std::string& identifier);
void hideScene();
// The scene follows a finger that pulls it up from the bottom edge; nothing without one in front.
void trackScene(double distance);
void restoreScene();
// Draws it anew for the style and the size of the interface.
void refreshScene();

void registerSceneLayout();

}  // namespace simulator
