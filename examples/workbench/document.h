// The document of the workbench: an XML text and the flat list of its elements.
#pragma once

#include <quorvel/xml/check_xml.h>
#include <quorvel/xml/markup.h>

#include <functional>
#include <string_view>
#include <vector>

class Document : public CMarkup {
public:
    typedef std::basic_string_view<WCHAR> View;

    // To be called once the text was set.
    void ListElements();

    int ElementCount() const { return static_cast<int>(m_depths.size()); }
    // Elements are named by their index in document order. The views end with the next change.
    int DepthOf(int index) const { return m_depths[static_cast<std::size_t>(index)]; }
    int PositionOf(int index) const { return Record(index).nTagOpen; }
    View NameOf(int index) const;
    View AttributesOf(int index) const; // as written
    View TextOf(int index) const;       // as written, up to the first child
    View SourceOf(int index) const;
    int LastBefore(int position) const; // the last that begins at or before it; -1: none

    // The elements whose tags or text contain a text, whatever the case of its letters. `step` is
    // called now and then, with how much is done, and may throw.
    std::vector<int> Find(View text, const std::function<void(int percent)>& step = {}) const;
    // Writes another source in an element's place and lists the elements anew. False, and nothing
    // has changed, when that is no single element that is well-formed where it stands.
    bool ReplaceSource(int index, CString source, CXMLFault& fault);

private:
    // A parse leaves the records in document order, after one for the document itself.
    const ElemPos& Record(int index) const { return m_aPos.GetData()[index + 1]; }
    int ParentOf(int index) const { return Record(index).iParent - 1; }
    View Text(int first, int end) const;
    bool CheckSource(int index, const CString& source, CXMLFault& fault) const;
    void Replace(int first, int length, const CString& text);

    std::vector<int> m_depths;
};
