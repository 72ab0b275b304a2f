// Images wrap the pictures that the canvas draws.
#pragma once

#include "simulator/rendering/picture.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

UIImage makeImage(const rendering::PictureRef& picture);
// Nothing for no image.
rendering::PictureRef pictureOf(UIImage image);
bool isTemplate(UIImage image);

// Where paths of the phone lie on this machine; the path itself until the phone says otherwise.
void setImagePaths(std::string (*resolve)(const std::string& path));

void registerImage();
void registerImageView();
// What an image view shows, for the scene.
UIImage imageOf(UIImageView view);

}  // namespace simulator
