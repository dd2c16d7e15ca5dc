// CCheckListBox: a list box with a check box before each row. Windows only, on its window's thread.
//
// The control must have the styles LBS_OWNERDRAWFIXED and LBS_HASSTRINGS. SubclassWindow and
// SubclassDlgItem accept other list boxes, but draw no boxes there. A click on a box, or the space
// key on the row with the caret, changes the check; the parent then gets CLBN_CHKCHANGE. Item data
// belongs to the program. Checks move with their rows when rows are inserted or deleted, by members
// or by messages.
#pragma once

#include <quorvel/framework/win/list_box.h>

#include <vector>

class CDC;

// The notification after the user changed a check, and its row: void member().
inline constexpr UINT CLBN_CHKCHANGE = 40;
#define ON_CLBN_CHKCHANGE(id, member) ON_CONTROL(CLBN_CHKCHANGE, id, member)

class QUORVEL_API CCheckListBox : public CListBox {
    DECLARE_DYNAMIC(CCheckListBox)
public:
    CCheckListBox();
    // Adds the styles.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    // BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE. For a row that does not exist GetCheck
    // returns 0 and SetCheck does nothing. SetCheck sends no notification.
    int GetCheck(int row) const;
    void SetCheck(int row, int check);
    // A disabled row is grey and the user cannot change its check.
    void Enable(int row, BOOL enable = TRUE);
    BOOL IsEnabled(int row) const;

    // BS_AUTOCHECKBOX, the default; BS_AUTO3STATE if the user may also choose the third state;
    // BS_CHECKBOX if the user's click changes nothing but still notifies the parent.
    void SetCheckStyle(UINT style) { m_checkStyle = style; }
    UINT GetCheckStyle() const { return m_checkStyle; }

protected:
    void PreSubclassWindow() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    // Draw a row and set its height, for WM_DRAWITEM and WM_MEASUREITEM.
    virtual void DrawItem(DRAWITEMSTRUCT* item);
    virtual void MeasureItem(MEASUREITEMSTRUCT* item);
    // Change checks for the mouse and the space key.
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

    std::vector<Row> m_rows; // one for each row of the list
    UINT m_checkStyle = BS_AUTOCHECKBOX;
};
