#include "simulator/runtime/date.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace simulator {

namespace {

using std::chrono::sys_days;
using std::chrono::sys_seconds;

constexpr std::array<const char*, 7> weekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                              "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 12> months{"January",   "February", "March",    "April",
                                             "May",       "June",     "July",     "August",
                                             "September", "October",  "November", "December"};

// Takes so many digits off the text.
std::optional<unsigned> takeNumber(std::string_view& text, std::size_t digits) {
    unsigned number = 0;
    if (text.size() < digits) return std::nullopt;
    const char* end = text.data() + digits;
    const auto [read, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || read != end) return std::nullopt;
    text.remove_prefix(digits);
    return number;
}

bool take(std::string_view& text, char sign) {
    if (!text.starts_with(sign)) return false;
    text.remove_prefix(1);
    return true;
}

sys_seconds momentOf(double date) {
    return sys_seconds{std::chrono::seconds{static_cast<long long>(std::floor(date))}};
}

sys_days dayOf(double date) { return std::chrono::floor<std::chrono::days>(momentOf(date)); }

std::chrono::hh_mm_ss<std::chrono::seconds> timeOf(double date) {
    return std::chrono::hh_mm_ss{momentOf(date) - dayOf(date)};
}

std::string digits(long number, std::size_t count) {
    const std::string text = std::to_string(number);
    return std::string(count - std::min(count, text.size()), '0') + text;
}

}  // namespace

std::optional<sys_days> dayFrom(std::string_view text) {
    const auto year = takeNumber(text, 4);
    if (!year || !take(text, '-')) return std::nullopt;
    const auto month = takeNumber(text, 2);
    if (!month || !take(text, '-')) return std::nullopt;
    const auto day = takeNumber(text, 2);
    if (!day || !text.empty()) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year{static_cast<int>(*year)},
                                           std::chrono::month{*month}, std::chrono::day{*day}};
    if (!date.ok()) return std::nullopt;
    return sys_days{date};
}

std::optional<std::chrono::seconds> timeOfDayFrom(std::string_view text) {
    const auto hour = takeNumber(text, text.find(':') == 1 ? 1 : 2);
    if (!hour || *hour > 23 || !take(text, ':')) return std::nullopt;
    const auto minute = takeNumber(text, 2);
    if (!minute || *minute > 59) return std::nullopt;
    unsigned second = 0;
    if (!text.empty()) {
        if (!take(text, ':')) return std::nullopt;
        const auto read = takeNumber(text, 2);
        if (!read || *read > 59 || !text.empty()) return std::nullopt;
        second = *read;
    }
    return std::chrono::hours{*hour} + std::chrono::minutes{*minute} + std::chrono::seconds{second};
}

std::string writtenDate(double date) {
    const std::chrono::year_month_day day{dayOf(date)};
    const auto time = timeOf(date);
    return digits(int{day.year()}, 4) + "-" + digits(unsigned{day.month()}, 2) + "-" +
           digits(unsigned{day.day()}, 2) + " " + digits(time.hours().count(), 2) + ":" +
           digits(time.minutes().count(), 2) + ":" + digits(time.seconds().count(), 2);
}

std::string shownTime(double date) {
    const auto time = timeOf(date);
    return std::to_string(std::chrono::make12(time.hours()).count()) + ":" +
           digits(time.minutes().count(), 2);
}

std::string shownDay(double date) {
    const sys_days day = dayOf(date);
    const std::chrono::year_month_day parts{day};
    return std::string(weekdays[std::chrono::weekday{day}.c_encoding()]) + ", " +
           months[unsigned{parts.month()} - 1] + " " + std::to_string(unsigned{parts.day()});
}

}  // namespace simulator
