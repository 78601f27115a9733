#include "platform/clock.h"

#include <cerrno>
#include <ctime>
#include <type_traits>

namespace orv::platform {
namespace {

CalendarTime calendarOf(const std::tm& parts, long nanoseconds) {
    return {parts.tm_year + 1900,
            parts.tm_mon + 1,
            parts.tm_mday,
            parts.tm_hour,
            parts.tm_min,
            parts.tm_sec,
            static_cast<int>(nanoseconds / 1'000'000),
            parts.tm_wday,
            parts.tm_yday + 1};
}

static_assert(std::is_same_v<time_t, std::int64_t>);

}  // namespace

std::uint32_t tickCount() {
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<std::uint32_t>(now.tv_sec * 1000 + now.tv_nsec / 1'000'000);
}

std::int64_t unixTime() { return time(nullptr); }

CalendarTime localTimeNow() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    std::tm parts{};
    localtime_r(&now.tv_sec, &parts);
    return calendarOf(parts, now.tv_nsec);
}

bool localCalendar(std::int64_t unixTime, CalendarTime& out) {
    std::tm parts{};
    if (localtime_r(&unixTime, &parts) == nullptr) return false;
    out = calendarOf(parts, 0);
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
    return mktime(&parts);
}

void sleepMilliseconds(unsigned milliseconds) {
    timespec rest{static_cast<time_t>(milliseconds / 1000), static_cast<long>(milliseconds % 1000) * 1'000'000};
    while (nanosleep(&rest, &rest) != 0 && errno == EINTR) {
    }
}

}  // namespace orv::platform
