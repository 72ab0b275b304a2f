// The simulated phone behind the face that scenarios, the console and the window drive.
#include "simulator/scenario/phone.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

#include "simulator/foundation/bundles.hpp"
#include "simulator/foundation/device_root.hpp"
#include "simulator/foundation/language.hpp"
#include "simulator/foundation/notification_counts.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/foundation/property_list.hpp"
#include "simulator/hardware/configuration.hpp"
#include "simulator/hardware/device_table.hpp"
#include "simulator/hardware/display.hpp"
#include "simulator/hardware/uikit_bridge.hpp"
#include "simulator/phone/elements.hpp"
#include "simulator/phone/event_order.hpp"
#include "simulator/phone/journal_values.hpp"
#include "simulator/phone/known_methods.hpp"
#include "simulator/phone/last_second.hpp"
#include "simulator/phone/launch.hpp"
#include "simulator/phone/on_screen.hpp"
#include "simulator/phone/screen_picture.hpp"
#include "simulator/phone/soundness.hpp"
#include "simulator/phone/temporary_root.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/crash.hpp"
#include "simulator/runtime/darwin.hpp"
#include "simulator/runtime/history.hpp"
#include "simulator/runtime/hooking.hpp"
#include "simulator/runtime/missing.hpp"
#include "simulator/runtime/presence.hpp"
#include "simulator/runtime/system_log.hpp"
#include "simulator/services/brightness.hpp"
#include "simulator/services/media_player.hpp"
#include "simulator/services/now_playing.hpp"
#include "simulator/services/system_settings.hpp"
#include "simulator/services/volume.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/springboard/applications/processes.hpp"
#include "simulator/springboard/applications/recents.hpp"
#include "simulator/springboard/control_center/control_center.hpp"
#include "simulator/springboard/display/interface_style.hpp"
#include "simulator/springboard/display/lock_screen.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/springboard/display/time_of_day.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/springboard/gestures/system_gestures.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

constexpr const char* settingsDomain = "com.ferolin.vantoripb";

int knownRelease(const std::string& version) {
    if (const auto release = releaseOf(version)) return *release;
    throw PhoneError("no real system " + version + " is known: 11.0 to 14.8 are");
}

GestureStage stageOf(PullPhase phase) {
    switch (phase) {
        case PullPhase::began:
            return UIGestureRecognizer::began;
        case PullPhase::updated:
            return UIGestureRecognizer::changed;
        case PullPhase::ended:
            return UIGestureRecognizer::ended;
        default:
            return UIGestureRecognizer::cancelled;
    }
}

std::set<Happening> watched(Phone::Watched kind) {
    switch (kind) {
        case Phone::Watched::calls:
            return {Happening::called};
        case Phone::Watched::log:
            return {Happening::logged};
        case Phone::Watched::notifications:
            break;
    }
    return {Happening::posted, Happening::darwinPosted};
}

int narrow(long count) { return static_cast<int>(count); }

class SimulatedPhone final : public Phone {
  public:
    explicit SimulatedPhone(const PhoneOptions& options) : root_(options.root) {
        DeviceRoot::shared().set(root_.path());
        configuration().real = options.real;
        prepareProcess();
    }

