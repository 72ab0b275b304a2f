// The Darwin notify centre: names without content, delivered on the main run loop in a later turn,
// never inside the post. Posts of one name before the loop turns arrive as one at each observer.
#pragma once

#include <string>
#include <string_view>

namespace simulator {

void postDarwin(const std::string& name);
// How often the name was posted since the last clear, by anyone.
long darwinPosts(std::string_view name);
void clearDarwinPosts();

}  // namespace simulator
