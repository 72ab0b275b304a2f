// Runs the unit tests. The library is never torn down and a phone belongs to its process, so every test
// has a process of its own: a child of this one, which saves each of them loading the program.
//   unit-tests                  all of them
//   unit-tests --suite SUITE    those of one suite, as ctest does
//   unit-tests --tests FILE     those that the file names, one a line, until the first that fails
//   unit-tests --ctest FILE     writes the list of suites that ctest reads
//   unit-tests --gtest_...      whatever googletest offers, in this process: for a debugger
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

#include "simulator/rendering/found_fonts.hpp"

namespace {

const testing::UnitTest& allTests() { return *testing::UnitTest::GetInstance(); }

int runHere(const std::string& filter) {
    GTEST_FLAG_SET(filter, filter);
    return RUN_ALL_TESTS();
}

// What became of the child: empty when its test held.
std::string runApart(const std::string& name) {
    std::cout.flush();
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) return std::string("no process for it: ") + std::strerror(errno);
    if (child == 0) {
        setenv("UNIT_TEST", name.c_str(), 1);  // for who measures it
        std::exit(runHere(name));              // not _exit: leaks are looked for at the end
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) return std::string("died: ") + strsignal(WTERMSIG(status));
    return WEXITSTATUS(status) == 0 ? "" : "failed";
}

struct Tally {
    int run = 0;
    int failed = 0;
};

void run(const testing::TestSuite& suite, Tally& tally) {
    for (int i = 0; i < suite.total_test_count(); ++i) {
        const std::string name = std::string(suite.name()) + "." + suite.GetTestInfo(i)->name();
        const std::string problem = runApart(name);
        ++tally.run;
        if (problem.empty()) continue;
        ++tally.failed;
        std::cout << "[  FAILED  ] " << name << ": " << problem << '\n';
    }
}

int runSuites(std::string_view only) {
    Tally tally;
    for (int i = 0; i < allTests().total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *allTests().GetTestSuite(i);
        if (only.empty() || only == suite.name()) run(suite, tally);
    }
    std::cout << tally.run << " tests, " << tally.failed << " failed\n";
    return tally.run > 0 && tally.failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

int runNamed(const std::string& path) {
    std::ifstream names(path);
    for (std::string name; std::getline(names, name);) {
        const std::string problem = runApart(name);
        if (problem.empty()) continue;
        std::cout << "[  FAILED  ] " << name << ": " << problem << '\n';
        return EXIT_FAILURE;
    }
    return names.eof() ? EXIT_SUCCESS : EXIT_FAILURE;
}

// In ctest's own language; brackets, since names of suites have slashes.
int writeSuites(const std::string& program, const std::string& path) {
    std::ofstream file(path);
    for (int i = 0; i < allTests().total_test_suite_count(); ++i) {
        const std::string suite = allTests().GetTestSuite(i)->name();
        file << "add_test([=[" << suite << "]=] [=[" << program << "]=] --suite [=[" << suite
             << "]=])\nset_tests_properties([=[" << suite << "]=] PROPERTIES LABELS unit)\n";
    }
    return file.good() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
    const bool isForGoogletest = argc > 1 && std::string_view(argv[1]).starts_with("--gtest_");
    GTEST_FLAG_SET(brief, !isForGoogletest);
    testing::InitGoogleTest(&argc, argv);
    if (isForGoogletest) return RUN_ALL_TESTS();
    const std::string_view option = argc > 1 ? argv[1] : "";
    if (argc == 3 && option == "--ctest") return writeSuites(argv[0], argv[2]);
    simulator::rendering::findFonts();  // once for the processes of all tests
    if (argc == 1) return runSuites("");
    if (argc == 3 && option == "--suite") return runSuites(argv[2]);
    if (argc == 3 && option == "--tests") return runNamed(argv[2]);
    std::cerr << "usage: unit-tests [--suite SUITE | --tests FILE | --ctest FILE | --gtest_...]\n";
    return EXIT_FAILURE;
}
