#include "simulator/live/own_process.hpp"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <iostream>
#include <stdexcept>

namespace simulator::live {

namespace {

volatile std::sig_atomic_t wasInterrupted = 0;
volatile pid_t phoneProcess = 0;

void interrupt(int) {
    wasInterrupted = 1;
    if (phoneProcess > 0) kill(phoneProcess, SIGTERM);
}

// Does not return into what its parent does when the work is done.
[[noreturn]] void runHere(const std::function<int()>& phone) {
    phoneProcess = 0;
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    int status = 1;
    try {
        status = phone();
    } catch (const std::exception& error) {
        std::cerr << "vantori-simulator: " << error.what() << '\n';
    }
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(status);
}

}  // namespace

void hearSignals() {
    struct sigaction action{};
    action.sa_handler = interrupt;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

bool interrupted() { return wasInterrupted != 0; }

int runApart(const std::function<int()>& phone) {
    std::cout.flush();
    const pid_t process = fork();
    if (process < 0) throw std::runtime_error("no process for the phone can be started");
    if (process == 0) runHere(phone);
    phoneProcess = process;
    if (interrupted()) kill(process, SIGTERM);  // it came in between
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
        if (errno != EINTR) throw std::runtime_error("the phone's process is lost");
    phoneProcess = 0;
    return status;
}

}  // namespace simulator::live
