#include "simulator/window/window.hpp"

#include <SDL.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <new>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "simulator/hardware/configuration.hpp"
#include "simulator/live/own_process.hpp"
#include "simulator/live/pace.hpp"
#include "simulator/phone/screen_picture.hpp"
#include "simulator/phone/temporary_root.hpp"
#include "simulator/phone/welcome.hpp"
#include "simulator/springboard/display/lock_screen.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/window/display.hpp"

namespace simulator::window {

namespace {

// Pixels for a point.
constexpr double finestDrawing = 4;  // of a window as large as a large display
constexpr double pictureScale = 2;

// Where the window was last, as one process leaves it to the next.
class SharedPlace {
  public:
    SharedPlace()
        : memory_(mmap(nullptr, sizeof(WindowPlace), PROT_READ | PROT_WRITE,
                       MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
        if (memory_ == MAP_FAILED) throw std::runtime_error("no memory for the window");
        new (memory_) WindowPlace;
    }
    ~SharedPlace() { munmap(memory_, sizeof(WindowPlace)); }
    SharedPlace(const SharedPlace&) = delete;
    SharedPlace& operator=(const SharedPlace&) = delete;
    WindowPlace& get() const { return *static_cast<WindowPlace*>(memory_); }

  private:
    void* memory_;
};

class PhoneWindow;

struct Key {
    SDL_Keycode code;
    const char* name;
    const char* help;
    void (PhoneWindow::*press)();
};

class PhoneWindow {
  public:
    PhoneWindow(const WindowOptions& options, WindowPlace& place, std::ostream& output)
        : display_("Vantori"),
          live_(options.phone, isatty(STDIN_FILENO) != 0, output),
          hasConsole_(isatty(STDIN_FILENO) != 0),
          bare_(options.bare),
          pictures_(options.phone.pictures),
          input_(live_.completer()),
          place_(place) {
        display_.openAt(place_);
        live_.console().tellBy([this](const std::string& text) { input_.tell(text); });
    }

    int run();

    void home() { phone().home(); }
    void lock() { isLocked() ? phone().unlock() : phone().lock(); }
    void rotate() {
        // Through the ways that a phone is really held: portrait, then on either side.
        const long now = activeOrientation();
        phone().rotate(now == 1   ? Orientation::landscapeRight
                       : now == 3 ? Orientation::landscapeLeft
                                  : Orientation::portrait);
    }
    void changeAppearance() {
        constexpr long dark = 2;  // UIUserInterfaceStyle
        phone().appearance(simulator::screen().style != dark);
    }
    void changeSpeed() {
        pace_.setSlow(!pace_.isSlow());
        tellTitle();
    }
    void pause() {
        pace_.setPaused(!pace_.isPaused());
        tellTitle();
    }
    void step() {
        pace_.step();
        tellTitle();
    }
    void takePicture() {
        const std::filesystem::path file = freeName();
        phone().shot(file, pictureScale);
        input_.tell(file.string());
    }
    void restart() {
        status_ = live::startAnew;
        quit();
    }
    void quit() { open_ = false; }
    void louder() { phone().volumeKey(true); }
    void softer() { phone().volumeKey(false); }
    void help() { input_.tell(keysHelp()); }

  private:
    Phone& phone() { return live_.phone(); }
    rendering::Size screen() {
        const ScreenBounds bounds = phone().screenBounds();
        return {bounds.width, bounds.height};
    }
    rendering::Point place(int x, int y) const {
        return display_.fit().toPhone({static_cast<double>(x), static_cast<double>(y)});
    }
    std::optional<rendering::PhoneCase> around() const {
        if (bare_) return std::nullopt;
        // By the orientations' numbers: upright, upside down, its top to the left, to the right.
        constexpr std::array<int, 5> turns{0, 0, 2, 3, 1};
        return rendering::PhoneCase{configuration().homeButton,
                                    turns.at(static_cast<std::size_t>(activeOrientation()))};
    }
    void shape() {
        shown_ = screen();
        shownCase_ = around();
        display_.shape(shown_, shownCase_);
    }

