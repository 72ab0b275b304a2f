// The hook table: what of SpringBoard is taken over, in the order of installation.
#pragma once

#include <span>

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

std::span<const HookRow> welcomeHooks();        // installed whenever the library is enabled
std::span<const HookRow> springBoardHooks();    // once the Control Center frameworks are there
std::span<const HookRow> controlCenterHooks();  // when the Control Center gestures are wanted

// A row under the name that a later system gives the same method.
struct LaterForm {
    HookRow row;
    SEL (*earlier)();  // the selector in the table, which that system has no longer
};

template <FixedString className, FixedString earlier, FixedString message, auto fn>
LaterForm laterForm() {
    return {hook<className, message, fn>(), &selector<earlier>};
}

std::span<const LaterForm> laterSpringBoardForms();
std::span<const LaterForm> laterControlCenterForms();

void install(std::span<const HookRow> rows);

// Only those whose class has the later name and not the earlier one: where the names of the table exist,
// exactly the table is installed.
void install(std::span<const LaterForm> forms);

}  // namespace vantori
