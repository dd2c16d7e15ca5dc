// CVaskPropertyPage: the base of property pages, with the life cycle of CVaskDialog. Windows only,
// user-interface thread.
//
// A page's data is loaded when it is first shown. It is validated when another page is chosen,
// unless the user goes back in a wizard, and validated and saved by OK, Apply, Next and Finish; a
// refusal keeps the page and shows the balloon. Pages that were never shown are neither validated
// nor saved.
//
// A page overrides what it needs of the virtual operations; each default accepts, or declares
// nothing.
#pragma once

#include <quorvel/controls/win/state_control_maps.h>
#include <quorvel/framework/win/gdi.h>
#include <quorvel/framework/win/property_page.h>

#include <memory>
#include <vector>

namespace quorvel {
class FieldValidation;
class StateControls;
class ValidationBalloon;
} // namespace quorvel

class QUORVEL_API CVaskPropertyPage : public CPropertyPage {
    DECLARE_DYNAMIC(CVaskPropertyPage)
public:
    explicit CVaskPropertyPage(UINT templateId, UINT captionTextId = 0);
    ~CVaskPropertyPage() override;

    void UpdateFonts(); // as in CVaskDialog, like the following four

    BOOL ValidateAndSaveData();
    BOOL ShowValidationErrorMessage(UINT icon, const WCHAR* title, const WCHAR* text,
                                    const CRect& rect);
    BOOL HideValidationErrorMessage();
    BOOL IsValidationErrorMessageShowing() const;

    // Whether LoadData succeeded. A page that is not loaded is not saved.
    BOOL IsLoaded() const { return m_isLoaded; }
    void SetLoaded(BOOL isLoaded = TRUE) { m_isLoaded = isLoaded; }

    // Ends the sheet as its Cancel button does, after the message that is being handled.
    BOOL ClosePropertySheet(); // FALSE when the page is in no sheet

protected:
    // As in CVaskDialog.
    virtual CString GetHelpTopic();
    virtual void GetStateAutoCompleteEditCtrls(quorvel::EditKeys& edits, int isSaving);
    virtual void GetStateAutoCompleteEditCtrls(quorvel::EditSections& edits, int isSaving);
    virtual void GetStateListCtrls(quorvel::ListKeys& lists, int isSaving);
    virtual void GetStateListCtrls(quorvel::ListSections& lists, int isSaving);
    virtual void GetStateListCtrls(quorvel::ListPaths& lists, int isSaving);
    virtual void PreLoadStateControls();
    virtual void PostLoadStateControls();
    virtual void PreSaveStateControls();
    virtual void PostSaveStateControls();
    virtual BOOL ValidateData(UINT& icon, CString& title, CString& text, CRect& rect);
    // Whether OK and Apply go on once the data is valid; FALSE keeps the page without a word.
    virtual BOOL IsApplyOK();
    virtual BOOL SaveData();
    virtual BOOL LoadData(); // FALSE: the page stays as it is and is not saved
    virtual void GetBoldControlIDs(std::vector<int>& ids);

    BOOL OnInitDialog() override;
    BOOL OnSetActive() override;
    BOOL OnKillActive() override;
    BOOL OnApply() override;
    LRESULT OnWizardNext() override;
    LRESULT OnWizardBack() override;
    BOOL OnWizardFinish() override;

    void OnDestroy();
    BOOL OnHelpInfo(HELPINFO* info);
    void OnSettingChange(UINT flags, const WCHAR* section);
    LRESULT OnChildSetFocus(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    friend class quorvel::FieldValidation;
    friend class quorvel::StateControls;
    BOOL Accept();

    std::unique_ptr<quorvel::ValidationBalloon> m_balloon;
    BOOL m_isLoaded = FALSE;
    bool m_areStatesLoaded = false;
    bool m_isGoingBack = false;
    CFont m_boldFont;
};
