// Failures on their way from the phone's process to the report: one JSON text a line.
#include <fstream>
#include <nlohmann/json.hpp>
#include <system_error>

#include "simulator/scenario/report.hpp"

namespace simulator::scenario {
namespace {

constexpr int mostWithPictures = 20;  // of one file
constexpr std::size_t journalLines = 30;

std::filesystem::path notesFile(const std::filesystem::path& folder, std::size_t fileNumber) {
    return folder / ("." + std::to_string(fileNumber + 1) + ".notes");
}

// A part of the picture of a failure that the phone may refuse, as one that is off does.
template <class Work>
auto unlessRefused(Work work) -> decltype(work()) {
    try {
        return work();
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace

void FailureNotes::add(Phone& phone, const Failure& failure) {
    std::filesystem::create_directories(folder_);
    const std::string name = std::to_string(fileNumber_ + 1) + "-" + std::to_string(++count_);
    nlohmann::json note{{"line", failure.line},         {"statement", failure.statement},
                        {"expected", failure.expected}, {"got", failure.got},
                        {"message", failure.message},   {"journal", phone.journal(journalLines)}};
    note["tree"] = unlessRefused([&] { return phone.tree(nullptr); });
    if (count_ <= mostWithPictures) {
        note["picture"] = unlessRefused([&]() -> std::string {
            phone.shot(folder_ / (name + ".png"), 1);
            return name + ".png";
        });
        note["film"] = unlessRefused([&]() -> std::string {
            phone.filmOfLastSecond(folder_ / (name + "-film.png"));
            return name + "-film.png";
        });
    }
    // Bytes that are no text are replaced rather than refused.
    std::ofstream(notesFile(folder_, fileNumber_), std::ios::app)
        << note.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << std::endl;
}

std::vector<RecordedFailure> takeNotes(const std::filesystem::path& folder,
                                       std::size_t fileNumber) {
    std::vector<RecordedFailure> failures;
    const std::filesystem::path file = notesFile(folder, fileNumber);
    std::ifstream input(file);
    for (std::string line; std::getline(input, line);) {
        // The last one of a phone that died may be cut off.
        const auto note = nlohmann::json::parse(line, nullptr, false);
        if (note.is_discarded()) continue;
        failures.push_back({.line = note.value("line", 0),
                            .statement = note.value("statement", ""),
                            .expected = note.value("expected", ""),
                            .got = note.value("got", ""),
                            .message = note.value("message", ""),
                            .picture = note.value("picture", ""),
                            .film = note.value("film", ""),
                            .tree = note.value("tree", ""),
                            .journal = note.value("journal", std::vector<std::string>())});
    }
    std::error_code error;
    std::filesystem::remove(file, error);
    return failures;
}

}  // namespace simulator::scenario
