#include "simulator/phone/extension.hpp"

#include <dlfcn.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>

#include "platform/runtime.hpp"
#include "simulator/loader/library.hpp"
#include "simulator/runtime/journal.hpp"
#include "simulator/runtime/machine.hpp"
#include "simulator/runtime/replacement.hpp"

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

// As which kind of process SpringBoard runs: as asked for, else as on a phone of that model.
loader::Process process() {
    if (const char* named = std::getenv("VANTORI_SLICE"); named && *named)
        return loader::processNamed(named);
    return loader::processOf(machine());
}

[[noreturn]] void refuse(const std::string& reason) {
    throw std::runtime_error("the extension does not load: " + reason);
}

// Whether this machine's own loader is the one to ask: for its own files, and for the words about
// files that are not there.
bool isForThisMachine(const std::filesystem::path& path) {
    constexpr std::array<char, 4> elf{'\x7f', 'E', 'L', 'F'};
    std::ifstream file(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path)) return true;
    std::array<char, 4> magic{};
    file.read(magic.data(), magic.size());
    return magic == elf;
}

// What an extension may add to classes of the phone, with one object and nothing to answer.
struct Addition {
    const char* className;
    const char* selector;
};
constexpr Addition additions[] = {
    {"CCUIModuleCollectionViewController", "vntExpandModuleWithIdentifier:"},
};

using AddedMethod = void (*)(id, SEL, id);
std::map<std::string, AddedMethod, std::less<>>& addedMethods() {
    static auto& all = *new std::map<std::string, AddedMethod, std::less<>>;
    return all;
}

void runRecorded(id self, SEL command, id argument) {
    Journal::record(object_getClass(self), self, command, argument);
    addedMethods().find(sel_getName(command))->second(self, command, argument);
}

// The runs of what was added are in the journal like those of the phone's own methods.
void recordAdditions() {
    for (const Addition& addition : additions) {
        Class cls = objc_getClass(addition.className);
        SEL selector = sel_registerName(addition.selector);
        Method added = cls ? class_getInstanceMethod(cls, selector) : nullptr;
        if (!added || addedMethods().contains(addition.selector)) continue;
        addedMethods()[addition.selector] =
            reinterpret_cast<AddedMethod>(method_getImplementation(added));
        replaceMethod(cls, selector, reinterpret_cast<IMP>(&runRecorded));
    }
}

void runLibrary() {
    if (loaderSlot()) return loaderSlot()();
    std::filesystem::path path = libraryPath();
    if (!isForThisMachine(path)) {
        try {
            return loader::loadMachO(path, process());
        } catch (const loader::BadImage& error) {
            refuse(path.string() + ": " + error.what());
        }
    }
    if (!dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL)) {
        const char* reason = dlerror();
        refuse(reason ? reason : path.string());
    }
}

}  // namespace

void setExtensionLoader(std::function<void()> loader) { loaderSlot() = std::move(loader); }

void nameExtension(const std::filesystem::path& path) {
    setenv("VANTORI_LIBRARY", std::filesystem::absolute(path).c_str(), 1);
}

void nameSlice(const std::string& name) {
    setenv("VANTORI_SLICE", std::string(nameOf(loader::processNamed(name))).c_str(), 1);
}

void loadExtension() {
    runLibrary();
    recordAdditions();
}

}  // namespace simulator
