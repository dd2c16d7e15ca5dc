// The main window of the workbench.
#pragma once

#include <quorvel/controls/win/auto_complete_edit.h>
#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/win/edit.h>

#include "document.h"
#include "element_list.h"
#include "settings.h"

#include <memory>
#include <vector>

class MainDialog : public CVaskDialog {
public:
    explicit MainDialog(const CString& file); // opened at once; empty: none
    ~MainDialog() override;

protected:
    using CVaskDialog::GetStateAutoCompleteEditCtrls;
    using CVaskDialog::GetStateListCtrls;
    BOOL LoadData() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void GetStateAutoCompleteEditCtrls(quorvel::EditKeys& edits, int isSaving) override;
    void PreSaveStateControls() override;
    void PreLoadStateControls() override;
    void PostSaveStateControls() override;
    void PostLoadStateControls() override;
    void GetStateListCtrls(quorvel::ListPaths& lists, int isSaving) override;
    BOOL PreTranslateMessage(MSG* message) override;
    void OnOK() override; // Enter in the find field finds
    void OnCancel() override;

    void OnSize(UINT type, int width, int height);
    void OnGetMinMaxInfo(MINMAXINFO* info);
    void OnDropFiles(HDROP drop);
    void OnInitMenuPopup(CMenu* menu, UINT index, BOOL systemMenu);
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
    void OnColumns();
    void OnOptions();
    void OnAbout();
    void OnStop();
    void OnSourceChange();
    void OnItemChanged(NMHDR* header, LRESULT* result);
    void OnUpdateNeedsDocument(CCmdUI* ui);
    void OnUpdateApply(CCmdUI* ui);
    LRESULT OnOpenLater(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    class Work;
    friend class Work;

    BOOL OpenFile(const CString& file);
    BOOL SaveFile(const CString& file);
    BOOL MayLeaveDocument(); // asks to save what was changed
    BOOL CheckStrictly();
    void ShowElements(const std::vector<int>* indexes);
    void ShowSource();
    void ShowStatus(const CString& text);
    void UpdateTitle();
    int SelectedElement() const; // -1 for none
    CString FileTime() const;

    ElementList m_list;
    CAutoCompleteEdit m_find;
    CEdit m_source;
    std::unique_ptr<Document> m_document;
    Settings m_settings;
    CString m_file;
    CString m_fileTime; // the time and size of the file when it was read or written
    HKEY m_stateKey = nullptr;
    HACCEL m_accelerators = nullptr;
    int m_shownSource = -1; // the element in the source field
    bool m_isSourceChanged = false;
    bool m_isChanged = false;
    bool m_isStopped = false;
    bool m_isLaidOut = false;
    CSize m_least;
};
