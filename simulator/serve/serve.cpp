#include "simulator/serve/serve.hpp"

#include <sys/wait.h>

#include <chrono>
#include <cstring>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>

#include "simulator/foundation/property_list.hpp"
#include "simulator/live/own_process.hpp"
#include "simulator/phone/temporary_root.hpp"
#include "simulator/serve/key.hpp"
#include "simulator/serve/listening.hpp"
#include "simulator/serve/page_files.hpp"
#include "simulator/serve/served_phone.hpp"

namespace simulator::serve {

namespace {

using Moment = std::chrono::steady_clock::time_point;

constexpr auto shortLife = std::chrono::seconds(5);  // one that dies sooner would die again

// What the phone's process leaves for the next, in a folder of its own: which phone is wanted.
class Note {
  public:
    explicit Note(const std::filesystem::path& folder) : file_(folder / "wanted") {}

    void leave(const StartRequest& wanted) const {
        writeFile(file_, nlohmann::json{{"device", wanted.device},
                                        {"system", wanted.system},
                                        {"scenario", wanted.scenario}}
                             .dump());
    }
    StartRequest read() const {
        const auto wanted = nlohmann::json::parse(readFile(file_).value_or(""), nullptr, false);
        if (wanted.is_discarded()) return {};
        return {wanted.value("device", ""), wanted.value("system", ""),
                wanted.value("scenario", "")};
    }

  private:
    std::filesystem::path file_;
};

struct Life {  // of one phone
    live::LiveOptions options;
    std::string scenario;
    std::filesystem::path folder;  // for what does not belong to the phone
};

int runPhone(const Life& life, const ServerOptions& server) {
    ServedPhone phone(life.options, life.folder);
    const bool on =
        life.scenario.empty() ? phone.boot(std::cerr) : phone.boot(life.scenario, std::cerr);
    if (!on) return 1;
    const auto wanted = phone.serve(server, &live::interrupted);
    if (wanted) Note(life.folder).leave(*wanted);
    return wanted ? live::startAnew : 0;
}

// What the next phone is like: the model that is wanted, with what this one has kept.
void follow(Life& life, const StartRequest& wanted) {
    if (!wanted.device.empty()) life.options.device = wanted.device;
    if (!wanted.system.empty()) life.options.system = wanted.system;
    life.scenario = wanted.scenario;
    // These were for the first one: the settings are in its file by now.
    life.options.settings.clear();
    life.options.recording.clear();
}

// A scenario says itself what its phone is, and finds a new one.
Life forScenario(const Life& life, const std::filesystem::path& root) {
    Life result = life;
    result.options = {};
    result.options.root = root;
    result.options.pictures = life.options.pictures;
    return result;
}

}  // namespace

int runServe(const ServeOptions& options, std::ostream& output) {
    const Listening listening(options.listen, options.port);
    const TemporaryRoot root(options.phone.root);
    const TemporaryRoot folder({});
    Life life{options.phone, {}, folder.path()};
    life.options.root = root.path();
    ServerOptions server;
    server.listening = listening.descriptor();
    server.key = makeKey();
    server.files = pageFiles();
    live::hearSignals();
    output << "The phone is at " << listening.origin() << "/?key=" << server.key << '\n'
           << "Its files are in " << root.path().string() << "; control-c ends it." << std::endl;
    for (;;) {
        std::optional<TemporaryRoot> ownRoot;
        if (!life.scenario.empty()) ownRoot.emplace("");
        const Life next = ownRoot ? forScenario(life, ownRoot->path()) : life;
        const Moment begun = std::chrono::steady_clock::now();
        const int status = live::runApart([&] { return runPhone(next, server); });
        if (live::interrupted()) return 0;
        if (WIFEXITED(status) && WEXITSTATUS(status) == live::startAnew) {
            follow(life, Note(life.folder).read());
            continue;
        }
        if (WIFEXITED(status) && life.scenario.empty()) return WEXITSTATUS(status);
        if (WIFSIGNALED(status))
            output << "The phone's process died (" << strsignal(WTERMSIG(status)) << ")."
                   << std::endl;
        if (std::chrono::steady_clock::now() - begun < shortLife && life.scenario.empty()) return 1;
        life.scenario.clear();
    }
}

}  // namespace simulator::serve
