// CVaskListCtrlHeaderCtrl: the header of a CVaskListCtrl, which its list subclasses. Windows only,
// user-interface thread.
//
// Shift+Tab in the list leads here, so that no mouse is needed (the list's header says when). Left,
// Right, Home and End choose a column, which a focus rectangle shows; Space clicks it; the menu key
// and Shift+F10 open the menu; Tab and Down lead back to the list, and Shift+Tab to what is before
// it. The keys are taken in PreTranslateMessage: the framework's loops must run.
#pragma once

#include <quorvel/controls/win/sort_header_ctrl.h>

class QUORVEL_API CVaskListCtrlHeaderCtrl : public CSortHeaderCtrl {
    DECLARE_DYNAMIC(CVaskListCtrlHeaderCtrl)
public:
    CVaskListCtrlHeaderCtrl();
    ~CVaskListCtrlHeaderCtrl() override;

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // Calls OnHeaderContextMenu of the list. From the keyboard the menu opens below the chosen
    // column, or below the header when that has not the focus.
    void OnContextMenu(CWnd* wnd, CPoint point);
    void OnPaint();
    void OnSetFocus(CWnd* former);
    void OnKillFocus(CWnd* next);
    DECLARE_MESSAGE_MAP()

private:
    bool TakeKey(UINT key);
    int ChosenColumn() const;
    void Choose(int displayPosition);
    void ClickChosenColumn();

    int m_chosenColumn = 0; // inserted column; columns may have left since
};
