#include "simulator/services/media_player.hpp"

#include <map>
#include <utility>

namespace simulator {

namespace {

constexpr std::size_t longestQueue = 50;
constexpr int firstProcess = 301;

// What is on the phone: the music that comes when nothing is loaded and play is pressed.
const std::vector<Track>& library() {
    static const std::vector<Track> tracks = {
        {"Harbour Lights at Half Past Four", "Mira Solano", "Slow Ferries", "slow-ferries", 214},
        {"Paper Lanterns", "Mira Solano", "Slow Ferries", "slow-ferries", 187},
        {"Northbound", "The Quiet Meridian", "Parallel Roads", "parallel-roads", 242},
        {"Tin Roof Rain", "Oskar & the Weathervanes", "Barometer", "barometer", 168},
        {"Everything You Left Behind in the Orchard", "June Hallow", "Windfall", "windfall", 259},
    };
    return tracks;
}

}  // namespace

MediaPlayer& MediaPlayer::shared() {
    static auto& player = *new MediaPlayer;
    return player;
}

void MediaPlayer::play(const std::string& application, const Track& track) {
    std::vector<Track> queue;
    if (application == application_) queue = std::move(queue_);
    if (queue.size() >= longestQueue) queue.erase(queue.begin());
    queue.push_back(track);
    application_ = application;
    std::size_t last = queue.size() - 1;
    load(std::move(queue), last);
    run(true);
    announce();
}

void MediaPlayer::setPlaying(bool playing) {
    run(playing);
    announce();
}

void MediaPlayer::unload() {
    application_.clear();
    load({}, 0);
    run(false);
    announce();
}

void MediaPlayer::resume() {
    if (queue_.empty()) {
        application_ = systemApplication;
        load(library(), 0);
    }
    run(true);
    announceLater();
}

void MediaPlayer::pause() {
    run(false);
    announceLater();
}

void MediaPlayer::skip(int tracks) {
    if (queue_.empty()) return;
    step(tracks);
    announceLater();
}

const Track* MediaPlayer::track() const { return queue_.empty() ? nullptr : &queue_[index_]; }

int MediaPlayer::process() const {
    static auto& known = *new std::map<std::string, int>;
    if (application_.empty()) return 0;
    return known.emplace(application_, firstProcess + static_cast<int>(known.size())).first->second;
}

double MediaPlayer::position() const {
    return playing_ ? played_ + Clock::shared().now() - started_ : played_;
}

void MediaPlayer::load(std::vector<Track> queue, std::size_t index) {
    queue_ = std::move(queue);
    begin(index);
}

void MediaPlayer::begin(std::size_t index) {
    index_ = index;
    played_ = 0;
    started_ = Clock::shared().now();
    ++generation_;
    trackChanged_ = true;
    scheduleEnd();
}

void MediaPlayer::run(bool playing) {
    if (playing == playing_) return;
    played_ = position();
    started_ = Clock::shared().now();
    playing_ = playing;
    scheduleEnd();
}

void MediaPlayer::step(int tracks) {
    auto length = static_cast<long>(queue_.size());
    long index = (static_cast<long>(index_) + tracks) % length;
    begin(static_cast<std::size_t>(index < 0 ? index + length : index));
}

void MediaPlayer::scheduleEnd() {
    Clock::shared().withdraw(std::exchange(end_, 0));
    if (!playing_ || queue_.empty() || queue_[index_].seconds <= 0) return;
    end_ = Clock::shared().after(queue_[index_].seconds - played_, [this] {
        step(1);
        announce();
    });
}

void MediaPlayer::announce() {
    if (std::exchange(toldApplication_, application_) != application_) tell(Change::application);
    if (std::exchange(toldPlaying_, playing_) != playing_) tell(Change::playState);
    if (std::exchange(trackChanged_, false)) tell(Change::track);
}

void MediaPlayer::announceLater() {
    Clock::shared().post([this] { announce(); });
}

void MediaPlayer::tell(Change change) const {
    for (const Listener& listener : listeners_) listener(change);
}

}  // namespace simulator
