#include "simulator/services/radios.hpp"

#include <array>
#include <vector>

namespace simulator {

namespace {

constexpr std::array underAirplane{Radio::cellular, Radio::wifi, Radio::bluetooth};

struct Radios {
    std::array<bool, 5> on{false, true, false, true, true};
    std::array<bool, 5> taken{};  // by airplane mode
    std::vector<std::function<void()>> listeners;

    bool& operator[](Radio radio) { return on[static_cast<std::size_t>(radio)]; }
    bool& tookDown(Radio radio) { return taken[static_cast<std::size_t>(radio)]; }
};

Radios& radios() {
    static auto& all = *new Radios;
    return all;
}

void setAirplane(bool on) {
    Radios& all = radios();
    for (Radio radio : underAirplane) {
        if (on) {
            all.tookDown(radio) = all[radio];
            all[radio] = false;
        } else {
            all[radio] = all[radio] || all.tookDown(radio);
        }
    }
    if (on) all[Radio::hotspot] = false;
}

bool mayBeOn(Radio radio) {
    if (radio == Radio::cellular) return !isOn(Radio::airplane);
    if (radio == Radio::hotspot) return isOn(Radio::cellular);
    return true;
}

}  // namespace

bool isOn(Radio radio) { return radios()[radio]; }

void switchRadio(Radio radio, bool on) {
    Radios& all = radios();
    if (isOn(radio) == on || (on && !mayBeOn(radio))) return;
    all[radio] = on;
    if (radio == Radio::airplane) setAirplane(on);
    if (radio == Radio::cellular && !on) all[Radio::hotspot] = false;
    for (const auto& listener : all.listeners) listener();
}

void onRadioChange(std::function<void()> listener) {
    radios().listeners.push_back(std::move(listener));
}

}  // namespace simulator
