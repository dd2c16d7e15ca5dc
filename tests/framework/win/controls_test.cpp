// The control classes with real controls: their additions to the platform's messages.
#include <quorvel/framework/win/check_list_box.h>
#include <quorvel/framework/win/gdi.h>
#include <quorvel/framework/win/message_map.h>

#include "support/test.h"

namespace {

constexpr UINT kControl = 5;

class CParent : public CWnd {
public:
    std::string m_seen;
    CParent() {
        CreateEx(0, _T("Static"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 300, 300, nullptr, nullptr);
    }

protected:
    void OnCheck() { m_seen += "check "; }
    void OnSelection() { m_seen += "selection "; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CParent, CWnd)
ON_CLBN_CHKCHANGE(kControl, &CParent::OnCheck)
ON_LBN_SELCHANGE(kControl, &CParent::OnSelection)
END_MESSAGE_MAP()

constexpr CRect kPlace(0, 0, 200, 200);

TEST(CheckListBox, ChecksMoveWithTheirRowsAndNotifyTheParent) {
    CParent parent;
    CCheckListBox list;
    ASSERT_TRUE(list.Create(WS_VISIBLE | LBS_SORT | LBS_NOTIFY, kPlace, &parent, kControl));
    const auto checks = [&] {
        std::string text;
        for (int row = 0; row < list.GetCount(); ++row) {
            CString name;
            list.GetText(row, name);
            text += name.ToUTF8() + std::to_string(list.GetCheck(row)) +
                    (list.IsEnabled(row) ? " " : "! ");
        }
        return text;
    };
    const auto seen = [&] { return std::exchange(parent.m_seen, {}) + checks(); };
    const auto click = [&](int row, int x, UINT message = WM_LBUTTONDOWN) {
        CRect rect;
        list.GetItemRect(row, rect);
        list.SendMessage(message, MK_LBUTTON, MAKELPARAM(rect.left + x, rect.top + 3));
        list.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(rect.left + x, rect.top + 3));
        return seen();
    };
    const auto space = [&] {
        list.SetCurSel(0);
        list.SendMessage(WM_KEYDOWN, VK_SPACE, 1);
        list.SendMessage(WM_CHAR, ' ', 1);
        return seen();
    };
    list.AddString(_T("d"));
    list.SetItemData(list.AddString(_T("b")), 77);
    list.SetCheck(0, BST_CHECKED);
    list.AddString(_T("a"));
    list.AddString(_T("c"));
    EXPECT_EQ(list.GetItemData(1), 77u) << "the program's own";
    list.DeleteString(0);
    list.SetCheck(7, BST_CHECKED); // no such row
    list.SetCheck(1, 3);           // no such state
    list.Enable(2, FALSE);
    ExpectCases<std::string>({
        CASE(checks(), "b1 c0 d0! "),
        CASE(click(1, 4), "selection check b1 c1 d0! "),
        CASE(click(1, 4, WM_LBUTTONDBLCLK), "selection check b1 c0 d0! "),
        CASE(click(2, 4), "selection b1 c0 d0! "),  // disabled
        CASE(click(0, 60), "selection b1 c0 d0! "), // a click on the text
        CASE(space(), "check b0 c0 d0! "),
    });
    list.SetCheckStyle(BS_AUTO3STATE);
    space();
    EXPECT_EQ(space(), "check b2 c0 d0! ");
}

// As in a dialog: the system asked for the height before the list had its object and its font.
TEST(CheckListBox, RowsFollowTheFont) {
    CParent parent;
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(400, _T("Tahoma")));
    const HWND window =
        ::CreateWindowExW(0, L"ListBox", nullptr, WS_CHILD | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, 0,
                          0, 100, 100, parent.m_hWnd, nullptr, nullptr, nullptr);
    ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font.GetSafeHandle()), FALSE);
    CCheckListBox list;
    ASSERT_TRUE(list.SubclassWindow(window));
    const int high = list.GetItemHeight(0);
    EXPECT_GE(high, 40);
    list.SetFont(nullptr);
    EXPECT_LT(list.GetItemHeight(0), high);
}

} // namespace
