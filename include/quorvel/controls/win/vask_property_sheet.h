// CVaskPropertySheet: a property sheet whose buttons have the catalogue's texts, in the language
// that is installed. Windows only, user-interface thread.
#pragma once

#include <quorvel/framework/win/property_sheet.h>

namespace quorvel {
class ValidationBalloon;
}

class QUORVEL_API CVaskPropertySheet : public CPropertySheet {
    DECLARE_DYNAMIC(CVaskPropertySheet)
public:
    CVaskPropertySheet();
    explicit CVaskPropertySheet(const WCHAR* caption, CWnd* parent = nullptr,
                                UINT selectedPage = 0);
    explicit CVaskPropertySheet(UINT captionTextId, CWnd* parent = nullptr, UINT selectedPage = 0);
    ~CVaskPropertySheet() override;

    // OK, Cancel, Apply and Help; in wizard mode Next, Finish, Back, Cancel and Help. Called when
    // the sheet opens.
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
