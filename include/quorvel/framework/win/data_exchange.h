// Data exchange between a dialog's members and its controls. Windows only, the dialog's thread.
//
// A dialog overrides DoDataExchange with a row for each control. DDX_ functions copy in the
// direction of the exchange. DDV_ functions, each directly after the DDX_ function of its control,
// validate. A refused value shows a message box, sets the focus to the control and ends the
// exchange; UpdateData then returns FALSE. A missing control also ends it with FALSE.
#pragma once

#include <quorvel/framework/string.h>

#include <concepts>
#include <limits>

class CWnd;

class QUORVEL_API CDataExchange { // one exchange in one direction
public:
    CDataExchange(CWnd* dialog, BOOL saveAndValidate); // CWnd::UpdateData calls it

    BOOL m_bSaveAndValidate; // TRUE: from the controls
    CWnd* m_pDlgWnd;         // the window with the controls

    // The control with that id, to which Fail gives the focus; with PrepareEditCtrl Fail also
    // selects its text. Throws CNotSupportedException when it is missing.
    HWND PrepareCtrl(int id);
    HWND PrepareEditCtrl(int id);
    // Ends the exchange with a CUserException. The caller must have notified the user.
    [[noreturn]] void Fail();
    // Shows a box with the text, then calls Fail().
    [[noreturn]] void Fail(const WCHAR* text);

    int m_idLastControl = 0;         // set by PrepareCtrl; 0: no control yet
    BOOL m_bEditLastControl = FALSE; // set by PrepareEditCtrl
};

namespace quorvel {

// An integer that a control shows. Reading refuses any text but an integer within the bounds;
// surrounding blanks are ignored.
QUORVEL_API LONGLONG ExchangeInteger(CDataExchange* exchange, int id, LONGLONG value, LONGLONG low,
                                     LONGLONG high);
// Refuses, when reading, a value outside the bounds.
QUORVEL_API void ValidateRange(CDataExchange* exchange, LONGLONG value, LONGLONG low,
                               LONGLONG high);

// Integers, but not characters, that fit in a LONGLONG.
template <class T>
concept ShownInteger = std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, WCHAR> &&
                       (sizeof(T) < sizeof(LONGLONG) || std::signed_integral<T>);

} // namespace quorvel

// Subclasses the control with this object. Does nothing when the object already has a window.
QUORVEL_API void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
// The text of the control, or the number that it shows.
QUORVEL_API void DDX_Text(CDataExchange* exchange, int id, CString& value);
QUORVEL_API void DDX_Text(CDataExchange* exchange, int id, double& value);
template <quorvel::ShownInteger T>
void DDX_Text(CDataExchange* exchange, int id, T& value) {
    typedef std::numeric_limits<T> Limits;
    value =
        static_cast<T>(quorvel::ExchangeInteger(exchange, id, value, Limits::min(), Limits::max()));
}

QUORVEL_API void DDX_Check(CDataExchange* exchange, int id, int& value); // BST_CHECKED and so on
// The position of the checked button in the group that begins with that id; -1: no checked button.
QUORVEL_API void DDX_Radio(CDataExchange* exchange, int id, int& value);

// The selected row, or -1; or its text. Writing selects the first row that begins with the text or
// (Exact) equals it, ignoring case. A combo box takes any text into its edit field.
QUORVEL_API void DDX_LBIndex(CDataExchange* exchange, int id, int& index);
QUORVEL_API void DDX_LBString(CDataExchange* exchange, int id, CString& value);
QUORVEL_API void DDX_LBStringExact(CDataExchange* exchange, int id, CString& value);
QUORVEL_API void DDX_CBIndex(CDataExchange* exchange, int id, int& index);
QUORVEL_API void DDX_CBString(CDataExchange* exchange, int id, CString& value);
QUORVEL_API void DDX_CBStringExact(CDataExchange* exchange, int id, CString& value);

// Reading refuses a longer text; writing limits the text that can be typed.
QUORVEL_API void DDV_MaxChars(CDataExchange* exchange, const CString& value, int maxChars);
// Reading refuses a value outside the bounds.
QUORVEL_API void DDV_MinMaxDouble(CDataExchange* exchange, double value, double low, double high);

// Reading refuses a value outside the bounds.
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
