#include "simulator/window/window.hpp"

#include <SDL.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <sstream>

#include "simulator/hardware/configuration.hpp"
#include "simulator/live/pace.hpp"
#include "simulator/phone/screen_picture.hpp"
#include "simulator/phone/welcome.hpp"
#include "simulator/springboard/display/lock_screen.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/window/display.hpp"

namespace simulator::window {

namespace {

constexpr double finestDrawing = 2;  // pixels a point; more costs frames and shows nothing

class PhoneWindow;

struct Key {
    SDL_Keycode code;
    const char* name;
    const char* help;
    void (PhoneWindow::*press)();
};

class PhoneWindow {
  public:
    PhoneWindow(const live::LiveOptions& options, std::ostream& output)
        : display_("Vantori"),
          live_(options, isatty(STDIN_FILENO) != 0, output),
          hasConsole_(isatty(STDIN_FILENO) != 0),
          pictures_(options.pictures),
          input_(live_.completer()) {
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
        phone().shot(file, finestDrawing);
        input_.tell(file.string());
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
        return display_.fitOf(shown_).toPhone({static_cast<double>(x), static_cast<double>(y)});
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
    std::filesystem::path pictures_;
    live::ConsoleInput input_;
    rendering::Size shown_;
    ScreenPainter painter_;
    bool stale_ = true;  // the window shows something else than the screen as it was painted
    live::Pace pace_;
    bool open_ = true;
    std::optional<rendering::Point> finger_;       // where it is down
    std::optional<rendering::Point> drawnFinger_;  // where the window shows it
};

constexpr std::array<Key, 12> keys{{
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
    {SDLK_q, "q", "quit", &PhoneWindow::quit},
    {SDLK_QUESTION, "?", "these keys", &PhoneWindow::help},
}};

int PhoneWindow::run() {
    live_.console().take("boot");
    if (live_.console().status() != 0) return 1;
    shown_ = screen();
    display_.shape(shown_);
    help();
    if (welcomeIsShown()) input_.tell(howToLeaveTheWelcome);
    input_.prompt();
    tellTitle();
    pace_ = live::Pace();
    while (open_) {
        SDL_Event event;
        const int rest = static_cast<int>(std::ceil(pace_.rest() * 1000));
        if (SDL_WaitEventTimeout(&event, std::clamp(rest, 1, 16)) != 0) {
            do handle(event);
            while (open_ && SDL_PollEvent(&event) != 0);
        }
        if (hasConsole_) hearConsole();
        live_.hearNotifications();
        passTime();
        draw();
    }
    return 0;
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
    const double scale = std::clamp(display_.pixelsPerPoint(shown_), 0.1, finestDrawing);
    const rendering::Rows changed = painter_.paint(scale);
    if (painter_.size().width != shown_.width) {
        // It has turned: it is painted anew for the window's new shape.
        shown_ = painter_.size();
        lift(true);
        display_.shape(shown_);
        stale_ = true;
        return;
    }
    stale_ = stale_ || finger_ != drawnFinger_;
    if (changed.empty() && !stale_) return;
    const rendering::Surface& picture = painter_.picture();
    display_.show(picture, stale_ ? rendering::rowsOf(picture) : changed, shown_, finger_);
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

int runWindow(const live::LiveOptions& options, std::ostream& output) {
    return PhoneWindow(options, output).run();
}

}  // namespace simulator::window
