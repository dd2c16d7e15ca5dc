// The life of a dialog with validation, by keys and clicks as a user makes them, and its balloon.
#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/res/message_ids.h>

#include "controls/win/balloon_probe.h"
#include "controls/win/dialog_ids.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

#include <commctrl.h>

namespace {

typedef DialogDriver::Step Step;

class CNameDlg : public CVaskDialog {
public:
    CNameDlg() = default;
    using CVaskDialog::OnCancel;
    using CVaskDialog::OnOK;

    std::string m_seen;
    bool m_loads = true;
    bool m_saves = true;
    BOOL m_isOK = TRUE;
    UINT m_template = DIALOG_NAME;
    CString m_title = _T("*"); // "*": the default stays

protected:
    using CVaskDialog::GetStateAutoCompleteEditCtrls;
    using CVaskDialog::GetStateListCtrls;
    UINT GetTemplateID() override { return m_template; }
    void GetStateAutoCompleteEditCtrls(quorvel::EditKeys&, int isSaving) override {
        m_seen += isSaving ? "edits? " : "edits ";
    }
    void GetStateListCtrls(quorvel::ListPaths&, int isSaving) override {
        m_seen += isSaving ? "lists? " : "lists ";
    }
    void PreLoadStateControls() override { m_seen += "preload "; }
    void PostLoadStateControls() override { m_seen += "postload "; }
    void PreSaveStateControls() override { m_seen += "presave "; }
    void PostSaveStateControls() override { m_seen += "postsave "; }
    BOOL LoadData() override {
        m_seen += "load ";
        return m_loads;
    }
    BOOL ValidateData(UINT& icon, CString& title, CString& text, CRect& rect) override {
        m_seen += "validate ";
        EXPECT_EQ(icon, static_cast<UINT>(TTI_WARNING));
        EXPECT_EQ(title, _T("Validation Error"));
        EXPECT_EQ(text, _T(""));
        EXPECT_TRUE(rect.IsRectEmpty());
        if (TextOf(GetDlgItem(FIELD_NAME)->m_hWnd) != _T(""))
            return TRUE;
        if (m_title != _T("*"))
            title = m_title;
        text.LoadString(quorvel::kTextFieldEmpty);
        GetDlgItem(FIELD_NAME)->GetWindowRect(rect);
        return FALSE;
    }
    BOOL IsOK() override { return m_isOK; }
    BOOL SaveData() override {
        m_seen += "save ";
        return m_saves;
    }
    void GetBoldControlIDs(std::vector<int>& ids) override { ids = {FIELD_LABEL, 4711}; }
};

Step Type(const WCHAR* text) {
    return [text](HWND box) { ::SetDlgItemTextW(box, FIELD_NAME, text); };
}

TEST(VaskDialog, LoadsValidatesAndSavesInOrder) {
    CNameDlg dialog;
    DialogDriver driver({Press(VK_RETURN), Type(_T("a")), Press(VK_RETURN)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(driver.HasRun());
    EXPECT_EQ(
        dialog.m_seen,
        "load preload edits lists postload validate validate save presave edits? lists? postsave ");
}

TEST(VaskDialog, CancelSavesStatesOnly) {
    CNameDlg dialog;
    DialogDriver driver({Press(VK_ESCAPE)});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.m_seen, "load preload edits lists postload presave edits? lists? postsave ");
}

TEST(VaskDialog, StatesThatWereNotLoadedAreNotSaved) {
    CNameDlg dialog;
    dialog.m_loads = false;
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.m_seen, "load ");
}

TEST(VaskDialog, StaysOpenWhileItIsRefused) {
    CNameDlg dialog;
    dialog.m_saves = false;
    dialog.m_seen.clear();
    DialogDriver driver({Type(_T("a")), Press(VK_RETURN),
                         [&](HWND) {
                             dialog.m_saves = true;
                             dialog.SetBusy();
                         },
                         Press(VK_RETURN), ClickOn(IDOK), [&](HWND) { dialog.SetBusy(FALSE); },
                         [&](HWND) { dialog.m_isOK = FALSE; }, [&](HWND) { dialog.OnOK(); },
                         [&](HWND) { dialog.m_isOK = TRUE; }, [&](HWND) { dialog.OnOK(); }});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.m_seen.substr(std::string("load preload edits lists postload ").size()),
              "validate save validate save presave edits? lists? postsave ");
}

