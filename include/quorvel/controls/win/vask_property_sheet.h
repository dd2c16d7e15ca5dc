// CVaskPropertySheet: a property sheet with button texts from the catalogue, in the current
// language. Windows only, user-interface thread.
#pragma once

#include <quorvel/framework/win/property_sheet.h>

namespace quorvel {
class ValidationBalloon;
}

class QUORVEL_API CVaskPropertySheet : public CPropertySheet {
    DECLARE_DYNAMIC(CVaskPropertySheet)
public:
    CVaskPropertySheet();
    // As in CPropertySheet.
    explicit CVaskPropertySheet(const WCHAR* caption, CWnd* parent = nullptr,
                                UINT selectedPage = 0);
    explicit CVaskPropertySheet(UINT captionTextId, CWnd* parent = nullptr, UINT selectedPage = 0);
    ~CVaskPropertySheet() override;

    // Sets the texts of OK, Cancel, Apply and Help; in wizard mode of Next, Finish, Back, Cancel
    // and Help. Called when the sheet opens.
    virtual void UpdateCommandButtonText();

protected:
    BOOL OnInitDialog() override;
    void OnMove(int x, int y);
    void OnShowWindow(BOOL isShown, UINT status);
    LRESULT OnActivateProgram(WPARAM isActive, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void ForEachBalloon(void (*action)(quorvel::ValidationBalloon& balloon));
};
