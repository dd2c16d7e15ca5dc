// A CMarkup with an index that tests can read.
#pragma once

#include <quorvel/xml/markup.h>

#include <array>
#include <string>
#include <vector>

class MarkupProbe : public CMarkup {
public:
    using CMarkup::CMarkup;

    // {nTagOpen, nTagClose, nEndTagOpen, nEndTagClose, depth} of every element in document order:
    // the index as a tree of tag positions, independent of the slots used.
    std::vector<std::array<int, 5>> Tree() const {
        std::vector<std::array<int, 5>> tree;
        Add(tree, m_aPos[0].iFirstChild, 0);
        return tree;
    }

    using CMarkup::x_Adjust;
    using CMarkup::x_DocChange;

    int RecordCount() const { return m_iPosFree; }
    int IndexSize() const { return m_aPos.GetSize(); }
    const ElemPos& Record(int index) const { return m_aPos[index]; }
    std::array<int, 4> Position() const {
        return {m_iPosParent, m_iPosMain, m_iPosChild, m_nNodeType};
    }

private:
    void Add(std::vector<std::array<int, 5>>& tree, int i, int depth) const {
        for (; i != 0; i = m_aPos[i].iNextSibling) {
            const ElemPos& at = m_aPos[i];
            tree.push_back({at.nTagOpen, at.nTagClose, at.nEndTagOpen, at.nEndTagClose, depth});
            Add(tree, at.iFirstChild, depth + 1);
        }
    }
};
