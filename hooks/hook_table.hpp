// The hook table: what of SpringBoard is taken over, in the order of installation.
#pragma once

#include <span>

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

std::span<const HookRow> welcomeHooks();        // installed whenever the library is enabled
std::span<const HookRow> springBoardHooks();    // once the Control Center frameworks are there
std::span<const HookRow> controlCenterHooks();  // when the Control Center gestures are wanted

// A row as other systems have it: under another name, or in another class.
struct OtherForm {
    HookRow row;
    const char* requiredClass;  // of the row in the table that it stands for
    SEL (*required)();
};

template <FixedString requiredClass, FixedString required, FixedString className,
          FixedString message, auto fn>
OtherForm otherForm() {
    return {hook<className, message, fn>(), requiredClass.data(), &selector<required>};
}

// Several may stand for one row, the preferred first.
std::span<const OtherForm> otherSpringBoardForms();
std::span<const OtherForm> otherControlCenterForms();

void install(std::span<const HookRow> rows);

// For each row whose own class or method does not exist, the first form that does. Where the names of the
// table exist, exactly the table is installed.
void install(std::span<const OtherForm> forms);

}  // namespace vantori
