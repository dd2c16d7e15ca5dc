// CColumnsDlg: the dialog in which users show, order and size the columns of a list. Windows only,
// user-interface thread.
//
// OK applies the changes to the list. The list must outlive the dialog.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/win/check_list_box.h>

#include <memory>

class CVaskListCtrl;
namespace quorvel {
class ColumnsDialogList;
} // namespace quorvel

class QUORVEL_API CColumnsDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CColumnsDlg)
public:
    explicit CColumnsDlg(CVaskListCtrl* list, CWnd* parent = nullptr); // the list must not be null
    ~CColumnsDlg() override;

protected:
    UINT GetTemplateID() override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL ValidateData(UINT& icon, CString& title, CString& text, CRect& rect) override;
    BOOL SaveData() override;
    BOOL LoadData() override;

    void OnSelectionChange();
    void OnCheckChange();
    void OnWidthChange();
    void OnMoveUp();
    void OnMoveDown();
    void OnReset();
    void OnUpdateMoveUp(CCmdUI* ui);
    void OnUpdateMoveDown(CCmdUI* ui);
    void OnUpdateReset(CCmdUI* ui);
    void OnUpdateWidth(CCmdUI* ui);
    DECLARE_MESSAGE_MAP()

private:
    void ShowRows(int selectedRow);

    CVaskListCtrl* const m_list;
    std::unique_ptr<quorvel::ColumnsDialogList> m_rows;
    CCheckListBox m_listBox;
};
