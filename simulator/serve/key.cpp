#include "simulator/serve/key.hpp"

#include <libwebsockets.h>
#include <sys/random.h>

#include <array>
#include <stdexcept>

namespace simulator::serve {

std::string makeKey() {
    std::array<unsigned char, 16> bytes{};
    if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
        throw std::runtime_error("the system gives no random numbers for a key");
    constexpr std::string_view digits = "0123456789abcdef";
    std::string key;
    for (const unsigned char byte : bytes) {
        key += digits[byte >> 4];
        key += digits[byte & 15];
    }
    return key;
}

bool isKey(std::string_view offered, std::string_view key) {
    return !key.empty() && offered.size() == key.size() &&
           lws_timingsafe_bcmp(offered.data(), key.data(),
                               static_cast<std::uint32_t>(key.size())) == 0;
}

}  // namespace simulator::serve
