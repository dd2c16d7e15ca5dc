#include "update/update_settings.h"

#include <quorvel/res/message_ids.h>
#include <quorvel/update/check_for_updates_profile.h>
#include <quorvel/util/text/number.h>
#include <quorvel/util/text/validation.h>

#include <algorithm>
#include <string_view>

namespace quorvel {

UpdateSettings LoadUpdateSettings(const CRegistryPath& path) {
    UpdateSettings settings;
    settings.url = AfxGetProfileCheckForUpdatesURL(path);
    const int days = AfxGetProfileCheckForUpdatesReminder(path);
    settings.reminds = days >= UpdateSettings::kMinimumDays;
    if (settings.reminds && AfxIsValidCheckForUpdatesReminder(days))
        settings.days = days;
    return settings;
}

bool SaveUpdateSettings(const CRegistryPath& path, const UpdateSettings& settings) {
    const int days = settings.reminds ? settings.days : 0;
    return AfxWriteProfileCheckForUpdatesURL(path, settings.url) &&
           AfxWriteProfileCheckForUpdatesReminder(path, days);
}

UINT ValidateUpdateUrl(const WCHAR* url) {
    return AfxIsValidURL(url) ? 0 : UINT{kTextFieldInvalidUrl};
}

UINT ValidateReminderDays(bool reminds, const WCHAR* days) {
    constexpr int kDecimal = 10;
    // The platform also reads the digits of other scripts.
    const auto isAscii = [](const std::basic_string_view<WCHAR> text) {
        return std::ranges::all_of(text, [](WCHAR unit) { return unit < 0x80; });
    };
    const bool isValid = !reminds || (AfxIsValidNumber(days, UpdateSettings::kMinimumDays,
                                                       UpdateSettings::kMaximumDays, kDecimal) &&
                                      isAscii(days));
    return isValid ? 0 : UINT{kTextFieldNumberRange};
}

// Valid texts have no sign but "+", and at most blanks around the digits.
int ReminderDaysOf(const WCHAR* days) {
    int number = 0;
    for (; *days != 0; ++days) {
        if (*days >= '0' && *days <= '9')
            number = number * 10 + (*days - '0');
    }
    return number;
}

} // namespace quorvel
