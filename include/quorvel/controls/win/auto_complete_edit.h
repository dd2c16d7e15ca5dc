// CAutoCompleteEdit: an edit control that offers earlier texts. Windows only, user-interface
// thread.
//
// The edit has its own list (CAutoCompleteMRUList), which is initially empty. When the
// edit is subclassed, also by DDX_Control, the platform's auto-completion is bound to
// it and reads the list. The host adds texts with AddActiveTextToMRUList, usually when
// a dialog ends with OK. A new text is offered after the next time that the edit is
// empty.
//
// The thread must have initialised the component model (CoInitialize). Otherwise the edit is not
// bound and works as a plain edit; a dialog that declares it loads its list and never saves it.
// The auto-completion ends with its window. If the object is detached, it stays with that
// window; the next window of the object is bound anew. The edit releases its reference to the
// list last, after the auto-completion object. That object may exist until the window is
// destroyed and has its own reference. So the list exists as long as it is used, in any order of
// destruction.
//
// While the drop-down list is shown, Escape and Enter close it and do not reach the dialog.
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

    // Whether the auto-completion is bound. If not, the four operations below return FALSE.
    BOOL IsAutoCompleteObjectValid() const { return m_autoComplete != nullptr; }
    // The platform's ACO_ flags; any value is accepted. On failure GetOptions sets 0.
    BOOL SetOptions(DWORD options);
    BOOL GetOptions(DWORD& options) const;
    // TRUE sets the options with which the edit was bound, or DEFAULT_OPTIONS if these are 0; FALSE
    // sets 0.
    BOOL EnableAutoCompletion(BOOL enable);
    BOOL IsAutoCompletionEnabled() const; // whether any option is set

    // Whether the list exists. Without it (no memory) the operations below return FALSE or 0.
    BOOL IsMRUListValid() const { return m_list != nullptr; }
    BOOL AddMRUListEntry(const WCHAR* text);    // FALSE also for null, "" and white space
    BOOL AddActiveTextToMRUList();              // the window's text; FALSE without a window
    BOOL RemoveMRUListEntry(const WCHAR* text); // FALSE when it is missing
    BOOL ClearMRUList();                        // FALSE without a list
    BOOL SetMRUListSizeLimit(UINT limit);       // 1 to 50
    UINT GetMRUListSizeLimit() const;           // 0 without a list

    // Save and load as CAutoCompleteMRUList does. For a path, saving creates the key and loading
    // opens it. With `closeKey` the key is always closed, even without a list.
    BOOL SaveState(const CRegistryPath& path);
    BOOL LoadState(const CRegistryPath& path);
    BOOL SaveState(HKEY key, BOOL closeKey);
    BOOL LoadState(HKEY key, BOOL closeKey);
    BOOL SaveState(const WCHAR* section);
    BOOL LoadState(const WCHAR* section);

protected:
    void PreSubclassWindow() override;
    BOOL ReleaseAutoCompleteObject(); // FALSE without one

    void OnDestroy();
    UINT OnGetDlgCode(); // adds the keys that the drop-down list needs
    DECLARE_MESSAGE_MAP()

private:
    BOOL Bind(DWORD options, const WCHAR* quickComplete);
    BOOL Unbind();

    IAutoComplete* m_autoComplete = nullptr; // this object holds a reference
    CAutoCompleteMRUList* m_list = nullptr;  // this object holds a reference
    DWORD m_options = 0;
    HWND m_bound = nullptr; // the window that the object is bound to
};
