// CVaskDialog: the base of dialogs with one life cycle. Windows only, user-interface thread.
//
// When the dialog opens, its data is loaded (LoadData), then the state of the lists and edits that
// it declares. OK takes the data exchange's members from the controls, validates (ValidateData) and
// saves (SaveData) and ends the dialog only when all succeed. A field that is refused is shown by a
// balloon that points at it. The balloon hides when a control of the dialog gets the focus, when
// the dialog is hidden and when another program becomes active. A validation of the exchange itself
// (DDV_...) shows a message box. When the window is destroyed, the state of the declared controls
// is saved; an object that is destroyed with its window open saves none: call DestroyWindow first.
//
// The order when the dialog opens: the exchange fills the controls, LoadData, the exchange once
// more, which shows what LoadData set, the states. IsOK and the handlers of ON_UPDATE_COMMAND_UI
// are asked before that too. When the exchange fails or LoadData is FALSE, the dialog ends with -1,
// a modeless one is not created, and no state is loaded or saved. Insert the columns of a list in
// LoadData: what OnInitDialog of a derived class inserts afterwards has no state yet to take.
//
// OK and Cancel do nothing while OK is validating and saving, whose operations may handle messages.
//
// A dialog overrides what it needs of the virtual operations; each default accepts, or declares
// nothing. They are called while the window exists. An exception that leaves one ends as in
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
    // As in CDialog. Without a template here, GetTemplateID names it.
    CVaskDialog();
    explicit CVaskDialog(const WCHAR* templateName, CWnd* parent = nullptr);
    explicit CVaskDialog(UINT templateId, CWnd* parent = nullptr);
    ~CVaskDialog() override;

    INT_PTR DoModal() override;
    using CDialog::Create;
    // A modeless dialog from the template of GetTemplateID.
    BOOL Create(CWnd* parent = nullptr);
    BOOL Create(std::nullptr_t) { return Create(static_cast<CWnd*>(nullptr)); }

    // The catalogue text that becomes the title when the dialog opens, found along the resource
    // chain. 0, as at first: the template's title stays.
    void SetCaptionID(UINT textId) { m_captionId = textId; }
    UINT GetCaptionID() const { return m_captionId; }

    // While the dialog is busy, the wait cursor is shown over it and OK does nothing.
    void SetBusy(BOOL isBusy = TRUE);
    BOOL IsBusy() const { return m_isBusy; }

    // Makes the controls of GetBoldControlIDs bold, in the dialog's font as it is now; one that it
    // named before and names no more gets that font itself. Also called when the dialog opens and
    // when the system's settings change.
    void UpdateFonts();

    // UpdateData(TRUE), ValidateData, then SaveData, each when the one before was TRUE. A balloon
    // that is showing hides first. A refusal of ValidateData is shown as a balloon.
    BOOL ValidateAndSaveData();
    // The icon is one of the platform's TTI_ values. The balloon points at the middle of the lower
    // edge of `rect` (screen coordinates). An empty title shows no title line, an empty text an
    // empty line. FALSE, and nothing changed, for null texts, while a balloon is showing, and
    // before the dialog has opened.
    BOOL ShowValidationErrorMessage(UINT icon, const WCHAR* title, const WCHAR* text,
                                    const CRect& rect);
    BOOL HideValidationErrorMessage(); // FALSE when none is showing
    BOOL IsValidationErrorMessageShowing() const;

protected:
    // The template for DoModal and Create, and what F1 and a button IDHELP open: a web address or
    // an HTML Help topic. By default the id that the constructor was given, 0 for a name; and an
    // empty text, which opens nothing.
    virtual UINT GetTemplateID();
    virtual CString GetHelpTopic();
    // Declare controls by putting them into the map. `isSaving` is FALSE when states are loaded. A
    // key stays the dialog's: open it in the Pre... operation and close it in the Post... one. The
    // state of an edit is saved only while its auto-completion is enabled.
    virtual void GetStateAutoCompleteEditCtrls(quorvel::EditKeys& edits, int isSaving);
    virtual void GetStateAutoCompleteEditCtrls(quorvel::EditSections& edits, int isSaving);
    virtual void GetStateListCtrls(quorvel::ListKeys& lists, int isSaving);
    virtual void GetStateListCtrls(quorvel::ListSections& lists, int isSaving);
    virtual void GetStateListCtrls(quorvel::ListPaths& lists, int isSaving);
    void DoDataExchange(CDataExchange* exchange) override;
    // When no messages are waiting, with the count of times since the last one, after the commands
    // of the dialog were updated. TRUE asks for another call.
    virtual BOOL OnIdle(LONG count);
    virtual void PreLoadStateControls();
    virtual void PostLoadStateControls();
    virtual void PreSaveStateControls();
    virtual void PostSaveStateControls();
    // FALSE refuses, after it filled in the text and the screen rectangle of the field. Before the
    // call the icon is the warning one, the title "Validation Error" and the rest empty.
    virtual BOOL ValidateData(UINT& icon, CString& title, CString& text, CRect& rect);
    // Whether OK is enabled at present. Idle time enables and disables the button by it: a button
    // that was disabled otherwise is enabled again.
    virtual BOOL IsOK();
    virtual BOOL SaveData(); // FALSE keeps the dialog open
    virtual BOOL LoadData(); // FALSE ends the dialog with -1
    virtual void GetBoldControlIDs(std::vector<int>& ids);
    // Trees whose items are pages of the dialog; the library has none of its own.
    virtual void GetDialogPageTreeCtrls(std::vector<CWnd*>& trees);

    BOOL OnInitDialog() override;
    void OnOK() override; // nothing while the dialog is busy or IsOK is FALSE
    void OnCancel() override;
    BOOL CreateValidationToolTipWindow(); // the balloon; FALSE when there is one
    // Every declared control that has a window, between the hooks. Saving is FALSE, and nothing is
    // saved, when the states were not loaded: they must not be overwritten.
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

    // The dialogs whose balloon is showing, and the thread's hook while there are any. Pages have
    // theirs.
    static quorvel::ActiveValidations m_mapActiveValidation;
    static HHOOK m_hookValidation;
    UINT m_captionId = 0;
    CButton m_firstButton; // controls 23010 and 23011 of the template, where it has them
    CButton m_secondButton;
    std::unique_ptr<quorvel::ValidationBalloon> m_balloon;
    BOOL m_isBusy = FALSE;
    bool m_areStatesLoaded = false;
    bool m_isSaving = false; // OK
    CFont m_boldFont;
    std::vector<int> m_boldIds;
};
