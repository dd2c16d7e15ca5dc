// Data exchange between a dialog's members and its controls. Windows only.
//
// A dialog overrides DoDataExchange with a row for each control: DDX_ functions copy, in the
// direction that the exchange says, and DDV_ functions, each right after the DDX_ one of its
// control, refuse values. A refusal shows a message box, gives the control the focus and ends the
// exchange: UpdateData is then FALSE. So does a control that does not exist.
#pragma once

#include <quorvel/framework/string.h>

#include <concepts>
#include <limits>

class CWnd;

class QUORVEL_API CDataExchange {
public:
    CDataExchange(CWnd* dialog, BOOL saveAndValidate);

    BOOL m_bSaveAndValidate; // TRUE: from the controls
    CWnd* m_pDlgWnd;

    // The control of that id, which Fail then gives the focus; the second form says that its text
    // is to be selected. CNotSupportedException when there is none.
    HWND PrepareCtrl(int id);
    HWND PrepareEditCtrl(int id);
    // Ends the exchange, by a CUserException. The caller has notified the user.
    [[noreturn]] void Fail();
    // Shows a box with the text, then Fail.
    [[noreturn]] void Fail(const WCHAR* text);

    int m_idLastControl = 0;
    BOOL m_bEditLastControl = FALSE;
};

namespace quorvel {

// An integer that a control shows. Reading refuses what is no integer between the bounds; blanks
// around it count for nothing.
QUORVEL_API LONGLONG ExchangeInteger(CDataExchange* exchange, int id, LONGLONG value, LONGLONG low,
                                     LONGLONG high);
// Refuses a value outside the bounds, when reading.
QUORVEL_API void ValidateRange(CDataExchange* exchange, LONGLONG value, LONGLONG low,
                               LONGLONG high);

// The integers that a LONGLONG holds, and no characters.
template <class T>
concept ShownInteger = std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, WCHAR> &&
                       (sizeof(T) < sizeof(LONGLONG) || std::signed_integral<T>);

} // namespace quorvel

// Subclasses the control with this object; nothing when it has a window already.
QUORVEL_API void DDX_Control(CDataExchange* exchange, int id, CWnd& control);

QUORVEL_API void DDX_Text(CDataExchange* exchange, int id, CString& value);
QUORVEL_API void DDX_Text(CDataExchange* exchange, int id, double& value);
template <quorvel::ShownInteger T>
void DDX_Text(CDataExchange* exchange, int id, T& value) {
    typedef std::numeric_limits<T> Limits;
    value =
        static_cast<T>(quorvel::ExchangeInteger(exchange, id, value, Limits::min(), Limits::max()));
}

QUORVEL_API void DDX_Check(CDataExchange* exchange, int id, int& value); // BST_CHECKED and so on
// The position of the checked button in the group that begins with that id, -1 for none.
QUORVEL_API void DDX_Radio(CDataExchange* exchange, int id, int& value);

// The selected row, -1 for none; or its text, where writing selects the first row that begins with
// the text (Exact: that is equal but for letter case). A combo box takes any text into its edit.
QUORVEL_API void DDX_LBIndex(CDataExchange* exchange, int id, int& index);
QUORVEL_API void DDX_LBString(CDataExchange* exchange, int id, CString& value);
QUORVEL_API void DDX_LBStringExact(CDataExchange* exchange, int id, CString& value);
QUORVEL_API void DDX_CBIndex(CDataExchange* exchange, int id, int& index);
QUORVEL_API void DDX_CBString(CDataExchange* exchange, int id, CString& value);
QUORVEL_API void DDX_CBStringExact(CDataExchange* exchange, int id, CString& value);

// Reading refuses a longer text; writing limits what can be typed.
QUORVEL_API void DDV_MaxChars(CDataExchange* exchange, const CString& value, int maxChars);
QUORVEL_API void DDV_MinMaxDouble(CDataExchange* exchange, double value, double low, double high);

inline void DDV_MinMaxInt(CDataExchange* exchange, int value, int low, int high) {
    quorvel::ValidateRange(exchange, value, low, high);
}
inline void DDV_MinMaxLong(CDataExchange* exchange, LONG value, LONG low, LONG high) {
    quorvel::ValidateRange(exchange, value, low, high);
}
inline void DDV_MinMaxUInt(CDataExchange* exchange, UINT value, UINT low, UINT high) {
    quorvel::ValidateRange(exchange, value, low, high);
}
inline void DDV_MinMaxDWord(CDataExchange* exchange, DWORD value, DWORD low, DWORD high) {
    quorvel::ValidateRange(exchange, value, low, high);
}
