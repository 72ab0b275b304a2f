// Files in processes of their own: started, listened to, and told of when they have died.
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
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
#include <utility>

#include "simulator/runtime/black_box.hpp"
#include "simulator/scenario/outcome.hpp"
#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/report.hpp"
#include "simulator/scenario/runner.hpp"
#include "simulator/scenario/session.hpp"

namespace simulator::scenario {

namespace {

using Clock = std::chrono::steady_clock;

// What of a run one phone does: a file, in a matrix on one of the systems.
struct Job {
    std::string file;
    std::string system;            // of a matrix
    std::filesystem::path folder;  // its name below the folders that jobs share
};

bool saysItsSystem(const std::string& file) {
    try {
        for (const Statement& statement : parse(readFile(file)))
            if (statement.form->keyword() == "system") return true;
        return false;
    } catch (const std::exception&) {
        return true;  // what is wrong with it is told once
    }
}

// Folders are named after the files, and told apart where two have one name.
std::vector<Job> jobsOf(const std::vector<std::string>& files,
                        const std::vector<std::string>& matrix) {
    std::vector<Job> jobs;
    std::set<std::string> taken;
    for (const std::string& file : files) {
        const std::string stem = std::filesystem::path(file).stem().string();
        std::string name = stem;
        for (int number = 2; !taken.insert(name).second; ++number)
            name = stem + "-" + std::to_string(number);
        if (matrix.empty() || saysItsSystem(file))
            jobs.push_back({file, "", name});
        else
            for (const std::string& system : matrix)
                jobs.push_back({file, system, std::filesystem::path(system) / name});
    }
    return jobs;
}

// The signals that end a program come as something to read, so that phones are ended and cleared up
// after before this process goes the way that it would have gone.
class EndingSignals {
  public:
    EndingSignals() {
        sigemptyset(&signals_);
        for (const int each : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals_, each);
        sigprocmask(SIG_BLOCK, &signals_, &before_);
        descriptor_ = signalfd(-1, &signals_, SFD_CLOEXEC | SFD_NONBLOCK);
    }
    ~EndingSignals() {
        if (descriptor_ >= 0) close(descriptor_);
        unblock();
        if (received_ != 0) std::raise(received_);
    }
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;

    int descriptor() const { return descriptor_; }
    // The first one that has come, or 0.
    int take() {
        signalfd_siginfo info{};
        if (read(descriptor_, &info, sizeof info) == sizeof info && received_ == 0)
            received_ = static_cast<int>(info.ssi_signo);
        return received_;
    }
    void unblock() const { sigprocmask(SIG_SETMASK, &before_, nullptr); }

  private:
    sigset_t signals_{}, before_{};
    int descriptor_ = -1;
    int received_ = 0;
};

struct Child {
    pid_t process = 0;
    int said = -1;  // what it says comes from there, unless it speaks for itself; ends with it
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
          jobs_(jobsOf(files, options.matrix)),
          children_(jobs_.size()),
          alone_(jobs_.size() == 1) {
        for (const Job& job : jobs_) outcomes_.push_back({.file = job.file, .system = job.system});
    }

    int run() {
        std::size_t next = 0;
        while (next < jobs_.size() || running_ > 0) {
            while (next < jobs_.size() && running_ < std::max(options_.jobs, 1U) && !stopping_)
                start(next++);
            if (running_ > 0) listen();
            tellFinished();
            if (running_ == 0 && stopping_) break;
        }
        if (!alone_) tellTotal(outcomes_, output_);
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
        if (pipe2(ends.data(), O_CLOEXEC) != 0) return cannotStart(index);
        if (!options_.report.empty()) takeNotes(options_.report, index);  // of an earlier run
        child.box = BlackBox::make();
        child.began = Clock::now();
        std::cout << std::flush;
        std::cerr << std::flush;
        child.process = child.box == nullptr ? -1 : fork();
        if (child.process < 0) return cannotStart(index);
        if (child.process == 0) beThePhone(index, ends[1]);
        close(ends[1]);
        child.said = ends[0];
        ++running_;
    }

    void cannotStart(std::size_t index) {
        Outcome& outcome = outcomes_[index];
        outcome.run = true;
        outcome.status = 2;
        outcome.said =
            outcome.file + ": no process could be started: " + std::strerror(errno) + "\n";
    }

