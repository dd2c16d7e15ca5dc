// The main window of the workbench.
#pragma once

#include <quorvel/controls/win/auto_complete_edit.h>
#include <quorvel/controls/win/dialog_layout.h>
#include <quorvel/controls/win/lengthy_work.h>
#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/win/edit.h>

#include "document.h"
#include "element_list.h"
#include "settings.h"

#include <memory>
#include <vector>

// DoModal ends with IDRETRY when it is to be shown again in another language.
class MainDialog : public CVaskDialog {
public:
    explicit MainDialog(const CString& file); // opened at once; empty: none

    const CString& GetFile() const { return m_file; }

protected:
    using CVaskDialog::GetStateAutoCompleteEditCtrls;
    using CVaskDialog::GetStateListCtrls;
    BOOL LoadData() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void GetStateAutoCompleteEditCtrls(quorvel::EditSections& edits, int isSaving) override;
    void GetStateListCtrls(quorvel::ListSections& lists, int isSaving) override;
    BOOL PreTranslateMessage(MSG* message) override;
    void OnOK() override; // Enter in the find field finds
    void OnCancel() override;

    void OnSize(UINT type, int width, int height);
    void OnGetMinMaxInfo(MINMAXINFO* info);
    void OnDropFiles(HDROP drop);
    void OnInitMenuPopup(CMenu* menu, UINT index, BOOL systemMenu);
    LRESULT OnQueryEndSession() { return !IsBusy() && MayLeaveDocument(); }
    LRESULT OnActivateApp(WPARAM isActive, LPARAM thread);
    void OnOpen();
    void OnSave();
    void OnSaveAs();
    void OnRecent(UINT command);
    void OnFind();
    void OnFindNext();
    void OnFilter();
    void OnShowAll();
    void OnCheck();
    void OnApply();
    void OnColumns() { m_list.EditColumns(); }
    void OnOptions();
    void OnExport();
    void OnHelp(UINT command);
    void OnStop();
    void OnSourceChange();
    void OnItemChanged(NMHDR* header, LRESULT* result);
    void OnUpdateNeedsDocument(CCmdUI* ui);
    void OnUpdateApply(CCmdUI* ui);
    LRESULT OnOpenLater(WPARAM wParam, LPARAM lParam);
    LRESULT OnLookAtFile(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    // False when the user has stopped it.
    bool DoWork(const CString& status, const std::function<void(CLengthyWork&)>& work);
    BOOL OpenFile(const CString& file);
    BOOL SaveFile(const CString& file);
    BOOL MayLeaveDocument(); // asks to save what was changed
    BOOL CheckStrictly();
    bool FindElements(CString& text, std::vector<int>& found); // what the find field says
    void ApplyShortcuts();
    void ShowElements(const std::vector<int>* indexes);
    void ShowSource();
    void ShowStatus(const CString& text);
    void UpdateTitle();
    void SelectElement(int element); // shows all when a filter hides it
    int SelectedElement() const;     // -1 for none

    ElementList m_list;
    CAutoCompleteEdit m_find;
    CEdit m_source;
    CDialogLayout m_layout;
    std::unique_ptr<Document> m_document;
    Settings m_settings;
    CString m_file;
    CString m_fileTime; // when it was read or written
    CString m_seenTime; // when it was last looked at
    std::unique_ptr<std::remove_pointer_t<HACCEL>, decltype(&::DestroyAcceleratorTable)>
        m_accelerators{nullptr, &::DestroyAcceleratorTable};
    CLengthyWork* m_work = nullptr; // while there is any
    int m_shownSource = -1;         // the element in the source field
    bool m_isSourceChanged = false;
    bool m_isChanged = false;
};
