#include <quorvel/framework/win/data_exchange.h>

#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/wnd.h>
#include <quorvel/res/message_ids.h>

#include <cfloat>
#include <climits>
#include <cstdlib>
#include <cwchar>

namespace {

CString TextOf(HWND control) {
    CString text;
    CWnd::FromHandle(control)->GetWindowText(text);
    return text;
}

// Does not set an equal text again: that would notify the parent and move the caret.
void ShowText(HWND control, const WCHAR* text) {
    if (TextOf(control) != text)
        ::SetWindowTextW(control, text);
}

CString RangeText(LONGLONG low, LONGLONG high) {
    CString text;
    if (low >= INT_MIN && high <= INT_MAX) {
        text.FormatMessage(UINT{quorvel::kTextFieldNumberRange}, static_cast<int>(low),
                           static_cast<int>(high));
    } else {
        CString lowText;
        CString highText;
        lowText.Format(_T("%I64d"), low);
        highText.Format(_T("%I64d"), high);
        AfxFormatString2(text, quorvel::kTextFieldDecimalRange, lowText, highText);
    }
    return text;
}

CString RangeText(double low, double high) {
    CString lowText;
    CString highText;
    lowText.Format(_T("%g"), low);
    highText.Format(_T("%g"), high);
    CString text;
    AfxFormatString2(text, quorvel::kTextFieldDecimalRange, lowText, highText);
    return text;
}

// Returns false unless the text is an integer that a LONGLONG can hold.
bool ParseInteger(CString text, LONGLONG& value) {
    text.Trim();
    const bool negative = text.Left(1) == _T("-");
    const int first = negative || text.Left(1) == _T("+") ? 1 : 0;
    value = 0;
    for (int i = first; i < text.GetLength(); ++i) {
        const WCHAR digit = text[i];
        if (digit < '0' || digit > '9' || __builtin_mul_overflow(value, 10, &value) ||
            __builtin_add_overflow(value, negative ? '0' - digit : digit - '0', &value))
            return false;
    }
    return text.GetLength() > first;
}

bool IsRadioButton(HWND control) {
    return (::SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

// The messages that read and select the rows of a list box or combo box.
struct RowMessages {
    UINT getSelection, select, find, findExact, textLength, text;
};
constexpr RowMessages kListBox = {LB_GETCURSEL,       LB_SETCURSEL,  LB_FINDSTRING,
                                  LB_FINDSTRINGEXACT, LB_GETTEXTLEN, LB_GETTEXT};
constexpr RowMessages kComboBox = {CB_GETCURSEL,       CB_SETCURSEL,    CB_FINDSTRING,
                                   CB_FINDSTRINGEXACT, CB_GETLBTEXTLEN, CB_GETLBTEXT};

void ExchangeIndex(CDataExchange* exchange, int id, int& index, const RowMessages& messages) {
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        index = static_cast<int>(::SendMessageW(control, messages.getSelection, 0, 0));
    else if (::SendMessageW(control, messages.select, static_cast<WPARAM>(index), 0) < 0)
        ::SendMessageW(control, messages.select, static_cast<WPARAM>(-1), 0); // -1 matches no row
}

// Returns FALSE when no row has the text.
bool SelectRow(HWND control, const CString& text, const RowMessages& messages, bool exact) {
    const LRESULT row =
        ::SendMessageW(control, exact ? messages.findExact : messages.find, static_cast<WPARAM>(-1),
                       reinterpret_cast<LPARAM>(text.GetString()));
    ::SendMessageW(control, messages.select, static_cast<WPARAM>(row), 0);
    return row >= 0;
}

CString SelectedRow(HWND control, const RowMessages& messages) {
    CString text;
    const WPARAM row = static_cast<WPARAM>(::SendMessageW(control, messages.getSelection, 0, 0));
    const LRESULT length = ::SendMessageW(control, messages.textLength, row, 0);
    if (length < 0)
        return text;
    WCHAR* const buffer = text.GetBuffer(static_cast<int>(length));
    ::SendMessageW(control, messages.text, row, reinterpret_cast<LPARAM>(buffer));
    text.ReleaseBuffer();
    return text;
}

void ExchangeListBox(CDataExchange* exchange, int id, CString& value, bool exact) {
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = SelectedRow(control, kListBox);
    else
        SelectRow(control, value, kListBox, exact);
}

void ExchangeComboBox(CDataExchange* exchange, int id, CString& value, bool exact) {
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = TextOf(control);
    else if (!SelectRow(control, value, kComboBox, exact))
        ::SetWindowTextW(control, value);
}

} // namespace

CDataExchange::CDataExchange(CWnd* dialog, BOOL saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}

HWND CDataExchange::PrepareCtrl(int id) {
    const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
    if (control == nullptr)
        AfxThrowNotSupportedException();
    m_idLastControl = id;
    m_bEditLastControl = FALSE;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int id) {
    const HWND control = PrepareCtrl(id);
    m_bEditLastControl = TRUE;
    return control;
}

void CDataExchange::Fail() {
    const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, m_idLastControl);
    if (m_bSaveAndValidate && m_idLastControl != 0 && control != nullptr) {
        ::SetFocus(control);
        if (m_bEditLastControl)
            ::SendMessageW(control, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

void CDataExchange::Fail(const WCHAR* text) {
    AfxMessageBox(text, MB_OK | MB_ICONEXCLAMATION);
    Fail();
}

LONGLONG quorvel::ExchangeInteger(CDataExchange* exchange, int id, LONGLONG value, LONGLONG low,
                                  LONGLONG high) {
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        CString text;
        text.Format(_T("%I64d"), value);
        ShowText(control, text);
    } else if (!ParseInteger(TextOf(control), value) || value < low || value > high) {
        exchange->Fail(RangeText(low, high));
    }
    return value;
}

void quorvel::ValidateRange(CDataExchange* exchange, LONGLONG value, LONGLONG low, LONGLONG high) {
    if (exchange->m_bSaveAndValidate && (value < low || value > high))
        exchange->Fail(RangeText(low, high));
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    if (control.m_hWnd == nullptr && !control.SubclassWindow(exchange->PrepareCtrl(id)))
        AfxThrowNotSupportedException(); // another object is attached to it
}

void DDX_Text(CDataExchange* exchange, int id, CString& value) {
    const HWND control = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = TextOf(control);
    else
        ShowText(control, value);
}

void DDX_Text(CDataExchange* exchange, int id, double& value) {
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        CString text;
        text.Format(_T("%.15g"), value);
        ShowText(control, text);
        return;
    }
    const CString text = TextOf(control).Trim();
    WCHAR* end = nullptr;
    const double read = std::wcstod(text, &end);
    if (text.IsEmpty() || *end != 0)
        exchange->Fail(RangeText(-DBL_MAX, DBL_MAX));
    value = read;
}

void DDX_Check(CDataExchange* exchange, int id, int& value) {
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = static_cast<int>(::SendMessageW(control, BM_GETCHECK, 0, 0));
    else
        ::SendMessageW(control, BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

void DDX_Radio(CDataExchange* exchange, int id, int& value) {
    HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = -1;
    int position = 0;
    do {
        if (IsRadioButton(control)) {
            if (!exchange->m_bSaveAndValidate)
                ::SendMessageW(control, BM_SETCHECK, position == value, 0);
            else if (::SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED)
                value = position;
            ++position;
        }
        control = ::GetWindow(control, GW_HWNDNEXT);
    } while (control != nullptr && (::GetWindowLongPtrW(control, GWL_STYLE) & WS_GROUP) == 0);
}

void DDX_LBIndex(CDataExchange* exchange, int id, int& index) {
    ExchangeIndex(exchange, id, index, kListBox);
}
void DDX_LBString(CDataExchange* exchange, int id, CString& value) {
    ExchangeListBox(exchange, id, value, false);
}
void DDX_LBStringExact(CDataExchange* exchange, int id, CString& value) {
    ExchangeListBox(exchange, id, value, true);
}
void DDX_CBIndex(CDataExchange* exchange, int id, int& index) {
    ExchangeIndex(exchange, id, index, kComboBox);
}
void DDX_CBString(CDataExchange* exchange, int id, CString& value) {
    ExchangeComboBox(exchange, id, value, false);
}
void DDX_CBStringExact(CDataExchange* exchange, int id, CString& value) {
    ExchangeComboBox(exchange, id, value, true);
}

void DDV_MaxChars(CDataExchange* exchange, const CString& value, int maxChars) {
    if (!exchange->m_bSaveAndValidate) {
        const HWND control = ::GetDlgItem(exchange->m_pDlgWnd->m_hWnd, exchange->m_idLastControl);
        const bool combo = !exchange->m_bEditLastControl;
        ::SendMessageW(control, combo ? CB_LIMITTEXT : EM_LIMITTEXT, static_cast<WPARAM>(maxChars),
                       0);
    } else if (value.GetLength() > maxChars) {
        CString text;
        text.FormatMessage(UINT{quorvel::kTextFieldTooLong}, maxChars);
        exchange->Fail(text);
    }
}

void DDV_MinMaxDouble(CDataExchange* exchange, double value, double low, double high) {
    if (exchange->m_bSaveAndValidate && !(value >= low && value <= high))
        exchange->Fail(RangeText(low, high));
}
