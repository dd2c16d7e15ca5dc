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
    m_depths.resize(IsWellFormed() ? static_cast<std::size_t>(m_iPosFree - 1) : 0);
    const ElemPos* const records = m_aPos.GetData() + 1;
    for (std::size_t i = 0; i < m_depths.size(); ++i) {
        const int parent = records[i].iParent;
        m_depths[i] = parent > 0 ? m_depths[static_cast<std::size_t>(parent) - 1] + 1 : 0;
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

int Document::LastBefore(int position) const {
    int first = 0, end = ElementCount(); // the one searched for is before `end`, if at all
    while (first < end) {
        const int middle = first + (end - first) / 2;
        (PositionOf(middle) <= position ? first : end) =
            PositionOf(middle) <= position ? middle + 1 : middle;
    }
    return first - 1;
}

std::vector<int> Document::Find(View text, const std::function<void(int percent)>& step) const {
    constexpr int kBlock = 1 << 20;
    static const WCHAR* const s_folded = MakeFoldTable();
    const WCHAR* const fold = s_folded;
    std::vector<int> found;
    std::basic_string<WCHAR> folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [fold](WCHAR unit) { return fold[unit]; });
    const int end = m_strDoc.GetLength() - static_cast<int>(folded.size()) + 1;
    if (folded.empty() || ElementCount() == 0)
        return found;
    const WCHAR* const document = m_strDoc.GetString();
    const auto isHere = [&](int position) {
        return std::equal(folded.begin() + 1, folded.end(), document + position + 1,
                          [fold](WCHAR wanted, WCHAR unit) { return fold[unit] == wanted; });
    };
    const WCHAR first = folded[0];
    const int root = Record(0).nEndTagClose;
    int before = 0; // the last element that begins at or before the position
    for (int block = PositionOf(0); block < end && block <= root; block += kBlock) {
        if (step)
            step(static_cast<int>(100LL * block / end));
        const int blockEnd = std::min({end, root + 1, block + kBlock});
        for (int position = block; position < blockEnd; ++position) {
            if (fold[document[position]] != first || !isHere(position))
                continue;
            while (before + 1 < ElementCount() && PositionOf(before + 1) <= position)
                ++before;
            int index = before;
            while (position > Record(index).nEndTagClose)
                index = ParentOf(index);
            found.push_back(index);
        }
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

// Checks a source between what stands before the root and the tags that are open around it, which
// declare its prefixes and entities.
bool Document::CheckSource(int index, const CString& source, CXMLFault& fault) const {
    std::vector<int> parents;
    for (int parent = ParentOf(index); parent >= 0; parent = ParentOf(parent))
        parents.push_back(parent);
    CString text = CString(Text(0, PositionOf(0))), after;
    for (std::size_t i = parents.size(); i-- > 0;)
        text += CString(Text(PositionOf(parents[i]), Record(parents[i]).nTagClose + 1));
    for (const int parent : parents)
        after += _T("</") + CString(NameOf(parent)) + _T(">");
    const int before = text.GetLength();
    if (!AfxCheckXML(text + source + after, fault)) {
        if (fault.nOffset < before) // the document was at fault before
            return AfxCheckXML(source, fault) != FALSE;
        const CString beginning = source.Left(fault.nOffset - before);
        fault.nLine = 1;
        for (int i = 0; i < beginning.GetLength(); ++i)
            fault.nLine += beginning[i] == '\n';
        fault.nColumn = beginning.GetLength() - beginning.ReverseFind('\n');
        return false;
    }
    return true;
}

bool Document::ReplaceSource(int index, CString source, CXMLFault& fault) {
    source.Trim();
    Document probe;
    probe.SetDoc(source);
    probe.ListElements();
    const bool isOneElement = probe.ElementCount() > 0 &&
                              static_cast<int>(probe.SourceOf(0).size()) == source.GetLength();
    if (!CheckSource(index, source, fault))
        return false;
    if (!isOneElement) {
        if (AfxCheckXML(source, fault)) { // it begins or ends with a comment
            fault.strMessage = _T("not one element");
            fault.nLine = fault.nColumn = 1;
        }
        return false;
    }
    const int place = PositionOf(index);
    const CString former = CString(SourceOf(index));
    Replace(place, former.GetLength(), source);
    if (IsWellFormed())
        return true;
    fault.strMessage = GetError(); // CMarkup reads some tags in another way
    fault.nLine = fault.nColumn = 1;
    Replace(place, source.GetLength(), former);
    return false;
}

void Document::Replace(int first, int length, const CString& text) {
    x_DocChange(first, length, text);
    SetDoc(m_strDoc, m_strDoc.GetLength());
    ListElements();
}
