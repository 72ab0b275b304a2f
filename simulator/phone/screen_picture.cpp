#include "simulator/phone/screen_picture.hpp"

#include <cmath>

#include "simulator/hardware/display.hpp"
#include "simulator/hardware/uikit_bridge.hpp"
#include "simulator/rendering/canvas.hpp"
#include "simulator/rendering/montage.hpp"
#include "simulator/rendering/png.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/springboard/display/setting_effects.hpp"

namespace simulator {

namespace {

// The display turned back, so that the interface stands upright.
rendering::Node upright(rendering::Node display, long orientation) {
    CGSize portrait = interfaceSize(orientationPortrait);
    CGSize size = interfaceSize(orientation);
    rendering::Node root;
    root.name = "Display";
    root.bounds.size = {portrait.width, portrait.height};
    root.position = {size.width / 2, size.height / 2};
    double angle = -rotationOf(orientation);
    double cosine = std::round(std::cos(angle)), sine = std::round(std::sin(angle));
    root.transform = {cosine, sine, -sine, cosine, 0, 0};
    root.children.push_back(std::move(display));
    return root;
}

std::optional<std::string> write(const rendering::Surface& surface,
                                 const std::filesystem::path& file) {
    std::error_code error;
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), error);
    return rendering::writePng(surface, file);
}

}  // namespace

UprightScreen uprightScreen() {
    AutoreleasePool pool;
    long orientation = activeOrientation();
    CGSize size = interfaceSize(orientation);
    rendering::Node root = upright(screenScene(), orientation);
    tintScreen(root);
    return {std::move(root), {size.width, size.height}};
}

rendering::Surface screenPicture(double pixelsPerPoint) {
    UprightScreen screen = uprightScreen();
    return rendering::render(screen.root, screen.size, pixelsPerPoint);
}

std::optional<std::string> saveScreen(const std::filesystem::path& file, double pixelsPerPoint) {
    return write(screenPicture(pixelsPerPoint), file);
}

rendering::Rows ScreenPainter::paint(double pixelsPerPoint) {
    UprightScreen screen = uprightScreen();
    size_ = screen.size;
    return kept_.paint(std::move(screen.root), size_, pixelsPerPoint);
}

// Frames on which nothing changed share their pixels.
void FilmStrip::add() {
    const bool same = painter_.paint().empty();
    frames_.push_back(same ? frames_.back() : rendering::copyOf(painter_.picture()));
}

std::optional<std::string> FilmStrip::save(const std::filesystem::path& file) const {
    return write(rendering::filmStrip(frames_), file);
}

}  // namespace simulator
