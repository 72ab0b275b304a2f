#include "simulator/demo/demo.hpp"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <deque>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <vector>

#include "simulator/demo/demo_page.hpp"
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

// A scene on its way. The extension is never taken out of a process again, so every scene gets a
// fresh one; what they draw is told in their order, however many are drawn at a time.
struct Played {
    const DemoScene* scene;
    pid_t process;
};

Played startPlaying(const DemoScene& scene, const DemoOptions& options) {
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no process can be started");
    if (child == 0) _exit(play(scene, options));
    return {&scene, child};
}

bool finishPlaying(const Played& played) {
    int status = 0;
    while (waitpid(played.process, &status, 0) < 0 && errno == EINTR) {
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

void writePage(std::span<const DemoScene> drawn, const std::filesystem::path& file,
               std::ostream& output) {
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << demoPage(drawn) << std::flush;
    if (!stream) throw std::runtime_error(file.string() + ": the page cannot be written");
    output << file.filename().string() << std::endl;
}

class Pictures {
  public:
    Pictures(std::filesystem::path folder, std::ostream& output)
        : folder_(std::move(folder)), output_(output) {}

    void add(const DemoScene& scene) {
        output_ << scene.picture << std::endl;
        drawn_.push_back(scene);
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

    void writePage() const { demo::writePage(drawn_, folder_ / "index.html", output_); }

  private:
    std::filesystem::path folder_;
    std::ostream& output_;
    std::vector<DemoScene> drawn_;
    std::vector<Captioned> phones_;
};

}  // namespace

int runDemo(const DemoOptions& options, std::ostream& output, std::ostream& errors) {
    std::filesystem::create_directories(options.pictures);
    Pictures pictures(options.pictures, output);
    int status = 0;
    std::deque<Played> playing;
    const auto finishFirst = [&] {
        const Played first = playing.front();
        playing.pop_front();
        if (finishPlaying(first)) {
            pictures.add(*first.scene);
        } else {
            errors << first.scene->name << ": the scene failed" << std::endl;
            status = 1;
        }
    };
    const std::size_t atATime = std::max(1u, std::thread::hardware_concurrency());
    for (const DemoScene& scene : demoScenes()) {
        if (playing.size() == atATime) finishFirst();
        playing.push_back(startPlaying(scene, options));
    }
    while (!playing.empty()) finishFirst();
    pictures.writeSheets();
    pictures.writePage();
    return status;
}

}  // namespace simulator::demo
