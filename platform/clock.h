// Time as the machine tells it.
#pragma once

#include <cstdint>

namespace orv::platform {

struct CalendarTime {
    int year, month, day;  // month 1..12, day 1..31
    int hour, minute, second, millisecond;
    int dayOfWeek;  // 0 Sunday .. 6 Saturday
    int dayOfYear;  // 1..366
};

/// Milliseconds since the machine was started, modulo 2^32.
std::uint32_t tickCount();
/// Seconds since 1970-01-01 UTC.
std::int64_t unixTime();
/// The local calendar time now, with milliseconds.
CalendarTime localTimeNow();
/// False for a moment that the system's calendar does not hold.
bool localCalendar(std::int64_t unixTime, CalendarTime& out);
/// Local calendar time to seconds since 1970; -1 when there is none. `daylightSaving` as in C: 1, 0, or -1 for "by
/// rule".
std::int64_t unixTimeOf(const CalendarTime& local, int daylightSaving);
void sleepMilliseconds(unsigned milliseconds);

}  // namespace orv::platform
