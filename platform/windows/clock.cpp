#include "platform/clock.h"

#include <ctime>

#include "platform/windows/windows.h"

namespace orv::platform {

std::uint32_t tickCount() { return GetTickCount(); }

std::int64_t unixTime() { return _time64(nullptr); }

CalendarTime localTimeNow() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    static constexpr int kDaysBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    const bool isLeapYear = now.wYear % 4 == 0 && (now.wYear % 100 != 0 || now.wYear % 400 == 0);
    const int dayOfYear = kDaysBefore[now.wMonth - 1] + now.wDay + (isLeapYear && now.wMonth > 2 ? 1 : 0);
    return {now.wYear,   now.wMonth,        now.wDay,       now.wHour, now.wMinute,
            now.wSecond, now.wMilliseconds, now.wDayOfWeek, dayOfYear};
}

bool localCalendar(std::int64_t unixTime, CalendarTime& out) {
    std::tm parts;
    if (_localtime64_s(&parts, &unixTime) != 0) return false;
    out = {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec, 0,
           parts.tm_wday,        parts.tm_yday + 1};
    return true;
}

std::int64_t unixTimeOf(const CalendarTime& local, int daylightSaving) {
    std::tm parts{};
    parts.tm_year = local.year - 1900;
    parts.tm_mon = local.month - 1;
    parts.tm_mday = local.day;
    parts.tm_hour = local.hour;
    parts.tm_min = local.minute;
    parts.tm_sec = local.second;
    parts.tm_isdst = daylightSaving;
    return _mktime64(&parts);
}

void sleepMilliseconds(unsigned milliseconds) { Sleep(milliseconds); }

}  // namespace orv::platform
