#include "hooks/hook_welcome.hpp"

#include "platform/definition.hpp"
#include "toolbar/welcome_pager.hpp"

namespace vantori {

#ifndef VANTORI_VERSION
#define VANTORI_VERSION "1.2.1"
#endif
std::string_view programVersion = VANTORI_VERSION;

namespace {

NSString historyPath() {
    return "/var/mobile/Library/Preferences/com.ferolin.VantoriHistoryVersion.plist"_ns;
}

// The pager shown last; replacing it releases the one before. It outlives the process's own end,
// when nobody is left to take its view off the home screen.
Strong<VNTUpdateViewController>& updateViewController() {
    static auto& shown = *new Strong<VNTUpdateViewController>;
    return shown;
}

void presentUpdateInfo(Object self) {
    updateViewController() = create<VNTUpdateViewController>();
    UIView home = as<UIView>(self);
    UIView pager = updateViewController().view();
    home.addSubview(pager);
    home.bringSubviewToFront(pager);
}

bool canReadHistory() {
    NSFileHandle file = NSFileHandle::forReading(historyPath());
    if (!file) return false;
    file.close();
    return true;
}

// Whether this version is new to the history; it is written down then. A history that can be opened
// but is no list counts as an empty one.
bool rememberVersion() {
    NSString current = NSString::from(programVersion.data());
    if (!canReadHistory()) {
        NSArray::with(current).writeToFile(historyPath(), true);
        return true;
    }
    NSArray history = NSArray::withContentsOfFile(historyPath());
    if (history.last().send<"isEqual:", bool>(current)) return false;
    NSArray longer = history ? history.adding(current) : NSArray::with(current);
    longer.writeToFile(historyPath(), true);
    return true;
}

}  // namespace

void homeScreenDidMove(System<void()> system, Object self) {
    system();
    if (programVersion == "debug" || rememberVersion()) self.send<"presentUpdateInfo">();
}

void addPresentUpdateInfo() {
    addMethod<"presentUpdateInfo", &presentUpdateInfo>(objc_getClass("SBHomeScreenView"));
}

}  // namespace vantori
