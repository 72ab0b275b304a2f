#include "simulator/scenario/recording_phone.hpp"

#include <array>
#include <charconv>
#include <nlohmann/json.hpp>

#include "simulator/runtime/date.hpp"

namespace simulator::scenario {
namespace {

// With all the digits that tell it from its neighbours, and no exponent.
std::string written(double number) {
    std::array<char, 400> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                      std::chars_format::fixed);
    return {buffer.data(), result.ptr};
}

std::string written(int number) { return std::to_string(number); }
std::string written(const std::string& text) { return quoted(text); }
std::string written(const char* word) { return word; }

// Words of the language as they are, texts in quotes, numbers in full.
template <class... Parts>
std::string statement(const Parts&... parts) {
    std::string line;
    ((line += (line.empty() ? "" : " ") + written(parts)), ...);
    return line;
}

const char* yesOrNo(bool yes) { return yes ? "yes" : "no"; }

const char* wordOf(PullPhase phase, const char* between) {
    switch (phase) {
        case PullPhase::began:
            return "began";
        case PullPhase::updated:
            return between;
        case PullPhase::ended:
            return "ended";
        case PullPhase::cancelled:
            break;
    }
    return "cancelled";
}

const char* wordOf(Orientation orientation) {
    switch (orientation) {
        case Orientation::portrait:
            return "portrait";
        case Orientation::upsideDown:
            return "upside-down";
        case Orientation::landscapeRight:
            return "landscape-right";
        case Orientation::landscapeLeft:
            break;
    }
    return "landscape-left";
}

}  // namespace

void RecordingPhone::start(const std::filesystem::path& file) {
    stop();
    file_.open(file);
    if (!file_) throw PhoneError("cannot write " + file.string());
    file_ << "# Recorded. `vantori-simulator run FILE` does it again.\n";
    for (const std::string& line : preparations_) file_ << line << '\n';
    for (const std::string& line : names_) file_ << line << '\n';
    file_ << std::flush;
}

void RecordingPhone::stop() {
    if (!records()) return;
    writeWaits();
    file_.close();
}

void RecordingPhone::named(const std::string& statement) {
    names_.push_back(statement);
    write(statement);
}

void RecordingPhone::found(const std::string& path, const std::string& bytes) {
    preparation(statement("file", path, bytes));
}

void RecordingPhone::preparation(const std::string& statement) {
    preparations_.push_back(statement);
    write(statement);
}

void RecordingPhone::write(const std::string& statement) {
    if (!records()) return;
    writeWaits();
    file_ << statement << std::endl;
}

void RecordingPhone::writeWaits() {
    if (pauses_ == 0) return;
    file_ << "wait " << written(pause_);
    if (pauses_ > 1) file_ << " times " << pauses_;
    file_ << std::endl;
    pauses_ = 0;
}

void RecordingPhone::device(const std::string& identifier) {
    phone_.device(identifier);
    preparation(statement("device", identifier));
}
void RecordingPhone::screen(double width, double height, double scale) {
    phone_.screen(width, height, scale);
    preparation(statement("screen", width, height, scale));
}
void RecordingPhone::system(const std::string& version) {
    phone_.system(version);
    preparation("system " + version);
}
void RecordingPhone::real() {
    phone_.real();
    preparation("real");
}
void RecordingPhone::homeButton(bool present) {
    phone_.homeButton(present);
    preparation(statement("homebutton", yesOrNo(present)));
}
void RecordingPhone::missingClass(const std::string& name) {
    phone_.missingClass(name);
    preparation(statement("missing class", name));
}
void RecordingPhone::missingBundle(const std::string& path) {
    phone_.missingBundle(path);
    preparation(statement("missing bundle", path));
}
void RecordingPhone::missingMethod(const std::string& className, const std::string& selector) {
    phone_.missingMethod(className, selector);
    preparation(statement("missing method", className, selector));
}
void RecordingPhone::missingFile(const std::string& path) {
    phone_.missingFile(path);
    preparation(statement("missing file", path));
}
void RecordingPhone::dock(int icons) {
    phone_.dock(icons);
    preparation(statement("dock", icons));
}
void RecordingPhone::floatingDock() {
    phone_.floatingDock();
    // dock() came just before: one statement says both.
    preparations_.back() += " floating";
    write(preparations_.back());
}
void RecordingPhone::connectivityFails(int creations) {
    phone_.connectivityFails(creations);
    preparation(statement("connectivity-fails", creations));
}
void RecordingPhone::sceneAfter(const std::string& bundle, int creation) {
    phone_.sceneAfter(bundle, creation);
    preparation(statement("scene-after", bundle, creation));
}
void RecordingPhone::language(const std::string& code) {
    phone_.language(code);
    preparation(statement("language", code));
}
void RecordingPhone::withoutExtension() {
    phone_.withoutExtension();
    preparation("without extension");
}
void RecordingPhone::boot() {
    phone_.boot();
    preparation("boot");
}
// Files are kept as preparations also when they change later: what reads them reads them afresh.
void RecordingPhone::setting(const std::string& key, const std::optional<nlohmann::json>& value) {
    phone_.setting(key, value);
    preparation("setting " + quoted(key) + " " + (value ? value->dump() : "none"));
}
void RecordingPhone::plist(const std::string& path, const nlohmann::json& contents) {
    phone_.plist(path, contents);
    preparation("plist " + quoted(path) + " " + contents.dump());
}
void RecordingPhone::file(const std::string& path, const std::string& bytes) {
    phone_.file(path, bytes);
    preparation(statement("file", path, bytes));
}
void RecordingPhone::remove(const std::string& path) {
    phone_.remove(path);
    preparation(statement("delete", path));
}
void RecordingPhone::connectivityButton(double width, double height) {
    phone_.connectivityButton(width, height);
    preparation(statement("connectivity-button", width, height));
}
void RecordingPhone::recents(const std::vector<std::string>& bundles) {
    phone_.recents(bundles);
    std::string line = "recents";
    for (const std::string& bundle : bundles) line += " " + quoted(bundle);
    preparation(line);
}
void RecordingPhone::flashlightAvailable(bool available) {
    phone_.flashlightAvailable(available);
    preparation(statement("flashlight-available", yesOrNo(available)));
}

