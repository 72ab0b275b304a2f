#include "simulator/springboard/extension.hpp"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace simulator {

namespace {

std::function<void()>& loaderSlot() {
    static auto& loader = *new std::function<void()>;
    return loader;
}

std::filesystem::path libraryPath() {
    if (const char* named = std::getenv("VANTORI_LIBRARY"); named && *named) return named;
    std::error_code error;
    auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return program.parent_path().parent_path() / "lib" / "libvantori.so";
}

}  // namespace

void setExtensionLoader(std::function<void()> loader) { loaderSlot() = std::move(loader); }

void loadExtension() {
    if (loaderSlot()) return loaderSlot()();
    std::filesystem::path path = libraryPath();
    if (!dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL)) {
        const char* reason = dlerror();
        throw std::runtime_error("the extension does not load: " +
                                 std::string(reason ? reason : path.string()));
    }
}

}  // namespace simulator
