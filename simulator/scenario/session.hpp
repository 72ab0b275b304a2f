// One run against one phone: carries out statements one at a time, says what failed, and counts.
// The console keeps one open; a file is one from beginning to end.
#pragma once

#include <filesystem>
#include <ostream>
#include <string>

#include "simulator/scenario/evaluator.hpp"
#include "simulator/scenario/form.hpp"
#include "simulator/scenario/phone.hpp"

namespace simulator::scenario {

class Session {
  public:
    // `file` begins every message; pictures go to `pictures`.
    Session(Phone& phone, std::string file, std::filesystem::path pictures, std::ostream& output);

    // Never throws: what goes wrong fails the statement.
    void run(const Statement& statement);

    int held() const { return held_; }
    int failed() const { return failed_; }
    // "12 held, 0 failed"
    void sayCounts();

  private:
    friend class Line;

    void carryOut(const Statement& statement);
    void fail(const Statement& statement, const std::string& why);
    void say(const std::string& text);

    Phone& phone_;
    std::string file_;
    std::filesystem::path pictures_;
    std::ostream& output_;
    NamedValues names_;
    Evaluator evaluate_;
    std::string raised_;
    bool booted_ = false;
    int held_ = 0;
    int failed_ = 0;
};

}  // namespace simulator::scenario
