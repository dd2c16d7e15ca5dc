// The settings of the check for updates as the user sees them: the address, and a reminder with a
// check box and its days.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/system/registry_path.h>

namespace quorvel {

struct UpdateSettings {
    static constexpr int kMinimumDays = 1;
    static constexpr int kMaximumDays = 90;
    static constexpr int kDefaultDays = 30;

    CString url;
    bool reminds = false;
    int days = kDefaultDays; // 1 to 90, even if the reminder is off
};

// A stored number of days above 90 is shown as 30; one below 1 means no reminder.
UpdateSettings LoadUpdateSettings(const CRegistryPath& path);
// Returns false if a value could not be written.
bool SaveUpdateSettings(const CRegistryPath& path, const UpdateSettings& settings);

// Validate the user's input: return 0, or the id of a text with the error. The text about the days
// has the two limits as inserts.
UINT ValidateUpdateUrl(const WCHAR* url);
UINT ValidateReminderDays(bool reminds, const WCHAR* days);
int ReminderDaysOf(const WCHAR* days); // the number in a valid text

} // namespace quorvel
