// The document of the workbench: an XML text and the flat list of its elements.
#pragma once

#include <quorvel/xml/check_xml.h>
#include <quorvel/xml/markup.h>

#include <string_view>
#include <vector>

class Document : public CMarkup {
public:
    typedef std::basic_string_view<WCHAR> View;

    // To be called once the text was loaded.
    void ListElements();

    int ElementCount() const { return static_cast<int>(m_elements.size()); }
    // Elements are named by their index in document order. The views end with the next change.
    int DepthOf(int index) const { return m_elements[static_cast<std::size_t>(index)].depth; }
    int PositionOf(int index) const { return Record(index).nTagOpen; }
    View NameOf(int index) const;
    View AttributesOf(int index) const; // as written
    View TextOf(int index) const;       // as written, up to the first child
    View SourceOf(int index) const;

    // The elements whose tags or text contain a text, whatever the case of its letters.
    std::vector<int> Find(View text) const;
    // Writes another source in an element's place and lists the elements anew. False, and nothing
    // has changed, when that is no single well-formed element.
    bool ReplaceSource(int index, const CString& source, CXMLFault& fault);

private:
    struct Element {
        int record;
        int depth;
        int parent; // its index; -1 for the root
    };

    const ElemPos& Record(int index) const {
        return m_aPos.GetData()[m_elements[static_cast<std::size_t>(index)].record];
    }
    View Text(int first, int end) const;
    int IndexAt(int position, int before) const;

    std::vector<Element> m_elements;
};