    [[noreturn]] void beThePhone(std::size_t index, int voice) {
        signals_.unblock();
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        // Kept open to the end, which is how the end is noticed.
        if (listens()) {
            dup2(voice, STDOUT_FILENO);
            dup2(voice, STDERR_FILENO);
        }
        BlackBox::use(children_[index].box);
        FailureHearer record;
        if (!options_.report.empty())
            record = [notes = FailureNotes(options_.report, index)](
                         Phone& phone, const Failure& failure) mutable {
                notes.add(phone, failure);
            };
        const int status = runFile(jobs_[index].file, optionsOf(jobs_[index]), makePhone_,
                                   std::cout, std::cerr, record);
        children_[index].box->end();
        std::exit(status);
    }

    RunOptions optionsOf(const Job& job) const {
        RunOptions options = options_;
        if (!options.root.empty() && !alone_) options.root /= job.folder;
        if (job.system.empty()) return options;
        options.system = job.system;
        options.real = true;
        if (options.pictures.empty())
            options.pictures = std::filesystem::path(job.file).parent_path();
        options.pictures /= job.system;
        return options;
    }

    // Waits until some phone says something or is gone.
    void listen() {
        std::vector<pollfd> watched{{signals_.descriptor(), POLLIN, 0}};
        std::vector<std::size_t> whose;
        for (std::size_t i = 0; i < children_.size(); ++i) {
            if (children_[i].said < 0) continue;
            watched.push_back({children_[i].said, POLLIN, 0});
            whose.push_back(i);
        }
        if (poll(watched.data(), watched.size(), -1) < 0) return;
        if (watched[0].revents != 0) endAll(signals_.take());
        for (std::size_t i = 0; i < whose.size(); ++i)
            if (watched[i + 1].revents != 0) hear(whose[i]);
    }

    void endAll(int signal) {
        stopping_ = true;
        for (const Child& child : children_)
            if (child.said >= 0) kill(child.process, signal);
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
        close(std::exchange(child.said, -1));
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

    static void tell(const char* heading, const std::vector<std::string>& lines,
                     std::ostream& text) {
        if (!lines.empty()) text << "  " << heading << ":\n";
        for (const std::string& line : lines) text << "    " << line << '\n';
    }

    // The phone ended without coming to the end of its file.
    void bury(Outcome& outcome, const BlackBox& box, int status) {
        const bool killed = WIFSIGNALED(status);
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
                                .message = cause,
                                .journal = box.journal()};
        std::ostringstream text;
        text << outcome.file;
        if (box.line() > 0) {
            failure.message = box.statement() + ": " + cause;
            text << ":" << box.line();
        }
        text << ": " << failure.message << '\n';
        const std::vector<std::string> inFlight = box.inFlight();
        for (const std::string& message : inFlight) failure.tree += message + "\n";
        tell("the messages in flight, the outermost first", inFlight, text);
        tell("the last lines of the journal", failure.journal, text);
        text << outcome.held << " held, " << outcome.failed << " failed\n";
        outcome.said += text.str();
        outcome.failures.push_back(std::move(failure));
        std::error_code error;
        if (!box.root().empty()) std::filesystem::remove_all(box.root(), error);
    }

    // In the order of the files, however they finish.
    void tellFinished() {
        for (; told_ < outcomes_.size() && outcomes_[told_].run; ++told_) {
            const Outcome& outcome = outcomes_[told_];
            if (alone_) {
                output_ << outcome.said << std::flush;
                continue;
            }
            const std::string counts = summary(outcome) + "\n";
            output_ << "[" << told_ + 1 << "/" << outcomes_.size() << "] " << title(outcome);
            // What says nothing but that all held is one line.
            if (outcome.said == counts)
                output_ << ": " << counts << std::flush;
            else
                output_ << '\n' << outcome.said << std::flush;
        }
    }

    const RunOptions& options_;
    const PhoneMaker& makePhone_;
    std::ostream& output_;
    EndingSignals signals_;
    std::vector<Job> jobs_;
    std::vector<Child> children_;
    std::vector<Outcome> outcomes_;
    bool alone_;
    bool stopping_ = false;
    unsigned running_ = 0;
    std::size_t told_ = 0;
};

}  // namespace

int runFiles(const std::vector<std::string>& files, const RunOptions& options,
             const PhoneMaker& makePhone, std::ostream& output) {
    return Run(files, options, makePhone, output).run();
}

}  // namespace simulator::scenario