    void device(const std::string& identifier) override {
        requireOff();
        const DeviceModel* model = findDevice(identifier);
        if (!model) throw PhoneError("no such device: " + identifier);
        configuration().machine = identifier;
        if (!ownScreen_) {
            configuration().screen = {model->width, model->height};
            configuration().scale = model->scale;
        }
        if (!ownHomeButton_) configuration().homeButton = model->homeButton;
    }
    void screen(double width, double height, double scale) override {
        requireOff();
        if (width < 100 || height < 100 || width > 4000 || height > 4000 || scale < 1 ||
            scale > 4) {
            throw PhoneError("no such screen: 100 to 4000 points each way, scale 1 to 4");
        }
        configuration().screen = {width, height};
        configuration().scale = scale;
        ownScreen_ = true;
    }
    void system(const std::string& version) override {
        requireOff();
        double number = 0;
        auto [end, error] =
            std::from_chars(version.data(), version.data() + version.size(), number);
        if (error != std::errc() || number <= 0) throw PhoneError("no such system: " + version);
        configuration().systemVersion = version;
    }
    void real() override {
        requireOff();
        configuration().real = true;
    }
    void homeButton(bool present) override {
        requireOff();
        configuration().homeButton = present;
        ownHomeButton_ = true;
    }
    void missingClass(const std::string& name) override {
        requireOff();
        setMissing(name);
    }
    void missingBundle(const std::string& path) override { setMissingBundle(path); }
    void missingMethod(const std::string& className, const std::string& selector) override {
        requireOff();
        setMissingMethod(className, selector);
    }
    void missingFile(const std::string& path) override {
        requireOff();
        configuration().missingFiles.push_back(path);
    }
    void dock(int icons) override {
        requireOff();
        int most = narrow(static_cast<long>(installedApplications().size()));
        if (icons < 0 || icons > most) {
            throw PhoneError("the dock holds 0 to " + std::to_string(most) + " icons");
        }
        configuration().dockIcons = icons;
    }
    void floatingDock() override {
        requireOff();
        configuration().floatingDock = true;
    }
    void sceneAfter(const std::string& bundle, int creation) override {
        requireOff();
        if (!isInstalled(bundle)) throw PhoneError("not installed: " + bundle);
        if (creation < 1 || creation > latestScene) {
            throw PhoneError("a scene comes with creation 1 to " + std::to_string(latestScene));
        }
        setSceneAfter(bundle, creation);
    }
    void connectivityFails(int creations) override {
        configuration().connectivityFailures = creations;
    }
    void withoutExtension() override {
        requireOff();
        extension_ = Extension::leaveOut;
    }
    void boot() override {
        requireOff();
        if (configuration().real) makeReal(knownRelease(configuration().systemVersion));
        on_ = true;
        run([&] { launchPhone(extension_); });
    }

    void setting(const std::string& key, const std::optional<nlohmann::json>& value) override {
        written([&] { writePreference(settingsDomain, key, value); });
    }
    void plist(const std::string& path, const nlohmann::json& contents) override {
        written([&] {
            store(path, encodePropertyList(propertyListObject(contents), PropertyListFormat::xml));
        });
    }
    void file(const std::string& path, const std::string& bytes) override { store(path, bytes); }
    void remove(const std::string& path) override {
        std::error_code error;
        std::filesystem::path place = DeviceRoot::shared().locate(path);
        if (place == DeviceRoot::shared().path()) throw PhoneError("not the whole phone");
        std::filesystem::remove_all(place, error);
    }
    void connectivityButton(double width, double height) override {
        configuration().connectivityButton = {width, height};
    }
    void recents(const std::vector<std::string>& bundles) override {
        configuration().recents = bundles;
        if (on_) run([] { setRecents(configuration().recents); });
    }

    void flashlightAvailable(bool available) override {
        run([&] { setFlashlightAvailable(available); });
    }

    void wait(double seconds) override {
        requireOn();
        if (!(seconds >= 0)) throw PhoneError("time does not run back");
        pass(seconds);
    }
    void open(const std::string& bundle) override {
        requireOn();
        if (!isInstalled(bundle)) throw PhoneError("not installed: " + bundle);
        run([&] {
            openApplication(bundle);
            refreshWindows();
            Clock::shared().advance(sceneTime);
        });
    }
    void home() override {
        requireOn();
        run([&] {
            dismissControlCenter(true);
            goHome();
            refreshWindows();
            Clock::shared().advance(sceneTime);
        });
    }
    void lock() override {
        requireOn();
        requireClass(static_cast<bool>(lockScreenManager()), "SBLockScreenManager");
        run([&] {
            lockScreenManager().send<"lockUIFromSource:withOptions:">(lockButton, NSDictionary());
        });
    }
    void unlock() override {
        requireOn();
        requireClass(static_cast<bool>(lockScreenManager()), "SBLockScreenManager");
        run([&] {
            lockScreenManager().send<"unlockUIFromSource:withOptions:">(lockButton, NSDictionary());
        });
    }
    void rotate(Orientation orientation) override {
        requireOn();
        run([&] { turnPhone(static_cast<long>(orientation)); });
    }
    void appearance(bool dark) override {
        requireOn();
        run([&] { turnStyle(dark ? 2 : 1); });
    }

