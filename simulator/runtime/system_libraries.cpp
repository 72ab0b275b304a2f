#include "simulator/runtime/system_libraries.hpp"

#include <map>
#include <string>

#include "simulator/runtime/exports.hpp"

namespace simulator {

namespace {

using Symbols = std::map<std::string, const void*, std::less<>>;

std::map<std::string, Symbols, std::less<>>& libraries() {
    static auto& all = *new std::map<std::string, Symbols, std::less<>>;
    return all;
}

}  // namespace

void exportSymbol(std::string_view library, std::string_view symbol, const void* address) {
    libraries()[std::string(library)][std::string(symbol)] = address;
}

const void* systemLibrary(std::string_view library) {
    auto found = libraries().find(library);
    return found == libraries().end() ? nullptr : &found->second;
}

const void* symbolOfLibrary(const void* handle, std::string_view symbol) {
    for (const auto& [path, symbols] : libraries()) {
        if (&symbols != handle) continue;
        auto found = symbols.find(symbol);
        return found == symbols.end() ? nullptr : found->second;
    }
    return nullptr;
}

}  // namespace simulator

VANTORI_EXPORT void* vantoriSystemSymbol(const char* library, const char* symbol) {
    const void* address = simulator::symbolOfLibrary(simulator::systemLibrary(library), symbol);
    return const_cast<void*>(address);
}
