// CPropertyPage: a page of a property sheet or wizard. Windows only; on the thread of its sheet.
//
// The page's dialog template is found along the resource chain when the page is added to a sheet;
// its window is made when the page is first shown and lives as long as the sheet's. The object is
// the caller's and outlives the sheet. The order of calls:
// - OnInitDialog once, then OnSetActive whenever it is shown. FALSE shows another page.
// - OnKillActive before another page is shown and before OnApply. FALSE keeps the page.
// - OnApply for OK and Apply, of pages that were shown. FALSE keeps the sheet open, at this page.
// - OnQueryCancel for Cancel: FALSE keeps the sheet open. Then OnReset.
// - OnWizardBack, OnWizardNext and OnWizardFinish in a wizard.
// - OnHelp for the Help button, which the sheet enables for a page with help.
// An exception in one of them ends in the application's ProcessWndProcException, as a refusal.
#pragma once

#include <quorvel/framework/win/dialog.h>

class CPropertySheet;

class QUORVEL_API CPropertyPage : public CDialog {
    DECLARE_DYNAMIC(CPropertyPage)
public:
    // A caption is a catalogue text; 0: that of the template. It is the text of the page's tab, or
    // while the page is shown the title of its wizard, which otherwise has its own. The header
    // texts are those of the pages of a wizard with PSH_WIZARD97; with 0 for the first the page has
    // no header.
    explicit CPropertyPage(UINT templateId, UINT captionId = 0, UINT headerTitleId = 0,
                           UINT headerSubTitleId = 0);
    explicit CPropertyPage(const WCHAR* templateName, UINT captionId = 0);
    ~CPropertyPage() override;

    // Enables the sheet's Apply button; FALSE: disables it unless another page has changes.
    void SetModified(BOOL changed = TRUE);
    // After a change that Cancel can't take back: the sheet's OK becomes Close.
    void CancelToClose();
    // Sends PSM_QUERYSIBLINGS to the pages in turn until one answers other than 0.
    LRESULT QuerySiblings(WPARAM wParam, LPARAM lParam);
    CPropertySheet* GetParentSheet() const; // null when it is not shown in one

    // Changes have an effect when they are made before the page is added.
    PROPSHEETPAGEW m_psp;
    CString m_strCaption;
    CString m_strHeaderTitle;
    CString m_strHeaderSubTitle;

    virtual BOOL OnSetActive();  // loads the controls, but for the first time: OnInitDialog did
    virtual BOOL OnKillActive(); // UpdateData(TRUE)
    virtual BOOL OnApply();      // OnOK, TRUE
    virtual void OnReset();      // OnCancel
    virtual BOOL OnQueryCancel();
    // 0: the next page in order, -1: none, otherwise the id of the page's template.
    virtual LRESULT OnWizardBack();
    virtual LRESULT OnWizardNext();
    virtual BOOL OnWizardFinish();
    // Whether the page has help, asked when it is added; PSP_HASHELP in m_psp says so too.
    virtual BOOL HasHelp();
    virtual void OnHelp(); // nothing

    // Accelerators only: the sheet handles the keys of a dialog.
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // They don't end anything: the sheet does.
    void OnOK() override;
    void OnCancel() override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    friend class CPropertySheet;
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    // FALSE without a template. The wizard's title is for a page without one; null: not a wizard's.
    BOOL Prepare(PROPSHEETPAGEW& record, const WCHAR* wizardTitle, bool withHeader);
    LRESULT AnswerSheet(const NMHDR& header, BOOL& known);

    bool m_wasActive = false;
};
