// What a phone without the part in question answers: a refusal that names the part.
#include "simulator/scenario/phone.hpp"

namespace simulator {
namespace {

[[noreturn]] void absent(const char* part) {
    throw PhoneError(std::string("not on this phone yet: ") + part);
}

}  // namespace

Place Phone::reach(objc_object*) { absent("the places of views"); }
void Phone::activate(const std::string&) { absent("the accessibility protocol"); }
std::string Phone::elements() { absent("the accessibility protocol"); }
void Phone::language(const std::string&) { absent("languages"); }
void Phone::date(double) { absent("a clock"); }
std::optional<std::string> Phone::mistakeInMethod(const std::string&, const std::string&) {
    return std::nullopt;
}
EventsInOrder Phone::inOrder(const std::vector<Event>&) { absent("the order of events"); }
std::optional<std::string> Phone::notShown(const std::string&) {
    absent("the texts on the screen");
}
std::optional<std::string> Phone::wrong() { absent("what must hold"); }
std::vector<std::string> Phone::journal(std::size_t) { return {}; }
std::string Phone::hooks() { absent("the hook report"); }
void Phone::watch(Watched, std::function<void(const std::string&)>) { absent("the journal"); }
void Phone::keepLastSecond() {}
void Phone::filmOfLastSecond(const std::filesystem::path&) {
    absent("the film of the last second");
}
void Phone::missingMethod(const std::string&, const std::string&) { absent("missing methods"); }
void Phone::missingFile(const std::string&) { absent("missing files"); }
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