    void touchDown(double x, double y) override {
        requireOn();
        if (touching_) throw PhoneError("the finger is down already");
        run([&] {
            touching_ = true;
            finger_ = {x, y};
            gestures_.down(finger_);
            fingerDown(onDisplay(finger_));
        });
    }
    void touchMove(double x, double y, double seconds) override {
        requireTouch();
        CGPoint from = finger_;
        long steps = std::max(1L, std::lround(seconds / Clock::frame));
        run([&] {
            for (long i = 1; i <= steps; ++i) {
                if (seconds > 0) Clock::shared().advance(seconds / static_cast<double>(steps));
                double part = static_cast<double>(i) / static_cast<double>(steps);
                moveFinger({from.x + (x - from.x) * part, from.y + (y - from.y) * part});
            }
        });
    }
    void touchUp() override {
        requireTouch();
        run([&] {
            bool mine = gestures_.up(Clock::shared().now());
            touching_ = taken_ = false;
            if (!mine) fingerUp(onDisplay(finger_));
        });
    }
    void touchCancel() override {
        requireTouch();
        run([&] {
            bool mine = gestures_.cancelled();
            touching_ = taken_ = false;
            if (mine) soundness_.takenBack();
            if (!mine) fingerCancelled();
        });
    }

    void grabber(PullPhase phase, double edge, double distance, double velocity) override {
        requireOn();
        soundness_.reported(Soundness::Reporter::switcher, stageOf(phase));
        report("SBFluidSwitcherGestureManager",
               [&] { return reportSwitcherPull({stageOf(phase), edge, distance, velocity}); });
    }
    void controlCenterGrabber(PullPhase phase, double edge, double distance,
                              double velocity) override {
        requireOn();
        soundness_.reported(Soundness::Reporter::controlCenter, stageOf(phase));
        report("SBControlCenterController",
               [&] { return reportControlCenterPull({stageOf(phase), edge, distance, velocity}); });
    }
    void statusBar(PullPhase phase, double x, double y, double velocity) override {
        requireOn();
        soundness_.reported(Soundness::Reporter::statusBar, stageOf(phase));
        report("SBControlCenterController",
               [&] { return reportStatusBarPull(stageOf(phase), {x, y}, CGPoint{0, velocity}); });
    }
    void pull(const EdgePull& pull) override {
        requireOn();
        run([&] { pullFromEdge(pull.edge, pull.distance, pull.seconds, pull.flick.value_or(0)); });
    }

    void play(const Song& song) override {
        requireOn();
        run([&] {
            MediaPlayer::shared().play(song.bundle,
                                       {song.title, song.artist, song.album, song.artworkId});
        });
    }
    void playing(bool yes) override {
        requireOn();
        run([&] { MediaPlayer::shared().setPlaying(yes); });
    }
    void nothingPlaying() override {
        requireOn();
        run([] { MediaPlayer::shared().unload(); });
    }
    void playerCallbacks(bool otherThread) override { setNowPlayingOnOtherThread(otherThread); }
    void toggle(const std::string& name, bool on) override {
        requireOn();
        auto setting = settingNamed(name);
        if (!setting) throw PhoneError("no such setting: " + name);
        run([&] { setOn(*setting, on); });
    }
    bool toggled(const std::string& name) override {
        auto setting = settingNamed(name);
        if (!setting) throw PhoneError("no such setting: " + name);
        return isOn(*setting);
    }
    std::optional<PlayerLook> player() override {
        const Track* track = MediaPlayer::shared().track();
        if (!track) return std::nullopt;
        return PlayerLook{track->title, MediaPlayer::shared().isPlaying()};
    }
    void volume(double level) override {
        requireLevel(level);
        run([&] { setMediaVolume(level); });
    }
    void ringer(double level) override {
        requireLevel(level);
        run([&] { setRingerVolume(level); });
    }
    void volumeKey(bool louder) override {
        requireOn();
        run([&] { pressVolumeKey(louder); });
    }
    void brightness(double level) override {
        requireLevel(level);
        run([&] { setBrightness(level); });
    }
    void route(const std::string& name) override {
        requireOn();
        bool known = false;
        run([&] { known = setAudioRoute(name); });
        if (!known) throw PhoneError("no such route: " + name);
    }

