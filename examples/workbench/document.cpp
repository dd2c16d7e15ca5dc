#include "document.h"

#include <algorithm>

namespace {

// Every character in lower case, as the platform makes it.
const WCHAR* MakeFoldTable() {
    static CString table(_T('\1'), 0x10000);
    WCHAR* const units = table.GetBuffer(0x10000);
    for (unsigned unit = 1; unit < 0x10000; ++unit)
        units[unit] = static_cast<WCHAR>(unit);
    table.MakeLower();
    table.SetAt(0, 0);
    return table;
}

WCHAR Folded(WCHAR unit) {
    static const WCHAR* const s_table = MakeFoldTable();
    return s_table[unit];
}

bool BeginsWith(const WCHAR* text, Document::View folded) {
    return std::equal(folded.begin(), folded.end(), text,
                      [](WCHAR wanted, WCHAR unit) { return Folded(unit) == wanted; });
}

Document::View Trimmed(Document::View text) {
    const auto isSpace = [](WCHAR unit) {
        return unit == ' ' || unit == '\t' || unit == '\r' || unit == '\n';
    };
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace

void Document::ListElements() {
    m_elements.clear();
    const ElemPos* const records = m_aPos.GetData();
    if (!IsWellFormed())
        return;
    m_elements.reserve(static_cast<std::size_t>(m_aPos.GetSize()));
    int depth = 0;
    int parent = -1; // the last element that was entered
    for (int record = records[0].iFirstChild; record != 0;) {
        m_elements.push_back({record, depth, parent});
        if (records[record].iFirstChild != 0) {
            record = records[record].iFirstChild;
            parent = ElementCount() - 1;
            ++depth;
            continue;
        }
        while (records[record].iNextSibling == 0 && depth > 0) {
            record = records[record].iParent;
            parent = m_elements[static_cast<std::size_t>(parent)].parent;
            --depth;
        }
        record = depth > 0 ? records[record].iNextSibling : 0; // the root has no sibling
    }
}

Document::View Document::Text(int first, int end) const {
    return end > first ? View(m_strDoc.GetString() + first, static_cast<std::size_t>(end - first))
                       : View();
}

Document::View Document::NameOf(int index) const {
    const ElemPos& element = Record(index);
    const View tag = Text(element.nTagOpen + 1, element.nTagClose);
    return tag.substr(0, tag.find_first_of(_T(" \t\r\n/")));
}

Document::View Document::AttributesOf(int index) const {
    const ElemPos& element = Record(index);
    const bool isEmpty = element.nEndTagClose == element.nTagClose;
    const int end = isEmpty ? element.nEndTagOpen : element.nTagClose;
    const int begin = element.nTagOpen + 1 + static_cast<int>(NameOf(index).size());
    return Trimmed(Text(begin, end));
}

Document::View Document::TextOf(int index) const {
    const ElemPos& element = Record(index);
    if (element.nEndTagClose == element.nTagClose)
        return View();
    const ElemPos* const records = m_aPos.GetData();
    const int end =
        element.iFirstChild != 0 ? records[element.iFirstChild].nTagOpen : element.nEndTagOpen;
    return Trimmed(Text(element.nTagClose + 1, end));
}

Document::View Document::SourceOf(int index) const {
    const ElemPos& element = Record(index);
    return Text(element.nTagOpen, element.nEndTagClose + 1);
}

// The innermost element around a position, -1 for none; `before` is the last one that begins at or
// before it.
int Document::IndexAt(int position, int before) const {
    int index = before;
    while (index >= 0 && position > Record(index).nEndTagClose)
        index = m_elements[static_cast<std::size_t>(index)].parent;
    return index;
}

std::vector<int> Document::Find(View text) const {
    std::vector<int> found;
    std::basic_string<WCHAR> folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), Folded);
    const int last = m_strDoc.GetLength() - static_cast<int>(folded.size());
    if (folded.empty() || ElementCount() == 0)
        return found;
    const WCHAR* const document = m_strDoc.GetString();
    int before = 0;
    for (int position = PositionOf(0); position <= last; ++position) {
        if (Folded(document[position]) != folded[0] || !BeginsWith(document + position, folded))
            continue;
        while (before + 1 < ElementCount() && PositionOf(before + 1) <= position)
            ++before;
        if (const int index = IndexAt(position, before); index >= 0)
            found.push_back(index);
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

bool Document::ReplaceSource(int index, const CString& source, CXMLFault& fault) {
    if (!AfxCheckXML(source, fault))
        return false;
    const ElemPos element = Record(index);
    CString text(m_strDoc.GetString(), element.nTagOpen);
    text += source;
    text += m_strDoc.GetString() + element.nEndTagClose + 1;
    SetDoc(text);
    ListElements();
    return true;
}
