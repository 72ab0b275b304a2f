#include "simulator/window/display.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <string_view>

namespace simulator::window {

namespace {

constexpr const char* noDisplay =
    "there is no display for a window (`vantori-simulator demo --out DIR` draws without one)";

[[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error(what + ": " + SDL_GetError());
}

rendering::Size usableDisplay() {
    SDL_Rect area{};
    if (SDL_GetDisplayUsableBounds(0, &area) != 0) return {};
    return {static_cast<double>(area.w), static_cast<double>(area.h)};
}

int whole(double length) { return static_cast<int>(std::lround(length)); }

constexpr double fingerSize = 44;    // points
constexpr Uint8 seenThrough = 0x90;  // of 0xff

rendering::Surface fingerPicture(int width) {
    rendering::Surface disc(width, width);
    const rendering::Context context = rendering::contextOf(disc);
    const double middle = width / 2.0;
    cairo_arc(context.get(), middle, middle, middle * 0.92, 0, 2 * std::numbers::pi);
    rendering::setSource(context.get(), {0.47, 0.63, 1, 1});
    cairo_fill_preserve(context.get());
    rendering::setSource(context.get(), {1, 1, 1, 1});
    cairo_set_line_width(context.get(), width * 0.05);
    cairo_stroke(context.get());
    return disc;
}

void fill(SDL_Texture* texture, const rendering::Surface& picture, rendering::Rows rows) {
    if (rows.empty()) return;
    cairo_surface_flush(picture.get());
    const int stride = cairo_image_surface_get_stride(picture.get());
    const SDL_Rect band{0, rows.first, picture.width(), rows.count()};
    SDL_UpdateTexture(texture, &band,
                      cairo_image_surface_get_data(picture.get()) + rows.first * stride, stride);
}

bool differ(rendering::Size a, rendering::Size b) {
    return a.width != b.width || a.height != b.height;
}

constexpr rendering::Colour ground{0.15, 0.155, 0.17, 1};

void clear(SDL_Renderer* renderer, rendering::Colour colour) {
    const auto part = [](double share) { return static_cast<Uint8>(std::lround(share * 255)); };
    SDL_SetRenderDrawColor(renderer, part(colour.red), part(colour.green), part(colour.blue), 255);
    SDL_RenderClear(renderer);
}

}  // namespace

Display::Display(const std::string& title) : title_(title) {
    SDL_SetMainReady();
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "linear");
    // The click that gives the window the keys is a finger too.
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    if (SDL_Init(SDL_INIT_VIDEO) != 0) fail(noDisplay);
    // Without a desktop SDL falls back to a window that nobody sees.
    if (std::string_view(SDL_GetCurrentVideoDriver()) != "offscreen") return;
    SDL_Quit();
    throw std::runtime_error(noDisplay);
}

Display::~Display() {
    finger_.reset();
    body_.reset();
    texture_.reset();
    renderer_.reset();
    window_.reset();
    SDL_Quit();
}

void Display::openWindow(rendering::Size size) {
    window_.reset(SDL_CreateWindow(title_.c_str(), place_.x, place_.y, whole(size.width),
                                   whole(size.height),
                                   SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI));
    if (!window_) fail("no window could be opened");
    renderer_.reset(SDL_CreateRenderer(window_.get(), -1, 0));
    if (!renderer_) fail("nothing can be drawn in the window");
}

void Display::shape(rendering::Size screen, const std::optional<rendering::PhoneCase>& around) {
    if (!differ(screen, screen_) && around == case_) return;
    screen_ = screen;
    case_ = around;
    body_.reset();
    const rendering::Size wanted = windowSize(screen, usableDisplay(), room());
    if (!window_) return openWindow(wanted);
    if (differ({std::round(wanted.width), std::round(wanted.height)}, size()))
        SDL_SetWindowSize(window_.get(), whole(wanted.width), whole(wanted.height));
}

rendering::Size Display::room() const {
    return case_ ? rendering::roomAround(*case_) : rendering::Size{};
}

WindowPlace Display::place() const {
    WindowPlace place;
    if (window_) SDL_GetWindowPosition(window_.get(), &place.x, &place.y);
    return place;
}

rendering::Size Display::size() const {
    int width = 0, height = 0;
    SDL_GetWindowSize(window_.get(), &width, &height);
    return {static_cast<double>(width), static_cast<double>(height)};
}

double Display::density() const {
    int pixels = 0;
    if (SDL_GetRendererOutputSize(renderer_.get(), &pixels, nullptr) != 0) return 1;
    const double width = size().width;
    return width > 0 ? pixels / width : 1;
}

Fit Display::fit() const { return window::fit(screen_, size(), room()); }

double Display::pixelsPerPoint() const { return fit().scale * density(); }

SDL_Point Display::pixelOf(rendering::Point place) const {
    const Fit lies = fit();
    const double pixels = density();
    return {whole((lies.origin.x + place.x * lies.scale) * pixels),
            whole((lies.origin.y + place.y * lies.scale) * pixels)};
}

void Display::title(const std::string& text) { SDL_SetWindowTitle(window_.get(), text.c_str()); }

Display::Texture Display::textureOf(const rendering::Surface& picture, SDL_TextureAccess access,
                                    SDL_BlendMode mode) {
    Texture texture(SDL_CreateTexture(renderer_.get(), SDL_PIXELFORMAT_ARGB8888, access,
                                      picture.width(), picture.height()));
    if (!texture) fail("no picture of that size can be shown");
    SDL_SetTextureBlendMode(texture.get(), mode);
    return texture;
}

void Display::show(const rendering::Surface& picture, rendering::Rows changed,
                   std::optional<rendering::Point> finger) {
    const int width = picture.width(), height = picture.height();
    if (width != textureWidth_ || height != textureHeight_ || !texture_) {
        texture_ = textureOf(picture, SDL_TEXTUREACCESS_STREAMING, SDL_BLENDMODE_NONE);
        textureWidth_ = width;
        textureHeight_ = height;
        changed = rendering::rowsOf(picture);
    }
    fill(texture_.get(), picture, changed);
    const SDL_Point from = pixelOf({0, 0});
    const SDL_Point to = pixelOf({screen_.width, screen_.height});
    SDL_Rect target{from.x, from.y, to.x - from.x, to.y - from.y};
    // A picture that was painted for this size is shown as it is, a pixel for a pixel.
    if (std::abs(target.w - width) <= 1 && std::abs(target.h - height) <= 1) {
        target.w = width;
        target.h = height;
    }
    clear(renderer_.get(), ground);
    SDL_RenderCopy(renderer_.get(), texture_.get(), nullptr, &target);
    if (case_) drawCase();
    if (finger) drawFinger(*finger);
    SDL_RenderPresent(renderer_.get());
}

// Over the screen, whose corners it covers; drawn anew for each size of the window.
void Display::drawCase() {
    const double scale = pixelsPerPoint();
    const rendering::Size around = room();
    if (scale != bodyScale_ || !body_) {
        const rendering::Surface picture = rendering::casePicture(*case_, screen_, scale, ground);
        body_ = textureOf(picture, SDL_TEXTUREACCESS_STATIC, SDL_BLENDMODE_BLEND);
        fill(body_.get(), picture, rendering::rowsOf(picture));
        bodyScale_ = scale;
    }
    const SDL_Point from = pixelOf({-around.width, -around.height});
    SDL_Rect target{from.x, from.y, 0, 0};
    SDL_QueryTexture(body_.get(), nullptr, nullptr, &target.w, &target.h);
    SDL_RenderCopy(renderer_.get(), body_.get(), nullptr, &target);
}

// Drawn anew for each size of the window, so that it is crisp.
void Display::drawFinger(rendering::Point place) {
    const int width = std::max(1, whole(fingerSize * pixelsPerPoint()));
    if (width != fingerWidth_ || !finger_) {
        const rendering::Surface disc = fingerPicture(width);
        finger_ = textureOf(disc, SDL_TEXTUREACCESS_STATIC, SDL_BLENDMODE_BLEND);
        SDL_SetTextureAlphaMod(finger_.get(), seenThrough);
        fill(finger_.get(), disc, rendering::rowsOf(disc));
        fingerWidth_ = width;
    }
    const SDL_Point middle = pixelOf(place);
    const SDL_Rect target{middle.x - width / 2, middle.y - width / 2, width, width};
    SDL_RenderCopy(renderer_.get(), finger_.get(), nullptr, &target);
}

}  // namespace simulator::window
