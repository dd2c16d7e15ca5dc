// The dialog that edits a link, and its address field.
#include <quorvel/controls/win/edit_hyperlink_dlg.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>

#include "controls/win/balloon_probe.h"
#include "controls/win/list_window.h"
#include "support/win/dialog_driver.h"

namespace {

constexpr int kText = QUORVEL_LINK_DISPLAY_TEXT;
constexpr int kAddress = QUORVEL_LINK_ADDRESS;

TEST(EditHyperlinkDlg, AcceptsATextAndAnAddressOnly) {
    using quorvel::kTextFieldEmpty, quorvel::kTextFieldInvalidUrl;
    // A balloon for the field; 0 if the dialog accepts.
    const std::tuple<int, CString, CString, UINT, int> rows[] = {
        {0, _T("a"), _T("http://") + CString(_T('a'), 10000), 0, 0},
        {0, _T(" \t"), _T("http://example.com/"), kTextFieldEmpty, kText},
        {1, _T(""), _T("http://example.com/"), 0, 0},
        {1, _T("a"), _T("http://"), kTextFieldInvalidUrl, kAddress},
        {0, _T(""), _T(""), kTextFieldEmpty, kText},
    };
    for (const auto& [isReadOnly, text, address, balloon, field] : rows) {
        SCOPED_TRACE(testing::PrintToString(address.Left(50)));
        CEditHyperlinkDlg dialog(isReadOnly);
        dialog.SetDisplayText(text);
        dialog.SetURI(address);
        std::unique_ptr<BalloonProbe> probe;
        const auto begin = [&](HWND box) {
            EXPECT_EQ(::IsWindowEnabled(::GetDlgItem(box, kText)), isReadOnly == 0);
            probe = std::make_unique<BalloonProbe>(box);
        };
        const auto look = [&](HWND box) {
            CString expected;
            expected.LoadString(balloon);
            EXPECT_EQ(probe->Text().Left(70), expected.Left(70));
            ASSERT_EQ(probe->m_places.size(), 1u);
            EXPECT_EQ(probe->m_places[0].y, ScreenPlaceOf(::GetDlgItem(box, field)).bottom);
        };
        const DialogDriver driver({begin, ClickOn(IDOK), look, ClickOn(IDCANCEL)});
        EXPECT_EQ(dialog.DoModal(), balloon == 0 ? IDOK : IDCANCEL);
        EXPECT_EQ(dialog.GetURI(), address);
        EXPECT_EQ(dialog.GetDisplayText(), text);
    }
}

TEST(EditHyperlinkDlg, AChosenAddressBecomesAReadOnlyText) {
    CEditHyperlinkDlg dialog(1);
    dialog.SetDisplayText(_T("text"));
    const auto notify = [](HWND box, UINT code) {
        ::SendMessageW(box, WM_COMMAND, MAKEWPARAM(kAddress, code),
                       reinterpret_cast<LPARAM>(::GetDlgItem(box, kAddress)));
    };
    const DialogDriver driver({[&](HWND box) {
                                   ::SendDlgItemMessageW(box, kAddress, CB_SETCURSEL, 3, 0);
                                   notify(box, CBN_SELCHANGE);
                                   EXPECT_EQ(TextOf(::GetDlgItem(box, kText)), _T("https://"));
                                   ::SetDlgItemTextW(box, kAddress, _T("file://C:\\a.txt"));
                                   notify(box, 0x83F8);
                               },
                               ClickOn(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetURI(), _T("file://C:\\a.txt"));
    EXPECT_EQ(dialog.GetDisplayText(), _T("file://C:\\a.txt"));
}

class PickingComboBox : public CLinkComboBox {
public:
    CString m_log;
    CString m_answer; // empty: cancelled

protected:
    BOOL PickFile(CString& path) override {
        m_log += _T("asked ");
        path = m_answer;
        return !m_answer.IsEmpty();
    }
};

TEST(LinkComboBox, PicksAFileWhenItIsChosenInTheOpenList) {
    ListParent host;
    PickingComboBox combo;
    host.m_onMessage = [&](UINT message, WPARAM wParam) {
        if (message == WM_COMMAND && wParam == MAKEWPARAM(9, 0x83F8))
            combo.m_log += _T("chosen ");
    };
    ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, CRect(0, 0, 200, 20), &host, 9));
    combo.LoadURLSchemes();
    const std::tuple<bool, const WCHAR*, const WCHAR*> rows[] = {
        {true, _T("C:\\a b.txt"), _T("asked chosen file://C:\\a b.txt")},
        {true, _T(""), _T("asked file://")},
        {false, _T("C:\\a b.txt"), _T("file://")},
    };
    for (const auto& [isOpen, answer, expected] : rows) {
        combo.m_log.Empty();
        combo.m_answer = answer;
        combo.SetCurSel(0);
        combo.SetFocus();
        combo.ShowDropDown(isOpen);
        for (const UINT key : {VK_DOWN, VK_DOWN, VK_RETURN})
            ::SendMessageW(::GetFocus(), WM_KEYDOWN, key, 1);
        ::SendMessageW(::GetFocus(), WM_CHAR, VK_RETURN, 1);
        combo.ShowDropDown(FALSE);
        PumpMessages();
        EXPECT_EQ(combo.m_log + TextOf(combo.m_hWnd), expected);
    }
}

} // namespace
