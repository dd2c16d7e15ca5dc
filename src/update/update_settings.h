// What the settings of the check for updates look like to a user: the address, and a reminder that
// is ticked or not beside its days.
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
    int days = kDefaultDays; // 1 to 90, also while it is not ticked
};

// A stored number of days that is not valid is shown as 30; one below 1 is no reminder.
UpdateSettings LoadUpdateSettings(const CRegistryPath& path);
// False when a value could not be written.
bool SaveUpdateSettings(const CRegistryPath& path, const UpdateSettings& settings);

// What a user has typed: each gives 0, or the id of the text that says what is wrong. The text of
// the days has the two limits as its inserts.
UINT ValidateUpdateUrl(const WCHAR* url);
UINT ValidateReminderDays(bool reminds, const WCHAR* days);

} // namespace quorvel
