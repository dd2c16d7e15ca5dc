// CVaskListCtrlHeaderCtrl: the header of a CVaskListCtrl, which the list subclasses. Windows only,
// user-interface thread.
//
// Shift+Tab in the list moves the focus here, so that no mouse is needed (vask_list_ctrl.h says
// when). Left, Right, Home and End choose a column, shown by a focus rectangle; Space clicks it;
// the menu key and Shift+F10 open the menu; Tab and Down return to the list, Shift+Tab moves before
// it. PreTranslateMessage handles the keys: a message loop of the framework must run.
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
    // column, or below the header when that does not have the focus.
    void OnContextMenu(CWnd* wnd, CPoint point);
    // Draw the focus rectangle around the chosen column.
    void OnPaint();
    void OnSetFocus(CWnd* former);
    void OnKillFocus(CWnd* next);
    DECLARE_MESSAGE_MAP()

private:
    bool TakeKey(UINT key);
    int ChosenColumn() const;
    void Choose(int displayPosition);
    void ClickChosenColumn();

    int m_chosenColumn = 0; // inserted column; may no longer exist
};
