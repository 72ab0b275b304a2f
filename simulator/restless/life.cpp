#include "simulator/restless/life.hpp"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

#include "simulator/phone/soundness.hpp"
#include "simulator/runtime/black_box.hpp"
#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/session.hpp"

namespace simulator::restless {

namespace {

using nlohmann::json;

// Seconds of the processor's time for one line: a phone that takes longer hangs. Under the sanitizers, too.
constexpr rlim_t patience = 60;

void bePatient() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto until = static_cast<rlim_t>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) + patience;
    const rlimit limit{until, RLIM_INFINITY};
    setrlimit(RLIMIT_CPU, &limit);
}

// Without numbers, addresses and names of objects in it.
std::string signOf(const std::string& what) {
    std::string sign;
    for (const char each : what) {
        const bool digit = each >= '0' && each <= '9';
        if (digit && !sign.empty() && sign.back() == '#') continue;
        sign += digit ? '#' : each;
    }
    return sign.substr(0, 160);
}

// Of what a statement failed with, only that is a fault: the others are things that a phone refuses, or
// a view that is not there.
bool isFault(const scenario::Failure& failure, Phone& phone) {
    return failure.statement.starts_with("expect") ||
           failure.message.find(": raised ") != std::string::npos || phone.crashed().has_value();
}

struct Living {
    const std::vector<Event>& events;
    const scenario::PhoneMaker& makePhone;
    Outcome outcome = {};
    OpenToolbars open = {};

    void countOpenings() {
        const OpenToolbars now = openToolbars();
        const bool behind = now.behindApplications && !open.behindApplications;
        outcome.openings += (now.aboveSpringBoard && !open.aboveSpringBoard) + behind;
        outcome.behind += behind;
        open = now;
    }

    void live() {
        std::unique_ptr<Phone> phone = makePhone({});
        std::ostringstream unheard;
        scenario::Session session(*phone, "restless", {}, unheard);
        scenario::Parser parser;
        session.onFailure([&](const scenario::Failure& failure) {
            if (isFault(failure, *phone)) {
                outcome.finding = {outcome.run, failure.message, signOf(failure.message)};
            } else {
                ++outcome.refused;
            }
        });
        for (; outcome.run < events.size() && !outcome.finding; ++outcome.run) {
            const auto number = static_cast<int>(outcome.run);
            const auto statement = parser.line(events[outcome.run].line, number);
            if (!statement) continue;
            bePatient();
            session.run(*statement);
            unheard.str("");
            countOpenings();
            const Event& event = events[outcome.run];
            if (outcome.finding || !event.line.starts_with("expect")) continue;
            outcome.rests += event.kind == rest;
            outcome.proofs += event.kind == proof;
        }
    }
};

std::string told(const Outcome& outcome) {
    json text = {{"openings", outcome.openings}, {"behind", outcome.behind},
                 {"rests", outcome.rests},       {"proofs", outcome.proofs},
                 {"refused", outcome.refused},   {"run", outcome.run}};
    if (outcome.finding)
        text["finding"] = {outcome.finding->line, outcome.finding->what, outcome.finding->sign};
    return text.dump(-1, ' ', false, json::error_handler_t::replace);
}

Outcome understood(const std::string& text) {
    const json parts = json::parse(text);
    Outcome outcome{.openings = parts["openings"],
                    .behind = parts["behind"],
                    .rests = parts["rests"],
                    .proofs = parts["proofs"],
                    .refused = parts["refused"],
                    .run = parts["run"],
                    .finding = std::nullopt};
    if (parts.contains("finding"))
        outcome.finding = {parts["finding"][0], parts["finding"][1], parts["finding"][2]};
    return outcome;
}

void say(int voice, const std::string& text) {
    for (std::size_t written = 0; written < text.size();) {
        const ssize_t count = ::write(voice, text.data() + written, text.size() - written);
        if (count < 0 && errno != EINTR) return;
        written += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
}

std::string heard(int voice) {
    std::string text;
    std::array<char, 4096> bytes;
    for (;;) {
        const ssize_t count = read(voice, bytes.data(), bytes.size());
        if (count > 0) text.append(bytes.data(), static_cast<std::size_t>(count));
        if (count == 0 || (count < 0 && errno != EINTR)) return text;
    }
}

void beQuiet() {
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
}

}  // namespace

Life::Life(const std::vector<Event>& events, const scenario::PhoneMaker& makePhone, bool quiet)
    : events_(events) {
    std::array<int, 2> ends{-1, -1};
    box_ = BlackBox::make();
    std::cout << std::flush;
    std::cerr << std::flush;
    if (box_ == nullptr || pipe2(ends.data(), O_CLOEXEC) != 0 || (process_ = fork()) < 0)
        throw std::runtime_error(std::string("no process could be started: ") +
                                 std::strerror(errno));
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (quiet) beQuiet();
        BlackBox::use(box_);
        Living living{.events = events_, .makePhone = makePhone};
        living.live();
        say(ends[1], told(living.outcome));
        box_->end();
        std::exit(0);
    }
    close(ends[1]);
    voice_ = ends[0];
}

Life::~Life() {
    if (voice_ >= 0) {
        kill(process_, SIGKILL);
        outcome();
    }
    BlackBox::discard(box_);
}

Outcome Life::outcome() {
    const std::string text = heard(voice_);
    close(std::exchange(voice_, -1));
    int status = 0;
    while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    const bool ended = box_->ended() && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return ended && !text.empty() ? understood(text) : buried(status);
}

Outcome Life::buried(int status) const {
    std::error_code error;
    if (!box_->root().empty()) std::filesystem::remove_all(box_->root(), error);
    const std::string cause = WIFSIGNALED(status) ? std::string(strsignal(WTERMSIG(status)))
                                                  : "its process ended with status " +
                                                        std::to_string(WEXITSTATUS(status));
    std::string what = "the phone died: " + cause;
    const std::vector<std::string> inFlight = box_->inFlight();
    if (!inFlight.empty()) what += ", in " + inFlight.back();
    const auto line = std::min(static_cast<std::size_t>(box_->line()), events_.size() - 1);
    Outcome outcome;
    outcome.run = line + 1;
    outcome.finding = {line, what, signOf(what)};
    return outcome;
}

}  // namespace simulator::restless
