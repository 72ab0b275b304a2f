// The volume is left to the base class: this phone has none.
#include "tests/scenario/fake_phone.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

namespace simulator::scenario {

template <typename... Parts>
void FakePhone::note(const Parts&... parts) {
    if (!refusal.empty()) throw PhoneError(refusal);
    std::ostringstream text;
    const char* separator = "";
    ((text << separator << parts, separator = " "), ...);
    operations.push_back(text.str());
}

namespace {
const char* yesOrNo(bool yes) { return yes ? "yes" : "no"; }
}  // namespace

void FakePhone::device(const std::string& identifier) { note("device", identifier); }
void FakePhone::screen(double w, double h, double scale) { note("screen", w, h, scale); }
void FakePhone::system(const std::string& version) { note("system", version); }
void FakePhone::real() { note("real"); }
void FakePhone::homeButton(bool present) { note("homeButton", yesOrNo(present)); }
void FakePhone::missingClass(const std::string& name) { note("missingClass", name); }
void FakePhone::missingBundle(const std::string& path) { note("missingBundle", path); }
void FakePhone::missingMethod(const std::string& className, const std::string& selector) {
    note("missingMethod", className, selector);
}
void FakePhone::missingFile(const std::string& path) { note("missingFile", path); }
void FakePhone::dock(int icons) { note("dock", icons); }
void FakePhone::connectivityFails(int creations) { note("connectivityFails", creations); }
void FakePhone::sceneAfter(const std::string& bundle, int creation) {
    note("sceneAfter", bundle, creation);
}
void FakePhone::date(double seconds) { note("date", seconds); }
void FakePhone::language(const std::string& code) { note("language", code); }
void FakePhone::activate(const std::string& label) { note("activate", label); }
Place FakePhone::reach(objc_object* view) {
    note("reach", printed(objectValue(view)));
    return reached;
}
std::optional<std::string> FakePhone::mistakeInMethod(const std::string& className,
                                                      const std::string& selector) {
    if (knownMethods.empty()) return std::nullopt;
    for (const std::string& method : knownMethods)
        if (method == className + " " + selector) return std::nullopt;
    return "there is no method " + className + " " + selector;
}
EventsInOrder FakePhone::inOrder(const std::vector<Event>& events) {
    for (const Event& event : events)
        note("event", static_cast<int>(event.kind), event.name, event.selector);
    return {std::min(eventsMet, events.size()), counts["elsewhere"]};
}
std::optional<std::string> FakePhone::notShown(const std::string& text) {
    if (counts["shown " + text] != 0) return std::nullopt;
    return "it is hidden";
}
std::vector<std::string> FakePhone::journal(std::size_t lines) {
    return {"the journal", std::to_string(lines)};
}
void FakePhone::watch(Watched kind, std::function<void(const std::string&)> tell) {
    note("watch", static_cast<int>(kind), tell ? "on" : "off");
    if (tell) tell("something happened");
}
void FakePhone::withoutExtension() { note("withoutExtension"); }
void FakePhone::boot() { note("boot"); }
bool FakePhone::toggled(const std::string& name) { return counts["toggled " + name] != 0; }
std::optional<PlayerLook> FakePhone::player() { return looked; }
void FakePhone::setting(const std::string& key, const std::optional<nlohmann::json>& value) {
    note("setting", key, value ? value->dump() : "none");
}
void FakePhone::plist(const std::string& path, const nlohmann::json& contents) {
    note("plist", path, contents.dump());
}
void FakePhone::file(const std::string& path, const std::string& bytes) {
    note("file", path, bytes);
}
void FakePhone::remove(const std::string& path) { note("remove", path); }
void FakePhone::connectivityButton(double w, double h) { note("connectivityButton", w, h); }
void FakePhone::recents(const std::vector<std::string>& bundles) {
    std::string all;
    for (const auto& bundle : bundles) all += "," + bundle;
    note("recents", all);
}
void FakePhone::flashlightAvailable(bool available) {
    note("flashlightAvailable", yesOrNo(available));
}
void FakePhone::wait(double seconds) {
    note("wait", seconds);
    bounds.width += widerByWait;
}
void FakePhone::open(const std::string& bundle) { note("open", bundle); }
void FakePhone::home() { note("home"); }
void FakePhone::lock() { note("lock"); }
void FakePhone::unlock() { note("unlock"); }
void FakePhone::rotate(Orientation orientation) { note("rotate", static_cast<int>(orientation)); }
void FakePhone::appearance(bool dark) { note("appearance", dark ? "dark" : "light"); }
void FakePhone::touchDown(double x, double y) { note("touchDown", x, y); }
void FakePhone::touchMove(double x, double y, double s) { note("touchMove", x, y, s); }
void FakePhone::touchUp() { note("touchUp"); }
void FakePhone::touchCancel() { note("touchCancel"); }
void FakePhone::grabber(PullPhase phase, double edge, double distance, double velocity) {
    note("grabber", static_cast<int>(phase), edge, distance, velocity);
}
void FakePhone::controlCenterGrabber(PullPhase phase, double edge, double distance,
                                     double velocity) {
    note("controlCenterGrabber", static_cast<int>(phase), edge, distance, velocity);
}
void FakePhone::statusBar(PullPhase phase, double x, double y, double velocity) {
    note("statusBar", static_cast<int>(phase), x, y, velocity);
}
void FakePhone::pull(const EdgePull& pull) {
    if (pull.flick)
        note("pull", pull.edge, pull.distance, pull.seconds, *pull.flick);
    else
        note("pull", pull.edge, pull.distance, pull.seconds);
}
void FakePhone::ringer(double level) { note("ringer", level); }
void FakePhone::volumeKey(bool louder) { note("volumeKey", yesOrNo(louder)); }
void FakePhone::brightness(double level) { note("brightness", level); }
void FakePhone::route(const std::string& name) { note("route", name); }
void FakePhone::play(const Song& song) {
    note("play", song.title, "|", song.artist, "|", song.album, "|", song.artworkId, "|",
         song.bundle);
}
void FakePhone::playing(bool yes) { note("playing", yesOrNo(yes)); }
void FakePhone::nothingPlaying() { note("nothingPlaying"); }
void FakePhone::playerCallbacks(bool other) { note("playerCallbacks", yesOrNo(other)); }
void FakePhone::toggle(const std::string& name, bool on) { note("toggle", name, yesOrNo(on)); }
void FakePhone::interrupt(objc_object* view) { note("interrupt", printed(objectValue(view))); }
void FakePhone::post(const std::string& notification) { note("post", notification); }
void FakePhone::postDarwin(const std::string& notification) { note("postDarwin", notification); }

int FakePhone::postedCount(const std::string& name) { return counts["posted " + name]; }
int FakePhone::darwinPostedCount(const std::string& name) { return counts["darwin " + name]; }
int FakePhone::calledCount(const std::string& className, const std::string& selector) {
    return counts["called " + className + " " + selector];
}
std::optional<std::vector<Value>> FakePhone::lastCall(const std::string& className,
                                                      const std::string& selector) {
    const auto found = calls.find(className + " " + selector);
    if (found == calls.end()) return std::nullopt;
    return found->second;
}
bool FakePhone::hooked(const std::string& className, const std::string& selector) {
    return counts["hooked " + className + " " + selector] != 0;
}
int FakePhone::haptics(int style) { return counts["haptics " + std::to_string(style)]; }
int FakePhone::loggedCount(const std::string& text) { return counts["logged " + text]; }
int FakePhone::launchedCount(const std::string& bundle) { return counts["launched " + bundle]; }
int FakePhone::launchedSuspendedCount(const std::string& bundle) {
    return counts["suspended " + bundle];
}
void FakePhone::clear() { note("clear"); }
std::string FakePhone::tree(objc_object* root) {
    return root == nullptr ? "the screen\n" : "the view\n";
}
void FakePhone::shot(const std::filesystem::path& file, double pixelsPerPoint) {
    if (pixelsPerPoint == 1)
        note("shot", file.string());
    else
        note("shot", file.string(), pixelsPerPoint);
}
void FakePhone::film(const Film& film) {
    note("film", film.file.string(), film.frames, film.seconds);
}

}  // namespace simulator::scenario
