// CVaskMessageBox: the window of the message boxes in <quorvel/frame/vask_message_box.h>.
// Windows only, user-interface thread.
//
// The object is on the caller's stack for one box. AfxHookWindowCreate attaches it to the next
// window, AfxMessageBox shows the box, and GetCheckState returns the user's choice.
#pragma once

#include <quorvel/frame/win/vask_static.h>
#include <quorvel/framework/win/button.h>
#include <quorvel/framework/win/gdi.h>

namespace quorvel {
struct MessageBoxParts;
} // namespace quorvel

class QUORVEL_API CVaskMessageBox : public CWnd {
    DECLARE_DYNAMIC(CVaskMessageBox)
public:
    CVaskMessageBox();

    // Call these before the box is shown.
    void SetHeading(const WCHAR* heading);
    void SetCheckBox(const WCHAR* text, int checkState); // a state other than 0 and 1 counts as 0
    void SetHelpTarget(const WCHAR* target);             // a web address or an HTML Help topic

    int GetCheckState() const { return m_checkState; } // 0 or 1

protected:
    LRESULT OnInitDialog(WPARAM wParam, LPARAM lParam);
    void OnCheckBoxClicked();
    void OnHelpButton();
    LRESULT OnHelpKey(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    HFONT BoxFont() const;
    void CreateAdditions();
    void MeasureAdditions(quorvel::MessageBoxParts& parts) const;
    void LayOut();

    BOOL m_hasHeading = FALSE;
    CString m_heading;
    BOOL m_hasCheckBox = FALSE;
    CString m_checkBoxText;
    int m_checkState = 0;
    CString m_helpTarget; // empty: no help
    CFont m_boldFont;
    CVaskStatic m_headingCtrl;
    CButton m_checkBox;
};
