// The stored settings of the check for updates, in the key "Check For Updates" below the owner's
// registry path:
//
//     value             kind      default
//     "URL"             text      empty                the address of the update listing
//     "Reminder"        number    30                   days until a reminder is due; 0: never
//     "Last Checked"    date      the empty date (0)   start of the last check, in UTC
//     "Last Modified"   date      the empty date (0)   date of the last complete listing
//     "Last Dismissed"  date      the empty date (0)   last dismissal of the reminder, local time
//
// The scheme "https" and a port in the address take effect only with a transport: without one the
// checks use plain HTTP at port 80. Checks with a key keep more values here; see
// check_for_updates.h. A value of a different type counts as missing. The writers return FALSE when
// the value could not be written. Any thread. Nothing throws or shows a box.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/framework/string.h>
#include <quorvel/system/registry_path.h>

// The address of the listing.
QUORVEL_API CString AfxGetProfileCheckForUpdatesURL(const CRegistryPath& path);
// FALSE for null.
QUORVEL_API BOOL AfxWriteProfileCheckForUpdatesURL(const CRegistryPath& path, const WCHAR* url);

// The days are neither validated when they are written nor when they are read.
QUORVEL_API int AfxGetProfileCheckForUpdatesReminder(const CRegistryPath& path);
QUORVEL_API BOOL AfxWriteProfileCheckForUpdatesReminder(const CRegistryPath& path, int days);

// The dates of the table above. Nothing is validated or converted between UTC and local time.
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

// Whether that many days have passed both since the last check and since the last dismissal of
// the reminder. FALSE below one day; an invalid number counts as 30. A date does not delay a
// reminder if it is not valid, empty, or more than a day in the future (then the clock was
// wrong).
QUORVEL_API BOOL AfxIsCheckForUpdatesReminderDue(int days, const COleDateTime& lastChecked,
                                                 const COleDateTime& lastDismissed,
                                                 const COleDateTime& nowUTC,
                                                 const COleDateTime& nowLocal);
// The same with the stored values and the current time.
QUORVEL_API BOOL AfxIsCheckForUpdatesReminderDue(const CRegistryPath& path);
