// A picture is a text. Runs of certain letters are replaced by parts of a date or of a time. Quoted
// text (with '' for a quote) and all other characters are copied.
#include "platform/linux/locale/date_format.h"

#include "platform/linux/locale/date_names.h"
#include "platform/linux/locale/locale.h"
#include "platform/linux/system/system_error.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>

namespace chrono = std::chrono;

namespace quorvel {
namespace {

struct Instant {
    const DateNames& names;
    const SYSTEMTIME& time;
    unsigned dayOfWeek; // 0 is Sunday; computed, because the caller's may be wrong
    bool besideDay;     // the next month name is next to the number of a day
};

std::u16string Number(unsigned value, std::size_t digits) {
    std::u16string text;
    for (; value > 0 || text.size() < digits; value /= 10)
        text.insert(text.begin(), static_cast<char16_t>('0' + value % 10));
    return text;
}
// One letter gives the plain number, more letters two digits.
std::u16string ShortNumber(unsigned value, std::size_t count) {
    return Number(value, std::min<std::size_t>(count, 2));
}

// Empty when ICU has no such name.
std::u16string At(const std::vector<std::u16string>& names, std::size_t index) {
    return index < names.size() ? names[index] : std::u16string();
}

std::u16string Day(const Instant& instant, std::size_t count) {
    if (count <= 2)
        return ShortNumber(instant.time.wDay, count);
    return At(count == 3 ? instant.names.shortDays : instant.names.days, instant.dayOfWeek);
}

std::u16string Month(const Instant& instant, std::size_t count) {
    const DateNames& names = instant.names;
    if (count <= 2)
        return ShortNumber(instant.time.wMonth, count);
    if (count == 3)
        return At(instant.besideDay ? names.shortMonthsWithDay : names.shortMonths,
                  instant.time.wMonth - 1u);
    return At(instant.besideDay ? names.monthsWithDay : names.months, instant.time.wMonth - 1u);
}

std::u16string Year(const Instant& instant, std::size_t count) {
    return count <= 2 ? Number(instant.time.wYear % 100, 2) : Number(instant.time.wYear, 4);
}

std::u16string Era(const Instant& instant, std::size_t) {
    return At(instant.names.eras, 1);
}

std::u16string HalfDayHour(const Instant& instant, std::size_t count) {
    return ShortNumber((instant.time.wHour + 11u) % 12 + 1, count);
}
std::u16string Hour(const Instant& instant, std::size_t count) {
    return ShortNumber(instant.time.wHour, count);
}
std::u16string Minute(const Instant& instant, std::size_t count) {
    return ShortNumber(instant.time.wMinute, count);
}
std::u16string Second(const Instant& instant, std::size_t count) {
    return ShortNumber(instant.time.wSecond, count);
}
std::u16string HalfDay(const Instant& instant, std::size_t count) {
    const std::u16string name = At(instant.names.halfDays, instant.time.wHour / 12u);
    return count == 1 ? name.substr(0, 1) : name;
}

struct Part {
    char16_t letter;
    std::u16string (*text)(const Instant& instant, std::size_t count);
};
constexpr Part kDateParts[] = {{'d', Day}, {'M', Month}, {'y', Year}, {'g', Era}};
constexpr Part kTimeParts[] = {
    {'h', HalfDayHour}, {'H', Hour}, {'m', Minute}, {'s', Second}, {'t', HalfDay}};

// Calls onRun(letter, count, rest of the picture) for runs of equal characters, and
// onQuoted(character) for quoted text.
template <class OnRun, class OnQuoted>
void WalkPicture(std::u16string_view picture, OnRun onRun, OnQuoted onQuoted) {
    bool isQuoted = false;
    while (!picture.empty()) {
        const char16_t first = picture[0];
        std::size_t count = 1;
        if (first == '\'') {
            if (isQuoted && picture.substr(0, 2) == u"''")
                onQuoted(picture[count++]);
            else
                isQuoted = !isQuoted;
        } else if (isQuoted) {
            onQuoted(first);
        } else {
            count = std::min(picture.find_first_not_of(first), picture.size());
            onRun(first, count, picture.substr(count));
        }
        picture.remove_prefix(count);
    }
}

// The length of the next run of day letters; 0 without such a run.
std::size_t NextDay(std::u16string_view picture) {
    std::size_t next = 0;
    const auto look = [&next](char16_t letter, std::size_t count, std::u16string_view) {
        if (letter == 'd' && next == 0)
            next = count;
    };
    WalkPicture(picture, look, [](char16_t) {});
    return next;
}

// Whether a day of this length is written as a number instead of a name.
bool IsNumber(std::size_t dayLength) {
    return dayLength == 1 || dayLength == 2;
}

// A month name is in the genitive when the nearest day before or after it is a number.
template <std::size_t size>
std::u16string Format(const Part (&parts)[size], Instant instant, std::u16string_view picture) {
    std::u16string text;
    std::size_t lastDay = 0;
    const auto append = [&](char16_t letter, std::size_t count, std::u16string_view rest) {
        if (letter == 'd')
            lastDay = count;
        else if (letter == 'M')
            instant.besideDay = IsNumber(lastDay) || IsNumber(NextDay(rest));
        const Part* part = std::find_if(std::begin(parts), std::end(parts),
                                        [&](const Part& row) { return row.letter == letter; });
        if (part == std::end(parts))
            text.append(count, letter);
        else
            text += part->text(instant, count);
    };
    WalkPicture(picture, append, [&](char16_t character) { text += character; });
    return text;
}

bool ToDate(const SYSTEMTIME& time, chrono::year_month_day& date) {
    date = {chrono::year(time.wYear), chrono::month(time.wMonth), chrono::day(time.wDay)};
    return date.ok() && time.wYear >= 1601 && time.wYear <= 30827;
}

bool IsTime(const SYSTEMTIME& time) {
    return time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60;
}

int Refuse(DWORD error) {
    return FailWith(error);
}

} // namespace

namespace win32 {

int GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture, LPWSTR text,
                   int length) {
    const char* localeName = IcuLocaleName(locale);
    chrono::year_month_day date;
    if (localeName == nullptr || length < 0 || (text == nullptr && length > 0) ||
        !ToDate(*time, date))
        return Refuse(ERROR_INVALID_PARAMETER);
    if (picture != nullptr ? flags != 0 : (flags & ~LOCALE_NOUSEROVERRIDE) > DATE_LONGDATE)
        return Refuse(ERROR_INVALID_FLAGS);
    const DateNames& names = DateNamesOf(localeName);
    const std::u16string& ownForm = (flags & DATE_LONGDATE) != 0 ? names.longDate : names.shortDate;
    const std::u16string_view form(picture != nullptr ? picture : ownForm.c_str());
    const unsigned dayOfWeek = chrono::weekday(chrono::sys_days(date)).c_encoding();
    return ReturnText(Format(kDateParts, {names, *time, dayOfWeek, false}, form), text, length);
}

int GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture, LPWSTR text,
                   int length) {
    const char* localeName = IcuLocaleName(locale);
    if (localeName == nullptr || length < 0 || (text == nullptr && length > 0) || !IsTime(*time))
        return Refuse(ERROR_INVALID_PARAMETER);
    if (picture != nullptr ? flags != 0 : (flags & ~(LOCALE_NOUSEROVERRIDE | TIME_NOSECONDS)) != 0)
        return Refuse(ERROR_INVALID_FLAGS);
    const DateNames& names = DateNamesOf(localeName);
    const std::u16string& ownForm =
        (flags & TIME_NOSECONDS) != 0 ? names.timeWithoutSeconds : names.time;
    const std::u16string_view form(picture != nullptr ? picture : ownForm.c_str());
    return ReturnText(Format(kTimeParts, {names, *time, 0, false}, form), text, length);
}

} // namespace win32
} // namespace quorvel
