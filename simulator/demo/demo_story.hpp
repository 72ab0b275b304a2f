// The order in which the demonstration's page tells its pictures, and what it says about each.
#pragma once

#include <span>
#include <string_view>

namespace simulator::demo {

enum class Shape { upright, lying, film };  // of a picture: the phone's, or a row of frames

struct StoryPicture {
    std::string_view scene;  // the name of a demonstration scene
    Shape shape;
    std::string_view caption;
};

struct Chapter {
    std::string_view title;
    std::string_view text;
    std::span<const StoryPicture> pictures;
};

std::span<const Chapter> demoStory();

}  // namespace simulator::demo
