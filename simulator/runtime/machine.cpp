#include "simulator/runtime/machine.hpp"

#include <dlfcn.h>
#include <sys/utsname.h>

#include <algorithm>

#include "simulator/runtime/exports.hpp"

namespace simulator {

namespace {

std::string& identifier() {
    static auto& text = *new std::string;
    return text;
}

}  // namespace

void setMachine(std::string name) { identifier() = std::move(name); }

const std::string& machine() { return identifier(); }

}  // namespace simulator

// Takes the place of the C library's own, for the program and for what it loads.
VANTORI_EXPORT int uname(utsname* answer) noexcept {
    static auto real = reinterpret_cast<int (*)(utsname*)>(dlsym(RTLD_NEXT, "uname"));
    int status = real(answer);
    const std::string& name = simulator::machine();
    if (status == 0 && !name.empty()) {
        std::size_t length = std::min(name.size(), sizeof answer->machine - 1);
        std::copy_n(name.begin(), length, answer->machine);
        answer->machine[length] = '\0';
    }
    return status;
}