void RecordingPhone::date(double seconds) {
    phone_.date(seconds);
    preparation("date " + writtenDate(seconds));
}

void RecordingPhone::wait(double seconds) {
    phone_.wait(seconds);
    if (!records()) return;
    if (pauses_ > 0 && pause_ != seconds) writeWaits();
    pause_ = seconds;
    ++pauses_;
}
void RecordingPhone::open(const std::string& bundle) {
    phone_.open(bundle);
    write(statement("open", bundle));
}
void RecordingPhone::home() {
    phone_.home();
    write("home");
}
void RecordingPhone::lock() {
    phone_.lock();
    write("lock");
}
void RecordingPhone::unlock() {
    phone_.unlock();
    write("unlock");
}
void RecordingPhone::rotate(Orientation orientation) {
    phone_.rotate(orientation);
    write(statement("rotate", wordOf(orientation)));
}
void RecordingPhone::appearance(bool dark) {
    phone_.appearance(dark);
    write(statement("appearance", dark ? "dark" : "light"));
}
void RecordingPhone::touchDown(double x, double y) {
    phone_.touchDown(x, y);
    write(statement("touch down", x, y));
}
void RecordingPhone::touchMove(double x, double y, double seconds) {
    phone_.touchMove(x, y, seconds);
    write(statement("touch move", x, y, "over", seconds));
}
void RecordingPhone::touchUp() {
    phone_.touchUp();
    write("touch up");
}
void RecordingPhone::touchCancel() {
    phone_.touchCancel();
    write("touch cancel");
}
void RecordingPhone::grabber(PullPhase phase, double edge, double distance, double velocity) {
    phone_.grabber(phase, edge, distance, velocity);
    write(statement("grabber", wordOf(phase, "updated"), edge, distance, velocity));
}
void RecordingPhone::controlCenterGrabber(PullPhase phase, double edge, double distance,
                                          double velocity) {
    phone_.controlCenterGrabber(phase, edge, distance, velocity);
    write(statement("ccgrabber", wordOf(phase, "updated"), edge, distance, velocity));
}
void RecordingPhone::statusBar(PullPhase phase, double x, double y, double velocity) {
    phone_.statusBar(phase, x, y, velocity);
    write(statement("statusbar", wordOf(phase, "changed"), x, y, velocity));
}
void RecordingPhone::pull(const EdgePull& pull) {
    phone_.pull(pull);
    std::string line = statement("pull", pull.edge, pull.distance, "over", pull.seconds);
    if (pull.flick) line += " flick " + written(*pull.flick);
    write(line);
}
void RecordingPhone::volume(double level) {
    phone_.volume(level);
    write(statement("volume", level));
}
void RecordingPhone::ringer(double level) {
    phone_.ringer(level);
    write(statement("ringer", level));
}
void RecordingPhone::volumeKey(bool louder) {
    phone_.volumeKey(louder);
    write(statement("volume-key", louder ? "up" : "down"));
}
void RecordingPhone::brightness(double level) {
    phone_.brightness(level);
    write(statement("brightness", level));
}
void RecordingPhone::route(const std::string& name) {
    phone_.route(name);
    write(statement("route", name));
}
void RecordingPhone::play(const Song& song) {
    phone_.play(song);
    write(statement("play", song.title, song.artist, song.album, song.artworkId, song.bundle));
}
void RecordingPhone::playing(bool yes) {
    phone_.playing(yes);
    write(statement("playing", yesOrNo(yes)));
}
void RecordingPhone::nothingPlaying() {
    phone_.nothingPlaying();
    write("nothing-playing");
}
void RecordingPhone::playerCallbacks(bool otherThread) {
    phone_.playerCallbacks(otherThread);
    write(statement("player-callbacks", otherThread ? "other" : "main"));
}
void RecordingPhone::toggle(const std::string& name, bool on) {
    phone_.toggle(name, on);
    write(statement("toggle", name, on ? "on" : "off"));
}
void RecordingPhone::activate(const std::string& label) {
    phone_.activate(label);
    write(statement("tap label", label));
}
void RecordingPhone::post(const std::string& notification) {
    phone_.post(notification);
    write(statement("post", notification));
}
void RecordingPhone::postDarwin(const std::string& notification) {
    phone_.postDarwin(notification);
    write(statement("darwin", notification));
}
void RecordingPhone::film(const Film& film) {
    phone_.film(film);
    write(statement("film", film.file.filename().string(), film.frames, "over", film.seconds));
}

}  // namespace simulator::scenario
