// CVaskDialog: a base of dialogs that validate and save. Windows only, user-interface thread.
//
// When the dialog opens, its data is loaded (LoadData), then the state of the lists and edits that
// it declares. OK copies the controls' contents to the members (data exchange), validates
// (ValidateData) and saves (SaveData); it ends the dialog only if all succeed. A balloon points at
// a refused field. The balloon is hidden when a control of the dialog gets the focus, when the
// dialog is hidden and when another program becomes active. A validation of the exchange itself
// (DDV_...) shows a message box. The state of the declared controls is saved when the window is
// destroyed, but not by the destructor of this object: call DestroyWindow first.
//
// When the dialog opens, the order is: the exchange fills the controls; LoadData; the exchange
// again, to show what LoadData set; the states. IsOK and the ON_UPDATE_COMMAND_UI handlers may be
// called before that. If the exchange fails or LoadData returns FALSE, the dialog ends with -1 (a
// modeless dialog is not created) and no state is loaded or saved. Insert list columns in LoadData:
// columns that a derived OnInitDialog inserts later do not get their saved state. A list that has
// no window at that time is neither loaded nor saved.
//
// While OK validates and saves, which may dispatch messages, OK and Cancel do nothing.
//
// A dialog that is a child of another window is not notified when that window is moved, hidden or
// deactivated: the host calls HideValidationErrorMessage then.
//
// A dialog overrides the virtual operations that it needs. The defaults accept, or declare no
// controls. They are called while the window exists. Exceptions from them are handled as in
// CDialog.
#pragma once

#include <quorvel/controls/win/state_control_maps.h>
#include <quorvel/framework/win/button.h>
#include <quorvel/framework/win/dialog.h>
#include <quorvel/framework/win/gdi.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace quorvel {
class ActiveValidations;
class FieldValidation;
class StateControls;
class ValidationBalloon;
} // namespace quorvel

class QUORVEL_API CVaskDialog : public CDialog {
    DECLARE_DYNAMIC(CVaskDialog)
public:
    // As in CDialog. A template that GetTemplateID returns replaces that of the constructor.
    CVaskDialog();
    explicit CVaskDialog(const WCHAR* templateName, CWnd* parent = nullptr);
    explicit CVaskDialog(UINT templateId, CWnd* parent = nullptr);
    ~CVaskDialog() override;

    INT_PTR DoModal() override;
    // Also the forms with a template of the caller.
    using CDialog::Create;
    // Creates a modeless dialog from the template of GetTemplateID.
    BOOL Create(CWnd* parent = nullptr);
    BOOL Create(std::nullptr_t) { return Create(static_cast<CWnd*>(nullptr)); }

    // The catalogue text that becomes the title when the dialog opens, from the resource chain. 0,
    // the default, keeps the template's title.
    void SetCaptionID(UINT textId) { m_captionId = textId; }
    UINT GetCaptionID() const { return m_captionId; }

    // While the dialog is busy, it shows the wait cursor and OK does nothing.
    void SetBusy(BOOL isBusy = TRUE);
    BOOL IsBusy() const { return m_isBusy; }

    // Makes the controls of GetBoldControlIDs bold, in the dialog's current font; a control that is
    // no longer among them gets the plain font back. Also called when the dialog opens and when the
    // system's settings change.
    void UpdateFonts();

