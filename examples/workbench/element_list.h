// The list of the workbench: a row for each element of a document.
#pragma once

#include <quorvel/controls/win/virtual_list_ctrl.h>

#include "document.h"

class ElementItem : public CVirtualListCtrlItem {
public:
    ElementItem(const Document& document, int index)
        : CVirtualListCtrlItem(DEFAULT_IMAGE, DEFAULT_INDENT, index), m_document(&document) {}

    const Document& GetDocument() const { return *m_document; }
    int GetIndex() const { return static_cast<int>(GetLParam()); }
    CString GetSubItemText(int column) override;

    static constexpr std::size_t SHOWN_TEXT = 259;        // as much as the list-view draws
    static inline std::size_t s_longestText = SHOWN_TEXT; // unlimited while rows are copied

private:
    const Document* m_document;
};

class ElementList : public CVirtualListCtrl {
public:
    enum Column { kName, kDepth, kAttributes, kText, kPosition, kColumnCount };

    void InsertColumns();
    // Shows these elements, or all of a document.
    void Show(const Document& document, const std::vector<int>* indexes = nullptr);
    void Clear();
    bool SelectElement(int index); // false when it is not shown

    void DoSortItems(int column, int ascending) override;
    int GetDefaultColumnWidth(int trueColumn) override;
    void LoadDefaultColumnWidths() override;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::vector<ElementItem> m_items; // one block: a document may have millions
};
