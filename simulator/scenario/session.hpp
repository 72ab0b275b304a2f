// One run against one phone: carries out statements one at a time, says what failed, and counts.
// The console keeps one open; a file is one from beginning to end.
#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>

#include "simulator/scenario/evaluator.hpp"
#include "simulator/scenario/form.hpp"
#include "simulator/scenario/phone.hpp"
#include "simulator/scenario/recording_phone.hpp"

namespace simulator::scenario {

// What failed: the statement, what it expected and what it got (or why it could not be carried out).
struct Failure {
    int line = 0;
    std::string statement = {};
    std::string expected = {};
    std::string got = {};
    std::string message = {};  // as it is said, behind FILE:LINE
};

class Session {
  public:
    // `file` begins every message; pictures go to `pictures`.
    Session(Phone& phone, std::string file, std::filesystem::path pictures, std::ostream& output);

    // The phone, through which what is done to it can be recorded.
    RecordingPhone& phone() { return phone_; }

    // Never throws: what goes wrong fails the statement.
    void run(const Statement& statement);

    // The phone did not boot: what comes after it is not worth running.
    bool over() const { return over_; }
    // Told of every failure while the phone is still as it was then.
    void onFailure(std::function<void(const Failure&)> hear) { heardFailure_ = std::move(hear); }

    int held() const { return held_; }
    int failed() const { return failed_; }
    // "12 held, 0 failed"
    void sayCounts();

  private:
    friend class Line;

    void carryOut(const Statement& statement);
    void fail(const Statement& statement, const std::string& why);
    void failed(const Failure& failure);
    void say(const std::string& text);

    RecordingPhone phone_;
    std::string file_;
    std::filesystem::path pictures_;
    std::ostream& output_;
    NamedValues names_;
    Evaluator evaluate_;
    std::string raised_;
    std::function<void(const Failure&)> heardFailure_;
    bool booted_ = false;
    bool over_ = false;
    int held_ = 0;
    int failed_ = 0;
};

}  // namespace simulator::scenario