    void keepLastSecond() override {
        Clock::shared().everyFrame([this] {
            if (on_) lastSecond_.frame();
        });
    }
    void filmOfLastSecond(const std::filesystem::path& file) override {
        requireOn();
        saved([&] { return lastSecond_.save(file); });
    }

    std::string elements() override {
        requireOn();
        AutoreleasePool pool;
        return elementList();
    }
    void activate(const std::string& label) override {
        constexpr double tapSeconds = 0.05;
        requireOn();
        CGPoint place{};
        {
            AutoreleasePool pool;
            const Element element = elementLabelled(label);
            bool done = false;
            run([&] { done = simulator::activate(element); });
            if (done) return;
            place = activationPoint(element);
        }
        touchDown(place.x, place.y);
        wait(tapSeconds);
        touchUp();
    }
    void language(const std::string& code) override {
        requireOff();
        if (!isLanguage(code)) throw PhoneError("no such language: " + code);
        configuration().language = code;
    }

    void date(double seconds) override {
        Clock::shared().setDate(seconds);
        if (on_) run([] { clockWasSet(); });
    }

    void interrupt(objc_object* view) override {
        run([&] { simulator::interrupt(Object(view)); });
    }
    void post(const std::string& notification) override {
        requireOn();
        soundness_.posted(notification);
        run([&] {
            NSNotificationCenter::defaultCenter().post(NSString::from(notification.c_str()));
        });
    }
    void postDarwin(const std::string& notification) override {
        requireOn();
        soundness_.announced();
        simulator::postDarwin(notification);
    }

    ScreenBounds screenBounds() override {
        CGSize size = on_ ? simulator::screen().bounds().size : configuration().screen;
        return {size.width, size.height};
    }
    objc_object* presentation(objc_object* view) override {
        return simulator::presentation(Object(view)).get();
    }
    int postedCount(const std::string& notification) override {
        return narrow(notificationPosts(notification));
    }
    int darwinPostedCount(const std::string& notification) override {
        return narrow(darwinPosts(notification));
    }
    int calledCount(const std::string& className, const std::string& selector) override {
        return narrow(Journal::count(className, selector));
    }
    std::optional<std::vector<scenario::Value>> lastCall(const std::string& className,
                                                         const std::string& selector) override {
        auto arguments = Journal::last(className, selector);
        if (!arguments) return std::nullopt;
        return journalValues(*arguments);
    }
    Place reach(objc_object* view) override {
        requireOn();
        AutoreleasePool pool;
        const CGPoint place = middleWithinReach(Object(view));
        return {place.x, place.y};
    }
    std::optional<std::string> mistakeInMethod(const std::string& className,
                                               const std::string& selector) override {
        if (!on_) return std::nullopt;
        return mistakeInMethodName(className, selector);
    }
    EventsInOrder inOrder(const std::vector<Event>& events) override {
        return eventsInOrder(events);
    }
    std::optional<std::string> notShown(const std::string& text) override {
        requireOn();
        return textNotShown(text);
    }
    bool hooked(const std::string& className, const std::string& selector) override {
        return wasHooked(className, selector);
    }
    int hookCount() override { return narrow(static_cast<long>(handovers().size())); }
    int haptics(int style) override { return narrow(hapticsGiven(style)); }
    int loggedCount(const std::string& text) override {
        return narrow(SystemLog::shared().count(text));
    }
    int launchedCount(const std::string& bundle) override {
        return narrow(launches(bundle, false));
    }
    int launchedSuspendedCount(const std::string& bundle) override {
        return narrow(launches(bundle, true));
    }
    std::optional<std::string> crashed() override { return crash(); }
    std::optional<std::string> wrong() override {
        requireOn();
        if (touching_) throw PhoneError("the finger is down");
        if (const auto reason = soundness_.unsettled()) throw PhoneError(*reason);
        AutoreleasePool pool;
        return soundness_.fault();
    }
    void clear() override {
        History::shared().clear();
        clearNotificationPosts();
        clearDarwinPosts();
        Journal::clear();
        SystemLog::shared().clear();
        clearHaptics();
        clearLaunches();
        forgetCrash();
    }
    std::string tree(objc_object* root) override {
        if (root && !Object(root).isKindOfClass(classOf<UIView>()))
            throw PhoneError("that is no view");
        return treeOnScreen(UIView(root));
    }
    std::vector<std::string> journal(std::size_t lines) override {
        return History::shared().latest(lines);
    }
    std::string hooks() override {
        AutoreleasePool pool;
        // The extension knows more of its hooks than was handed over.
        const Class report = objc_getClass("VNTHookReport");
        if (!report) return hookList();
        return Object(classObject(report)).send<"text", NSString>().utf8();
    }
    void watch(Watched kind, std::function<void(const std::string&)> tell) override {
        History::shared().unwatch(std::exchange(watching_, 0));
        if (!tell) return;
        watching_ = History::shared().watch(
            watched(kind),
            [tell = std::move(tell)](Happening, const std::string& line) { tell(line); });
    }
    void shot(const std::filesystem::path& file, double pixelsPerPoint) override {
        requireOn();
        if (!(pixelsPerPoint >= 1 && pixelsPerPoint <= 4)) {
            throw PhoneError("a picture has 1 to 4 pixels for a point");
        }
        saved([&] { return saveScreen(file, pixelsPerPoint); });
    }
    void film(const Film& film) override {
        requireOn();
        if (film.frames < 1) throw PhoneError("a film has one frame at least");
        saved([&] {
            FilmStrip strip;
            for (int i = 0; i < film.frames; ++i) {
                strip.add();
                bool last = i + 1 == film.frames;
                pass(last && film.frames > 1 ? 0 : film.seconds / std::max(film.frames - 1, 1));
            }
            return strip.save(film.file);
        });
    }

