#include "simulator/live/console_input.hpp"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <iostream>
#include <utility>

namespace simulator::live {

std::optional<std::string> LineReader::line() {
    const std::size_t end = pending_.find('\n');
    if (end != std::string::npos) {
        std::string text = pending_.substr(0, end);
        pending_.erase(0, end + 1);
        return text;
    }
    if (ended_ && !pending_.empty()) return std::exchange(pending_, {});
    return std::nullopt;
}

void LineReader::read() {
    std::array<char, 4096> bytes;
    ssize_t count = 0;
    do count = ::read(descriptor_, bytes.data(), bytes.size());
    while (count < 0 && errno == EINTR);
    if (count > 0) {
        pending_.append(bytes.data(), static_cast<std::size_t>(count));
    } else {
        ended_ = true;
    }
}

ConsoleInput::ConsoleInput(LineEditor::Completer completer) : lines_(STDIN_FILENO) {
    if (isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0)
        editor_ = std::make_unique<LineEditor>(std::move(completer), historyFile());
}

void ConsoleInput::prompt() {
    if (editor_) editor_->prompt();
}

void ConsoleInput::read() { editor_ ? editor_->read() : lines_.read(); }

std::optional<std::string> ConsoleInput::line() {
    return editor_ ? editor_->line() : lines_.line();
}

bool ConsoleInput::atEnd() const { return editor_ ? editor_->atEnd() : lines_.atEnd(); }

void ConsoleInput::tell(const std::string& text) {
    if (editor_) return editor_->tell(text);
    std::cout << text << std::endl;
}

Readable waitForInput(int first, int second, int milliseconds) {
    std::array<pollfd, 2> watched{pollfd{first, POLLIN, 0}, pollfd{second, POLLIN, 0}};
    if (poll(watched.data(), watched.size(), milliseconds) <= 0) return {};
    return {watched[0].revents != 0, watched[1].revents != 0};
}

}  // namespace simulator::live
