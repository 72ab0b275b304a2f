// vantori-simulator: a small phone on Linux that loads the extension as a real one does, and the
// commands that reach it.
#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "simulator/demo/demo.hpp"
#include "simulator/live/live_phone.hpp"
#include "simulator/live/settings_command.hpp"
#include "simulator/phone/extension.hpp"
#include "simulator/phone/launch.hpp"
#include "simulator/restless/restless.hpp"
#include "simulator/scenario/known_names.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/scenario/runner.hpp"
#include "simulator/scenario/statements.hpp"
#include "simulator/serve/serve.hpp"
#include "simulator/window/window.hpp"

#ifndef VANTORI_VERSION
#define VANTORI_VERSION "1.2.1"
#endif

namespace {

using simulator::live::LiveOptions;
using simulator::scenario::RunOptions;

constexpr int misused = 2;
constexpr const char* systemHelp = "System version (13.3)";
constexpr const char* realHelp = "A phone with only what real systems of its version have";

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

// A check of an option's value: the parser says what is wrong, with the option's name.
template <class Mistake>
CLI::Validator refusing(Mistake mistake) {
    return CLI::Validator([mistake](const std::string& text) { return mistake(text).value_or(""); },
                          "");
}

void addModel(CLI::App& command, std::string& device, std::string& system,
              std::vector<std::string>& settings) {
    command.add_option("--device", device, "Machine identifier (iPhone10,3)")
        ->check(refusing(simulator::mistakeInDevice))
        ->type_name("IDENT");
    command.add_option("--system", system, systemHelp)
        ->check(refusing(simulator::mistakeInSystem))
        ->type_name("X.Y");
    command.add_option("--setting", settings, "Put a setting in the settings file")
        ->check(refusing(simulator::live::mistakeInSettingText))
        ->type_name("KEY=JSON")
        ->allow_extra_args(false);
}

template <class Printer>
std::string printedText(Printer print) {
    std::ostringstream text;
    print(text);
    return text.str();
}

// The settings command: `set KEY JSON`, `unset KEY`, `get [KEY]`.
struct SettingsCommand {
    CLI::App* set = nullptr;
    CLI::App* unset = nullptr;
    CLI::App* get = nullptr;
    std::filesystem::path root;
    std::string key;
    std::string json;

    void addTo(CLI::App& program) {
        CLI::App* settings = program.add_subcommand(
            "settings", "Change the settings of a phone, also while it runs, as its pane does");
        settings->require_subcommand(1);
        settings->footer(printedText(simulator::printSettings));
        set = settings->add_subcommand("set", "Put a JSON value under a key");
        unset = settings->add_subcommand("unset", "Take a key out");
        get = settings->add_subcommand("get", "Print one setting, or all");
        for (CLI::App* command : {set, unset, get}) {
            command->add_option("--root", root, "Folder of the phone's file system")
                ->required()
                ->type_name("DIR");
            auto* option = command->add_option("key", key, "The setting");
            if (command != get) option->required();
        }
        set->add_option("json", json, "Its value: true, 3, '\"text\"' …")->required();
    }
    int run() const {
        using namespace simulator::live;
        if (*set) setSetting(root, key, json, std::cout);
        if (*unset) unsetSetting(root, key, std::cout);
        if (*get) getSettings(root, key.empty() ? std::nullopt : std::optional(key), std::cout);
        return 0;
    }
};

struct RestlessCommand {
    simulator::restless::RestlessOptions options;

    void addTo(CLI::App& program) {
        CLI::App* command = program.add_subcommand(
            "restless", "Do to phones whatever comes to mind, and see that they bear it");
        options.seed = std::random_device{}();
        options.jobs = std::max(1U, std::thread::hardware_concurrency());
        command->add_option("--seed", options.seed, "What all comes from (a new one)")
            ->type_name("N");
        command->add_option("--events", options.events, "How much is done in all (1000)")
            ->check(CLI::Range(1L, 1000000000L))
            ->type_name("N");
        command
            ->add_option("--life", options.eventsOfALife,
                         "How much is done to a phone before another is taken (1000)")
            ->check(CLI::Range(1, 1000000))
            ->type_name("N");
        command->add_option("--device", options.device, "Machine identifier (any)")
            ->check(refusing(simulator::mistakeInDevice))
            ->type_name("IDENT");
        command->add_option("--system", options.system, "System version (any)")
            ->check(refusing(simulator::mistakeInSystem))
            ->type_name("X.Y");
        command->add_flag("--real", options.real, realHelp);
        command->add_option("--save", options.save, "Folder for scenarios of what was found (here)")
            ->type_name("DIR");
        command->add_option("--jobs", options.jobs, "Phones at once (as many as there are cores)")
            ->check(CLI::Range(1, 256))
            ->type_name("N");
        command->footer(
            "Status 0: nothing was found; 1: something was, and its scenario is saved.");
    }
    int run() const {
        simulator::warmUp();  // once for the processes of all phones
        return simulator::restless::runRestless(options, simulator::makePhone, std::cout);
    }
};

void addPhone(CLI::App& command, LiveOptions& options) {
    addModel(command, options.device, options.system, options.settings);
    command.add_flag("--real", options.real, realHelp);
    command
        .add_option("--record", options.recording,
                    "Write all that is done to the phone as a scenario that does it again")
        ->type_name("FILE");
    command.add_option("--out", options.pictures, "Folder for pictures")->type_name("DIR");
    command.add_option("--root", options.root, "Keep the phone's file system there")
        ->type_name("DIR");
}

}  // namespace

