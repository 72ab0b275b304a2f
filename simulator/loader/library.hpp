// Loading the very file that a phone loads: an iOS library, run by the phone on arm64 Linux.
#pragma once

#include <filesystem>

#include "simulator/loader/slices.hpp"

namespace simulator::loader {

// Reads what such a process takes of the file, fills in what it needs from this process, and runs its initialisers. It stays for
// the life of the process. Throws BadImage for a file that is damaged, meant for something else or
// wants symbols that do not exist, and on every host but arm64.
void loadMachO(const std::filesystem::path& path, Process process);

}  // namespace simulator::loader
