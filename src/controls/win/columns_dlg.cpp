#include <quorvel/controls/win/columns_dlg.h>

#include <quorvel/controls/win/vask_list_ctrl.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>

#include "controls/columns_dialog_list.h"
#include "controls/win/report_columns.h"

IMPLEMENT_DYNAMIC(CColumnsDlg, CVaskDialog)

BEGIN_MESSAGE_MAP(CColumnsDlg, CVaskDialog)
ON_LBN_SELCHANGE(QUORVEL_COLUMNS_LIST, &CColumnsDlg::OnSelectionChange)
ON_CLBN_CHKCHANGE(QUORVEL_COLUMNS_LIST, &CColumnsDlg::OnCheckChange)
ON_EN_CHANGE(QUORVEL_COLUMNS_WIDTH, &CColumnsDlg::OnWidthChange)
ON_COMMAND(QUORVEL_COLUMNS_MOVE_UP, &CColumnsDlg::OnMoveUp)
ON_COMMAND(QUORVEL_COLUMNS_MOVE_DOWN, &CColumnsDlg::OnMoveDown)
ON_COMMAND(QUORVEL_COLUMNS_RESET, &CColumnsDlg::OnReset)
ON_UPDATE_COMMAND_UI(QUORVEL_COLUMNS_MOVE_UP, &CColumnsDlg::OnUpdateMoveUp)
ON_UPDATE_COMMAND_UI(QUORVEL_COLUMNS_MOVE_DOWN, &CColumnsDlg::OnUpdateMoveDown)
ON_UPDATE_COMMAND_UI(QUORVEL_COLUMNS_RESET, &CColumnsDlg::OnUpdateReset)
ON_UPDATE_COMMAND_UI(QUORVEL_COLUMNS_WIDTH, &CColumnsDlg::OnUpdateWidth)
END_MESSAGE_MAP()

CColumnsDlg::CColumnsDlg(CVaskListCtrl* list, CWnd* parent)
    : CVaskDialog(QUORVEL_DIALOG_COLUMNS, parent), m_list(list) {}

CColumnsDlg::~CColumnsDlg() = default;

UINT CColumnsDlg::GetTemplateID() {
    return QUORVEL_DIALOG_COLUMNS;
}

void CColumnsDlg::DoDataExchange(CDataExchange* exchange) {
    CVaskDialog::DoDataExchange(exchange);
    DDX_Control(exchange, QUORVEL_COLUMNS_LIST, m_listBox);
}

BOOL CColumnsDlg::LoadData() {
    if (m_list == nullptr)
        return FALSE;
    m_rows = std::make_unique<quorvel::ColumnsDialogList>(m_list->m_columns->columns,
                                                          *m_list->m_columns);
    ShowRows(0);
    return TRUE;
}

BOOL CColumnsDlg::ValidateData(UINT&, CString&, CString& text, CRect& rect) {
    if (m_rows->IsValid())
        return TRUE;
    text.LoadString(quorvel::kTextFieldNothingChecked);
    m_listBox.GetWindowRect(rect);
    return FALSE;
}

BOOL CColumnsDlg::SaveData() {
    const CVaskListCtrl::RedrawLock lock(*m_list);
    m_rows->Save();
    m_list->UpdateSortArrow();
    return TRUE;
}

void CColumnsDlg::ShowRows(int selectedRow) {
    const int topRow = m_listBox.GetTopIndex();
    m_listBox.SetRedraw(FALSE);
    m_listBox.ResetContent();
    for (const quorvel::ColumnsDialogList::Row& row : m_rows->Rows()) {
        const int added = m_listBox.AddString(row.heading);
        m_listBox.SetItemData(added, static_cast<DWORD_PTR>(row.trueColumn));
        m_listBox.SetCheck(added, row.isChecked ? BST_CHECKED : BST_UNCHECKED);
        m_listBox.Enable(added, !row.isLocked);
    }
    m_listBox.SetTopIndex(topRow);
    m_listBox.SetCurSel(selectedRow);
    m_listBox.SetRedraw();
    m_listBox.Invalidate();
    OnSelectionChange();
}

void CColumnsDlg::OnSelectionChange() {
    SetDlgItemText(QUORVEL_COLUMNS_WIDTH, m_rows->GetWidthText(m_listBox.GetCurSel()));
    UpdateDialogControls(this, FALSE);
}

// The clicked box may belong to another row than the selected one.
void CColumnsDlg::OnCheckChange() {
    const int count = m_listBox.GetCount();
    for (int row = 0; row < count; ++row)
        m_rows->Check(row, m_listBox.GetCheck(row) == BST_CHECKED);
}

void CColumnsDlg::OnWidthChange() {
    CString text;
    GetDlgItemText(QUORVEL_COLUMNS_WIDTH, text);
    if (m_rows != nullptr) // null while the dialog is being created
        m_rows->SetWidthText(m_listBox.GetCurSel(), text);
}

void CColumnsDlg::OnMoveUp() {
    const int row = m_listBox.GetCurSel();
    if (m_rows->MoveUp(row))
        ShowRows(row - 1);
}

void CColumnsDlg::OnMoveDown() {
    const int row = m_listBox.GetCurSel();
    if (m_rows->MoveDown(row))
        ShowRows(row + 1);
}

void CColumnsDlg::OnReset() {
    m_rows->Reset();
    ShowRows(0);
}

void CColumnsDlg::OnUpdateMoveUp(CCmdUI* ui) {
    ui->Enable(m_rows != nullptr && m_rows->CanMoveUp(m_listBox.GetCurSel()));
}

void CColumnsDlg::OnUpdateMoveDown(CCmdUI* ui) {
    ui->Enable(m_rows != nullptr && m_rows->CanMoveDown(m_listBox.GetCurSel()));
}

void CColumnsDlg::OnUpdateReset(CCmdUI* ui) {
    ui->Enable(m_rows != nullptr && m_rows->CanReset());
}

void CColumnsDlg::OnUpdateWidth(CCmdUI* ui) {
    ui->Enable(m_listBox.GetCurSel() >= 0);
}