    // Calls UpdateData(TRUE), ValidateData, then SaveData, until one returns FALSE. Hides a shown
    // balloon first. Shows a refusal of ValidateData in a balloon.
    BOOL ValidateAndSaveData();
    // `icon` is one of the platform's TTI_ values. The balloon points at the middle of the lower
    // edge of `rect` (screen coordinates). With an empty title there is no title line; an empty
    // text is an empty line. Returns FALSE and changes nothing for null texts, while a balloon is
    // shown, and before the dialog has opened.
    BOOL ShowValidationErrorMessage(UINT icon, const WCHAR* title, const WCHAR* text,
                                    const CRect& rect);
    BOOL HideValidationErrorMessage(); // FALSE when no balloon is shown
    BOOL IsValidationErrorMessageShowing() const;

protected:
    // The template for DoModal and Create (default: the id passed to the constructor, 0 for a
    // name), and the target of F1 and of a button IDHELP: a web address, an HTML Help topic or, by
    // default, an empty text, which opens nothing.
    virtual UINT GetTemplateID();
    virtual CString GetHelpTopic();
    // Declare controls by adding them to the map. `isSaving` is FALSE when states are loaded. The
    // dialog owns the keys: open them in the Pre... operation and close them in the Post...
    // operation. The state of an edit is saved only while its auto-completion is enabled.
    virtual void GetStateAutoCompleteEditCtrls(quorvel::EditKeys& edits, int isSaving);
    virtual void GetStateAutoCompleteEditCtrls(quorvel::EditSections& edits, int isSaving);
    virtual void GetStateListCtrls(quorvel::ListKeys& lists, int isSaving);
    virtual void GetStateListCtrls(quorvel::ListSections& lists, int isSaving);
    virtual void GetStateListCtrls(quorvel::ListPaths& lists, int isSaving);
    void DoDataExchange(CDataExchange* exchange) override;
    // Called when no message waits, after the dialog's commands were updated, with the number of
    // calls since the last message. TRUE requests another call.
    virtual BOOL OnIdle(LONG count);
    // Called before and after the states are loaded or saved. The defaults do nothing.
    virtual void PreLoadStateControls();
    virtual void PostLoadStateControls();
    virtual void PreSaveStateControls();
    virtual void PostSaveStateControls();
    // To refuse, fill in the text and the screen rectangle of the field and return FALSE. Initially
    // the icon is the warning icon, the title "Validation Error" and the rest empty.
    virtual BOOL ValidateData(UINT& icon, CString& title, CString& text, CRect& rect);
    // Whether OK is enabled. Idle time enables or disables the button by it, and so also enables a
    // button that was disabled in another way.
    virtual BOOL IsOK();
    virtual BOOL SaveData(); // FALSE keeps the dialog open
    virtual BOOL LoadData(); // FALSE ends the dialog with -1
    // Adds the ids of controls with bold text.
    virtual void GetBoldControlIDs(std::vector<int>& ids);
    // Trees whose items are pages of the dialog. The library itself has no such trees.
    virtual void GetDialogPageTreeCtrls(std::vector<CWnd*>& trees);

    BOOL OnInitDialog() override;
    void OnOK() override; // does nothing while busy or IsOK is FALSE
    void OnCancel() override;
    BOOL CreateValidationToolTipWindow(); // the balloon; FALSE if it exists
    // For all declared controls with a window, between the Pre... and Post... operations. If the
    // states were not loaded, saving returns FALSE and saves nothing, so as not to overwrite them.
    void LoadStateControls();
    BOOL SaveStateControls();

    void OnDestroy();
    void OnMove(int x, int y);
    void OnShowWindow(BOOL isShown, UINT status);
    LRESULT OnActivateProgram(WPARAM isActive, LPARAM lParam);
    BOOL OnSetCursor(CWnd* wnd, UINT hitTest, UINT message);
    BOOL OnHelpInfo(HELPINFO* info);
    void OnHelp();
    void OnSettingChange(UINT flags, const WCHAR* section);
    LRESULT OnKickIdle(WPARAM wParam, LPARAM lParam);
    LRESULT OnChildSetFocus(WPARAM wParam, LPARAM lParam);
    void OnUpdateOK(CCmdUI* ui);
    DECLARE_MESSAGE_MAP()

private:
    friend class quorvel::FieldValidation;
    friend class quorvel::StateControls;
    void TakeTemplate();
    static LRESULT CALLBACK ValidationHookProc(int code, WPARAM wParam, LPARAM lParam);

    // The dialogs with a shown balloon, and the thread's hook while there are any. Pages have their
    // own.
    static quorvel::ActiveValidations m_mapActiveValidation;
    static HHOOK m_hookValidation;
    UINT m_captionId = 0;
    CButton m_firstButton; // template controls 23010 and 23011, if any
    CButton m_secondButton;
    std::unique_ptr<quorvel::ValidationBalloon> m_balloon;
    BOOL m_isBusy = FALSE;
    bool m_areStatesLoaded = false;
    std::vector<const CVaskListCtrl*> m_loadedLists;
    bool m_isSaving = false; // OK is running
    CFont m_boldFont;
    std::vector<int> m_boldIds;
};
