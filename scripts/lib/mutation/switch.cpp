// Reads which change is on, before anything of the library runs, and writes what was asked when the process
// ends: into the folder MUTANTS_ASKED, a file for each process, with the name of its test, the processor time
// that it took in milliseconds, and the numbers.
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "switch.hpp"

namespace mutation {

int active = -1;
unsigned char asked[MUTANTS];

namespace {

[[gnu::constructor(101)]] void readActive() {
    if (const char* number = std::getenv("MUTANT")) active = std::atoi(number);
}

long milliseconds() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return (used.ru_utime.tv_sec + used.ru_stime.tv_sec) * 1000 +
           (used.ru_utime.tv_usec + used.ru_stime.tv_usec) / 1000;
}

[[gnu::destructor]] void writeAsked() {
    const char* folder = std::getenv("MUTANTS_ASKED");
    const char* test = std::getenv("UNIT_TEST");
    if (!folder || !test) return;
    const std::string path = std::string(folder) + "/" + std::to_string(getpid());
    std::FILE* file = std::fopen(path.c_str(), "w");
    if (!file) return;
    std::fprintf(file, "%s\n%ld\n", test, milliseconds());
    for (int i = 0; i < MUTANTS; ++i) {
        if (asked[i]) std::fprintf(file, "%d\n", i);
    }
    std::fclose(file);
}

}  // namespace

}  // namespace mutation
