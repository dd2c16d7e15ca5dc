// CAutoCompleteEdit: an edit that offers what was typed before. Windows only, user-interface
// thread.
//
// The edit has a list of its own (CAutoCompleteMRUList), which starts empty. When the edit is
// subclassed, also by DDX_Control, the platform's auto-completion is bound to it and reads that
// list. A text joins the list when the host says so: AddActiveTextToMRUList, usually when a dialog
// is ended with OK. What is added is offered from the next time on that the edit's text becomes
// empty.
//
// The component model has to be initialised on the thread (CoInitialize); otherwise the edit is not
// bound and works as a plain one, and a dialog that declares it loads its list and never saves it.
// The auto-completion ends with its window and stays with one that the object is detached from; the
// next window that the object gets is bound anew. The edit holds a reference to the list and
// releases it last, after the object of the auto-completion; that object may live on until the
// window is destroyed and holds a reference of its own. So the list lasts as long as anybody reads
// it, whatever is destroyed first.
//
// While the drop-down shows, Escape and Enter close it and do not reach the dialog.
#pragma once

#include <quorvel/controls/auto_complete_mru_list.h>
#include <quorvel/controls/win/vask_edit.h>
#include <quorvel/system/registry_path.h>

struct IAutoComplete;

class QUORVEL_API CAutoCompleteEdit : public CVaskEdit {
    DECLARE_DYNAMIC(CAutoCompleteEdit)
public:
    static constexpr DWORD DEFAULT_OPTIONS = 0x21; // ACO_AUTOSUGGEST | ACO_UPDOWNKEYDROPSLIST

    CAutoCompleteEdit();
    ~CAutoCompleteEdit() override;

    // Whether the auto-completion is bound. The operations below it are FALSE when it is not.
    BOOL IsAutoCompleteObjectValid() const { return m_autoComplete != nullptr; }
    // The platform's ACO_ flags, any value. GetOptions sets its output to 0 first.
    BOOL SetOptions(DWORD options);
    BOOL GetOptions(DWORD& options) const;
    // Enabling sets the options given at binding, or DEFAULT_OPTIONS when those are 0; disabling
    // sets none.
    BOOL EnableAutoCompletion(BOOL enable);
    BOOL IsAutoCompletionEnabled() const; // whether there are options

    // The list, without which (when there was no memory for it) all that follows is FALSE or 0.
    BOOL IsMRUListValid() const { return m_list != nullptr; }
    BOOL AddMRUListEntry(const WCHAR* text); // FALSE also for null, an empty text and white space
    BOOL AddActiveTextToMRUList();           // the window's text; FALSE without a window
    BOOL RemoveMRUListEntry(const WCHAR* text);
    BOOL ClearMRUList();
    BOOL SetMRUListSizeLimit(UINT limit); // 1 to 50
    UINT GetMRUListSizeLimit() const;

    // The list's state: see CAutoCompleteMRUList. A registry path's key is created when saved and
    // opened when loaded. With `closeKey` the key is closed in any case, also without a list.
    BOOL SaveState(const CRegistryPath& path);
    BOOL LoadState(const CRegistryPath& path);
    BOOL SaveState(HKEY key, BOOL closeKey);
    BOOL LoadState(HKEY key, BOOL closeKey);
    BOOL SaveState(const WCHAR* section);
    BOOL LoadState(const WCHAR* section);

protected:
    void PreSubclassWindow() override;
    BOOL ReleaseAutoCompleteObject(); // FALSE when there is none

    void OnDestroy();
    UINT OnGetDlgCode(); // with the keys that the drop-down needs
    DECLARE_MESSAGE_MAP()

private:
    BOOL Bind(DWORD options, const WCHAR* quickComplete);
    BOOL Unbind();

    IAutoComplete* m_autoComplete = nullptr; // a reference of this object's
    HWND m_bound = nullptr;                  // the window that it completes
    CAutoCompleteMRUList* m_list = nullptr;  // likewise
    DWORD m_options = 0;
};
