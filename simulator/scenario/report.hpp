// The report of a run: a page (index.html) that shows what failed and how the phone looked then, and
// the same for machines (junit.xml). Pictures are files beside them.
#pragma once

#include <filesystem>
#include <vector>

#include "simulator/scenario/outcome.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/scenario/session.hpp"

namespace simulator::scenario {

// In the phone's process: keeps each failure while the phone is still as it was, in files that the
// process that started it takes up. So nothing is lost when the phone dies.
class FailureNotes {
  public:
    FailureNotes(std::filesystem::path folder, std::size_t fileNumber)
        : folder_(std::move(folder)), fileNumber_(fileNumber) {}
    void add(Phone& phone, const Failure& failure);

  private:
    std::filesystem::path folder_;
    std::size_t fileNumber_;
    int count_ = 0;
};

// In the process that started the phone: what was noted of that file; the notes are gone then.
std::vector<RecordedFailure> takeNotes(const std::filesystem::path& folder, std::size_t fileNumber);

// Throws std::runtime_error when the folder cannot be written to.
void writeReport(const std::filesystem::path& folder, const std::vector<Outcome>& outcomes);

// The texts of the two files.
std::string reportPage(const std::vector<Outcome>& outcomes);
std::string reportForMachines(const std::vector<Outcome>& outcomes);

}  // namespace simulator::scenario
