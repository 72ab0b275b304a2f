#include "simulator/live/line_editor.hpp"

#include <cstdio>
// The library's headers want <cstdio> first.
#include <readline/history.h>
#include <readline/readline.h>

#include <cstdlib>
#include <cstring>
#include <system_error>
#include <utility>

namespace simulator::live {

namespace {
constexpr int longestHistory = 1000;  // lines
}

LineEditor* LineEditor::current_ = nullptr;

LineEditor::LineEditor(Completer completer, std::filesystem::path history)
    : completer_(std::move(completer)), history_(std::move(history)) {
    current_ = this;
    rl_readline_name = "vantori-simulator";
    rl_attempted_completion_function = &complete;
    rl_completer_word_break_characters = " \t[](){}\"+*/=<>!";
    rl_catch_signals = 0;  // an interrupt ends the program, as without the editor
    using_history();
    stifle_history(longestHistory);
    if (!history_.empty()) read_history(history_.c_str());
}

LineEditor::~LineEditor() {
    if (std::exchange(typing_, false)) rl_callback_handler_remove();
    if (!history_.empty()) {
        std::error_code error;
        std::filesystem::create_directories(history_.parent_path(), error);
        write_history(history_.c_str());
    }
    current_ = nullptr;
}

void LineEditor::prompt() {
    if (std::exchange(typing_, true)) return;
    rl_callback_handler_install("> ", &take);
}

void LineEditor::read() {
    if (typing_) rl_callback_read_char();
}

std::optional<std::string> LineEditor::line() { return std::exchange(line_, std::nullopt); }

void LineEditor::take(char* text) {
    // Without this the next prompt would come before what the line makes the phone say.
    rl_callback_handler_remove();
    current_->typing_ = false;
    if (text == nullptr) {
        std::fputc('\n', stdout);
        current_->ended_ = true;
        return;
    }
    current_->line_ = text;
    const HIST_ENTRY* last =
        history_length > 0 ? history_get(history_base + history_length - 1) : nullptr;
    const bool again = last != nullptr && std::strcmp(last->line, text) == 0;
    if (*text != '\0' && !again) add_history(text);
    std::free(text);
}

void LineEditor::tell(const std::string& text) {
    if (typing_) rl_clear_visible_line();
    std::fputs((text + "\n").c_str(), stdout);
    std::fflush(stdout);
    if (!typing_) return;
    rl_on_new_line();
    rl_redisplay();
}

char** LineEditor::complete(const char* text, int start, int) {
    rl_attempted_completion_over = 1;  // never the names of files
    const std::string before(rl_line_buffer, static_cast<std::size_t>(start));
    current_->candidates_ = current_->completer_(before, text);
    return rl_completion_matches(text, &candidate);
}

char* LineEditor::candidate(const char*, int state) {
    const auto& all = current_->candidates_;
    const auto index = static_cast<std::size_t>(state);
    // state is 0 at first and otherwise only says that it goes on.
    static std::size_t next = 0;
    if (index == 0) next = 0;
    return next < all.size() ? strdup(all[next++].c_str()) : nullptr;
}

std::filesystem::path historyFile() {
    constexpr const char* name = "vantori-simulator/history";
    if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state == '/')
        return std::filesystem::path(state) / name;
    if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/')
        return std::filesystem::path(home) / ".local/state" / name;
    return {};
}

}  // namespace simulator::live
