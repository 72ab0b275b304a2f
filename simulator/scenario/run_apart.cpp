// Files in processes of their own: started, listened to, and told of when they have died.
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <set>
#include <sstream>

#include "simulator/runtime/black_box.hpp"
#include "simulator/scenario/outcome.hpp"
#include "simulator/scenario/report.hpp"
#include "simulator/scenario/runner.hpp"
#include "simulator/scenario/session.hpp"

namespace simulator::scenario {

std::string summary(const Outcome& outcome) {
    if (!outcome.run) return "not run";
    if (outcome.status == 2) return "cannot be run";
    return std::to_string(outcome.held) + " held, " + std::to_string(outcome.failed) + " failed" +
           (outcome.died ? ", the phone died" : "");
}

namespace {

using Clock = std::chrono::steady_clock;

// The folder of each file under --root: named after it, and told apart where two have one name.
std::vector<std::filesystem::path> rootsOf(const std::vector<std::string>& files,
                                           const std::filesystem::path& root) {
    std::vector<std::filesystem::path> roots;
    std::set<std::string> taken;
    for (const std::string& file : files) {
        const std::string stem = std::filesystem::path(file).stem().string();
        std::string name = stem;
        for (int number = 2; !taken.insert(name).second; ++number)
            name = stem + "-" + std::to_string(number);
        roots.push_back(root.empty() || files.size() == 1 ? root : root / name);
    }
    return roots;
}

struct Child {
    pid_t process = 0;
    int said = -1;  // what it says comes from there; -1 when it speaks for itself
    BlackBox* box = nullptr;
    Clock::time_point began;
};

class Run {
  public:
    Run(const std::vector<std::string>& files, const RunOptions& options,
        const PhoneMaker& makePhone, std::ostream& output)
        : options_(options),
          makePhone_(makePhone),
          output_(output),
          roots_(rootsOf(files, options.root)),
          children_(files.size()),
          alone_(files.size() == 1) {
        for (const std::string& file : files) outcomes_.push_back({file});
    }

    int run() {
        std::signal(SIGINT, SIG_IGN);  // the phones end by it, and are cleared up
        std::size_t next = 0;
        while (next < outcomes_.size() || running_ > 0) {
            while (next < outcomes_.size() && running_ < std::max(options_.jobs, 1U) && !stopping_)
                start(next++);
            if (running_ == 0) break;
            listen();
            tellFinished();
        }
        std::signal(SIGINT, SIG_DFL);
        if (interrupted_) std::raise(SIGINT);
        if (!alone_) tellTotal();
        if (!options_.report.empty()) writeReport(options_.report, outcomes_);
        int worst = 0;
        for (const Outcome& outcome : outcomes_) worst = std::max(worst, outcome.status);
        return worst;
    }

  private:
    bool listens() const { return !alone_ || !options_.report.empty(); }

    void start(std::size_t index) {
        Child& child = children_[index];
        std::array<int, 2> ends{-1, -1};
        if (listens() && pipe(ends.data()) != 0) return cannotStart(index);
        if (!options_.report.empty()) takeNotes(options_.report, index);  // of an earlier run
        child.box = BlackBox::make();
        child.began = Clock::now();
        std::cout << std::flush;
        std::cerr << std::flush;
        child.process = child.box == nullptr ? -1 : fork();
        if (child.process < 0) return cannotStart(index);
        if (child.process == 0) beThePhone(index, ends[1]);
        if (ends[1] >= 0) close(ends[1]);
        child.said = ends[0];
        ++running_;
    }

    void cannotStart(std::size_t index) {
        Outcome& outcome = outcomes_[index];
        outcome.run = true;
        outcome.status = 2;
        outcome.said =
            outcome.file + ": no process could be started: " + std::strerror(errno) + "\n";
        if (alone_) output_ << outcome.said << std::flush;
    }

    [[noreturn]] void beThePhone(std::size_t index, int voice) {
        std::signal(SIGINT, SIG_DFL);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (voice >= 0) {
            dup2(voice, STDOUT_FILENO);
            dup2(voice, STDERR_FILENO);
            close(voice);
        }
        BlackBox::use(children_[index].box);
        RunOptions options = options_;
        options.root = roots_[index];
        FailureHearer record;
        if (!options.report.empty())
            record = [notes = FailureNotes(options.report, index)](Phone& phone,
                                                                   const Failure& failure) mutable {
                notes.add(phone, failure);
            };
        const int status =
            runFile(outcomes_[index].file, options, makePhone_, std::cout, std::cerr, record);
        children_[index].box->end();
        std::exit(status);
    }

    // Waits until some phone says something or is gone.
    void listen() {
        if (!listens()) return finish(0);
        std::vector<pollfd> watched;
        std::vector<std::size_t> whose;
        for (std::size_t i = 0; i < children_.size(); ++i) {
            if (children_[i].said < 0) continue;
            watched.push_back({children_[i].said, POLLIN, 0});
            whose.push_back(i);
        }
        if (poll(watched.data(), watched.size(), -1) < 0) return;
        for (std::size_t i = 0; i < watched.size(); ++i)
            if (watched[i].revents != 0) hear(whose[i]);
    }

