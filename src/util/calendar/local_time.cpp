#include <quorvel/util/calendar/local_time.h>

#include "platform/win32.h"

namespace {

template <class Conversion>
BOOL Convert(const COleDateTime& from, COleDateTime& to, Conversion conversion) {
    SYSTEMTIME time;
    SYSTEMTIME converted;
    if (!from.GetAsSystemTime(time) || !conversion(nullptr, &time, &converted))
        return FALSE;
    const COleDateTime date(converted);
    if (date.GetStatus() != COleDateTime::valid)
        return FALSE;
    to = date;
    return TRUE;
}

} // namespace

FILETIME AfxGetCurrentFileTime() {
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return now;
}

COleDateTime AfxGetCurrentUTCTime() {
    COleDateTime now = COleDateTime::GetCurrentTime();
    AfxLocalTimeToUTC(now, now);
    return now;
}

BOOL AfxUTCToLocalTime(const COleDateTime& utc, COleDateTime& local) {
    return Convert(utc, local, SystemTimeToTzSpecificLocalTime);
}

BOOL AfxLocalTimeToUTC(const COleDateTime& local, COleDateTime& utc) {
    return Convert(local, utc, TzSpecificLocalTimeToSystemTime);
}

BOOL AfxTzSpecificLocalTimeToSystemTime(const TIME_ZONE_INFORMATION* zone, const SYSTEMTIME* local,
                                        SYSTEMTIME* utc) {
    if (local == nullptr || utc == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    return TzSpecificLocalTimeToSystemTime(zone, local, utc);
}
