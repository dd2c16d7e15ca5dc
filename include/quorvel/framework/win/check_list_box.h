// CCheckListBox: a list box with a check box before each row. Windows only.
//
// The control must have the styles LBS_OWNERDRAWFIXED and LBS_HASSTRINGS: SubclassWindow and
// SubclassDlgItem attach to others too, but no boxes are drawn there. A click on a box and the
// space key on the row with the caret change its check; the parent then gets CLBN_CHKCHANGE. Item
// data are the program's. Checks move with their rows when rows are inserted and deleted, by the
// members and by messages.
#pragma once

#include <quorvel/framework/win/list_box.h>

#include <vector>

class CDC;

inline constexpr UINT CLBN_CHKCHANGE = 40;
#define ON_CLBN_CHKCHANGE(id, member) ON_CONTROL(CLBN_CHKCHANGE, id, member)

class QUORVEL_API CCheckListBox : public CListBox {
    DECLARE_DYNAMIC(CCheckListBox)
public:
    CCheckListBox();
    // Adds the styles.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    // BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE. A row that does not exist reads 0 and is not
    // set. Setting notifies nobody.
    int GetCheck(int row) const;
    void SetCheck(int row, int check);
    // The row's check can't be changed by the user, and the row is grey.
    void Enable(int row, BOOL enable = TRUE);
    BOOL IsEnabled(int row) const;

    // BS_AUTOCHECKBOX as at first, BS_AUTO3STATE for a third state that the user can choose too, or
    // BS_CHECKBOX: the user changes nothing, the parent is notified all the same.
    void SetCheckStyle(UINT style) { m_checkStyle = style; }
    UINT GetCheckStyle() const { return m_checkStyle; }

protected:
    void PreSubclassWindow() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    virtual void DrawItem(DRAWITEMSTRUCT* item);
    virtual void MeasureItem(MEASUREITEMSTRUCT* item);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    DECLARE_MESSAGE_MAP()

private:
    struct Row {
        int check = 0;
        BOOL enabled = TRUE;
    };
    Row* Find(int row);
    const Row* Find(int row) const { return const_cast<CCheckListBox*>(this)->Find(row); }
    int BoxWidth() const;
    int HeightOfRow();
    void FollowFont();
    void DrawBox(CDC& dc, CRect box, int check, bool enabled);
    bool ToggleAt(CPoint point);
    void Toggle(int row);
    void InvalidateRow(int row);

    std::vector<Row> m_rows; // one for each of the list's
    UINT m_checkStyle = BS_AUTOCHECKBOX;
};