    void hear(std::size_t index) {
        std::array<char, 4096> bytes;
        const ssize_t count = read(children_[index].said, bytes.data(), bytes.size());
        if (count > 0)
            outcomes_[index].said.append(bytes.data(), static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            finish(index);
    }

    void finish(std::size_t index) {
        Child& child = children_[index];
        Outcome& outcome = outcomes_[index];
        int status = 0;
        while (waitpid(child.process, &status, 0) < 0 && errno == EINTR) {
        }
        if (child.said >= 0) close(std::exchange(child.said, -1));
        --running_;
        outcome.run = true;
        outcome.seconds = std::chrono::duration<double>(Clock::now() - child.began).count();
        outcome.held = child.box->held();
        outcome.failed = child.box->failed();
        if (!options_.report.empty()) outcome.failures = takeNotes(options_.report, index);
        if (WIFEXITED(status) && child.box->ended())
            outcome.status = WEXITSTATUS(status);
        else
            bury(outcome, *child.box, status);
        if (outcome.status != 0 && options_.stopAtFirst) stopping_ = true;
        BlackBox::discard(std::exchange(child.box, nullptr));
    }

    // The phone ended without coming to the end of its file.
    void bury(Outcome& outcome, const BlackBox& box, int status) {
        const bool killed = WIFSIGNALED(status);
        if (killed && WTERMSIG(status) == SIGINT) interrupted_ = stopping_ = true;
        outcome.died = true;
        outcome.status = 1;
        ++outcome.failed;
        const std::string cause =
            "the phone died: " + (killed ? std::string(strsignal(WTERMSIG(status)))
                                         : "something ended its process with status " +
                                               std::to_string(WEXITSTATUS(status)));
        RecordedFailure failure{.line = box.line(),
                                .statement = box.statement(),
                                .expected = {},
                                .got = cause,
                                .message = box.statement() + ": " + cause};
        std::ostringstream text;
        text << outcome.file << ":" << failure.line << ": " << failure.message << '\n';
        text << "  messages in flight:\n";
        for (const std::string& message : box.inFlight()) {
            text << "    " << message << '\n';
            failure.tree += message + "\n";
        }
        text << "  the last lines of the journal:\n";
        failure.journal = box.journal();
        for (const std::string& line : failure.journal) text << "    " << line << '\n';
        text << outcome.held << " held, " << outcome.failed << " failed\n";
        outcome.said += text.str();
        outcome.failures.push_back(std::move(failure));
        if (alone_ && !listens()) output_ << text.str() << std::flush;
        std::error_code error;
        if (!box.root().empty()) std::filesystem::remove_all(box.root(), error);
    }

    // In the order of the files, however they finish.
    void tellFinished() {
        for (; told_ < outcomes_.size() && outcomes_[told_].run; ++told_) {
            const Outcome& outcome = outcomes_[told_];
            if (alone_) {
                if (listens()) output_ << outcome.said << std::flush;
                continue;
            }
            const std::string counts = summary(outcome) + "\n";
            output_ << "[" << told_ + 1 << "/" << outcomes_.size() << "] " << outcome.file;
            // What says nothing but that all held is one line.
            if (outcome.said == counts)
                output_ << ": " << counts << std::flush;
            else
                output_ << '\n' << outcome.said << std::flush;
        }
    }

    void tellTotal() {
        int held = 0, failed = 0, good = 0, bad = 0, left = 0;
        for (const Outcome& outcome : outcomes_) {
            held += outcome.held;
            failed += outcome.failed;
            ++(!outcome.run ? left : outcome.status == 0 ? good : bad);
        }
        if (bad > 0) output_ << "failed:\n";
        for (const Outcome& outcome : outcomes_)
            if (outcome.run && outcome.status != 0)
                output_ << "  " << outcome.file << " (" << summary(outcome) << ")\n";
        output_ << outcomes_.size() << " files: " << good << " held, " << bad << " failed";
        if (left > 0) output_ << ", " << left << " not run";
        output_ << "; " << held << " expectations held, " << failed << " failed" << std::endl;
    }

    const RunOptions& options_;
    const PhoneMaker& makePhone_;
    std::ostream& output_;
    std::vector<std::filesystem::path> roots_;
    std::vector<Child> children_;
    std::vector<Outcome> outcomes_;
    bool alone_;
    bool stopping_ = false;
    bool interrupted_ = false;
    unsigned running_ = 0;
    std::size_t told_ = 0;
};

}  // namespace

int runFiles(const std::vector<std::string>& files, const RunOptions& options,
             const PhoneMaker& makePhone, std::ostream& output) {
    return Run(files, options, makePhone, output).run();
}

}  // namespace simulator::scenario
