// The phone's radios and what one does to another: airplane mode takes the others down and brings
// back what it took; the hotspot lives on cellular data.
#pragma once

#include <functional>

namespace simulator {

enum class Radio { airplane, cellular, hotspot, wifi, bluetooth };

bool isOn(Radio radio);
// What a user's switch does. Cellular data cannot be had in airplane mode, nor the hotspot without
// cellular data: those are left off.
void switchRadio(Radio radio, bool on);

// Runs after every change, for as long as the phone lives.
void onRadioChange(std::function<void()> listener);

}  // namespace simulator
