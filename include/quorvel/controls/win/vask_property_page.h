// CVaskPropertyPage: a base class of property pages, which works as CVaskDialog does. Windows only,
// user-interface thread.
//
// A page's data is loaded when it is first shown. It is validated when another page is chosen, and
// validated and saved by OK, Apply, Next and Finish. A refusal keeps the page and shows the
// balloon. OK and Apply validate the visible page twice: the sheet first asks whether it may be
// left. Next validates once. Back neither validates nor copies the controls' contents, which remain
// for the user's return. Pages that were never shown are neither validated nor saved.
//
// The balloon of a page that is not visible is shown after the sheet has activated the page. The
// sheet owns the balloon's window, because a page cannot own one. In a CVaskPropertySheet it moves
// with the sheet and is hidden with it.
//
// A page overrides the virtual operations that it needs. The defaults accept, or declare no
// controls.
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

    // As in CVaskDialog.
    BOOL ValidateAndSaveData();
    BOOL ShowValidationErrorMessage(UINT icon, const WCHAR* title, const WCHAR* text,
                                    const CRect& rect);
    BOOL HideValidationErrorMessage();
    BOOL IsValidationErrorMessageShowing() const;

    // Whether LoadData succeeded. For a page that is not loaded, data and control states are
    // neither validated nor saved.
    BOOL IsLoaded() const { return m_isLoaded; }
    void SetLoaded(BOOL isLoaded = TRUE) { m_isLoaded = isLoaded; }

    // Ends the sheet as its Cancel button does, after the current message was handled.
    BOOL ClosePropertySheet(); // FALSE when the page is not in a sheet

protected:
    // As in CVaskDialog. A page with a help topic enables the sheet's Help button.
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
    // Asked first by OK and Apply. FALSE keeps the page open without a message.
    virtual BOOL IsApplyOK();
    virtual BOOL SaveData(); // FALSE keeps the page
    virtual BOOL LoadData(); // FALSE: the page is shown but not saved
    // As in CVaskDialog.
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

    // The pages with a shown balloon, and the thread's hook while there are any.
    static quorvel::ActiveValidations m_mapActive;
    static HHOOK m_hookValidation;
    std::unique_ptr<quorvel::ValidationBalloon> m_balloon;
    std::unique_ptr<quorvel::Refusal> m_refusal; // shown when the page is active
    BOOL m_isLoaded = FALSE;
    bool m_areStatesLoaded = false;
    std::vector<const CVaskListCtrl*> m_loadedLists;
    // How the page is left: with validation, by Back without it, or by Next, which saved already.
    enum class Leaving { Validated, Back, Saved };
    Leaving m_leaving = Leaving::Validated;
    CFont m_boldFont;
    std::vector<int> m_boldIds;
};
