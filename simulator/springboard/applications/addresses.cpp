#include "simulator/springboard/applications/addresses.hpp"

#include <algorithm>
#include <cctype>

#include "simulator/hardware/configuration.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/uikit/application/application.hpp"

namespace simulator {

namespace {

struct Scheme {
    std::string_view scheme;
    std::string_view application;
};

constexpr Scheme schemes[] = {
    {"http", "com.apple.mobilesafari"},     {"https", "com.apple.mobilesafari"},
    {"tel", "com.apple.mobilephone"},       {"sms", "com.apple.MobileSMS"},
    {"music", "com.apple.Music"},           {"prefs", "com.apple.Preferences"},
    {"app-prefs", "com.apple.Preferences"}, {"mailto", "com.example.mail"},
    {"maps", "com.example.maps"},
};

// Schemes are the same in large and small letters.
bool isSame(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) ==
               std::tolower(static_cast<unsigned char>(b));
    });
}

}  // namespace

std::string_view applicationForAddress(std::string_view address) {
    const std::size_t colon = address.find(':');
    if (colon == std::string_view::npos) return {};
    for (const Scheme& known : schemes) {
        if (isSame(address.substr(0, colon), known.scheme)) return known.application;
    }
    return {};
}

void installAddresses() {
    setAddressOpener({
        [](const std::string& address) {
            return isInstalled(std::string(applicationForAddress(address)));
        },
        [](const std::string& address) {
            openApplication(std::string(applicationForAddress(address)));
        },
    });
}

}  // namespace simulator
