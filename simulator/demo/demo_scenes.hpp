// What the demonstration shows: one short scenario for each picture or film.
#pragma once

#include <span>
#include <string_view>

namespace simulator::demo {

struct DemoScene {
    std::string_view name;     // of the scene
    std::string_view picture;  // the file that its scenario writes
    std::string_view caption;
    std::string_view scenario;
    bool framed;            // on the contact sheet, inside a phone
    bool newOwner = false;  // nobody has seen the welcome on this phone yet
};

std::span<const DemoScene> demoScenes();

// The scene whose picture stands at the top of the read-me.
std::string_view coverScene();

}  // namespace simulator::demo
