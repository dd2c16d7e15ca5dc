// The settings of the check for updates and its reminder, driven by a user's keys and clicks.
#include <quorvel/res/resource_ids.h>
#include <quorvel/update/check_for_updates_profile.h>
#include <quorvel/update/win/check_for_updates_reminder_dlg.h>
#include <quorvel/update/win/check_for_updates_settings_dlg.h>

#include "controls/win/balloon_probe.h"
#include "support/date_time.h"
#include "support/message_box_recorder.h"
#include "support/registry.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

namespace {

typedef DialogDriver::Step Step;

Step Type(int id, const WCHAR* text) {
    return [id, text](HWND box) { ::SetDlgItemTextW(box, id, text); };
}
HWND Item(HWND box, int id) {
    return ::GetDlgItem(box, id);
}

class UpdatesSettings : public testing::Test {
protected:
    UpdatesSettings() { AfxWriteProfileCheckForUpdatesURL(path, _T("http://old/")); }
    static INT_PTR RunDialog(CVaskDialog& dialog, std::vector<Step> steps) {
        const DialogDriver driver(std::move(steps));
        const INT_PTR result = dialog.DoModal();
        EXPECT_TRUE(driver.HasRun());
        return result;
    }
    void Run(std::vector<Step> steps) {
        CCheckForUpdatesSettingsDlg dialog(path);
        RunDialog(dialog, std::move(steps));
    }

    const TestKey key;
    const CRegistryPath path{HKEY_CURRENT_USER, key.Path()};
    CCheckForUpdatesReminderDlg reminder{path};
};

TEST_F(UpdatesSettings, ShowWhatIsStoredAndTheDaysFollowTheirBox) {
    const auto expect = [](BOOL reminds) {
        return [reminds](HWND box) {
            EXPECT_EQ(TextOf(Item(box, QUORVEL_UPDATES_URL)), _T("http://old/"));
            EXPECT_EQ(TextOf(Item(box, QUORVEL_UPDATES_DAYS)), _T("7"));
            EXPECT_EQ(::IsDlgButtonChecked(box, QUORVEL_UPDATES_REMIND), UINT(reminds));
            for (const int id : {QUORVEL_UPDATES_DAYS, QUORVEL_UPDATES_DAYS_SPIN})
                EXPECT_EQ(::IsWindowEnabled(Item(box, id)), reminds);
        };
    };
    const auto pressUp = [](HWND box) {
        ::PostMessageW(Item(box, QUORVEL_UPDATES_DAYS), WM_KEYDOWN, VK_UP, 1);
    };
    AfxWriteProfileCheckForUpdatesReminder(path, 7);
    const Step tick = ClickOn(QUORVEL_UPDATES_REMIND);
    Run({expect(TRUE), tick, expect(FALSE), tick, expect(TRUE), pressUp, Press(VK_ESCAPE)});
    EXPECT_EQ(AfxGetProfileCheckForUpdatesReminder(path), 7);
    Run({pressUp, Press(VK_RETURN)});
    EXPECT_EQ(AfxGetProfileCheckForUpdatesReminder(path), 8);
}

TEST_F(UpdatesSettings, AreRefusedAtTheFieldOrStored) {
    std::unique_ptr<BalloonProbe> balloon;
    const auto refused = [&](int id, const WCHAR* text) {
        return [&, id, text](HWND box) {
            RECT field;
            ::GetWindowRect(Item(box, id), &field);
            ASSERT_TRUE(balloon->IsVisible());
            EXPECT_EQ(balloon->m_places.back().y, field.bottom);
            EXPECT_EQ(balloon->Text().Find(text), 0);
        };
    };
    Run({[&](HWND box) { balloon = std::make_unique<BalloonProbe>(box); },
         Type(QUORVEL_UPDATES_URL, _T("new.example")), Press(VK_RETURN),
         refused(QUORVEL_UPDATES_URL, _T("The value in this field must be a valid URL")),
         Type(QUORVEL_UPDATES_URL, _T(" http://new/\t")), Type(QUORVEL_UPDATES_DAYS, _T("91")),
         Press(VK_RETURN),
         refused(QUORVEL_UPDATES_DAYS, _T("The value in this field must be a number between 1 ")),
         [&](HWND) { EXPECT_EQ(AfxGetProfileCheckForUpdatesURL(path), _T("http://old/")); },
         Type(QUORVEL_UPDATES_DAYS, _T("\x0665")), Press(VK_RETURN), // a digit for the platform
         refused(QUORVEL_UPDATES_DAYS, _T("The value in this field must be a number between 1 ")),
         Type(QUORVEL_UPDATES_DAYS, _T(" +8")), Press(VK_RETURN)});
    EXPECT_EQ(AfxGetProfileCheckForUpdatesURL(path), _T("http://new/"));
    EXPECT_EQ(AfxGetProfileCheckForUpdatesReminder(path), 8);
    Run({Type(QUORVEL_UPDATES_DAYS, _T("abc")), ClickOn(QUORVEL_UPDATES_REMIND), Press(VK_RETURN)});
    EXPECT_EQ(AfxGetProfileCheckForUpdatesReminder(path), 0);
}

TEST_F(UpdatesSettings, AFailureToStoreIsReportedAndTheDialogStays) {
    MessageBoxRecorder boxes;
    CCheckForUpdatesSettingsDlg dialog{CRegistryPath()};
    RunDialog(dialog,
              {Type(QUORVEL_UPDATES_URL, _T("http://new/")), Press(VK_RETURN), Press(VK_ESCAPE)});
    EXPECT_EQ(boxes.Take().at(0).text.Find(_T("An error has occurred while writing")), 0);
}

TEST_F(UpdatesSettings, OnlyDismissalOfAReminderIsStored) {
    const std::tuple<Step, INT_PTR, bool> rows[] = {
        {Press(VK_RETURN), IDYES, false},
        {ClickOn(IDNO), IDNO, false},
        {Press(VK_ESCAPE), IDCANCEL, false},
        {ClickOn(QUORVEL_UPDATES_DISMISS), IDCANCEL, true}};
    for (const auto& [step, result, isStored] : rows) {
        const COleDateTime before = COleDateTime::GetCurrentTime();
        EXPECT_EQ(RunDialog(reminder, {step}), result);
        const COleDateTime stored = AfxGetProfileCheckForUpdatesLastDismissed(path);
        EXPECT_EQ(stored >= before && stored <= COleDateTime::GetCurrentTime(), isStored);
    }
}

TEST_F(UpdatesSettings, AReminderShowsItsStatusAndReachesThem) {
    const auto wait = [](HWND) {}; // a dialog is shown when no message waits
    EXPECT_TRUE(reminder.SetStatus(_T("It was long ago.")));
    EXPECT_FALSE(reminder.SetStatus(nullptr));
    RunDialog(reminder, {[&](HWND box) {
                             const HWND status = Item(box, QUORVEL_UPDATES_REMINDER_STATUS);
                             EXPECT_EQ(TextOf(status), _T("It was long ago."));
                             reminder.SetStatus(_T("a & b"));
                             EXPECT_EQ(TextOf(status), _T("a & b"));
                         },
                         ClickOn(QUORVEL_UPDATES_OPEN_SETTINGS), wait, wait,
                         Type(QUORVEL_UPDATES_URL, _T("http://new/")), Press(VK_RETURN), wait,
                         Press(VK_ESCAPE)});
    EXPECT_EQ(AfxGetProfileCheckForUpdatesURL(path), _T("http://new/"));
}

} // namespace
