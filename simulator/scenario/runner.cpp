// A file from beginning to end, and several files in processes of their own.
#include "simulator/scenario/runner.hpp"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>

#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/session.hpp"

namespace simulator::scenario {
namespace {

constexpr int allHeld = 0;
constexpr int someFailed = 1;
constexpr int malformed = 2;

// The status of one child; what ended it otherwise is told.
int childStatus(pid_t child, const std::string& file) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status)) return WEXITSTATUS(status);
    std::cerr << file << ": the phone was ended by signal " << WTERMSIG(status) << " ("
              << strsignal(WTERMSIG(status)) << ")" << std::endl;
    return someFailed;
}

int runApart(const std::string& file, const RunOptions& options,
             const std::filesystem::path& program) {
    std::vector<std::string> words{program.string(), "run"};
    if (!options.pictures.empty()) words.insert(words.end(), {"--out", options.pictures.string()});
    if (!options.root.empty()) words.insert(words.end(), {"--root", options.root.string()});
    if (options.real) words.emplace_back("--real");
    words.insert(words.end(), {"--", file});
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t child = 0;
    const int error =
        posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ);
    if (error == 0) return childStatus(child, file);
    std::cerr << file << ": no process could be started: " << std::strerror(error) << std::endl;
    return malformed;
}

}  // namespace

int runFile(const std::string& file, const RunOptions& options, const PhoneMaker& makePhone,
            std::ostream& output, std::ostream& errors) {
    std::vector<Statement> statements;
    try {
        statements = parse(readFile(file));
    } catch (const SyntaxError& error) {
        errors << error.report(file) << std::endl;
        return malformed;
    } catch (const std::exception& error) {
        errors << SyntaxError({}, error.what()).report(file) << std::endl;
        return malformed;
    }
    std::unique_ptr<Phone> phone;
    try {
        phone = makePhone({options.root, options.real});
    } catch (const std::exception& error) {
        errors << file << ": there is no phone to run it on: " << error.what() << std::endl;
        return someFailed;
    }
    const std::filesystem::path beside = std::filesystem::path(file).parent_path();
    Session session(*phone, file, options.pictures.empty() ? beside : options.pictures, output);
    for (const Statement& statement : statements) session.run(statement);
    session.sayCounts();
    return session.failed() == 0 ? allHeld : someFailed;
}

int runFilesApart(const std::vector<std::string>& files, const RunOptions& options,
                  const std::filesystem::path& program) {
    int worst = allHeld;
    for (const std::string& file : files) {
        std::cout << file << std::endl;
        worst = std::max(worst, runApart(file, options, program));
    }
    return worst;
}

}  // namespace simulator::scenario
