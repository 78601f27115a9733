#include "orv/framework/time.h"

#include "platform/clock.h"

namespace {

using orv::platform::CalendarTime;

// All zero for a moment without a calendar.
CalendarTime calendarOf(std::int64_t time) {
    CalendarTime calendar{};
    if (time < 0 || !orv::platform::localCalendar(time, calendar) || calendar.year > 3000) calendar = {};
    return calendar;
}

bool isIn(int value, int low, int high) { return value >= low && value <= high; }

}  // namespace

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int daylightSaving) {
    if (!isIn(year, 1970, 3000) || !isIn(month, 1, 12) || !isIn(day, 1, 31) || !isIn(hour, 0, 23) ||
        !isIn(minute, 0, 59) || !isIn(second, 0, 59)) {
        orv::throwInvalidArgument();
    }
    CalendarTime local{};
    local.year = year;
    local.month = month;
    local.day = day;
    local.hour = hour;
    local.minute = minute;
    local.second = second;
    time_ = orv::platform::unixTimeOf(local, daylightSaving);
    if (time_ < 0) orv::throwInvalidArgument();
}

CTime CTime::GetCurrentTime() { return {orv::platform::unixTime()}; }

int CTime::GetYear() const { return calendarOf(time_).year; }
int CTime::GetMonth() const { return calendarOf(time_).month; }
int CTime::GetDay() const { return calendarOf(time_).day; }
int CTime::GetHour() const { return calendarOf(time_).hour; }
int CTime::GetMinute() const { return calendarOf(time_).minute; }
int CTime::GetSecond() const { return calendarOf(time_).second; }

int CTime::GetDayOfWeek() const {
    const CalendarTime calendar = calendarOf(time_);
    return calendar.year == 0 ? 0 : calendar.dayOfWeek + 1;
}

CString CTime::Format(const wchar_t* format) const {
    CString result;
    const CalendarTime calendar = calendarOf(time_);
    if (format == nullptr || calendar.year == 0) return result;
    const int hour12 = calendar.hour % 12 == 0 ? 12 : calendar.hour % 12;
    for (; *format != 0; ++format) {
        if (*format != L'%' || format[1] == 0) {
            result += *format;
            continue;
        }
        ++format;
        switch (*format) {
            case L'Y':
                result.AppendFormat(L"%04d", calendar.year);
                break;
            case L'y':
                result.AppendFormat(L"%02d", calendar.year % 100);
                break;
            case L'm':
                result.AppendFormat(L"%02d", calendar.month);
                break;
            case L'd':
                result.AppendFormat(L"%02d", calendar.day);
                break;
            case L'H':
                result.AppendFormat(L"%02d", calendar.hour);
                break;
            case L'I':
                result.AppendFormat(L"%02d", hour12);
                break;
            case L'M':
                result.AppendFormat(L"%02d", calendar.minute);
                break;
            case L'S':
                result.AppendFormat(L"%02d", calendar.second);
                break;
            case L'j':
                result.AppendFormat(L"%03d", calendar.dayOfYear);
                break;
            case L'w':
                result.AppendFormat(L"%d", calendar.dayOfWeek);
                break;
            case L'p':
                result += calendar.hour < 12 ? L"AM" : L"PM";
                break;
            case L'%':
                result += L'%';
                break;
            default:
                result += L'%';
                result += *format;
        }
    }
    return result;
}
