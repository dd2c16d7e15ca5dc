// CPropertyPage: a page of a property sheet or wizard. Windows only. Use it on its sheet's thread.
//
// The page's dialog template is searched along the resource chain when the page is added to a
// sheet. Its window is created when the page is first shown, and destroyed with the sheet. The
// caller owns the object, which must outlive the sheet. The calls:
// - OnInitDialog once, then OnSetActive each time the page is shown. FALSE shows another page.
// - OnKillActive before another page is shown and before OnApply. FALSE keeps this page.
// - OnApply for OK and Apply, on pages that were shown. FALSE keeps the sheet open at this page.
// - OnQueryCancel for Cancel: FALSE keeps the sheet open. Then OnReset.
// - OnWizardBack, OnWizardNext and OnWizardFinish in a wizard.
// - OnHelp for the Help button, which the sheet enables for a page with help.
// An exception in one of them is passed to ProcessWndProcException and counts as FALSE.
#pragma once

#include <quorvel/framework/win/dialog.h>

class CPropertySheet;

class QUORVEL_API CPropertyPage : public CDialog {
    DECLARE_DYNAMIC(CPropertyPage)
public:
    // A caption is the id of a catalogue text; 0 uses the template's. It is the text of the page's
    // tab; in a wizard it replaces the wizard's title while the page is shown. The header texts
    // are for pages of a wizard with PSH_WIZARD97; with 0 for the first text the page has no
    // header.
    explicit CPropertyPage(UINT templateId, UINT captionId = 0, UINT headerTitleId = 0,
                           UINT headerSubTitleId = 0);
    explicit CPropertyPage(const WCHAR* templateName, UINT captionId = 0);
    ~CPropertyPage() override;

    // Enables the sheet's Apply button. FALSE disables it, unless another page has changes.
    void SetModified(BOOL changed = TRUE);
    // Call it after a change that Cancel cannot undo: the OK button becomes Close.
    void CancelToClose();
    // Sends PSM_QUERYSIBLINGS to the pages in turn, until one returns a non-zero result.
    LRESULT QuerySiblings(WPARAM wParam, LPARAM lParam);
    CPropertySheet* GetParentSheet() const; // null if it is not shown in a sheet

    // Changes take effect only before the page is added.
    PROPSHEETPAGEW m_psp;
    CString m_strCaption;
    CString m_strHeaderTitle;
    CString m_strHeaderSubTitle;

    virtual BOOL OnSetActive();   // loads the controls; not the first time, after OnInitDialog
    virtual BOOL OnKillActive();  // calls UpdateData(TRUE)
    virtual BOOL OnApply();       // calls OnOK, returns TRUE
    virtual void OnReset();       // calls OnCancel
    virtual BOOL OnQueryCancel(); // returns TRUE
    // 0: the next page in order; -1: stay on this page; else the template id of the page to show.
    virtual LRESULT OnWizardBack();
    virtual LRESULT OnWizardNext();
    virtual BOOL OnWizardFinish(); // FALSE keeps the wizard open
    // Whether the page has help; called when it is added. PSP_HASHELP in m_psp has the same effect.
    virtual BOOL HasHelp();
    virtual void OnHelp(); // does nothing

    // Handles accelerators only: the sheet handles the keys of a dialog.
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // Do not end the page: the sheet decides that.
    void OnOK() override;
    void OnCancel() override;
    // Translates the sheet's notifications into the calls above.
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    friend class CPropertySheet;
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    // FALSE without a template. A page without a title gets the wizard's; null: not in a wizard.
    BOOL Prepare(PROPSHEETPAGEW& record, const WCHAR* wizardTitle, bool withHeader);
    LRESULT AnswerSheet(const NMHDR& header, BOOL& known);

    bool m_wasActive = false;
};
