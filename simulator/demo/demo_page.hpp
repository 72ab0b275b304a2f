// The page that shows the demonstration's pictures: one file beside them, without scripts and
// without anything from elsewhere, so that any browser opens it from the file system.
#pragma once

#include <span>
#include <string>

#include "simulator/demo/demo_scenes.hpp"

namespace simulator::demo {

// The page with these scenes, in the order of the story; what is missing among them is left out.
std::string demoPage(std::span<const DemoScene> drawn);

}  // namespace simulator::demo
