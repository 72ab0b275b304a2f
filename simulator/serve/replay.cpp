#include "simulator/serve/replay.hpp"

#include <sstream>

namespace simulator::serve {

namespace {

struct Waits {
    std::string each;
    long times;
};

// `wait S times N`, and nothing behind it.
std::optional<Waits> waitsOf(const std::string& line) {
    std::istringstream words(line);
    std::string wait, seconds, times, rest;
    long count = 0;
    if (!(words >> wait >> seconds >> times >> count) || wait != "wait" || times != "times")
        return std::nullopt;
    if (count < 0 || words >> rest) return std::nullopt;
    return Waits{wait + " " + seconds, count};
}

}  // namespace

Replay::Replay(const std::string& scenario) {
    std::istringstream text(scenario);
    for (std::string line; std::getline(text, line);) {
        if (const auto waits = waitsOf(line))
            lines_.push_back({waits->each, waits->times});
        else if (line.find_first_not_of(" \t\r") != std::string::npos)
            lines_.push_back({line});
    }
}

std::optional<std::string> Replay::beforeBoot() {
    if (lines_.empty()) return std::nullopt;
    std::string line = std::move(lines_.front().text);
    lines_.pop_front();
    if (line == "boot") return std::nullopt;
    return line;
}

std::optional<std::string> Replay::next(double now) {
    if (!begun_) begun_ = now;
    while (!lines_.empty() && lines_.front().times <= 0) lines_.pop_front();
    if (lines_.empty() || now - *begun_ >= allowed_) return std::nullopt;
    Line& line = lines_.front();
    std::string text = line.text;
    if (--line.times <= 0) lines_.pop_front();
    return text;
}

}  // namespace simulator::serve
