// What plays on the phone, whoever plays it: the application, its queue, the track, and whether it
// runs. Tracks with a length end after it, in the phone's own time, and the next one begins; the
// queue goes round. Lengths and positions are seconds.
//
// Changes are told to the listeners at once when they come from outside (another application, a
// headset), and in the next turn of the main queue when a command made them, as the commands of a
// phone go to another process first.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "simulator/runtime/clock.hpp"

namespace simulator {

// The side of the cover that a phone shows of what plays, in points.
inline constexpr double artworkSide = 120;

struct Track {
    std::string title, artist, album;
    std::string artworkId;  // names the picture; empty for a track without one
    double seconds = 0;     // 0: does not end by itself
};

class MediaPlayer {
  public:
    // What the listeners are told of, in this order.
    enum class Change { application, playState, track };
    using Listener = std::function<void(Change)>;
    static constexpr const char* systemApplication = "com.apple.Music";

    static MediaPlayer& shared();
    // Kept for ever.
    void listen(Listener listener) { listeners_.push_back(std::move(listener)); }

    // From outside. A track of the application that plays already goes behind its queue.
    void play(const std::string& application, const Track& track);
    void setPlaying(bool playing);
    void unload();

    // Commands. With nothing loaded, resuming starts the library of the system's player.
    void resume();
    void pause();
    // By tracks, round the queue. Nothing happens with an empty queue.
    void skip(int tracks);

    // Empty when nothing is loaded.
    const Track* track() const;
    // Empty when nobody plays.
    const std::string& application() const { return application_; }
    // Of the application; 0 when nobody plays.
    int process() const;
    bool isPlaying() const { return playing_; }
    double position() const;
    // Another number for every track that is begun or put away.
    std::uint64_t generation() const { return generation_; }

  private:
    void load(std::vector<Track> queue, std::size_t index);
    void begin(std::size_t index);
    void run(bool playing);
    void step(int tracks);
    void scheduleEnd();
    void announce();
    void announceLater();
    void tell(Change change) const;

    std::vector<Listener> listeners_;
    std::string application_;
    std::vector<Track> queue_;
    std::size_t index_ = 0;
    bool playing_ = false;
    double played_ = 0;   // of the track until it was last started
    double started_ = 0;  // when it was last started
    Clock::Ticket end_ = 0;
    std::uint64_t generation_ = 1;
    bool trackChanged_ = false;  // not told yet
    // What the listeners know.
    std::string toldApplication_;
    bool toldPlaying_ = false;
};

}  // namespace simulator
