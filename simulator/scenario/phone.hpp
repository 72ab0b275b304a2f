// The one face through which scenarios, the console, the window and the demonstration reach the
// phone. Nothing else of the simulator is known to them.
//
// Distances are points of the current interface orientation, times seconds of the phone's own
// clock. Whatever the phone cannot do it refuses with a PhoneError, and stays as it was.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/scenario/value.hpp"

namespace simulator {

class PhoneError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct ScreenBounds {
    double width = 0;
    double height = 0;
};

// The stages of a gesture as SpringBoard reports them.
enum class PullPhase { began, updated, ended, cancelled };

// The numbers of the interface orientations are the platform's.
enum class Orientation { portrait = 1, upsideDown = 2, landscapeRight = 3, landscapeLeft = 4 };

struct Song {
    std::string title;
    std::string artist;
    std::string album;
    std::string artworkId;
    std::string bundle;  // the application that plays it
};

// What the player shows of itself.
struct PlayerLook {
    std::string title;
    bool playing = false;
};

// A whole pull by a finger from the bottom edge.
struct EdgePull {
    double edge = 0;      // along the bottom edge
    double distance = 0;  // how far up
    double seconds = 0;
    std::optional<double> flick;  // the velocity of the release; at rest without one
};

struct Film {
    std::filesystem::path file;
    int frames = 1;
    double seconds = 0;
};

// One event of `expect order`: a system operation that ran (its class and selector), or a notification,
// an impact, a launch, a line of the log (by its name, style, bundle or a part of its text).
struct Event {
    enum class Kind { called, posted, darwinPosted, haptic, launched, logged };
    Kind kind = Kind::called;
    std::string name;
    std::string selector = {};
    std::string text = {};  // as it was written
};

// How far a row of events came, in order; and how often the first that did not come came at all.
struct EventsInOrder {
    std::size_t met = 0;
    long inAll = 0;
};

struct Place {
    double x = 0;
    double y = 0;
};

class Phone {
  public:
    virtual ~Phone() = default;

    // Setting up, before boot(). A real phone has the classes and methods of real systems of its
    // version, and no others.
    virtual void device(const std::string& identifier) = 0;
    virtual void screen(double width, double height, double scale) = 0;
    virtual void system(const std::string& version) = 0;
    virtual void real() = 0;
    virtual void homeButton(bool present) = 0;
    virtual void missingClass(const std::string& name) = 0;
    virtual void missingBundle(const std::string& path) = 0;
    virtual void missingMethod(const std::string& className, const std::string& selector);
    virtual void missingFile(const std::string& path);  // of those that the package brings
    virtual void dock(int icons) = 0;
    virtual void floatingDock();
    virtual void connectivityFails(int creations);
    virtual void sceneAfter(const std::string& bundle, int creation);
    virtual void language(const std::string& code);
    virtual void withoutExtension() = 0;
    virtual void boot() = 0;

    // Before or after boot(). A setting without a value is taken out.
    virtual void setting(const std::string& key, const std::optional<nlohmann::json>& value) = 0;
    virtual void plist(const std::string& path, const nlohmann::json& contents) = 0;
    virtual void file(const std::string& path, const std::string& bytes) = 0;
    virtual void remove(const std::string& path) = 0;
    virtual void connectivityButton(double width, double height);
    virtual void recents(const std::vector<std::string>& bundles);
    virtual void flashlightAvailable(bool available);
    // The phone's clock, set to seconds since the first of January 1970.
    virtual void date(double seconds);

