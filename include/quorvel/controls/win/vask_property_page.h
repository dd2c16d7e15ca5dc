// CVaskPropertyPage: the base of property pages, with the life cycle of CVaskDialog. Windows only,
// user-interface thread.
//
// A page's data is loaded when it is first shown. It is validated when another page is chosen, and
// validated and saved by OK, Apply, Next and Finish; a refusal keeps the page and shows the
// balloon. OK and Apply validate the page in front twice: the sheet asks first whether it may be
// left. Next does so once. Back neither validates nor takes the controls' contents, which are there
// again when the user comes back. Pages that were never shown are neither validated nor saved.
//
// The balloon of a page that is not in front shows when the sheet has brought it there. Its window
// is owned by the sheet, as a page cannot own one; in a CVaskPropertySheet it follows the sheet and
// hides with it.
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
class ActiveValidations;
class FieldValidation;
class StateControls;
class ValidationBalloon;
struct Refusal;
} // namespace quorvel

class QUORVEL_API CVaskPropertyPage : public CPropertyPage {
    DECLARE_DYNAMIC(CVaskPropertyPage)
public:
    // As in CPropertyPage.
    explicit CVaskPropertyPage(UINT templateId, UINT captionTextId = 0, UINT headerTitleId = 0,
                               UINT headerSubTitleId = 0);
    explicit CVaskPropertyPage(const WCHAR* templateName, UINT captionTextId = 0);
    ~CVaskPropertyPage() override;

    void UpdateFonts(); // as in CVaskDialog, like the following four

    BOOL ValidateAndSaveData();
    BOOL ShowValidationErrorMessage(UINT icon, const WCHAR* title, const WCHAR* text,
                                    const CRect& rect);
    BOOL HideValidationErrorMessage();
    BOOL IsValidationErrorMessageShowing() const;

    // Whether LoadData succeeded. A page that is not loaded is neither validated nor saved, and nor
    // are the states of its controls.
    BOOL IsLoaded() const { return m_isLoaded; }
    void SetLoaded(BOOL isLoaded = TRUE) { m_isLoaded = isLoaded; }

    // Ends the sheet as its Cancel button does, after the message that is being handled.
    BOOL ClosePropertySheet(); // FALSE when the page is in no sheet

protected:
    // As in CVaskDialog; a page with a topic has the sheet's Help button.
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
    BOOL CreateValidationToolTipWindow();
    void LoadStateControls();
    BOOL SaveStateControls();

    BOOL OnInitDialog() override;
    BOOL OnSetActive() override;
    BOOL OnKillActive() override;
    BOOL OnApply() override;
    LRESULT OnWizardNext() override;
    BOOL OnWizardFinish() override;
    BOOL HasHelp() override;
    void OnHelp() override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    void OnDestroy();
    BOOL OnHelpInfo(HELPINFO* info);
    void OnSettingChange(UINT flags, const WCHAR* section);
    LRESULT OnChildSetFocus(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    friend class CVaskPropertySheet; // moves the balloon
    friend class quorvel::FieldValidation;
    friend class quorvel::StateControls;
    BOOL Accept();
    LRESULT OnShowRefusal(WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK ValidationHookProc(int code, WPARAM wParam, LPARAM lParam);

    // The pages whose balloon is showing, and the thread's hook while there are any.
    static quorvel::ActiveValidations m_mapActive;
    static HHOOK m_hookValidation;
    std::unique_ptr<quorvel::ValidationBalloon> m_balloon;
    std::unique_ptr<quorvel::Refusal> m_refusal; // waits for the page to be in front
    BOOL m_isLoaded = FALSE;
    bool m_areStatesLoaded = false;
    // How the page is being left: validated when it is, left by Back, or saved by Next already.
    enum class Leaving { Validated, Back, Saved };
    Leaving m_leaving = Leaving::Validated;
    CFont m_boldFont;
    std::vector<int> m_boldIds;
};
