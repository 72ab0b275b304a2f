// The two ways a scenario can go wrong: a line that cannot be understood (nothing is run then),
// and a line that was understood but could not be carried out (it fails, the run goes on).
#pragma once

#include <stdexcept>
#include <string>

namespace simulator::scenario {

// Where something stands in its file. Lines and columns count from 1; columns count characters.
struct Position {
    int line = 1;
    int column = 1;
};

class SyntaxError : public std::runtime_error {
  public:
    SyntaxError(Position where, const std::string& what)
        : std::runtime_error(what), where_(where) {}

    Position where() const { return where_; }

    // FILE:LINE:COLUMN: what is wrong
    std::string report(const std::string& file) const {
        return file + ":" + std::to_string(where_.line) + ":" + std::to_string(where_.column) +
               ": " + what();
    }

  private:
    Position where_;
};

class EvaluationError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace simulator::scenario
