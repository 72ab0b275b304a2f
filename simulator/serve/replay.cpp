#include "simulator/serve/replay.hpp"

#include <regex>
#include <sstream>

namespace simulator::serve {

Replay::Replay(const std::string& scenario) {
    static const std::regex waits(R"(\s*(wait\s+\S+)\s+times\s+(\d{1,9})\s*)");
    std::istringstream text(scenario);
    for (std::string line; std::getline(text, line);) {
        std::smatch parts;
        if (std::regex_match(line, parts, waits))
            lines_.push_back({parts[1], std::stol(parts[2])});
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