TEST(VaskDialog, OneBalloonPointsAtTheField) {
    CNameDlg dialog;
    BalloonProbe* probe = nullptr;
    std::unique_ptr<BalloonProbe> owner;
    DialogDriver driver({[&](HWND box) {
                             owner = std::make_unique<BalloonProbe>(box);
                             probe = owner.get();
                             EXPECT_FALSE(probe->IsVisible());
                         },
                         Press(VK_RETURN),
                         [&](HWND box) {
                             RECT field;
                             ::GetWindowRect(::GetDlgItem(box, FIELD_NAME), &field);
                             EXPECT_TRUE(probe->IsVisible());
                             EXPECT_EQ(probe->Text(), _T("This field cannot be empty"));
                             EXPECT_EQ(probe->m_titles,
                                       std::vector<CString>{_T("Validation Error")});
                             EXPECT_EQ(probe->m_icons, std::vector<WPARAM>{TTI_WARNING});
                             ASSERT_EQ(probe->m_places.size(), 1u);
                             EXPECT_EQ(probe->m_places[0].x, (field.left + field.right) / 2);
                             EXPECT_EQ(probe->m_places[0].y, field.bottom);
                         },
                         Press(VK_RETURN), // does not stack another
                         [&](HWND) { EXPECT_EQ(probe->m_titles.size(), 1u); },
                         [&](HWND box) { // the balloon goes where its dialog goes
                             ::SetWindowPos(box, nullptr, 30, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
                             RECT field;
                             ::GetWindowRect(::GetDlgItem(box, FIELD_NAME), &field);
                             EXPECT_EQ(probe->m_places.back().y, field.bottom);
                         },
                         Press(VK_TAB), [&](HWND) { EXPECT_FALSE(probe->IsVisible()); },
                         Press(VK_RETURN), [&](HWND) { EXPECT_TRUE(probe->IsVisible()); },
                         [&](HWND) { dialog.OnCancel(); }}); // destroyed while the balloon shows
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_FALSE(dialog.IsValidationErrorMessageShowing());
}

TEST(VaskDialog, LooksAsItsDeclarationsSay) {
    CNameDlg dialog;
    dialog.SetCaptionID(quorvel::kTextColumnCommand);
    dialog.m_isOK = FALSE;
    DialogDriver driver({[&](HWND box) {
        EXPECT_EQ(TextOf(box), _T("Command"));
        LOGFONTW font{};
        ::GetObjectW(
            reinterpret_cast<HFONT>(::SendDlgItemMessageW(box, FIELD_LABEL, WM_GETFONT, 0, 0)),
            sizeof font, &font);
        EXPECT_EQ(font.lfWeight, FW_BOLD);
        ::GetObjectW(
            reinterpret_cast<HFONT>(::SendDlgItemMessageW(box, FIELD_NAME, WM_GETFONT, 0, 0)),
            sizeof font, &font);
        EXPECT_LT(font.lfWeight, FW_BOLD);
        EXPECT_NE(CWnd::FromHandlePermanent(::GetDlgItem(box, 23010)), nullptr);
        EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(box, IDOK)));
        dialog.OnCancel();
    }});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

// Modeless dialogs, whose balloons are shown by hand.
class Balloons : public testing::Test {
protected:
    Balloons() {
        for (CNameDlg* dialog : {&m_first, &m_second}) {
            dialog->m_template = DIALOG_OTHER;
            EXPECT_TRUE(dialog->Create(static_cast<CWnd*>(nullptr)));
        }
    }
    static void FocusField(const CNameDlg& dialog, int id) {
        ::SetFocus(::GetDlgItem(dialog.m_hWnd, FIELD_NOTE + FIELD_NAME - id));
        ::SetFocus(::GetDlgItem(dialog.m_hWnd, id));
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            ::DispatchMessageW(&message);
    }
    static BOOL Show(CNameDlg& dialog) {
        return dialog.ShowValidationErrorMessage(TTI_WARNING, _T("Title"), _T("Text"),
                                                 CRect(0, 0, 10, 10));
    }
    CNameDlg m_first;
    CNameDlg m_second;
};

TEST_F(Balloons, HideByFocusInTheirOwnDialog) {
    FocusField(m_first, FIELD_NAME);
    EXPECT_TRUE(Show(m_first));
    EXPECT_FALSE(Show(m_first));
    EXPECT_TRUE(Show(m_second));
    FocusField(m_second, FIELD_NOTE);
    EXPECT_TRUE(m_first.IsValidationErrorMessageShowing()) << "focus of another dialog";
    EXPECT_FALSE(m_second.IsValidationErrorMessageShowing());
    FocusField(m_first, FIELD_NOTE); // the hook is there for the one that is left
    EXPECT_FALSE(m_first.IsValidationErrorMessageShowing());
    EXPECT_FALSE(m_first.HideValidationErrorMessage());

    // A dialog that ends with its balloon leaves nothing that the next focus would meet.
    EXPECT_TRUE(Show(m_first));
    m_first.DestroyWindow();
    EXPECT_FALSE(m_first.IsValidationErrorMessageShowing());
    EXPECT_TRUE(Show(m_second));
    FocusField(m_second, FIELD_NAME);
    EXPECT_FALSE(m_second.IsValidationErrorMessageShowing());
}

TEST_F(Balloons, TakeTextsAsTheyAre) {
    BalloonProbe probe(m_first.m_hWnd);
    const CRect rect(0, 0, 10, 10);
    EXPECT_FALSE(m_first.ShowValidationErrorMessage(TTI_INFO, nullptr, _T("a"), rect));
    EXPECT_FALSE(m_first.ShowValidationErrorMessage(TTI_INFO, _T("a"), nullptr, rect));
    EXPECT_FALSE(probe.IsVisible());
    const CString longText(_T('w'), 5000);
    const struct {
        const WCHAR* title;
        const WCHAR* text;
        CString shownTitle;
        WPARAM icon;
    } rows[] = {{_T("Title"), _T("a & b"), _T("Title"), TTI_INFO},
                {_T(""), _T("text"), _T(""), TTI_NONE}, // clears the title before
                {longText, longText, longText.Left(99), TTI_INFO}};
    for (const auto& row : rows) {
        EXPECT_TRUE(m_first.ShowValidationErrorMessage(TTI_INFO, row.title, row.text, rect));
        EXPECT_EQ(probe.m_titles.back(), row.shownTitle);
        EXPECT_EQ(probe.m_icons.back(), row.icon);
        EXPECT_EQ(probe.Text().Left(80), CString(row.text).Left(80));
        EXPECT_TRUE(m_first.HideValidationErrorMessage());
        EXPECT_FALSE(probe.IsVisible());
    }
    CNameDlg closed;
    EXPECT_FALSE(Show(closed));
}

} // namespace
