#include "simulator/phone/last_second.hpp"

#include "simulator/rendering/canvas.hpp"
#include "simulator/runtime/clock.hpp"

namespace simulator {

namespace {
constexpr double interval = 1.0 / static_cast<double>(LastSecond::pictures);
}

void LastSecond::frame() {
    const double now = Clock::shared().now();
    if (now < due_) return;
    due_ = now + interval - Clock::frame / 2;
    scenes_.push_back(uprightScreen());
    if (scenes_.size() > pictures) scenes_.pop_front();
}

std::optional<std::string> LastSecond::save(const std::filesystem::path& file) const {
    FilmStrip strip;
    for (const UprightScreen& scene : scenes_)
        strip.add(rendering::render(scene.root, scene.size, 1));
    strip.add();
    return strip.save(file);
}

}  // namespace simulator
