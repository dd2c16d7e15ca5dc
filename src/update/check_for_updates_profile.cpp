#include <quorvel/update/check_for_updates_profile.h>

#include <quorvel/system/profile.h>
#include <quorvel/util/calendar/local_time.h>

namespace {

constexpr int kDefaultReminder = 30;
constexpr unsigned kMaximumReminder = 90;

constexpr const WCHAR* kKey = _T("Check For Updates");
constexpr const WCHAR* kUrl = _T("URL");
constexpr const WCHAR* kReminder = _T("Reminder");
constexpr const WCHAR* kLastChecked = _T("Last Checked");
constexpr const WCHAR* kLastModified = _T("Last Modified");
constexpr const WCHAR* kLastDismissed = _T("Last Dismissed");

bool HasPassed(const COleDateTime& date, int days, const COleDateTime& now) {
    const bool counts = date.GetStatus() == COleDateTime::valid && date != COleDateTime() &&
                        date.m_dt <= now.m_dt + 1;
    return !counts || now.m_dt - date.m_dt >= days;
}

} // namespace

CString AfxGetProfileCheckForUpdatesURL(const CRegistryPath& path) {
    return AfxGetProfileString(CRegistryPath(path, kKey), kUrl, _T(""));
}

BOOL AfxWriteProfileCheckForUpdatesURL(const CRegistryPath& path, const WCHAR* url) {
    return AfxWriteProfileString(CRegistryPath(path, kKey), kUrl, url);
}

int AfxGetProfileCheckForUpdatesReminder(const CRegistryPath& path) {
    return static_cast<int>(
        AfxGetProfileDWord(CRegistryPath(path, kKey), kReminder, kDefaultReminder));
}

BOOL AfxWriteProfileCheckForUpdatesReminder(const CRegistryPath& path, int days) {
    return AfxWriteProfileDWord(CRegistryPath(path, kKey), kReminder, static_cast<DWORD>(days));
}

#define QUORVEL_PROFILE_DATE(name)                                                                 \
    COleDateTime AfxGetProfileCheckForUpdates##name(const CRegistryPath& path) {                   \
        return AfxGetProfileOleDateTime(CRegistryPath(path, kKey), k##name, COleDateTime());       \
    }                                                                                              \
    BOOL AfxWriteProfileCheckForUpdates##name(const CRegistryPath& path, COleDateTime date) {      \
        return AfxWriteProfileOleDateTime(CRegistryPath(path, kKey), k##name, date);               \
    }
QUORVEL_PROFILE_DATE(LastChecked)
QUORVEL_PROFILE_DATE(LastModified)
QUORVEL_PROFILE_DATE(LastDismissed)

BOOL AfxIsValidCheckForUpdatesReminder(int days) {
    return static_cast<unsigned>(days) <= kMaximumReminder;
}

BOOL AfxIsCheckForUpdatesReminderDue(int days, const COleDateTime& lastChecked,
                                     const COleDateTime& lastDismissed, const COleDateTime& nowUTC,
                                     const COleDateTime& nowLocal) {
    if (days < 1)
        return FALSE;
    if (!AfxIsValidCheckForUpdatesReminder(days))
        days = kDefaultReminder;
    return HasPassed(lastChecked, days, nowUTC) && HasPassed(lastDismissed, days, nowLocal);
}

BOOL AfxIsCheckForUpdatesReminderDue(const CRegistryPath& path) {
    return AfxIsCheckForUpdatesReminderDue(AfxGetProfileCheckForUpdatesReminder(path),
                                           AfxGetProfileCheckForUpdatesLastChecked(path),
                                           AfxGetProfileCheckForUpdatesLastDismissed(path),
                                           AfxGetCurrentUTCTime(), COleDateTime::GetCurrentTime());
}
