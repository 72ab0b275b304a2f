// The views on the screen for a page: where each is as it is shown now, whose it is, what it says; and each
// layer by itself as a picture, for an exploded view. Frames are points of the interface.
#pragma once

#include <nlohmann/json.hpp>

namespace simulator::serve {

// Windows, back to front, each with `children`: `class`, `frame` [x, y, w, h], `alpha`, and where they say
// something `text`, `owner` (the controller that it belongs to), `hidden`, `draws` (it shows something of its
// own), `library` (a class of the toolbar's).
nlohmann::json viewList();

// In the order in which they are drawn, at most `most`: `class`, `frame`, `alpha` (with that of what is above)
// and `picture`, a PNG as an address of its own.
nlohmann::json layerPictures(std::size_t most);

}  // namespace simulator::serve
