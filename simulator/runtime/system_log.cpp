#include "simulator/runtime/system_log.hpp"

#include <algorithm>

#include "platform/foundation.hpp"
#include "simulator/runtime/history.hpp"

// GNUstep hands every finished log line to this function, with time and process before it.
extern "C" void (*_NSLog_printf_handler)(id message);

namespace simulator {

namespace {

// "2026-01-31 12:00:00.000 name[12:34] text\n" becomes "text".
std::string withoutPrefix(std::string line) {
    while (!line.empty() && line.back() == '\n') line.pop_back();
    std::size_t end = line.find("] ");
    std::size_t start = line.find('[');
    bool prefixed = end != std::string::npos && start < end && line.size() > 4 && line[4] == '-';
    return prefixed ? line.substr(end + 2) : line;
}

void receive(id message) {
    const char* text = platform::NSString(message).utf8();
    SystemLog::shared().write(withoutPrefix(text ? text : ""));
}

}  // namespace

SystemLog& SystemLog::shared() {
    static auto& log = *new SystemLog;
    return log;
}

void SystemLog::install() { _NSLog_printf_handler = &receive; }

void SystemLog::write(std::string line) {
    History::shared().happened(Happening::logged, line);
    lines_.push_back(std::move(line));
}

long SystemLog::count(std::string_view text) const {
    return std::ranges::count_if(
        lines_, [&](const std::string& line) { return line.find(text) != std::string::npos; });
}

}  // namespace simulator