int main(int argc, char** argv) {
    umask(077);  // what is written here, phones and pictures of them, is its owner's alone
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
    std::vector<std::string> runSettings;
    addModel(*runCommand, options.device, options.system, runSettings);
    options.jobs = std::max(1U, std::thread::hardware_concurrency());
    runCommand->add_option("--jobs", options.jobs, "Files at once (as many as there are cores)")
        ->check(CLI::Range(1, 256))
        ->type_name("N");
    runCommand->add_flag("--stop-at-first", options.stopAtFirst,
                         "End at the first file that failed");
    runCommand->add_flag("--real", options.real, realHelp);
    bool everySystem = false;
    runCommand->add_flag(
        "--matrix", everySystem,
        "Run each file that does not say its system on real phones of all systems");
    runCommand
        ->add_option("--report", options.report,
                     "Write a page on what failed (index.html) and junit.xml there")
        ->type_name("DIR");
    std::filesystem::path library;
    runCommand
        ->add_option("--library", library,
                     "The library to load: a shared object, or on arm64 a phone's dylib")
        ->check(CLI::ExistingFile)
        ->type_name("FILE");
    std::string slice;
    runCommand
        ->add_option("--slice", slice,
                     "Run SpringBoard as arm64 or arm64e (as a phone of the scenario's model does)")
        ->check(CLI::IsMember({"arm64", "arm64e"}))
        ->type_name("NAME");
    runCommand->footer(statementsHelp());

    CLI::App* consoleCommand =
        program.add_subcommand("console", "Read statements one at a time and carry them out");
    LiveOptions live;
    addPhone(*consoleCommand, live);
    consoleCommand->footer(statementsHelp());

    CLI::App* windowCommand = program.add_subcommand("window", "Show the phone in a window");
    addPhone(*windowCommand, live);
    bool bare = false;
    windowCommand->add_flag("--bare", bare, "The screen without the phone around it");
    windowCommand->footer(simulator::window::keysHelp() +
                          "\nStatements of a scenario can be typed in the terminal meanwhile.");

    CLI::App* serveCommand =
        program.add_subcommand("serve", "Show the phone on a page of a browser; needs no display");
    simulator::serve::ServeOptions serve;
    addPhone(*serveCommand, serve.phone);
    serveCommand->add_option("--listen", serve.listen, "Address to be reached at (127.0.0.1)")
        ->type_name("ADDRESS");
    serveCommand->add_option("--port", serve.port, "Port (a free one)")
        ->check(CLI::Range(0, 65535))
        ->type_name("N");
    serveCommand->footer(
        "The address that it prints has a key in it: who has that may drive the phone.");

    CLI::App* demoCommand =
        program.add_subcommand("demo", "Draw the toolbar at work; needs no display");
    simulator::demo::DemoOptions demo;
    demoCommand->add_option("--out", demo.pictures, "Folder for the pictures")
        ->required()
        ->type_name("DIR");
    demoCommand->add_option("--system", demo.system, systemHelp)->type_name("X.Y");
    demoCommand->add_flag("--real", demo.real, realHelp);

    RestlessCommand restless;
    restless.addTo(program);

    SettingsCommand settings;
    settings.addTo(program);

    CLI::App* devicesCommand =
        program.add_subcommand("devices", "List the devices and systems that there are");

    try {
        program.parse(argc, argv);
        if (!library.empty()) simulator::nameExtension(library);
        if (runCommand->parsed()) {
            options.settings = simulator::live::parsedSettings(runSettings, std::cerr);
            if (everySystem) options.matrix = simulator::knownSystems();
            if (!slice.empty()) simulator::nameSlice(slice);
            simulator::warmUp();  // once for the processes of all files
            return simulator::scenario::runFiles(files, options, simulator::makePhone, std::cout);
        }
        if (devicesCommand->parsed()) {
            simulator::printDevices(std::cout);
            return 0;
        }
        simulator::live::parsedSettings(live.settings, std::cerr);  // for what it has to say
        if (consoleCommand->parsed()) return simulator::live::runLiveConsole(live, std::cout);
        if (windowCommand->parsed()) return simulator::window::runWindow({live, bare}, std::cout);
        if (serveCommand->parsed()) return simulator::serve::runServe(serve, std::cout);
        if (demoCommand->parsed()) return simulator::demo::runDemo(demo, std::cout, std::cerr);
        if (program.got_subcommand("restless")) return restless.run();
        if (program.got_subcommand("settings")) return settings.run();
        std::cerr << program.help();
        return misused;
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? 0 : misused;
    } catch (const std::exception& error) {
        std::cerr << "vantori-simulator: " << error.what() << '\n';
        return 1;
    }
}
