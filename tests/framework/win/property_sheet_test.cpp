// Sheets and wizards with real pages, driven by their buttons and keys.
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/win/property_sheet.h>

#include "dialogs.h"
#include "support/message_box_recorder.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

namespace {

std::string g_seen; // the page's letter and the call

class CRecordingPage : public CPropertyPage {
public:
    CRecordingPage(char name, UINT templateId) : CPropertyPage(templateId), m_name(name) {}

    std::string m_refused; // a call to refuse once; with '!' it throws instead

    BOOL OnSetActive() override { return CPropertyPage::OnSetActive() && Note("active"); }
    BOOL OnKillActive() override { return CPropertyPage::OnKillActive() && Note("kill"); }
    BOOL OnApply() override { return Note("apply") && CPropertyPage::OnApply(); }
    void OnReset() override {
        Note("reset");
        CPropertyPage::OnReset();
    }
    BOOL OnQueryCancel() override { return Note("query"); }
    LRESULT OnWizardBack() override { return Note("back") ? 0 : -1; }
    LRESULT OnWizardNext() override { return Note("next") ? 0 : -1; }
    BOOL OnWizardFinish() override { return Note("finish"); }

protected:
    BOOL OnInitDialog() override {
        CPropertyPage::OnInitDialog();
        return Note("init");
    }
    void OnOK() override { Note("ok"); }
    void OnCancel() override { Note("cancel"); }

private:
    bool Note(const std::string& call) {
        g_seen += m_name + call + ' ';
        const std::string refused = m_refused;
        if (refused != call && refused != '!' + call)
            return true;
        m_refused.clear();
        if (refused[0] == '!')
            AfxThrowMemoryException();
        return false;
    }
    const char m_name;
};

struct TwoPages : CPropertySheet {
    TwoPages() : CPropertySheet(_T("Sheet")) {
        AddPage(&m_first);
        AddPage(&m_second);
        AddPage(nullptr);
        m_psh.dwFlags |= PSH_NOCONTEXTHELP;
        g_seen.clear();
    }
    CRecordingPage m_first{'1', DIALOG_FIRST_PAGE};
    CRecordingPage m_second{'2', DIALOG_SECOND_PAGE};
};

typedef DialogDriver::Step Step;

Step Select(int page) {
    return [page](HWND box) { ::SendMessageW(box, PSM_SETCURSEL, static_cast<WPARAM>(page), 0); };
}

TEST(Sheet, CallsItsPagesInOrder) {
    const Step apply = [](HWND box) {
        const HWND page = reinterpret_cast<HWND>(::SendMessageW(box, PSM_GETCURRENTPAGEHWND, 0, 0));
        static_cast<CPropertyPage*>(CWnd::FromHandlePermanent(page))->SetModified();
        Click(box, 0x3021);
    };
    const Step ok = ClickOn(IDOK);
    const Step cancel = ClickOn(IDCANCEL);
    const Step next = ClickOn(ID_WIZNEXT);
    const Step finish = ClickOn(ID_WIZFINISH);
    const Step escape = Press(VK_ESCAPE);
    // What the first page refuses; the steps, the result and the calls after the first page came.
    const std::tuple<const char*, std::vector<Step>, INT_PTR, std::string> rows[] = {
        {"", Steps(ok), IDOK, "1kill 1apply 1ok "},
        {"", Steps(Select(1), Select(0), cancel), IDCANCEL,
         "1kill 2init 2active 2kill 1active 1query 1reset 1cancel 2reset 2cancel "},
        {"", Steps(apply, escape), IDCANCEL, "1kill 1apply 1ok 1active 1query 1reset 1cancel "},
        {"kill", Steps(Select(1), cancel), IDCANCEL, "1kill 1query 1reset 1cancel "},
        {"apply", Steps(ok, ok), IDOK, "1kill 1apply 1kill 1apply 1ok "},
        {"query", Steps(cancel, cancel), IDCANCEL, "1query 1query 1reset 1cancel "},
        {"!apply", Steps(ok, cancel), IDCANCEL, "1kill 1apply 1query 1reset 1cancel "},
        {"next", Steps(next, next, ClickOn(ID_WIZBACK), next, finish), ID_WIZFINISH,
         "1next 1next 1kill 2init 2active 2back 2kill 1active 1next 1kill 2active 2finish "},
    };
    MessageBoxRecorder app;
    for (const auto& [refusedByFirst, steps, result, seen] : rows) {
        SCOPED_TRACE(refusedByFirst + (": " + seen));
        TwoPages sheet;
        sheet.m_first.m_refused = refusedByFirst;
        if (result == ID_WIZFINISH)
            sheet.SetWizardMode();
        const DialogDriver driver(steps);
        EXPECT_EQ(sheet.DoModal(), result);
        EXPECT_TRUE(driver.HasRun());
        EXPECT_EQ(g_seen, "1init 1active " + seen);
        EXPECT_EQ(sheet.m_first.m_hWnd, nullptr);
        EXPECT_EQ(app.Take().size(), *refusedByFirst == '!' ? 1u : 0u);
    }
}

TEST(Sheet, KnowsItsPages) {
    CWnd owner;
    owner.CreateEx(0, _T("Static"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr);
    TwoPages sheet;
    CPropertyPage third(DIALOG_FIRST_PAGE), missing(DIALOG_MISSING);
    EXPECT_TRUE(sheet.SetActivePage(1));
    const DialogDriver driver({
        [&](HWND) {
            EXPECT_FALSE(owner.IsWindowEnabled());
            EXPECT_EQ(sheet.GetActivePage(), &sheet.m_second);
            EXPECT_EQ(sheet.DoModal(), -1) << "a second one";
            sheet.AddPage(&third);
            EXPECT_TRUE(sheet.SetActivePage(&third));
            sheet.RemovePage(&sheet.m_second);
        },
        PressWith(VK_CONTROL, VK_TAB),
        [&](HWND) { sheet.EndDialog(sheet.GetActivePage() == &sheet.m_first ? 9 : 0); },
    });
    EXPECT_EQ(sheet.DoModal(), 9);

    sheet.AddPage(&missing);
    EXPECT_EQ(sheet.DoModal(), -1) << "a page without a template";
    TwoPages modeless;
    ASSERT_TRUE(modeless.Create(&owner));
    ::SendMessageW(modeless.m_hWnd, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
    EXPECT_TRUE(modeless.IsClosed());
    modeless.DestroyWindow();
}

} // namespace
