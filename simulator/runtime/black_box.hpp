// What is known of a phone whose process has died: memory that it shares with the process that started
// it, written as it goes, so that nothing has to be done while it dies. Texts are cut to their room.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

class BlackBox {
  public:
    static constexpr std::size_t journalLines = 30;
    static constexpr std::size_t deepest = 24;  // messages in flight that are named

    // In the process that starts phones; null when there is no memory.
    static BlackBox* make();
    static void discard(BlackBox* box);

    // In the phone's process: from here on everything is written there.
    static void use(BlackBox* box);
    static BlackBox* ofThisProcess() { return current_; }

    void statement(int line, std::string_view text);
    // A folder that goes with the phone.
    void root(std::string_view folder);
    // Nothing more is to come.
    void end() { ended_ = 1; }
    void counts(int held, int failed);
    void enter(std::size_t depth, std::string_view message);
    void leave(std::size_t depth) { depth_ = static_cast<std::uint32_t>(depth); }
    void note(double time, std::string_view word, std::string_view name);

    // For the process that is still there.
    int line() const { return line_; }
    std::string statement() const { return statement_; }
    std::string root() const { return root_; }
    bool ended() const { return ended_ != 0; }
    int held() const { return held_; }
    int failed() const { return failed_; }
    std::vector<std::string> inFlight() const;  // outermost first
    std::vector<std::string> journal() const;   // oldest first

  private:
    struct Note {
        double time;
        char text[144];
    };

    static BlackBox* current_;
    std::int32_t line_;
    std::int32_t held_;
    std::int32_t failed_;
    std::int32_t ended_;
    std::uint32_t depth_;
    std::uint32_t notes_;
    char statement_[400];
    char root_[400];
    char messages_[deepest][144];
    Note journal_[journalLines];
};

}  // namespace simulator