    // Which phone it is, and how its time runs.
    void tellTitle() {
        std::string title =
            "Vantori: " + configuration().machine + ", " + configuration().systemVersion;
        if (pace_.isPaused()) title += " (paused)";
        if (pace_.isSlow()) title += " (slow motion)";
        display_.title(title);
    }

    void handle(const SDL_Event& event);
    void press(const SDL_Keysym& key);
    void finger(const SDL_Event& event);
    void lift(bool cancelled);
    void hearConsole();
    void passTime();
    void draw();
    std::filesystem::path freeName() const;

    // What the phone refuses is told; it stays as it was.
    template <class Work>
    void attempt(Work work) {
        try {
            work();
        } catch (const PhoneError& error) {
            input_.tell(error.what());
        }
    }

    Display display_;
    live::LivePhone live_;
    bool hasConsole_;
    bool bare_;
    std::filesystem::path pictures_;
    live::ConsoleInput input_;
    WindowPlace& place_;  // where the next window opens
    rendering::Size shown_;
    std::optional<rendering::PhoneCase> shownCase_;
    ScreenPainter painter_;
    bool stale_ = true;  // the window shows something else than the screen as it was painted
    live::Pace pace_;
    bool open_ = true;
    int status_ = 0;
    std::optional<rendering::Point> finger_;       // where it is down
    std::optional<rendering::Point> drawnFinger_;  // where the window shows it
};

constexpr std::array<Key, 13> keys{{
    {SDLK_h, "h", "home", &PhoneWindow::home},
    {SDLK_l, "l", "lock, unlock", &PhoneWindow::lock},
    {SDLK_r, "r", "turn the phone", &PhoneWindow::rotate},
    {SDLK_a, "a", "light or dark appearance", &PhoneWindow::changeAppearance},
    {SDLK_UP, "up", "louder", &PhoneWindow::louder},
    {SDLK_DOWN, "down", "softer", &PhoneWindow::softer},
    {SDLK_s, "s", "slow motion, ten times", &PhoneWindow::changeSpeed},
    {SDLK_SPACE, "space", "pause", &PhoneWindow::pause},
    {SDLK_PERIOD, ".", "one frame on", &PhoneWindow::step},
    {SDLK_p, "p", "a picture of the screen, into a file", &PhoneWindow::takePicture},
    {SDLK_x, "x", "SpringBoard anew, with what is on the phone", &PhoneWindow::restart},
    {SDLK_q, "q", "quit", &PhoneWindow::quit},
    {SDLK_QUESTION, "?", "these keys", &PhoneWindow::help},
}};

int PhoneWindow::run() {
    live_.console().take("boot");
    if (live_.console().status() != 0) return 1;
    shape();
    help();
    if (welcomeIsShown()) input_.tell(howToLeaveTheWelcome);
    input_.prompt();
    tellTitle();
    pace_ = live::Pace();
    while (open_ && !live::interrupted()) {
        // Not SDL_WaitEventTimeout: under X it tells itself of what it hears over a connection of its
        // own, and a window that closes meanwhile ends the process.
        SDL_Delay(static_cast<Uint32>(std::clamp(std::ceil(pace_.rest() * 1000), 1.0, 16.0)));
        for (SDL_Event event; open_ && SDL_PollEvent(&event) != 0;) handle(event);
        if (hasConsole_) hearConsole();
        live_.hearNotifications();
        passTime();
        draw();
    }
    place_ = display_.place();
    return status_;
}

void PhoneWindow::handle(const SDL_Event& event) {
    switch (event.type) {
        case SDL_QUIT:
            return quit();
        case SDL_KEYDOWN:
            if (event.key.repeat == 0) press(event.key.keysym);
            return;
        case SDL_WINDOWEVENT:
            if (event.window.event == SDL_WINDOWEVENT_LEAVE) lift(true);
            stale_ = true;
            return;
        default:
            return finger(event);
    }
}

void PhoneWindow::press(const SDL_Keysym& pressed) {
    // The question mark is a shifted key on most keyboards.
    const bool asks = pressed.sym == SDLK_SLASH && (pressed.mod & KMOD_SHIFT) != 0;
    const SDL_Keycode code = asks ? SDL_Keycode{SDLK_QUESTION} : pressed.sym;
    for (const Key& key : keys) {
        if (key.code == code) attempt([&] { (this->*key.press)(); });
    }
}

void PhoneWindow::finger(const SDL_Event& event) {
    if (event.type == SDL_MOUSEBUTTONDOWN && event.button.button == SDL_BUTTON_LEFT) {
        const rendering::Point at = place(event.button.x, event.button.y);
        if (finger_ || !contains(shown_, at)) return;
        finger_ = at;
        attempt([&] { phone().touchDown(at.x, at.y); });
    } else if (event.type == SDL_MOUSEMOTION && finger_) {
        const rendering::Point at = place(event.motion.x, event.motion.y);
        if (!contains(shown_, at)) return lift(true);
        finger_ = at;
        attempt([&] { phone().touchMove(at.x, at.y, 0); });
    } else if (event.type == SDL_MOUSEBUTTONUP && event.button.button == SDL_BUTTON_LEFT) {
        lift(false);
    }
}

void PhoneWindow::lift(bool cancelled) {
    if (!finger_) return;
    finger_.reset();
    attempt([&] { cancelled ? phone().touchCancel() : phone().touchUp(); });
}

void PhoneWindow::hearConsole() {
    while (live::waitForInput(input_.descriptor(), -1, 0).first && !input_.atEnd()) {
        input_.read();
        if (live::takeLines(input_, live_.console())) continue;
        // The end of the input leaves the window as it is.
        if (!input_.atEnd()) quit();
        hasConsole_ = false;
        return;
    }
}

void PhoneWindow::passTime() {
    for (int left = pace_.frames(); left > 0; --left)
        attempt([&] { phone().wait(pace_.frameTime()); });
}

void PhoneWindow::draw() {
    const double scale = std::clamp(display_.pixelsPerPoint(), 0.1, finestDrawing);
    const rendering::Rows changed = painter_.paint(scale);
    if (painter_.size().width != shown_.width || around() != shownCase_) {
        // It has turned: it is painted anew for the window's new shape.
        lift(true);
        shape();
        stale_ = true;
        return;
    }
    stale_ = stale_ || finger_ != drawnFinger_;
    if (changed.empty() && !stale_) return;
    const rendering::Surface& picture = painter_.picture();
    display_.show(picture, stale_ ? rendering::rowsOf(picture) : changed, finger_);
    drawnFinger_ = finger_;
    stale_ = false;
}

std::filesystem::path PhoneWindow::freeName() const {
    for (int number = 1;; ++number) {
        std::filesystem::path file = pictures_ / ("vantori-" + std::to_string(number) + ".png");
        if (!std::filesystem::exists(file)) return file;
    }
}

}  // namespace

std::string keysHelp() {
    std::ostringstream text;
    text << "The mouse is the finger. Keys:\n";
    for (const Key& key : keys) text << "  " << key.name << "  " << key.help << '\n';
    return text.str();
}

int runWindow(const WindowOptions& options, std::ostream& output) {
    const TemporaryRoot root(options.phone.root);
    WindowOptions next = options;
    next.phone.root = root.path();
    const SharedPlace place;
    live::hearSignals();
    for (;;) {
        const int status =
            live::runApart([&] { return PhoneWindow(next, place.get(), output).run(); });
        if (live::interrupted()) return 0;
        if (WIFSIGNALED(status))
            throw std::runtime_error(std::string("the phone's process died: ") +
                                     strsignal(WTERMSIG(status)));
        if (WEXITSTATUS(status) != live::startAnew) return WEXITSTATUS(status);
        // These were for the first one: the settings are in its file by now.
        next.phone.settings.clear();
        next.phone.recording.clear();
    }
}

}  // namespace simulator::window
