// vantori-simulator: a small phone on Linux that loads the extension as a real one does, and the
// commands that reach it.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "simulator/scenario/console.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/scenario/runner.hpp"
#include "simulator/scenario/statements.hpp"

#ifndef VANTORI_VERSION
#define VANTORI_VERSION "1.2.1"
#endif

namespace {

using simulator::scenario::RunOptions;

constexpr int misused = 2;

std::string statementsHelp() {
    std::ostringstream text;
    text << "A scenario has one statement a line; # starts a comment.\n\n";
    simulator::scenario::printStatements(text);
    return text.str();
}

void addFolders(CLI::App& command, RunOptions& options) {
    command.add_option("--out", options.pictures, "Folder for pictures (beside the scenario)")
        ->type_name("DIR");
    command.add_option("--root", options.root, "Keep the phone's file system there")
        ->type_name("DIR");
}

int run(const std::vector<std::string>& files, const RunOptions& options) {
    if (files.size() > 1)
        return simulator::scenario::runFilesApart(files, options,
                                                  std::filesystem::read_symlink("/proc/self/exe"));
    return simulator::scenario::runFile(files.front(), options, simulator::makePhone, std::cout,
                                        std::cerr);
}

int console(const RunOptions& options) {
    const auto phone = simulator::makePhone({options.root});
    return simulator::scenario::runConsole(*phone, {options.pictures, isatty(STDIN_FILENO) != 0},
                                           std::cin, std::cout);
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App program("A small phone for Linux that loads the toolbar's own library.",
                     "vantori-simulator");
    program.set_version_flag("--version", std::string("vantori-simulator ") + VANTORI_VERSION);
    program.require_subcommand(0, 1);
    RunOptions options;
    std::vector<std::string> files;

    CLI::App* runCommand = program.add_subcommand(
        "run", "Run scenarios. Status 0: all held; 1: something failed; 2: unreadable");
    runCommand->add_option("files", files, "Scenario files; several run in separate processes")
        ->required()
        ->type_name("FILE");
    addFolders(*runCommand, options);
    runCommand->footer(statementsHelp());

    CLI::App* consoleCommand =
        program.add_subcommand("console", "Read statements one at a time and carry them out");
    addFolders(*consoleCommand, options);
    consoleCommand->footer(statementsHelp());

    try {
        program.parse(argc, argv);
        if (runCommand->parsed()) return run(files, options);
        if (consoleCommand->parsed()) return console(options);
        std::cerr << program.help();
        return misused;
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? 0 : misused;
    } catch (const std::exception& error) {
        std::cerr << "vantori-simulator: " << error.what() << '\n';
        return 1;
    }
}
