// CVaskPropertySheet: a property sheet whose buttons have the catalogue's texts, in the language
// that is installed. Windows only, user-interface thread.
#pragma once

#include <quorvel/framework/win/property_sheet.h>

class QUORVEL_API CVaskPropertySheet : public CPropertySheet {
    DECLARE_DYNAMIC(CVaskPropertySheet)
public:
    explicit CVaskPropertySheet(const WCHAR* caption, CWnd* parent = nullptr,
                                UINT selectedPage = 0);
    explicit CVaskPropertySheet(UINT captionTextId, CWnd* parent = nullptr, UINT selectedPage = 0);
    ~CVaskPropertySheet() override;

    // OK, Cancel, Apply and Help; a wizard's are Next, Finish, Back and Cancel. Called when the
    // sheet opens.
    virtual void UpdateCommandButtonText();

protected:
    BOOL OnInitDialog() override;
    // Gives each of these buttons that is there its text.
    void SetButtonTexts(UINT (*textOf)(int buttonId));
    DECLARE_MESSAGE_MAP()
};
