// Reads scenarios: lines into statements. A file is read as a whole before anything of it runs.
#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/scenario/form.hpp"

namespace simulator::scenario {

class Parser {
  public:
    // The statement on a line, or nothing when it is empty. Lines come in order: what may stand
    // after `boot`, and which names there are, depends on those before. Throws SyntaxError.
    std::optional<Statement> line(std::string_view text, int number);

    // Those that `let` has given so far.
    const std::set<std::string>& names() const { return names_; }

  private:
    std::set<std::string> names_;
    bool booted_ = false;
};

// All statements of a scenario's text. Throws SyntaxError.
std::vector<Statement> parse(std::string_view text);

// The bytes of a file. Throws std::runtime_error when it cannot be read.
std::string readFile(const std::filesystem::path& file);

}  // namespace simulator::scenario
