// A dialog with validation and its balloon, driven by a user's keys and clicks.
#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "controls/win/balloon_probe.h"
#include "controls/win/dialog_ids.h"
#include "controls/win/list_window.h"
#include "support/message_box_recorder.h"
#include "support/win/dialog_driver.h"

#include <commctrl.h>

namespace {

typedef DialogDriver::Step Step;

class CNameDlg : public CVaskDialog {
public:
    using CVaskDialog::CVaskDialog;
    using CVaskDialog::OnCancel;
    using CVaskDialog::OnOK;

    std::string m_seen;
    std::function<BOOL()> m_load = [] { return TRUE; };
    std::function<BOOL()> m_save = [] { return TRUE; };
    BOOL m_isOK = TRUE;
    UINT m_template = DIALOG_NAME;
    int m_secondField = 0; // must not be empty, like the first
    bool m_focusesRefused = false;
    int m_exchangedField = FIELD_NOTE;
    CString m_note;
    std::vector<int> m_bold = {FIELD_LABEL, 4711};
    bool m_wasShown = false;
    bool m_throws = false; // while states are saved

protected:
    using CVaskDialog::GetStateAutoCompleteEditCtrls;
    using CVaskDialog::GetStateListCtrls;
    UINT GetTemplateID() override { return m_template; }
    void DoDataExchange(CDataExchange* exchange) override {
        CVaskDialog::DoDataExchange(exchange);
        DDX_Text(exchange, m_exchangedField, m_note);
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        m_wasShown = m_wasShown || (message == WM_SHOWWINDOW && wParam != 0);
        return CVaskDialog::WindowProc(message, wParam, lParam);
    }
    void GetStateAutoCompleteEditCtrls(quorvel::EditKeys&, int isSaving) override {
        m_seen += isSaving ? "edits? " : "edits ";
    }
    void GetStateListCtrls(quorvel::ListPaths&, int isSaving) override {
        m_seen += isSaving ? "lists? " : "lists ";
    }
    void PreLoadStateControls() override { m_seen += "preload "; }
    void PostLoadStateControls() override { m_seen += "postload "; }
    void PreSaveStateControls() override {
        m_seen += "presave ";
        if (m_throws)
            AfxThrowMemoryException();
    }
    void PostSaveStateControls() override { m_seen += "postsave "; }
    BOOL LoadData() override {
        m_seen += "load ";
        return m_load();
    }
    BOOL ValidateData(UINT& icon, CString&, CString& text, CRect& rect) override {
        m_seen += "validate ";
        EXPECT_EQ(icon, static_cast<UINT>(TTI_WARNING));
        EXPECT_TRUE(text.IsEmpty() && rect.IsRectEmpty());
        for (const int field : {FIELD_NAME, m_secondField}) {
            CWnd* const control = GetDlgItem(field);
            if (control == nullptr || TextOf(control->m_hWnd) != _T(""))
                continue;
            text.LoadString(quorvel::kTextFieldEmpty);
            control->GetWindowRect(rect);
            if (m_focusesRefused)
                GotoDlgCtrl(control);
            return FALSE;
        }
        return TRUE;
    }
    BOOL IsOK() override { return m_isOK; }
    BOOL SaveData() override {
        m_seen += "save ";
        return m_save();
    }
    void GetBoldControlIDs(std::vector<int>& ids) override { ids = m_bold; }
};

Step Type(const WCHAR* text) {
    return [text](HWND box) { ::SetDlgItemTextW(box, FIELD_NAME, text); };
}

TEST(VaskDialog, LoadsValidatesAndSavesInOrder) {
    CNameDlg dialog;
    dialog.m_load = [&] {
        dialog.m_note = _T("loaded");
        return TRUE;
    };
    DialogDriver driver({[&](HWND box) {
                             EXPECT_EQ(TextOf(::GetDlgItem(box, FIELD_NOTE)), _T("loaded"));
                             ::SetDlgItemTextW(box, FIELD_NOTE, _T("typed"));
                         },
                         Press(VK_RETURN),
                         [&](HWND) { EXPECT_EQ(dialog.m_note, _T("typed")) << "also if refused"; },
                         Type(_T("a")), Press(VK_RETURN), Press(VK_ESCAPE)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(
        std::exchange(dialog.m_seen, ""),
        "load preload edits lists postload validate validate save presave edits? lists? postsave ");
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.m_seen, "load preload edits lists postload presave edits? lists? postsave ");
}

TEST(VaskDialog, OpensWithItsDataOrNotAtAll) {
    MessageBoxRecorder app; // for a failing exchange
    CNameDlg* opening = nullptr;
    const std::tuple<const char*, int, std::function<BOOL()>> rows[] = {
        {"no such control", FIELD_LABEL, nullptr},
        {"nothing to load", FIELD_NOTE, [] { return FALSE; }},
        {"nothing to exchange any more", FIELD_NOTE,
         [&] { return (opening->m_exchangedField = FIELD_LABEL) != 0; }},
        {"destroyed", FIELD_NOTE, [&] { return opening->DestroyWindow(); }},
    };
    for (const auto& [label, field, load] : rows) {
        for (const bool isModal : {true, false}) {
            SCOPED_TRACE(testing::Message() << label << isModal);
            CNameDlg dialog(DIALOG_NAME); // GetTemplateID replaces it
            opening = &dialog;
            dialog.m_template = DIALOG_OTHER; // has the style WS_VISIBLE
            dialog.m_exchangedField = field;
            dialog.m_load = load;
            EXPECT_EQ(isModal ? dialog.DoModal() : dialog.Create(nullptr), isModal ? -1 : 0);
            EXPECT_EQ(dialog.m_hWnd, nullptr);
            EXPECT_EQ(dialog.m_seen, load ? "load " : "") << "and saves no states";
            EXPECT_FALSE(dialog.m_wasShown);
        }
    }
}

TEST(VaskDialog, StaysOpenWhileItIsRefusedOrSaves) {
    CNameDlg dialog;
    int tries = 0;
    const auto set = [&](BOOL isBusy, BOOL isOK) {
        return [&, isBusy, isOK](HWND) {
            dialog.m_save = [] { return TRUE; };
            dialog.SetBusy(isBusy);
            dialog.m_isOK = isOK;
        };
    };
    const Step enter = Press(VK_RETURN), ok = [&](HWND) { dialog.OnOK(); };
    const std::tuple<std::function<BOOL()>, std::vector<Step>, INT_PTR, const char*> rows[] = {
        {[&] { // OK and Cancel meanwhile
             dialog.SendMessage(WM_COMMAND, IDOK);
             dialog.SendMessage(WM_COMMAND, IDCANCEL);
             return ++tries == 2;
         },
         {enter, enter},
         IDOK,
         "validate save validate save "},
        {[] { return FALSE; },
         {enter, set(TRUE, TRUE), enter, ClickOn(IDOK), set(FALSE, FALSE), ok, set(FALSE, TRUE),
          ok},
         IDOK,
         "validate save validate save "},
        {[&] { return dialog.DestroyWindow(); }, {enter}, -1, "validate save "},
        {[] { return TRUE; }, {enter}, IDOK, "validate save "}, // opened again after that
    };
    for (const auto& [save, steps, result, seen] : rows) {
        dialog.m_seen.clear();
        dialog.m_save = save;
        std::vector<Step> all = {Type(_T("a"))};
        all.insert(all.end(), steps.begin(), steps.end());
        DialogDriver driver(all);
        EXPECT_EQ(dialog.DoModal(), result);
        EXPECT_EQ(dialog.m_seen, std::string("load preload edits lists postload ") + seen +
                                     "presave edits? lists? postsave ");
    }
}

TEST(VaskDialog, AStateHookMayThrow) {
    MessageBoxRecorder app;
    CNameDlg dialog;
    for (const bool throws : {true, false}) { // the second pass must be like the first
        dialog.m_throws = throws;
        DialogDriver driver(
            {Press(VK_RETURN), [&](HWND) { EXPECT_TRUE(dialog.IsValidationErrorMessageShowing()); },
             Press(VK_TAB), [&](HWND) { EXPECT_FALSE(dialog.IsValidationErrorMessageShowing()); },
             Press(VK_ESCAPE)});
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_EQ(app.Take().size(), throws ? 1u : 0u);
    }
}

TEST(VaskDialog, OneBalloonPointsAtTheRefusedField) {
    CNameDlg dialog;
    dialog.m_secondField = FIELD_NOTE;
    dialog.m_focusesRefused = true;
    std::unique_ptr<BalloonProbe> probe;
    std::string shown; // the fields that the balloon is below, and how often it was shown by then
    const Step note = [&](HWND box) {
        if (probe == nullptr)
            probe = std::make_unique<BalloonProbe>(box);
        BalloonProbe::ExpectOne(box);
        shown += probe->IsVisible() ? "" : "hidden, ";
        for (const auto& [id, name] : {std::pair(FIELD_NAME, "name "), {FIELD_NOTE, "note "}}) {
            const CRect field = ScreenPlaceOf(::GetDlgItem(box, id));
            if (probe->IsVisible() && probe->m_places.back().y == field.bottom &&
                probe->m_places.back().x == (field.left + field.right) / 2)
                shown += name + std::to_string(probe->m_titles.size()) + ", ";
        }
    };
    const Step move = [](HWND box) {
        ::SetWindowPos(box, nullptr, 30, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    };
    const Step mnemonic = [&](HWND box) { // of OK, which takes the focus
        dialog.m_focusesRefused = false;
        ::PostMessageW(KeyboardOf(box), WM_SYSCHAR, 'o', LPARAM{1} << 29); // Alt is pressed
    };
    const Step cancel = [&](HWND) {
        EXPECT_EQ(probe->Text(), _T("This field cannot be empty"));
        dialog.OnCancel(); // destroyed while the balloon is shown
    };
    const Step enter = Press(VK_RETURN);
    DialogDriver driver({note, enter, note, enter, note, move, note, Press(VK_TAB), note,
                         Type(_T("a")), enter, note, mnemonic, note, cancel});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(shown, "hidden, name 1, name 2, name 2, hidden, note 3, note 4, ");
    EXPECT_EQ(probe->m_titles, std::vector<CString>(4, _T("Validation Error")));
    EXPECT_EQ(probe->m_icons, std::vector<WPARAM>(4, TTI_WARNING));
    EXPECT_FALSE(dialog.IsValidationErrorMessageShowing());
}

TEST(VaskDialog, LooksAsItsDeclarationsSay) {
    CNameDlg dialog;
    dialog.SetCaptionID(quorvel::kTextColumnCommand);
    dialog.m_isOK = FALSE;
    DialogDriver driver({[&](HWND box) {
        EXPECT_EQ(TextOf(box), _T("Command"));
        const auto weightOf = [box](int id) { return FontOf(::GetDlgItem(box, id)).lfWeight; };
        EXPECT_EQ(weightOf(FIELD_LABEL), FW_BOLD);
        EXPECT_LT(weightOf(FIELD_NAME), FW_BOLD);
        dialog.m_bold = {FIELD_NAME};
        dialog.UpdateFonts();
        EXPECT_EQ(weightOf(FIELD_NAME), FW_BOLD);
        EXPECT_LT(weightOf(FIELD_LABEL), FW_BOLD) << "no longer named";
        EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(box, IDOK)));
        dialog.OnCancel();
    }});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

// Modeless dialogs, whose balloons the test shows directly.
class Balloons : public testing::Test {
protected:
    Balloons() {
        for (CNameDlg* dialog : {&m_first, &m_second}) {
            dialog->m_template = DIALOG_OTHER;
            EXPECT_TRUE(dialog->Create(nullptr));
        }
    }
    static void FocusField(const CNameDlg& dialog, int id) {
        ::SetFocus(::GetDlgItem(dialog.m_hWnd, FIELD_NOTE + FIELD_NAME - id));
        ::SetFocus(::GetDlgItem(dialog.m_hWnd, id));
        PumpMessages();
    }
    static BOOL Show(CNameDlg& dialog) {
        return dialog.ShowValidationErrorMessage(TTI_WARNING, _T("Title"), _T("Text"),
                                                 CRect(0, 0, 10, 10));
    }
    CNameDlg m_first;
    CNameDlg m_second;
};

TEST_F(Balloons, HideByFocusInTheirOwnDialogAndWithIt) {
    FocusField(m_first, FIELD_NAME);
    EXPECT_TRUE(Show(m_first) && !Show(m_first) && Show(m_second));
    FocusField(m_second, FIELD_NOTE);
    EXPECT_TRUE(m_first.IsValidationErrorMessageShowing()) << "focus of another dialog";
    EXPECT_FALSE(m_second.IsValidationErrorMessageShowing());
    FocusField(m_first, FIELD_NOTE); // the hook remains for the other balloon

    const std::pair<const char*, std::function<void()>> rows[] = {
        {"hidden", [&] { m_first.OnCancel(); }},
        {"another program", [&] { m_first.SendMessage(WM_ACTIVATEAPP, FALSE); }},
        {"another's report", [&] { m_first.SendMessage(0x83f9); }},
        {"destroyed", [&] { m_first.DestroyWindow(); }},
    };
    for (const auto& [label, act] : rows) {
        m_first.ShowWindow(SW_SHOW);
        EXPECT_TRUE(Show(m_first)) << label; // the one before is hidden
        act();
        EXPECT_FALSE(m_first.IsValidationErrorMessageShowing()) << label;
    }
    // The destroyed dialog leaves no data for the next focus change.
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
    const std::tuple<CString, CString, CString, WPARAM> rows[] = {
        {_T("Title"), _T("a & b"), _T("Title"), TTI_INFO},
        {_T(""), _T("text"), _T(""), TTI_NONE}, // clears the previous title
        {_T("Title"), _T(""), _T("Title"), TTI_INFO},
        {longText, longText, longText.Left(99), TTI_INFO},
    };
    for (const auto& [title, text, shownTitle, icon] : rows) {
        EXPECT_TRUE(m_first.ShowValidationErrorMessage(TTI_INFO, title, text, rect));
        EXPECT_EQ(probe.m_titles.back(), shownTitle);
        EXPECT_EQ(probe.m_icons.back(), icon);
        EXPECT_EQ(probe.Text().Left(80), text.IsEmpty() ? CString(_T(" ")) : text.Left(80));
        EXPECT_TRUE(m_first.HideValidationErrorMessage());
    }
}

} // namespace
