#include "simulator/demo/demo.hpp"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "simulator/demo/demo_scenes.hpp"
#include "simulator/rendering/montage.hpp"
#include "simulator/rendering/picture.hpp"
#include "simulator/rendering/png.hpp"
#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/scenario/session.hpp"

namespace simulator::demo {

namespace {

using rendering::Captioned;
using rendering::Surface;

constexpr double pixelsPerPoint = 2;  // of the scenes' pictures
constexpr std::size_t sheetColumns = 4;

// The owner has seen the welcome.
constexpr std::string_view seenWelcome =
    "plist /var/mobile/Library/Preferences/com.ferolin.VantoriHistoryVersion.plist [\"1.2.1\"]\n";

// Runs the scene on a new phone. What it says is shown only when it failed.
int play(const DemoScene& scene, const DemoOptions& options) {
    std::ostringstream said;
    try {
        const auto statements = scenario::parse(std::string(scene.newOwner ? "" : seenWelcome) +
                                                std::string(scene.scenario));
        const std::unique_ptr<Phone> phone = makePhone({{}, options.real});
        if (!options.system.empty()) phone->system(options.system);
        scenario::Session session(*phone, std::string(scene.name), options.pictures, said);
        for (const auto& statement : statements) session.run(statement);
        if (session.failed() == 0) return 0;
    } catch (const std::exception& error) {
        said << scene.name << ": " << error.what() << '\n';
    }
    std::cerr << said.str() << std::flush;
    return 1;
}

// The extension is never taken out of a process again, so every scene gets a fresh one.
bool playApart(const DemoScene& scene, const DemoOptions& options) {
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no process can be started");
    if (child == 0) _exit(play(scene, options));
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

Surface readPicture(const std::filesystem::path& file) {
    rendering::ReadPng read = rendering::readPng(file);
    if (!read) throw std::runtime_error(read.error);
    return read.surface;
}

void writePicture(const Surface& surface, const std::filesystem::path& file, std::ostream& output) {
    if (const auto problem = rendering::writePng(surface, file)) throw std::runtime_error(*problem);
    output << file.filename().string() << std::endl;
}

class Pictures {
  public:
    Pictures(std::filesystem::path folder, std::ostream& output)
        : folder_(std::move(folder)), output_(output) {}

    void add(const DemoScene& scene) {
        output_ << scene.picture << std::endl;
        if (!scene.framed) return;
        const Surface phone =
            rendering::frame(readPicture(folder_ / scene.picture), pixelsPerPoint);
        if (scene.name == coverScene()) writePicture(phone, folder_ / "cover.png", output_);
        phones_.push_back({rendering::halfSize(phone), std::string(scene.caption)});
    }

    // Rows of phones, each a picture of its own: a sheet of all would be too large to look at.
    void writeSheets() {
        for (std::size_t first = 0; first < phones_.size(); first += sheetColumns) {
            const std::size_t last = std::min(first + sheetColumns, phones_.size());
            const std::vector<Captioned> row(phones_.begin() + static_cast<long>(first),
                                             phones_.begin() + static_cast<long>(last));
            const std::string name = "sheet-" + std::to_string(first / sheetColumns + 1) + ".png";
            writePicture(rendering::sideBySide(row, 1), folder_ / name, output_);
        }
    }

  private:
    std::filesystem::path folder_;
    std::ostream& output_;
    std::vector<Captioned> phones_;
};

}  // namespace

int runDemo(const DemoOptions& options, std::ostream& output, std::ostream& errors) {
    std::filesystem::create_directories(options.pictures);
    Pictures pictures(options.pictures, output);
    int status = 0;
    for (const DemoScene& scene : demoScenes()) {
        if (playApart(scene, options)) {
            pictures.add(scene);
        } else {
            errors << scene.name << ": the scene failed" << std::endl;
            status = 1;
        }
    }
    pictures.writeSheets();
    return status;
}

}  // namespace simulator::demo
