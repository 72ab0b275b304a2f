#include "simulator/runtime/crash.hpp"

#include <exception>

#include "platform/foundation.hpp"
#include "simulator/runtime/replacement.hpp"
#include "simulator/runtime/system_log.hpp"

namespace simulator {

namespace {

using platform::NSString;
using platform::Object;

struct Report {
    std::string lastRaised;
    std::optional<std::string> crash;
};

Report& report() {
    static auto& kept = *new Report;
    return kept;
}

std::string text(NSString string) { return string ? string.utf8() : ""; }

void (*systemRaise)(id, SEL) = nullptr;

void raise(id self, SEL command) {
    Object exception(self);
    report().lastRaised = text(exception.send<"name", NSString>()) + ": " +
                          text(exception.send<"reason", NSString>());
    systemRaise(self, command);
}

void noteCrash(const std::string& reason) {
    SystemLog::shared().write("*** Terminating app due to uncaught exception " + reason);
    if (!report().crash) report().crash = reason;
}

}  // namespace

void installCrashReport() {
    if (systemRaise) return;
    systemRaise = reinterpret_cast<void (*)(id, SEL)>(
        replaceMethod("NSException", MethodKind::instance, "raise", reinterpret_cast<IMP>(&raise)));
}

bool guarded(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        noteCrash(error.what());
    } catch (...) {  // an Objective-C exception
        noteCrash(report().lastRaised);
    }
    return false;
}

const std::string& lastRaised() { return report().lastRaised; }

const std::optional<std::string>& crash() { return report().crash; }

void forgetCrash() { report().crash.reset(); }

}  // namespace simulator
