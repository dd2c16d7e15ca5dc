#include <quorvel/update/check_for_updates_profile.h>

#include <quorvel/system/profile.h>
#include <quorvel/util/calendar/local_time.h>

#include "support/date_time.h"
#include "support/registry.h"
#include "support/text.h"
#include "update/update_settings.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace {

const COleDateTime kNow(2024, 3, 12, 12, 0, 0);

COleDateTime DaysAgo(double days) {
    return kNow - COleDateTimeSpan(days);
}

TEST(CheckForUpdatesProfile, ValuesHaveTheirNamesKindsAndDefaults) {
    const TestKey key;
    const CRegistryPath path(HKEY_CURRENT_USER, key.Path());
    const CRegistryPath values(path, _T("Check For Updates"));
    EXPECT_EQ(_T(""), AfxGetProfileCheckForUpdatesURL(path));
    EXPECT_EQ(30, AfxGetProfileCheckForUpdatesReminder(path));
    EXPECT_EQ(COleDateTime(), AfxGetProfileCheckForUpdatesLastChecked(path));
    EXPECT_EQ(COleDateTime(), AfxGetProfileCheckForUpdatesLastModified(path));
    EXPECT_EQ(COleDateTime(), AfxGetProfileCheckForUpdatesLastDismissed(path));

    EXPECT_TRUE(AfxWriteProfileCheckForUpdatesURL(path, _T("http://h/")));
    EXPECT_FALSE(AfxWriteProfileCheckForUpdatesURL(path, nullptr));
    EXPECT_TRUE(AfxWriteProfileCheckForUpdatesReminder(path, -7));
    EXPECT_TRUE(AfxWriteProfileCheckForUpdatesLastChecked(path, DaysAgo(1)));
    EXPECT_TRUE(AfxWriteProfileCheckForUpdatesLastModified(path, DaysAgo(2)));
    EXPECT_TRUE(AfxWriteProfileCheckForUpdatesLastDismissed(path, DaysAgo(3)));
    EXPECT_EQ(_T("http://h/"), AfxGetProfileString(values, _T("URL"), _T("")));
    EXPECT_EQ(4294967289u, AfxGetProfileDWord(values, _T("Reminder"), 0));
    EXPECT_EQ(-7, AfxGetProfileCheckForUpdatesReminder(path));
    EXPECT_EQ(DaysAgo(1), AfxGetProfileOleDateTime(values, _T("Last Checked"), kNow));
    EXPECT_EQ(DaysAgo(2), AfxGetProfileOleDateTime(values, _T("Last Modified"), kNow));
    EXPECT_EQ(DaysAgo(3), AfxGetProfileOleDateTime(values, _T("Last Dismissed"), kNow));
    EXPECT_EQ(DaysAgo(1), AfxGetProfileCheckForUpdatesLastChecked(path));
    EXPECT_EQ(DaysAgo(3), AfxGetProfileCheckForUpdatesLastDismissed(path));
}

TEST(CheckForUpdatesProfile, SettingsShowAReminderOf1To90Days) {
    using namespace quorvel;
    const TestKey key;
    const CRegistryPath path(HKEY_CURRENT_USER, key.Path());
    const struct {
        int stored;
        bool isValid, reminds;
        int days, saved;
    } rows[] = {{-2147483647 - 1, false, false, 30, 0},
                {-1, false, false, 30, 0},
                {0, true, false, 30, 0},
                {1, true, true, 1, 1},
                {90, true, true, 90, 90},
                {91, false, true, 30, 30}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.stored);
        EXPECT_EQ(row.isValid, AfxIsValidCheckForUpdatesReminder(row.stored) != FALSE);
        AfxWriteProfileCheckForUpdatesReminder(path, row.stored);
        const UpdateSettings settings = LoadUpdateSettings(path);
        EXPECT_EQ(row.reminds, settings.reminds);
        EXPECT_EQ(row.days, settings.days);
        EXPECT_TRUE(SaveUpdateSettings(path, settings));
        EXPECT_EQ(row.saved, AfxGetProfileCheckForUpdatesReminder(path));
    }
    EXPECT_FALSE(SaveUpdateSettings(CRegistryPath(), UpdateSettings()));
    EXPECT_EQ(0u, ValidateUpdateUrl(_T("http://h/")));
    EXPECT_EQ(21403u, ValidateUpdateUrl(_T("h")));
    const std::tuple<const WCHAR*, UINT> texts[] = {{_T("1"), 0},     {_T("90"), 0},
                                                    {_T("0"), 21401}, {_T("91"), 21401},
                                                    {_T(""), 21401},  {_T("a day"), 21401}};
    for (const auto& [days, fault] : texts) {
        EXPECT_EQ(fault, ValidateReminderDays(true, days));
        EXPECT_EQ(0u, ValidateReminderDays(false, days));
    }
}

TEST(CheckForUpdatesProfile, AReminderIsDueDaysAfterTheCheckAndTheDismissal) {
    COleDateTime invalid = kNow, notANumber = kNow;
    invalid.SetStatus(COleDateTime::invalid);
    notANumber.m_dt = std::numeric_limits<double>::quiet_NaN();
    const COleDateTime never;
    const struct {
        const char* label;
        int days;
        COleDateTime checked, dismissed;
        bool due;
    } rows[] = {
        {"none wanted", 0, never, never, false},
        {"a negative number", -1, never, never, false},
        {"never checked", 1, never, never, true},
        {"checked a moment short", 7, DaysAgo(6.999), never, false},
        {"checked that long ago", 7, DaysAgo(7), never, true},
        {"dismissed since", 7, DaysAgo(70), DaysAgo(6.999), false},
        {"dismissed that long ago", 7, DaysAgo(70), DaysAgo(7), true},
        {"beyond 90 days, 30 count", 91, DaysAgo(29), never, false},
        {"and are over", 91, DaysAgo(30), never, true},
        {"a clock an hour ahead", 1, DaysAgo(-1.0 / 24), never, false},
        {"a clock years ahead", 1, DaysAgo(-1000), DaysAgo(-1000), true},
        {"no date", 1, invalid, notANumber, true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.due, AfxIsCheckForUpdatesReminderDue(row.days, row.checked, row.dismissed,
                                                           kNow, kNow) != FALSE)
            << row.label;
    // Each date is compared with the clock that it was taken from.
    const COleDateTime utc = DaysAgo(0.5), local = kNow;
    EXPECT_FALSE(AfxIsCheckForUpdatesReminderDue(1, DaysAgo(1.4), never, utc, local));
    EXPECT_TRUE(AfxIsCheckForUpdatesReminderDue(1, never, DaysAgo(1.4), utc, local));
}

TEST(CheckForUpdatesProfile, TheStoredValuesDecideNow) {
    const TestKey key;
    const CRegistryPath path(HKEY_CURRENT_USER, key.Path());
    EXPECT_TRUE(AfxIsCheckForUpdatesReminderDue(path));
    AfxWriteProfileCheckForUpdatesLastChecked(path, AfxGetCurrentUTCTime());
    EXPECT_FALSE(AfxIsCheckForUpdatesReminderDue(path));
    EXPECT_FALSE(AfxIsCheckForUpdatesReminderDue(CRegistryPath(nullptr, _T("x"))) == FALSE);
}

} // namespace