  private:
    static constexpr int latestScene = 1000;
    static constexpr double sceneTime = 0.5;  // seconds in which an application opens or closes

    void requireOff() const {
        if (on_) throw PhoneError("the phone is on already");
    }
    void requireOn() const {
        if (!on_) throw PhoneError("the phone is off: boot it first");
    }
    void requireLevel(double level) const {
        requireOn();
        if (!(level >= 0 && level <= 1)) throw PhoneError("a level is from 0 to 1");
    }
    void requireTouch() const {
        requireOn();
        if (!touching_) throw PhoneError("no finger is down");
    }
    static void requireClass(bool exists, const char* name) {
        if (!exists) throw PhoneError(std::string("not on this phone: ") + name);
    }

    // Runs something on the main thread; what escapes from it is the phone's crash.
    template <class Work>
    void run(Work work) {
        AutoreleasePool pool;
        if (!guarded(work)) throw PhoneError("the phone crashed: " + crash().value_or(""));
    }
    void pass(double seconds) {
        run([&] { Clock::shared().advance(seconds); });
    }
    template <class Work>
    void report(const char* className, Work work) {
        bool heard = false;
        run([&] { heard = work(); });
        requireClass(heard, className);
    }
    template <class Work>
    static void written(Work work) {
        AutoreleasePool pool;
        try {
            work();
        } catch (const std::invalid_argument& error) {
            throw PhoneError(error.what());
        }
    }
    template <class Work>
    static void saved(Work work) {
        if (std::optional<std::string> problem = work()) throw PhoneError(*problem);
    }
    static void store(const std::string& path, const std::string& bytes) {
        if (!writeFile(DeviceRoot::shared().locate(path), bytes)) {
            throw PhoneError("cannot write " + path);
        }
    }

    static CGPoint onDisplay(CGPoint place) { return toDisplay(place, activeOrientation()); }

    void moveFinger(CGPoint place) {
        finger_ = place;
        bool mine = gestures_.moved(place, Clock::shared().now());
        if (mine && !taken_) fingerCancelled();
        taken_ = mine;
        if (!mine) fingerMoved(onDisplay(place));
    }

    TemporaryRoot root_;
    Extension extension_ = Extension::load;
    bool on_ = false;
    bool ownScreen_ = false;      // said by the scenario, so the model has no say
    bool ownHomeButton_ = false;  // likewise
    bool touching_ = false;
    bool taken_ = false;  // the system has the finger
    CGPoint finger_{};
    SystemGestures gestures_;
    Soundness soundness_;
    LastSecond lastSecond_;
    History::Ticket watching_ = 0;  // for the console
};

}  // namespace

std::unique_ptr<Phone> makePhone(const PhoneOptions& options) {
    return std::make_unique<SimulatedPhone>(options);
}

}  // namespace simulator
