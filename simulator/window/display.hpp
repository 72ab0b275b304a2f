// A window of the desktop that shows one picture, as large as it fits. Throws std::runtime_error
// when there is no desktop.
#pragma once

#include <SDL.h>

#include <memory>
#include <optional>
#include <string>

#include "simulator/rendering/kept_screen.hpp"
#include "simulator/rendering/phone_case.hpp"
#include "simulator/rendering/surface.hpp"
#include "simulator/window/fit.hpp"

namespace simulator::window {

struct WindowPlace {
    int x = SDL_WINDOWPOS_CENTERED;
    int y = SDL_WINDOWPOS_CENTERED;
};

class Display {
  public:
    explicit Display(const std::string& title);
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    // Opens the window, or changes its shape when the phone has turned. Without a case there is only
    // its screen.
    void shape(rendering::Size screen, const std::optional<rendering::PhoneCase>& around);
    // Where the screen lies, in the units in which the mouse is reported.
    Fit fit() const;
    // Pixels of the display for a point of the screen.
    double pixelsPerPoint() const;
    // `changed` are the rows that differ from the picture that was shown before; with a finger at that
    // point of the screen.
    void show(const rendering::Surface& picture, rendering::Rows changed,
              std::optional<rendering::Point> finger);
    void title(const std::string& text);
    // Where the window is on the desktop; it opens where it is told, if it is.
    WindowPlace place() const;
    void openAt(WindowPlace place) { place_ = place; }

  private:
    struct Closer {
        void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
        void operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
        void operator()(SDL_Texture* texture) const { SDL_DestroyTexture(texture); }
    };

    using Texture = std::unique_ptr<SDL_Texture, Closer>;

    Texture textureOf(const rendering::Surface& picture, SDL_TextureAccess access,
                      SDL_BlendMode mode);
    void drawCase();
    void drawFinger(rendering::Point place);
    rendering::Size room() const;
    // Pixels of the window, of a place on the screen.
    SDL_Point pixelOf(rendering::Point place) const;
    void openWindow(rendering::Size size);
    rendering::Size size() const;
    double density() const;

    std::string title_;
    rendering::Size screen_;
    std::optional<rendering::PhoneCase> case_;
    WindowPlace place_;
    std::unique_ptr<SDL_Window, Closer> window_;
    std::unique_ptr<SDL_Renderer, Closer> renderer_;
    Texture texture_;
    Texture finger_;
    int fingerWidth_ = 0;  // pixels
    Texture body_;
    double bodyScale_ = 0;  // pixels for a point
    int textureWidth_ = 0;
    int textureHeight_ = 0;
};

}  // namespace simulator::window
