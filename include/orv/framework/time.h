// CTime: the framework's point in time, in whole seconds since 1970-01-01 00:00:00 UTC, 64 bits wide.
//
// Calendar fields are in the machine's local time. A moment before 1970 or after 3000 has no calendar: its fields are 0
// and its Format is "".
#pragma once

#include <cstdint>

#include "orv/export.h"
#include "orv/framework/string.h"

// The system's headers give this name to a macro of theirs.
#undef GetCurrentTime

class ORV_API CTime {
  public:
    CTime() noexcept = default;
    CTime(std::int64_t secondsSince1970) noexcept : time_(secondsSince1970) {}
    /// Local calendar time, from 1970-01-01 00:00 UTC on: year 1970..3000, month 1..12, day 1..31, hour 0..23, minute
    /// 0..59, second 0..59; anything else raises CInvalidArgException. `daylightSaving`: 1 yes, 0 no, -1 as the rules
    /// of the machine say.
    CTime(int year, int month, int day, int hour, int minute, int second, int daylightSaving = -1);

    static CTime GetCurrentTime();

    std::int64_t GetTime() const noexcept { return time_; }
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    /// 1 is Sunday, 7 Saturday.
    int GetDayOfWeek() const;

    /// Codes as the C library's date format: %Y %y %m %d %H %I %M %S %j %w %p %% (numbers and AM/PM only, so that no
    /// result depends on a locale). Any other code is copied as it stands.
    CString Format(const wchar_t* format) const;

    friend bool operator==(CTime a, CTime b) noexcept { return a.time_ == b.time_; }
    friend bool operator!=(CTime a, CTime b) noexcept { return a.time_ != b.time_; }
    friend bool operator<(CTime a, CTime b) noexcept { return a.time_ < b.time_; }
    friend bool operator>(CTime a, CTime b) noexcept { return a.time_ > b.time_; }
    friend bool operator<=(CTime a, CTime b) noexcept { return a.time_ <= b.time_; }
    friend bool operator>=(CTime a, CTime b) noexcept { return a.time_ >= b.time_; }

  private:
    std::int64_t time_ = 0;
};
