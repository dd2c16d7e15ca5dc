#include <quorvel/update/check_for_updates_profile.h>

#include <quorvel/system/profile.h>

#include "support/date_time.h"
#include "support/registry.h"
#include "support/test.h"
#include "update/update_settings.h"

namespace {

const COleDateTime kNow(2024, 3, 12, 12, 0, 0);

COleDateTime DaysAgo(double days) {
    return kNow - COleDateTimeSpan(days);
}

class CheckForUpdatesProfile : public testing::Test {
protected:
    const TestKey key;
    const CRegistryPath path{HKEY_CURRENT_USER, key.Path()};
};

TEST_F(CheckForUpdatesProfile, ValuesHaveTheirNamesKindsAndDefaults) {
    EXPECT_EQ(30, AfxGetProfileCheckForUpdatesReminder(path));
    EXPECT_EQ(COleDateTime(), AfxGetProfileCheckForUpdatesLastDismissed(path));
    EXPECT_TRUE(AfxIsCheckForUpdatesReminderDue(path)) << "never checked";
    EXPECT_FALSE(AfxWriteProfileCheckForUpdatesURL(path, nullptr));
    AfxWriteProfileCheckForUpdatesURL(path, _T("http://h/"));
    AfxWriteProfileCheckForUpdatesReminder(path, -7);
    AfxWriteProfileCheckForUpdatesLastChecked(path, DaysAgo(1));
    AfxWriteProfileCheckForUpdatesLastModified(path, DaysAgo(2));
    AfxWriteProfileCheckForUpdatesLastDismissed(path, DaysAgo(3));
    const CRegistryPath values(path, _T("Check For Updates"));
    EXPECT_EQ(_T("http://h/"), AfxGetProfileString(values, _T("URL"), _T("")));
    EXPECT_EQ(4294967289u, AfxGetProfileDWord(values, _T("Reminder"), 0));
    EXPECT_EQ(DaysAgo(1), AfxGetProfileOleDateTime(values, _T("Last Checked"), kNow));
    EXPECT_EQ(DaysAgo(2), AfxGetProfileOleDateTime(values, _T("Last Modified"), kNow));
    EXPECT_EQ(DaysAgo(3), AfxGetProfileOleDateTime(values, _T("Last Dismissed"), kNow));
}

TEST_F(CheckForUpdatesProfile, SettingsShowAReminderOf1To90Days) {
    using namespace quorvel;
    // The stored value, whether it is valid, the days shown, and the value then saved.
    const std::tuple<int, bool, int, int> rows[] = {{-1, false, 30, 0},
                                                    {0, true, 30, 0},
                                                    {1, true, 1, 1},
                                                    {90, true, 90, 90},
                                                    {91, false, 30, 30}};
    for (const auto& [stored, isValid, days, saved] : rows) {
        SCOPED_TRACE(stored);
        EXPECT_EQ(isValid, AfxIsValidCheckForUpdatesReminder(stored) != FALSE);
        AfxWriteProfileCheckForUpdatesReminder(path, stored);
        const UpdateSettings settings = LoadUpdateSettings(path);
        EXPECT_EQ(stored > 0, settings.reminds);
        EXPECT_EQ(days, settings.days);
        EXPECT_TRUE(SaveUpdateSettings(path, settings));
        EXPECT_EQ(saved, AfxGetProfileCheckForUpdatesReminder(path));
    }
    EXPECT_EQ(0u, ValidateUpdateUrl(_T("http://h/")));
    EXPECT_EQ(21403u, ValidateUpdateUrl(_T("h")));
    EXPECT_EQ(0u, ValidateReminderDays(true, _T("90")) + ValidateReminderDays(false, _T("x")));
    for (const WCHAR* days : {_T("0"), _T("91"), _T(""), _T("a day")})
        EXPECT_EQ(21401u, ValidateReminderDays(true, days));
}

TEST_F(CheckForUpdatesProfile, AReminderIsDueDaysAfterTheCheckAndTheDismissal) {
    COleDateTime notANumber = kNow;
    notANumber.m_dt = std::numeric_limits<double>::quiet_NaN();
    const COleDateTime never;
    const std::tuple<const char*, int, COleDateTime, COleDateTime, bool> rows[] = {
        {"none wanted", 0, never, never, false},
        {"checked a moment short", 7, DaysAgo(6.999), never, false},
        {"checked that long ago", 7, DaysAgo(7), never, true},
        {"dismissed since", 7, DaysAgo(70), DaysAgo(6.999), false},
        {"beyond 90 days, 30 count", 91, DaysAgo(29), never, false},
        {"and are over", 91, DaysAgo(30), never, true},
        {"a clock an hour ahead", 1, DaysAgo(-1.0 / 24), never, false},
        {"a clock years ahead", 1, DaysAgo(-1000), DaysAgo(-1000), true},
        {"no date", 1, notANumber, never, true},
    };
    for (const auto& [label, days, checked, dismissed, due] : rows)
        EXPECT_EQ(due,
                  AfxIsCheckForUpdatesReminderDue(days, checked, dismissed, kNow, kNow) != FALSE)
            << label;
    // Each date is compared with the clock that produced it.
    EXPECT_FALSE(AfxIsCheckForUpdatesReminderDue(1, DaysAgo(1.4), never, DaysAgo(0.5), kNow));
}

} // namespace
