#include <quorvel/framework/win/dialog.h>

#include "dialogs.h"
#include "support/message_box_recorder.h"
#include "support/test.h"
#include "support/window_driver.h"

#include <climits>

namespace {

class CDataDlg : public CDialog {
public:
    std::function<void(CDataExchange*)> m_exchange;
    int m_changes = 0;

    CDataDlg() { Create(DIALOG_FIELDS); }
    HWND Item(int id) const { return ::GetDlgItem(m_hWnd, id); }

protected:
    void DoDataExchange(CDataExchange* exchange) override {
        if (m_exchange)
            m_exchange(exchange);
    }
    void OnChange() { ++m_changes; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CDataDlg, CDialog)
ON_EN_CHANGE(FIELD_TEXT, &CDataDlg::OnChange)
END_MESSAGE_MAP()

// Each row: a value, its text in the control, a typed text, and the resulting value.

template <class T>
void ExpectNumbers(std::initializer_list<std::tuple<T, const WCHAR*, const WCHAR*, bool, T>> rows) {
    MessageBoxRecorder app;
    CDataDlg dialog;
    T value = {};
    dialog.m_exchange = [&](CDataExchange* exchange) { DDX_Text(exchange, FIELD_TEXT, value); };
    for (const auto& [before, shown, typed, isTaken, after] : rows) {
        value = before;
        EXPECT_TRUE(dialog.UpdateData(FALSE));
        EXPECT_EQ(TextOf(dialog.Item(FIELD_TEXT)), shown);
        dialog.SetDlgItemText(FIELD_TEXT, typed);
        EXPECT_EQ(dialog.UpdateData(), isTaken) << CString(typed);
        EXPECT_EQ(value, after);
        EXPECT_EQ(app.Take().size(), isTaken ? 0u : 1u);
    }
}

TEST(DataExchange, NumbersOutsideTheTypeAreRefusedAndKept) {
    ExpectNumbers<int>({
        {INT_MIN, _T("-2147483648"), _T("-2147483648"), true, INT_MIN},
        {5, _T("5"), _T("2147483648"), false, 5},
        {5, _T("5"), _T(" +8 "), true, 8},
        {5, _T("5"), _T(""), false, 5},
    });
    ExpectNumbers<UINT>({{UINT_MAX, _T("4294967295"), _T("-1"), false, UINT_MAX},
                         {1, _T("1"), _T("4294967296"), false, 1}});
    ExpectNumbers<BYTE>({{255, _T("255"), _T("256"), false, 255}});
    ExpectNumbers<LONGLONG>(
        {{LLONG_MIN, _T("-9223372036854775808"), _T("9223372036854775808"), false, LLONG_MIN}});
    ExpectNumbers<double>(
        {{0.5, _T("0.5"), _T("-1.25"), true, -1.25}, {0.5, _T("0.5"), _T("1,5"), false, 0.5}});
}

TEST(DataExchange, ARefusalSaysWhyAndSelectsTheField) {
    typedef std::function<void(CDataExchange*)> Exchange;
    CString text;
    int number = 0;
    const Exchange maxChars = [&](CDataExchange* exchange) {
        DDX_Text(exchange, FIELD_TEXT, text);
        DDV_MaxChars(exchange, text, 3);
    };
    const Exchange range = [&](CDataExchange* exchange) {
        DDX_Text(exchange, FIELD_TEXT, number);
        DDV_MinMaxInt(exchange, number, 1, 9);
    };
    const std::tuple<Exchange, const WCHAR*, const WCHAR*> rows[] = {
        {maxChars, _T("abcd"), _T("The text in this field cannot be longer than 3 characters")},
        {range, _T("0"), _T("The value in this field must be a number between 1 and 9")},
        {range, _T("x"),
         _T("The value in this field must be a number between -2147483648 and 2147483647")},
    };
    MessageBoxRecorder app;
    CDataDlg dialog;
    dialog.ShowWindow(SW_SHOW);
    for (const auto& [exchange, typed, message] : rows) {
        dialog.m_exchange = exchange;
        dialog.SetDlgItemText(FIELD_TEXT, typed);
        ::SetFocus(dialog.Item(FIELD_NUMBER));
        EXPECT_FALSE(dialog.UpdateData());
        const auto boxes = app.Take();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text, message);
        EXPECT_EQ(::GetFocus(), dialog.Item(FIELD_TEXT));
        EXPECT_EQ(dialog.SendDlgItemMessage(FIELD_TEXT, EM_GETSEL), MAKELONG(0, ::lstrlenW(typed)));
    }
}

TEST(DataExchange, ControlsShowValuesAndGiveThemBack) {
    CDataDlg dialog;
    for (const WCHAR* const row : {_T("alpha beta"), _T("alpha"), _T("gamma")})
        for (const int id : {FIELD_LIST, FIELD_CHOICE, FIELD_COMBO})
            dialog.SendDlgItemMessage(id, id == FIELD_LIST ? LB_ADDSTRING : CB_ADDSTRING, 0,
                                      reinterpret_cast<LPARAM>(row));
    const auto expect = [&](auto exchange, int id, auto shown, auto marker, auto read) {
        auto value = shown;
        dialog.m_exchange = [&](CDataExchange* e) { exchange(e, id, value); };
        EXPECT_TRUE(dialog.UpdateData(FALSE));
        value = marker;
        EXPECT_TRUE(dialog.UpdateData());
        EXPECT_EQ(value, read) << id;
    };
    expect(DDX_Radio, FIELD_RADIO, 2, 77, 2);
    expect(DDX_LBIndex, FIELD_LIST, -1, 77, -1);
    expect(DDX_CBIndex, FIELD_CHOICE, 9, 77, -1); // past the end
    typedef void (*Text)(CDataExchange*, int, CString&);
    const std::tuple<Text, int, const WCHAR*, const WCHAR*> texts[] = {
        {DDX_LBString, FIELD_LIST, _T("gam"), _T("gamma")},
        {DDX_LBStringExact, FIELD_LIST, _T("ALPHA"), _T("alpha")},
        {DDX_CBStringExact, FIELD_COMBO, _T("gam"), _T("gam")},
    };
    for (const auto& [exchange, id, shown, read] : texts)
        expect(exchange, id, CString(shown), _T("before"), CString(read));
}

TEST(DataExchange, SubclassesAControlOnceAndNotifiesNobody) {
    MessageBoxRecorder app;
    CDataDlg dialog;
    CWnd field;
    CString text = _T("new");
    dialog.m_exchange = [&](CDataExchange* exchange) {
        DDX_Control(exchange, FIELD_TEXT, field);
        DDX_Text(exchange, FIELD_TEXT, text);
    };
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(field.m_hWnd, dialog.Item(FIELD_TEXT));
    EXPECT_EQ(dialog.m_changes, 0) << "no EN_CHANGE from the exchange";
    dialog.SetDlgItemText(FIELD_TEXT, _T("typed"));
    EXPECT_EQ(dialog.m_changes, 1);

    CWnd rival;
    dialog.m_exchange = [&](CDataExchange* exchange) { DDX_Control(exchange, FIELD_TEXT, rival); };
    EXPECT_FALSE(dialog.UpdateData(FALSE)) << "another object has it";
    dialog.m_exchange = [&](CDataExchange* exchange) { DDX_Text(exchange, 4711, text); };
    EXPECT_FALSE(dialog.UpdateData(FALSE)) << "no such control";
    EXPECT_EQ(app.Take().size(), 2u);
}

} // namespace
