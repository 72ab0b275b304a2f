// A phone that hands everything on to another one and, while it records, writes what is done to it as
// the statements of a scenario that does it again. A pass of time stays one pass: two waits of a frame
// are not one of two frames to a phone.
#pragma once

#include <filesystem>
#include <fstream>

#include "simulator/scenario/phone.hpp"

namespace simulator::scenario {

class RecordingPhone final : public Phone {
  public:
    explicit RecordingPhone(Phone& phone) : phone_(phone) {}
    ~RecordingPhone() override { stop(); }

    // What the phone was told before it booted comes first, so that the file stands by itself. Throws
    // PhoneError when the file cannot be written.
    void start(const std::filesystem::path& file);
    void stop();
    bool records() const { return file_.is_open(); }

    // Something that was done past the phone's own operations, as it was written: messages that were
    // sent, and the names that they use.
    void sent(const std::string& statement) { write(statement); }
    void named(const std::string& statement);
    // A file that another process has written on the phone, or that was there before.
    void found(const std::string& path, const std::string& bytes);

    void device(const std::string& identifier) override;
    void screen(double width, double height, double scale) override;
    void system(const std::string& version) override;
    void real() override;
    void homeButton(bool present) override;
    void missingClass(const std::string& name) override;
    void missingBundle(const std::string& path) override;
    void missingMethod(const std::string& className, const std::string& selector) override;
    void missingFile(const std::string& path) override;
    void dock(int icons) override;
    void floatingDock() override;
    void connectivityFails(int creations) override;
    void sceneAfter(const std::string& bundle, int creation) override;
    void language(const std::string& code) override;
    void withoutExtension() override;
    void boot() override;
    void setting(const std::string& key, const std::optional<nlohmann::json>& value) override;
    void plist(const std::string& path, const nlohmann::json& contents) override;
    void file(const std::string& path, const std::string& bytes) override;
    void remove(const std::string& path) override;
    void connectivityButton(double width, double height) override;
    void recents(const std::vector<std::string>& bundles) override;
    void flashlightAvailable(bool available) override;
    void date(double seconds) override;

    void wait(double seconds) override;
    void open(const std::string& bundle) override;
    void home() override;
    void lock() override;
    void unlock() override;
    void rotate(Orientation orientation) override;
    void appearance(bool dark) override;
    void touchDown(double x, double y) override;
    void touchMove(double x, double y, double seconds) override;
    void touchUp() override;
    void touchCancel() override;
    void grabber(PullPhase phase, double edge, double distance, double velocity) override;
    void controlCenterGrabber(PullPhase phase, double edge, double distance,
                              double velocity) override;
    void statusBar(PullPhase phase, double x, double y, double velocity) override;
    void pull(const EdgePull& pull) override;
    void volume(double level) override;
    void ringer(double level) override;
    void volumeKey(bool louder) override;
    void brightness(double level) override;
    void route(const std::string& name) override;
    void play(const Song& song) override;
    void playing(bool yes) override;
    void nothingPlaying() override;
    void playerCallbacks(bool otherThread) override;
    void toggle(const std::string& name, bool on) override;
    void activate(const std::string& label) override;
    void post(const std::string& notification) override;
    void postDarwin(const std::string& notification) override;
    void film(const Film& film) override;

    // What only looks, and what has no words of its own.
    void interrupt(objc_object* view) override { phone_.interrupt(view); }
    ScreenBounds screenBounds() override { return phone_.screenBounds(); }
    Place reach(objc_object* view) override { return phone_.reach(view); }
    objc_object* presentation(objc_object* view) override { return phone_.presentation(view); }
    int postedCount(const std::string& name) override { return phone_.postedCount(name); }
    int darwinPostedCount(const std::string& name) override {
        return phone_.darwinPostedCount(name);
    }
    int calledCount(const std::string& className, const std::string& selector) override {
        return phone_.calledCount(className, selector);
    }
    std::optional<std::vector<Value>> lastCall(const std::string& className,
                                               const std::string& selector) override {
        return phone_.lastCall(className, selector);
    }
    std::optional<std::string> mistakeInMethod(const std::string& className,
                                               const std::string& selector) override {
        return phone_.mistakeInMethod(className, selector);
    }
    EventsInOrder inOrder(const std::vector<Event>& events) override {
        return phone_.inOrder(events);
    }
    std::optional<std::string> notShown(const std::string& text) override {
        return phone_.notShown(text);
    }
    bool hooked(const std::string& className, const std::string& selector) override {
        return phone_.hooked(className, selector);
    }
    int hookCount() override { return phone_.hookCount(); }
    int haptics(int style) override { return phone_.haptics(style); }
    int loggedCount(const std::string& text) override { return phone_.loggedCount(text); }
    int launchedCount(const std::string& bundle) override { return phone_.launchedCount(bundle); }
    int launchedSuspendedCount(const std::string& bundle) override {
        return phone_.launchedSuspendedCount(bundle);
    }
    bool toggled(const std::string& name) override { return phone_.toggled(name); }
    std::optional<PlayerLook> player() override { return phone_.player(); }
    std::optional<std::string> crashed() override { return phone_.crashed(); }
    std::optional<std::string> wrong() override { return phone_.wrong(); }
    void clear() override { phone_.clear(); }
    std::string tree(objc_object* root) override { return phone_.tree(root); }
    std::string elements() override { return phone_.elements(); }
    std::vector<std::string> journal(std::size_t lines) override { return phone_.journal(lines); }
    std::string hooks() override { return phone_.hooks(); }
    void watch(Watched kind, std::function<void(const std::string&)> tell) override {
        phone_.watch(kind, std::move(tell));
    }
    void shot(const std::filesystem::path& file, double pixelsPerPoint) override {
        phone_.shot(file, pixelsPerPoint);
    }
    void keepLastSecond() override { phone_.keepLastSecond(); }
    void filmOfLastSecond(const std::filesystem::path& file) override {
        phone_.filmOfLastSecond(file);
    }

  private:
    // Each after the phone has done it: what it refuses is not recorded.
    void preparation(const std::string& statement);
    void write(const std::string& statement);
    void writeWaits();

    Phone& phone_;
    std::vector<std::string> preparations_;  // boot among them
    std::vector<std::string> names_;
    std::ofstream file_;
    double pause_ = 0;  // seconds, of waits that are still to be written
    int pauses_ = 0;
};

}  // namespace simulator::scenario
