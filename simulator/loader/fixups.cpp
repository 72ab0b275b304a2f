#include "simulator/loader/fixups.hpp"

namespace simulator::loader {

Fixups readFixups(const MachOFile& file) {
    if (file.dyldInfo && file.chainedFixups)
        throw BadImage("it has both opcodes and chains of fixups");
    if (file.dyldInfo) return readOpcodes(file, *file.dyldInfo);
    if (file.chainedFixups && file.signsPointers)
        throw BadImage("it is for arm64e with chained fixups, which iOS 12 does not know");
    if (file.chainedFixups) return readChains(file, *file.chainedFixups);
    return {};
}

std::string libraryName(const MachOFile& file, int ordinal) {
    if (ordinal > 0 && static_cast<std::size_t>(ordinal) <= file.libraries.size())
        return std::string(file.libraries[static_cast<std::size_t>(ordinal) - 1]);
    if (ordinal == fromItself) return "the library itself";
    if (ordinal == fromProgram) return "the program";
    return "any library";
}

void checkOrdinal(const MachOFile& file, std::int64_t ordinal) {
    const auto libraries = static_cast<std::int64_t>(file.libraries.size());
    if (ordinal < fromWeakDefinitions || ordinal > libraries)
        throw BadImage("a symbol is bound to library " + std::to_string(ordinal) + " of " +
                       std::to_string(libraries));
}

}  // namespace simulator::loader