    // Driving.
    virtual void wait(double seconds) = 0;
    virtual void open(const std::string& bundle) = 0;
    virtual void home() = 0;
    virtual void lock() = 0;
    virtual void unlock() = 0;
    virtual void rotate(Orientation orientation) = 0;
    virtual void appearance(bool dark) = 0;
    virtual void touchDown(double x, double y) = 0;
    virtual void touchMove(double x, double y, double seconds) = 0;
    virtual void touchUp() = 0;
    virtual void touchCancel() = 0;
    virtual void grabber(PullPhase phase, double edge, double distance, double velocity) = 0;
    virtual void controlCenterGrabber(PullPhase phase, double edge, double distance,
                                      double velocity) = 0;
    virtual void statusBar(PullPhase phase, double x, double y, double velocity) = 0;
    virtual void pull(const EdgePull& pull) = 0;
    virtual void volume(double level);
    virtual void ringer(double level);
    virtual void volumeKey(bool louder);
    virtual void brightness(double level);
    virtual void route(const std::string& name);
    virtual void play(const Song& song);
    virtual void playing(bool yes);
    virtual void nothingPlaying();
    // On which thread the player tells of itself: the main one, or one of its own.
    virtual void playerCallbacks(bool otherThread);
    virtual void toggle(const std::string& name, bool on);
    // Activates the one element that a screen reader calls that.
    virtual void activate(const std::string& label);
    virtual void interrupt(objc_object* view) = 0;
    virtual void post(const std::string& notification) = 0;
    virtual void postDarwin(const std::string& notification) = 0;

    // Looking. Counts run since boot() or the last clear().
    virtual ScreenBounds screenBounds() = 0;
    // The middle of a view on the screen, where a finger would reach it; refused when none would.
    virtual Place reach(objc_object* view);
    virtual objc_object* presentation(objc_object* view) = 0;
    virtual int postedCount(const std::string& notification) = 0;
    virtual int darwinPostedCount(const std::string& notification) = 0;
    virtual int calledCount(const std::string& className, const std::string& selector) = 0;
    virtual std::optional<std::vector<scenario::Value>> lastCall(const std::string& className,
                                                                 const std::string& selector) = 0;
    // Why no such method can ever run or be hooked; nothing when one can, or on a phone that is off.
    virtual std::optional<std::string> mistakeInMethod(const std::string& className,
                                                       const std::string& selector);
    virtual EventsInOrder inOrder(const std::vector<Event>& events);
    // Whether a label or a button with exactly this text can be seen; else why not.
    virtual std::optional<std::string> notShown(const std::string& text);
    virtual bool hooked(const std::string& className, const std::string& selector) = 0;
    virtual int hookCount() = 0;
    virtual int haptics(int style) = 0;  // 0 light, 1 medium, 2 heavy
    virtual int loggedCount(const std::string& text) = 0;
    virtual int launchedCount(const std::string& bundle) = 0;
    virtual int launchedSuspendedCount(const std::string& bundle) = 0;
    virtual bool toggled(const std::string& name);
    // Nothing when nothing is loaded.
    virtual std::optional<PlayerLook> player();
    virtual std::optional<std::string> crashed() = 0;  // why it did first
    // What does not hold of the extension that must hold whenever nothing moves; refused while a finger
    // is down or a pull is on its way.
    virtual std::optional<std::string> wrong();
    virtual void clear() = 0;
    virtual std::string tree(objc_object* root) = 0;  // of the whole screen for a null root
    virtual std::string elements();                   // what a screen reader goes through
    virtual std::vector<std::string> journal(std::size_t lines);  // the latest, oldest first
    virtual std::string hooks();                                  // each with what became of it
    // Tells of each event of that kind as it happens, until an empty function is given.
    enum class Watched { notifications, calls, log };
    virtual void watch(Watched kind, std::function<void(const std::string&)> tell);
    virtual void shot(const std::filesystem::path& file, double pixelsPerPoint) = 0;
    virtual void film(const Film& film) = 0;
    // From here on the last second is kept, for filmOfLastSecond().
    virtual void keepLastSecond();
    virtual void filmOfLastSecond(const std::filesystem::path& file);
};

struct PhoneOptions {
    // Where the phone's file system is kept; when empty, a temporary folder that goes with it.
    std::filesystem::path root;
    bool real = false;  // see Phone::real
};

std::unique_ptr<Phone> makePhone(const PhoneOptions& options);

}  // namespace simulator
