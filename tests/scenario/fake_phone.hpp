// A phone that only writes down what it is told, so that the language can be tested alone.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "simulator/scenario/phone.hpp"

namespace simulator::scenario {

class FakePhone : public Phone {
  public:
    // Each operation as `name argument argument`, in the order it came.
    std::vector<std::string> operations;

    // What the looking operations answer, by `name argument …`; 0 and nothing otherwise.
    std::map<std::string, int> counts;
    std::map<std::string, std::vector<Value>> calls;
    std::optional<std::string> crash;
    std::optional<PlayerLook> looked;
    objc_object* presented = nullptr;
    std::vector<std::string> knownMethods;  // "C s:"; every one when empty
    Place reached{10, 20};
    ScreenBounds bounds{375, 812};
    double widerByWait = 0;  // the screen's width grows by this with each wait
    std::size_t eventsMet = 0;
    std::string refusal;  // when not empty, every driving operation refuses with it

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
    void ringer(double level) override;
    void volumeKey(bool louder) override;
    void brightness(double level) override;
    bool toggled(const std::string& name) override;
    std::optional<PlayerLook> player() override;
    void route(const std::string& name) override;
    void play(const Song& song) override;
    void playing(bool yes) override;
    void nothingPlaying() override;
    void playerCallbacks(bool otherThread) override;
    void toggle(const std::string& name, bool on) override;
    void activate(const std::string& label) override;
    Place reach(objc_object* view) override;
    std::optional<std::string> mistakeInMethod(const std::string& className,
                                               const std::string& selector) override;
    EventsInOrder inOrder(const std::vector<Event>& events) override;
    std::optional<std::string> notShown(const std::string& text) override;
    std::string elements() override { return "the elements\n"; }
    std::vector<std::string> journal(std::size_t lines) override;
    std::string hooks() override { return "the hooks\n"; }
    void watch(Watched kind, std::function<void(const std::string&)> tell) override;
    void interrupt(objc_object* view) override;
    void post(const std::string& notification) override;
    void postDarwin(const std::string& notification) override;
    ScreenBounds screenBounds() override { return bounds; }
    objc_object* presentation(objc_object*) override { return presented; }
    int postedCount(const std::string& notification) override;
    int darwinPostedCount(const std::string& notification) override;
    int calledCount(const std::string& className, const std::string& selector) override;
    std::optional<std::vector<Value>> lastCall(const std::string& className,
                                               const std::string& selector) override;
    bool hooked(const std::string& className, const std::string& selector) override;
    int hookCount() override { return counts["hooks"]; }
    int haptics(int style) override;
    int loggedCount(const std::string& text) override;
    int launchedCount(const std::string& bundle) override;
    int launchedSuspendedCount(const std::string& bundle) override;
    std::optional<std::string> crashed() override { return crash; }
    void clear() override;
    std::string tree(objc_object* root) override;
    void shot(const std::filesystem::path& file, double pixelsPerPoint) override;
    void film(const Film& film) override;

  private:
    template <typename... Parts>
    void note(const Parts&... parts);
};

}  // namespace simulator::scenario
