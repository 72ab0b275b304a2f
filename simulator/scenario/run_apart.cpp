// Several files, each on a phone in a process of its own. The processes are forked from this one, which was
// started once for all of them: what loading libraries and preparing Foundation costs is paid once, under an
// emulator even what translating that code costs.
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "simulator/scenario/runner.hpp"

namespace simulator::scenario {

namespace {

constexpr int someFailed = 1;
constexpr int notRun = 2;

struct Outcome {
    pid_t process = 0;
    int said = -1;  // a file in memory, of what the process says
    bool ended = false;
    int status = 0;
    std::string text;
};

std::string contentsOf(int file) {
    std::string text;
    std::array<char, 4096> bytes;
    lseek(file, 0, SEEK_SET);
    for (ssize_t count = 0; (count = read(file, bytes.data(), bytes.size())) > 0;)
        text.append(bytes.data(), static_cast<std::size_t>(count));
    return text;
}

class Run {
  public:
    Run(const std::vector<std::string>& files, const RunOptions& options,
        const PhoneMaker& makePhone, std::ostream& output)
        : files_(files),
          options_(options),
          makePhone_(makePhone),
          output_(output),
          outcomes_(files.size()) {}

    int run() {
        for (std::size_t next = 0; told_ < files_.size();) {
            while (next < files_.size() && running_ < std::max(options_.jobs, 1U)) start(next++);
            if (running_ > 0) waitForOne();
            tellEnded();
        }
        tellTotal();
        return std::ranges::max(outcomes_, {}, &Outcome::status).status;
    }

  private:
    void start(std::size_t index) {
        Outcome& outcome = outcomes_[index];
        outcome.said = memfd_create("scenario", MFD_CLOEXEC);
        output_ << std::flush;
        std::cout << std::flush;
        std::cerr << std::flush;
        outcome.process = outcome.said < 0 ? -1 : fork();
        if (outcome.process == 0) beThePhone(files_[index], outcome.said);
        if (outcome.process > 0) {
            ++running_;
            return;
        }
        outcome.ended = true;
        outcome.status = notRun;
        outcome.text = std::string("no process could be started: ") + std::strerror(errno) + "\n";
    }

    [[noreturn]] void beThePhone(const std::string& file, int said) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(said, STDOUT_FILENO);
        dup2(said, STDERR_FILENO);
        std::cout << std::unitbuf;  // what it said is kept should it die
        RunOptions options = options_;
        if (!options.root.empty()) options.root /= std::filesystem::path(file).stem();
        std::exit(runFile(file, options, makePhone_, std::cout, std::cerr));
    }

    void waitForOne() {
        int status = 0;
        const pid_t process = wait(&status);
        const auto found = std::ranges::find(outcomes_, process, &Outcome::process);
        if (process <= 0 || found == outcomes_.end()) return;
        --running_;
        found->ended = true;
        found->text = contentsOf(found->said);
        close(found->said);
        if (WIFEXITED(status)) {
            found->status = WEXITSTATUS(status);
            return;
        }
        found->status = someFailed;
        found->text += "the phone was ended by signal " + std::to_string(WTERMSIG(status)) + " (" +
                       strsignal(WTERMSIG(status)) + ")\n";
    }

    // In the order of the files, however they end.
    void tellEnded() {
        for (; told_ < files_.size() && outcomes_[told_].ended; ++told_)
            output_ << files_[told_] << '\n' << outcomes_[told_].text << std::flush;
    }

    void tellTotal() {
        const auto failed =
            std::ranges::count_if(outcomes_, [](const Outcome& one) { return one.status != 0; });
        if (failed > 0) output_ << "failed:\n";
        for (std::size_t i = 0; i < files_.size(); ++i)
            if (outcomes_[i].status != 0) output_ << "  " << files_[i] << '\n';
        output_ << files_.size() << " files: " << files_.size() - static_cast<std::size_t>(failed)
                << " held, " << failed << " failed" << std::endl;
    }

    const std::vector<std::string>& files_;
    const RunOptions& options_;
    const PhoneMaker& makePhone_;
    std::ostream& output_;
    std::vector<Outcome> outcomes_;
    unsigned running_ = 0;
    std::size_t told_ = 0;
};

}  // namespace

int runFiles(const std::vector<std::string>& files, const RunOptions& options,
             const PhoneMaker& makePhone, std::ostream& output) {
    return Run(files, options, makePhone, output).run();
}

}  // namespace simulator::scenario
