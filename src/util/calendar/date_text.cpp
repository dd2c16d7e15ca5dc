#include <quorvel/util/calendar/date_text.h>

#include "platform/win32.h"

#include <iterator>
#include <optional>

namespace {

struct Form {
    const WCHAR* picture;
    DWORD flags;
};
constexpr Form kShortDate{nullptr, DATE_SHORTDATE};
constexpr Form kLongDate{nullptr, DATE_LONGDATE};
constexpr Form kTimeWithoutSeconds{nullptr, TIME_NOSECONDS};

// The platform refuses LOCALE_NOUSEROVERRIDE together with a picture.
Form FormOf(const WCHAR* picture) {
    return {picture, picture == nullptr ? LOCALE_NOUSEROVERRIDE : 0};
}

// No value, instead of an empty text, when the platform cannot format the date.
template <class Formatter>
std::optional<CString> Formatted(Formatter formatter, const COleDateTime& date, Form form) {
    SYSTEMTIME time;
    WCHAR text[255];
    if (!date.GetAsSystemTime(time))
        return std::nullopt;
    const int length = formatter(LOCALE_USER_DEFAULT, form.flags, &time, form.picture, text,
                                 static_cast<int>(std::size(text)));
    if (length == 0)
        return std::nullopt;
    return CString(text, length - 1);
}

CString FormatDate(const COleDateTime& date, Form form) {
    return Formatted(GetDateFormatW, date, form).value_or(CString());
}

CString FormatTime(const COleDateTime& date, Form form) {
    return Formatted(GetTimeFormatW, date, form).value_or(CString());
}

CString FormatBoth(const COleDateTime& date, Form dateForm, Form timeForm) {
    const auto dateText = Formatted(GetDateFormatW, date, dateForm);
    const auto timeText = Formatted(GetTimeFormatW, date, timeForm);
    return dateText && timeText ? *dateText + _T(' ') + *timeText : CString();
}

} // namespace

CString AfxFormatLocaleDate(COleDateTime date, const WCHAR* format) {
    return FormatDate(date, FormOf(format));
}

CString AfxFormatLocaleTime(COleDateTime date, const WCHAR* format) {
    return FormatTime(date, FormOf(format));
}

CString AfxFormatLocaleDateTime(COleDateTime date, const WCHAR* dateFormat,
                                const WCHAR* timeFormat) {
    return FormatBoth(date, FormOf(dateFormat), FormOf(timeFormat));
}

CString AfxGetLocaleShortDate(COleDateTime date) {
    return FormatDate(date, kShortDate);
}

CString AfxGetLocaleLongDate(COleDateTime date) {
    return FormatDate(date, kLongDate);
}

CString AfxGetLocaleDateTime(COleDateTime date) {
    return FormatBoth(date, kShortDate, kTimeWithoutSeconds);
}

CString AfxGetLocaleShortDateTime(COleDateTime date) {
    return FormatBoth(date, kShortDate, FormOf(nullptr));
}

CString AfxGetLocaleLongDateTime(COleDateTime date) {
    return FormatBoth(date, kLongDate, FormOf(nullptr));
}

CString AfxFormatUTCTimeUsingRFC822(COleDateTime date, BOOL appendZone) {
    CString text = date.Format(_T("%d %b %Y %H:%M:%S"));
    if (appendZone && !text.IsEmpty())
        text.Append(_T(" GMT"));
    return text;
}

CString AfxFormatUTCTimeUsingISO8601(COleDateTime date) {
    return date.Format(_T("%Y-%m-%dT%H:%M:%S"));
}

CString AfxFormatElapsedTime(int, int minutes, int seconds) {
    WCHAR separator[10] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STIME, separator,
                   static_cast<int>(std::size(separator)));
    CString text;
    text.Format(_T("%02d%s%02d"), minutes, separator, seconds);
    return text;
}
