// What a phone without the part in question answers: a refusal that names the part.
#include "simulator/scenario/phone.hpp"

namespace simulator {
namespace {

[[noreturn]] void absent(const char* part) {
    throw PhoneError(std::string("not on this phone yet: ") + part);
}

}  // namespace

void Phone::floatingDock() { absent("the floating dock"); }
void Phone::connectivityFails(int) { absent("the connectivity module"); }
void Phone::connectivityButton(double, double) { absent("the connectivity module"); }
void Phone::sceneAfter(const std::string&, int) { absent("the process manager"); }
void Phone::recents(const std::vector<std::string>&) { absent("the recent applications"); }
void Phone::flashlightAvailable(bool) { absent("the flashlight"); }
void Phone::volume(double) { absent("the media volume"); }
void Phone::ringer(double) { absent("the ringer volume"); }
void Phone::volumeKey(bool) { absent("the volume keys"); }
void Phone::brightness(double) { absent("the brightness"); }
void Phone::route(const std::string&) { absent("the audio route"); }
void Phone::play(const Song&) { absent("the player"); }
void Phone::playing(bool) { absent("the player"); }
void Phone::nothingPlaying() { absent("the player"); }
void Phone::playerCallbacks(bool) { absent("the player"); }
void Phone::toggle(const std::string& name, bool) { absent(("the setting " + name).c_str()); }
bool Phone::toggled(const std::string& name) { absent(("the setting " + name).c_str()); }
std::optional<PlayerLook> Phone::player() { absent("the player"); }

}  // namespace simulator
