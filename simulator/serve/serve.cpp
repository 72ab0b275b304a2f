#include "simulator/serve/serve.hpp"

#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>

#include "simulator/foundation/property_list.hpp"
#include "simulator/phone/temporary_root.hpp"
#include "simulator/serve/key.hpp"
#include "simulator/serve/listening.hpp"
#include "simulator/serve/page_files.hpp"
#include "simulator/serve/served_phone.hpp"

namespace simulator::serve {

namespace {

using Moment = std::chrono::steady_clock::time_point;

constexpr int startAnew = 75;                        // the status of a phone that wants that
constexpr auto shortLife = std::chrono::seconds(5);  // one that dies sooner would die again

volatile std::sig_atomic_t interrupted = 0;
volatile pid_t phoneProcess = 0;

// The phone ends in its own way.
void interrupt(int) {
    interrupted = 1;
    if (phoneProcess > 0) kill(phoneProcess, SIGTERM);
}

void hearSignals() {
    struct sigaction action{};
    action.sa_handler = interrupt;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

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

// Does not return into what its parent does when the work is done.
[[noreturn]] void runPhone(const Life& life, const ServerOptions& server) {
    phoneProcess = 0;
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    int status = 1;
    try {
        ServedPhone phone(life.options, life.folder);
        const bool on =
            life.scenario.empty() ? phone.boot(std::cerr) : phone.boot(life.scenario, std::cerr);
        if (on) {
            const auto wanted = phone.serve(server, [] { return interrupted != 0; });
            if (wanted) Note(life.folder).leave(*wanted);
            status = wanted ? startAnew : 0;
        }
    } catch (const std::exception& error) {
        std::cerr << "vantori-simulator: " << error.what() << '\n';
    }
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(status);
}

int statusOf(pid_t process) {
    phoneProcess = process;
    if (interrupted != 0) kill(process, SIGTERM);  // it came in between
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
        if (errno != EINTR) throw std::runtime_error("the phone's process is lost");
    phoneProcess = 0;
    return status;
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
    umask(077);  // what is written here is its owner's alone
    const Listening listening(options.listen, options.port);
    const TemporaryRoot root(options.phone.root);
    const TemporaryRoot folder({});
    Life life{options.phone, {}, folder.path()};
    life.options.root = root.path();
    ServerOptions server;
    server.listening = listening.descriptor();
    server.key = makeKey();
    server.files = pageFiles();
    hearSignals();
    output << "The phone is at " << listening.origin() << "/?key=" << server.key << '\n'
           << "Its files are in " << root.path().string() << "; control-c ends it." << std::endl;
    for (;;) {
        std::optional<TemporaryRoot> ownRoot;
        if (!life.scenario.empty()) ownRoot.emplace("");
        const Life next = ownRoot ? forScenario(life, ownRoot->path()) : life;
        const Moment begun = std::chrono::steady_clock::now();
        const pid_t process = fork();
        if (process < 0) throw std::runtime_error("no process for the phone can be started");
        if (process == 0) runPhone(next, server);
        const int status = statusOf(process);
        if (interrupted != 0) return 0;
        if (WIFEXITED(status) && WEXITSTATUS(status) == startAnew) {
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
