// Dates as people write and read them, from and to seconds since the first of January 1970. The phone
// stands in Greenwich, whatever the time zone of the machine, so that a run is the same everywhere.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

// What a new phone's clock shows when it is switched on.
inline constexpr double firstDate =
    std::chrono::duration<double>((std::chrono::sys_days{std::chrono::year{2018} / 1 / 9} +
                                   std::chrono::hours{9} + std::chrono::minutes{41})
                                      .time_since_epoch())
        .count();

// From 2021-06-01, and from 9:41, 09:41 or 09:41:30; nothing for what no calendar or clock has.
std::optional<std::chrono::sys_days> dayFrom(std::string_view text);
std::optional<std::chrono::seconds> timeOfDayFrom(std::string_view text);

// The two of a date, as they are read.
std::string writtenDate(double date);

// As the phone shows them: 9:41 (of twelve hours), and Tuesday, January 9.
std::string shownTime(double date);
std::string shownDay(double date);

}  // namespace simulator
