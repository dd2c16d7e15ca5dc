// Data exchange with the controls of a real dialog.
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
struct NumberRow {
    T value;
    const WCHAR* shown;
    const WCHAR* typed;
    bool taken;
    T read;
};

template <class T>
void ExpectNumbers(std::initializer_list<NumberRow<T>> rows) {
    MessageBoxRecorder app;
    CDataDlg dialog;
    T value = {};
    dialog.m_exchange = [&](CDataExchange* exchange) { DDX_Text(exchange, FIELD_TEXT, value); };
    for (const auto& row : rows) {
        value = row.value;
        EXPECT_TRUE(dialog.UpdateData(FALSE));
        EXPECT_EQ(TextOf(dialog.Item(FIELD_TEXT)), row.shown);
        dialog.SetDlgItemText(FIELD_TEXT, row.typed);
        EXPECT_EQ(dialog.UpdateData(), row.taken) << Printable(row.typed, ::lstrlenW(row.typed));
        EXPECT_EQ(value, row.read);
        EXPECT_EQ(app.Take().size(), row.taken ? 0u : 1u);
    }
}

TEST(DataExchange, NumbersOutsideTheTypeAreRefusedAndKept) {
    ExpectNumbers<int>({
        {0, _T("0"), _T("-17"), true, -17},
        {INT_MIN, _T("-2147483648"), _T("-2147483648"), true, INT_MIN},
        {5, _T("5"), _T("2147483648"), false, 5},
        {5, _T("5"), _T(" +8 "), true, 8},
        {5, _T("5"), _T(""), false, 5},
        {5, _T("5"), _T("7x"), false, 5},
    });
    ExpectNumbers<UINT>({{UINT_MAX, _T("4294967295"), _T("4294967295"), true, UINT_MAX},
                         {1, _T("1"), _T("-1"), false, 1},
                         {1, _T("1"), _T("4294967296"), false, 1}});
    ExpectNumbers<BYTE>({{255, _T("255"), _T("256"), false, 255}});
    ExpectNumbers<LONGLONG>(
        {{LLONG_MIN, _T("-9223372036854775808"), _T("-9223372036854775808"), true, LLONG_MIN},
         {1, _T("1"), _T("9223372036854775808"), false, 1}});
    ExpectNumbers<double>(
        {{0.5, _T("0.5"), _T("-1.25"), true, -1.25}, {0.5, _T("0.5"), _T("1,5"), false, 0.5}});
}

TEST(DataExchange, ARefusalSaysWhyAndSelectsTheField) {
    typedef std::function<void(CDataExchange*)> Exchange;
    CString text;
    int number = 0;
    UINT large = 0;
    const Exchange maxChars = [&](CDataExchange* exchange) {
        DDX_Text(exchange, FIELD_TEXT, text);
        DDV_MaxChars(exchange, text, 3);
    };
    const Exchange range = [&](CDataExchange* exchange) {
        DDX_Text(exchange, FIELD_TEXT, number);
        DDV_MinMaxInt(exchange, number, 1, 9);
    };
    const Exchange largeRange = [&](CDataExchange* exchange) {
        DDX_Text(exchange, FIELD_TEXT, large);
        DDV_MinMaxUInt(exchange, large, 1, 4000000000);
    };
    const std::tuple<Exchange, const WCHAR*, const WCHAR*> rows[] = {
        {maxChars, _T("abc"), nullptr},
        {maxChars, _T("abcd"), _T("The text in this field cannot be longer than 3 characters")},
        {range, _T("9"), nullptr},
        {range, _T("0"), _T("The value in this field must be a number between 1 and 9")},
        {range, _T("x"),
         _T("The value in this field must be a number between -2147483648 and 2147483647")},
        {largeRange, _T("4000000001"),
         _T("The value in this field must be a decimal number between 1 and 4000000000")},
    };
    MessageBoxRecorder app;
    CDataDlg dialog;
    dialog.ShowWindow(SW_SHOW);
    for (const auto& [exchange, typed, message] : rows) {
        dialog.m_exchange = exchange;
        dialog.SetDlgItemText(FIELD_TEXT, typed);
        ::SetFocus(dialog.Item(FIELD_NUMBER));
        EXPECT_EQ(dialog.UpdateData(), message == nullptr);
        const auto boxes = app.Take();
        ASSERT_EQ(boxes.size(), message != nullptr ? 1u : 0u);
        if (message == nullptr)
            continue;
        EXPECT_EQ(boxes[0].text, message);
        EXPECT_EQ(::GetFocus(), dialog.Item(FIELD_TEXT));
        DWORD first = 1;
        DWORD last = 0;
        dialog.SendDlgItemMessage(FIELD_TEXT, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                                  reinterpret_cast<LPARAM>(&last));
        EXPECT_EQ(first, 0u);
        EXPECT_EQ(last, static_cast<DWORD>(::lstrlenW(typed)));
    }
}

TEST(DataExchange, ControlsShowValuesAndGiveThemBack) {
    CDataDlg dialog;
    for (const WCHAR* const row : {_T("alpha beta"), _T("alpha"), _T("gamma")})
        for (const auto& [id, add] : {std::pair<int, UINT>(FIELD_LIST, LB_ADDSTRING),
                                      {FIELD_CHOICE, CB_ADDSTRING},
                                      {FIELD_COMBO, CB_ADDSTRING}})
            dialog.SendDlgItemMessage(id, add, 0, reinterpret_cast<LPARAM>(row));
    typedef void (*Index)(CDataExchange*, int, int&);
    const std::tuple<const char*, Index, int, int, int> indexes[] = {
        {"radio", DDX_Radio, FIELD_RADIO, 2, 2},
        {"no radio", DDX_Radio, FIELD_RADIO, -1, -1},
        {"no list row", DDX_LBIndex, FIELD_LIST, -1, -1},
        {"choice past the end", DDX_CBIndex, FIELD_CHOICE, 9, -1},
    };
    for (const auto& [label, exchange, id, shown, read] : indexes) {
        int value = shown;
        dialog.m_exchange = [&, f = exchange, i = id](CDataExchange* e) { f(e, i, value); };
        EXPECT_TRUE(dialog.UpdateData(FALSE));
        value = 77;
        EXPECT_TRUE(dialog.UpdateData());
        EXPECT_EQ(value, read) << label;
    }
    typedef void (*Text)(CDataExchange*, int, CString&);
    const std::tuple<Text, int, const WCHAR*, const WCHAR*> texts[] = {
        {DDX_LBString, FIELD_LIST, _T("gam"), _T("gamma")},
        {DDX_LBString, FIELD_LIST, _T("delta"), _T("")},
        {DDX_LBStringExact, FIELD_LIST, _T("ALPHA"), _T("alpha")},
        {DDX_LBStringExact, FIELD_LIST, _T("gam"), _T("")},
        {DDX_CBString, FIELD_CHOICE, _T("gam"), _T("gamma")},
        {DDX_CBStringExact, FIELD_COMBO, _T("gam"), _T("gam")},
    };
    for (const auto& [exchange, id, shown, read] : texts) {
        CString value = shown;
        dialog.m_exchange = [&, f = exchange, i = id](CDataExchange* e) { f(e, i, value); };
        EXPECT_TRUE(dialog.UpdateData(FALSE));
        value = _T("before");
        EXPECT_TRUE(dialog.UpdateData());
        EXPECT_EQ(value, read) << id;
    }
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
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(field.m_hWnd, dialog.Item(FIELD_TEXT));
    EXPECT_TRUE(dialog.UpdateData(FALSE));
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
