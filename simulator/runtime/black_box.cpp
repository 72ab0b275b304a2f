#include "simulator/runtime/black_box.hpp"

#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace simulator {

namespace {

// Appends as much of the text as there is room for; always ended by a zero.
template <std::size_t size>
std::size_t append(char (&room)[size], std::size_t used, std::string_view text) {
    const std::size_t count = std::min(text.size(), size - 1 - used);
    std::memcpy(room + used, text.data(), count);
    room[used + count] = '\0';
    return used + count;
}

}  // namespace

BlackBox* BlackBox::current_ = nullptr;

BlackBox* BlackBox::make() {
    // Zero bytes are an empty box.
    void* memory =
        mmap(nullptr, sizeof(BlackBox), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return memory == MAP_FAILED ? nullptr : static_cast<BlackBox*>(memory);
}

void BlackBox::discard(BlackBox* box) {
    if (box) munmap(box, sizeof(BlackBox));
}

void BlackBox::use(BlackBox* box) { current_ = box; }

void BlackBox::statement(int line, std::string_view text) {
    line_ = line;
    append(statement_, 0, text);
}

void BlackBox::root(std::string_view folder) { append(root_, 0, folder); }

void BlackBox::counts(int held, int failed) {
    held_ = held;
    failed_ = failed;
}

void BlackBox::enter(std::size_t depth, std::string_view message) {
    if (depth < deepest) append(messages_[depth], 0, message);
    depth_ = static_cast<std::uint32_t>(depth + 1);
}

void BlackBox::note(double time, std::string_view word, std::string_view name) {
    Note& place = journal_[notes_++ % journalLines];
    place.time = time;
    std::size_t used = append(place.text, 0, word);
    used = append(place.text, used, " ");
    append(place.text, used, name);
}

std::vector<std::string> BlackBox::inFlight() const {
    std::vector<std::string> result;
    for (std::size_t i = 0; i < std::min<std::size_t>(depth_, deepest); ++i)
        result.emplace_back(messages_[i]);
    if (depth_ > deepest)
        result.push_back("and " + std::to_string(depth_ - deepest) + " more inside");
    return result;
}

std::vector<std::string> BlackBox::journal() const {
    std::vector<std::string> result;
    const std::uint32_t first =
        notes_ > journalLines ? notes_ - static_cast<std::uint32_t>(journalLines) : 0;
    for (std::uint32_t i = first; i < notes_; ++i) {
        const Note& place = journal_[i % journalLines];
        std::array<char, 48> time{};
        std::snprintf(time.data(), time.size(), "%.3f ", place.time);
        result.push_back(std::string(time.data()) + place.text);
    }
    return result;
}

}  // namespace simulator
