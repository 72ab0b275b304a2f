#include "simulator/scenario/outcome.hpp"

#include <algorithm>

namespace simulator::scenario {

namespace {

bool held(const Outcome& outcome) { return outcome.run && outcome.status == 0; }
bool failed(const Outcome& outcome) { return outcome.run && outcome.status != 0; }

// Each file in a row, the systems in the order in which it was run on them.
void tellMatrix(const std::vector<Outcome>& outcomes, std::ostream& output) {
    for (std::size_t i = 0; i < outcomes.size();) {
        const std::string& file = outcomes[i].file;
        std::string good, bad;
        for (; i < outcomes.size() && outcomes[i].file == file; ++i) {
            const std::string system = outcomes[i].system.empty() ? "its own" : outcomes[i].system;
            if (held(outcomes[i])) good += " " + system;
            if (failed(outcomes[i])) bad += " " + system;
        }
        output << file << ":";
        if (!good.empty()) output << " held on" << good;
        if (!good.empty() && !bad.empty()) output << ";";
        if (!bad.empty()) output << " failed on" << bad;
        output << '\n';
    }
}

}  // namespace

std::string title(const Outcome& outcome) {
    return outcome.system.empty() ? outcome.file : outcome.file + " on " + outcome.system;
}

std::string summary(const Outcome& outcome) {
    if (!outcome.run) return "not run";
    if (outcome.status == 2) return "cannot be run";
    return std::to_string(outcome.held) + " held, " + std::to_string(outcome.failed) + " failed" +
           (outcome.died ? ", the phone died" : "");
}

void tellTotal(const std::vector<Outcome>& outcomes, std::ostream& output) {
    int heldInAll = 0, failedInAll = 0;
    for (const Outcome& outcome : outcomes) {
        heldInAll += outcome.held;
        failedInAll += outcome.failed;
    }
    const auto good = std::ranges::count_if(outcomes, held);
    const auto bad = std::ranges::count_if(outcomes, failed);
    const auto left = static_cast<long>(outcomes.size()) - good - bad;
    if (bad > 0) output << "failed:\n";
    for (const Outcome& outcome : outcomes)
        if (failed(outcome)) output << "  " << title(outcome) << " (" << summary(outcome) << ")\n";
    const bool matrix = std::ranges::any_of(
        outcomes, [](const Outcome& outcome) { return !outcome.system.empty(); });
    if (matrix) tellMatrix(outcomes, output);
    output << outcomes.size() << (matrix ? " runs: " : " files: ") << good << " held, " << bad
           << " failed";
    if (left > 0) output << ", " << left << " not run";
    output << "; " << heldInAll << " expectations held, " << failedInAll << " failed" << std::endl;
}

}  // namespace simulator::scenario
