#include "simulator/phone/hook_report_notes.hpp"

#include <sstream>

#include "platform/foundation.hpp"
#include "simulator/runtime/presence.hpp"
#include "simulator/runtime/replacement.hpp"

namespace simulator {

namespace {

IMP plainText = nullptr;

id notedText(id self, SEL command) {
    const auto plain = reinterpret_cast<id (*)(id, SEL)>(plainText)(self, command);
    const std::string noted = withNotes(platform::NSString(plain).utf8(), realRelease());
    return platform::NSString::from(noted.c_str()).get();
}

// What a line tells of a row's method: ` -[Class message] `.
std::string note(const std::string& line, int release) {
    const std::size_t open = line.find(" -["), blank = line.find(' ', open + 1),
                      close = line.find("] ", blank);
    if (open == std::string::npos || close == std::string::npos) return "";
    const std::string owner = line.substr(open + 3, blank - open - 3);
    const auto found =
        finding(owner, Kind::method, line.substr(blank + 1, close - blank - 1), release);
    return !found || found->lookedAt ? "" : ", ? as on " + versionOf(found->followed);
}

}  // namespace

std::string withNotes(const std::string& report, int release) {
    std::istringstream lines(report);
    std::string noted;
    for (std::string line; std::getline(lines, line);) noted += line + note(line, release) + "\n";
    return noted;
}

void noteInHookReport() {
    if (realRelease() == 0) return;
    plainText = replaceMethod("VNTHookReport", MethodKind::onClass, "text",
                              reinterpret_cast<IMP>(&notedText));
}

}  // namespace simulator
