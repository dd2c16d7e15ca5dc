// What the check for updates keeps between runs, in the key "Check For Updates" below the owner's
// registry path:
//
//     value             kind      without it
//     "URL"             text      empty                the address of the update listing
//     "Reminder"        number    30                   days until a reminder is due; 0: none
//     "Last Checked"    date      the empty date (0)   when a check last started, in UTC
//     "Last Modified"   date      the empty date (0)   of the listing last downloaded in full
//     "Last Dismissed"  date      the empty date (0)   of the reminder, in local time
//
// The scheme "https" and a port in the address have an effect with a transport alone: by themselves
// the checks ask over plain HTTP at port 80. Checks with a key keep more values here; see
// check_for_updates.h. A value of another kind counts as absent. The writers give FALSE when the
// value could not be written. Any thread; nothing throws or shows a box.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/framework/string.h>
#include <quorvel/system/registry_path.h>

QUORVEL_API CString AfxGetProfileCheckForUpdatesURL(const CRegistryPath& path);
// FALSE for null.
QUORVEL_API BOOL AfxWriteProfileCheckForUpdatesURL(const CRegistryPath& path, const WCHAR* url);

QUORVEL_API int AfxGetProfileCheckForUpdatesReminder(const CRegistryPath& path);
QUORVEL_API BOOL AfxWriteProfileCheckForUpdatesReminder(const CRegistryPath& path, int days);

QUORVEL_API COleDateTime AfxGetProfileCheckForUpdatesLastChecked(const CRegistryPath& path);
QUORVEL_API BOOL AfxWriteProfileCheckForUpdatesLastChecked(const CRegistryPath& path,
                                                           COleDateTime date);
QUORVEL_API COleDateTime AfxGetProfileCheckForUpdatesLastModified(const CRegistryPath& path);
QUORVEL_API BOOL AfxWriteProfileCheckForUpdatesLastModified(const CRegistryPath& path,
                                                            COleDateTime date);
QUORVEL_API COleDateTime AfxGetProfileCheckForUpdatesLastDismissed(const CRegistryPath& path);
QUORVEL_API BOOL AfxWriteProfileCheckForUpdatesLastDismissed(const CRegistryPath& path,
                                                             COleDateTime date);

// 0 to 90.
QUORVEL_API BOOL AfxIsValidCheckForUpdatesReminder(int days);

// Whether that many days have passed both since the last check and since the reminder was last
// dismissed. FALSE for less than one day; a number that is not valid counts as 30. A date that is
// not valid, is the empty one, or lies more than a day ahead, since the clock was wrong then, does
// not hold a reminder back.
QUORVEL_API BOOL AfxIsCheckForUpdatesReminderDue(int days, const COleDateTime& lastChecked,
                                                 const COleDateTime& lastDismissed,
                                                 const COleDateTime& nowUTC,
                                                 const COleDateTime& nowLocal);
// The same of what is stored, and now.
QUORVEL_API BOOL AfxIsCheckForUpdatesReminderDue(const CRegistryPath& path);
