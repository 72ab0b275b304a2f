#include "pages/player_commands.hpp"

#include "platform/form.hpp"
#include "platform/now_playing.hpp"

namespace vantori::player {

namespace {

using namespace platform;

struct CommandFunctions {
    void (*changeTrack)(SBMediaController, int delta);
    void (*play)(SBMediaController);
    void (*pause)(SBMediaController);
};

using ChangeTrackFrom =
    InstanceMethod<"SBMediaController", "changeTrack:eventSource:", bool(int, long)>;
using PlayFrom = InstanceMethod<"SBMediaController", "playForEventSource:", bool(long)>;
using PauseFrom = InstanceMethod<"SBMediaController", "pauseForEventSource:", bool(long)>;

constexpr long noEventSource = 0;

constexpr CommandFunctions withEventSource{
    [](SBMediaController media, int delta) { ChangeTrackFrom::send(media, delta, noEventSource); },
    [](SBMediaController media) { PlayFrom::send(media, noEventSource); },
    [](SBMediaController media) { PauseFrom::send(media, noEventSource); },
};

// iOS 11.
using ChangeTrack = InstanceMethod<"SBMediaController", "changeTrack:", bool(int)>;
using Play = InstanceMethod<"SBMediaController", "play", bool()>;
using Pause = InstanceMethod<"SBMediaController", "pause", bool()>;

constexpr CommandFunctions withoutEventSource{
    [](SBMediaController media, int delta) { ChangeTrack::send(media, delta); },
    [](SBMediaController media) { Play::send(media); },
    [](SBMediaController media) { Pause::send(media); },
};

using Commands =
    Feature<"player commands",
            Form<"with an event source", withEventSource, ChangeTrackFrom, PlayFrom, PauseFrom>,
            Form<"without an event source", withoutEventSource, ChangeTrack, Play, Pause>>;

}  // namespace

void changeTrack(int delta) {
    if (auto* form = Commands::taken()) form->changeTrack(SBMediaController::shared(), delta);
}

void play() {
    if (auto* form = Commands::taken()) form->play(SBMediaController::shared());
}

void pause() {
    if (auto* form = Commands::taken()) form->pause(SBMediaController::shared());
}

}  // namespace vantori::player
