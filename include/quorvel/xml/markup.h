// CMarkup: an XML document, stored as its text and an index of its elements. To load a file, see
// open_xml_file.h and xml_file.h, to save it xml_file.h, to check it check_xml.h.
// The whole document is one UTF-16 string. For each element there is one 32-byte record with the
// positions of its tags and links to its parent, first child and next sibling; there are no other
// nodes. Reading decodes the text on demand. An edit splices the text and shifts the positions
// after it.
//
// Three positions form a cursor: the parent (unset at document level), the main element, which is
// one of the parent's children, and a child of the main element. Main and child may be unset.
// FindElem and FindChildElem move along a level, IntoElem and OutOfElem change the level. Parsing
// unsets all three.
//
// Limits. Positions are 32-bit: a document has at most 2147483646 characters. A text or an edit
// that would exceed that, or cannot allocate memory, throws CMemoryException and changes nothing
// (if there is memory for a text but not for its index, the text is kept with an empty index).
// Parsing is linear and iterative, at any depth of nesting. An edit moves the text and visits the
// elements after it, so many edits at the front of a large document take quadratic time.
// Appending is linear if each element is added after the last one added or, without a child
// position, to one long list of children at a time. CMarkupEditSession makes many edits in linear
// time. Elements can be added and attributes added or changed, but nothing can be removed. To
// remove an element, a host cuts its text from the document (GetDocRef, SetDoc) or writes a new
// one.
//
// How texts are read (the parser is lenient; AfxCheckXML tests well-formedness):
// - For the parser, a zero character ends the text; the document keeps what follows it.
// - Only the first top-level element is parsed. Comments, processing instructions, CDATA
//   sections and document type declarations before it are skipped.
// - A start tag ends at the first ">" after its name, even inside a quoted attribute value.
// - "<" directly followed by a delimiter other than "/", "!" and "?" makes that delimiter the
//   tag's name: the tag "<>" is called ">" and ends at the next ">".
// - White space between "<" and "/" is allowed; between "<" and "!" or "?" it is an "Invalid node".
// - Comments, sections and instructions end at the first terminator after their "<", so that
//   "<!-->" and "<?>" are complete. Any "<![" starts a CDATA section and any "<!-" a comment.
// - In a document type declaration every unquoted "[" and "]" counts, also inside a word. A
//   comment in it is not recognised: its brackets count, a quote that begins a word hides
//   everything up to the next quote of that kind, and outside brackets its ">" ends the
//   declaration. An apostrophe in such a comment ("'tis") can make it an "Invalid node".
// - An end tag whose ">" comes directly after its "/" is not completed, whatever the
//   element's name is.
//
// One thread at a time may use an object. Different objects are independent.
#pragma once

#include <quorvel/framework/string.h>

#include <type_traits>
#include <utility>

namespace quorvel {

class AngleScanner;

// Pointers that would convert to the overload for bool.
template <class T>
concept PointerToNoText = !std::is_convertible_v<T, const WCHAR*> &&
                          (std::is_pointer_v<T> || std::is_member_pointer_v<T>);

} // namespace quorvel

// Declare an operation for a value of each type, and do so for all such operations.
#define QUORVEL_TYPED_VALUES_OF(operation)                                                         \
    bool operation(const WCHAR* name, bool value);                                                 \
    bool operation(const WCHAR* name, char value);                                                 \
    bool operation(const WCHAR* name, unsigned char value);                                        \
    bool operation(const WCHAR* name, short value);                                                \
    bool operation(const WCHAR* name, unsigned short value);                                       \
    bool operation(const WCHAR* name, int value);                                                  \
    bool operation(const WCHAR* name, unsigned int value);                                         \
    bool operation(const WCHAR* name, long value);                                                 \
    bool operation(const WCHAR* name, unsigned long value);                                        \
    bool operation(const WCHAR* name, __int64 value);                                              \
    bool operation(const WCHAR* name, unsigned long long value);                                   \
    bool operation(const WCHAR* name, float value);                                                \
    bool operation(const WCHAR* name, double value);                                               \
    template <quorvel::PointerToNoText Pointer>                                                    \
    bool operation(const WCHAR* name, Pointer value) = delete;
#define QUORVEL_TYPED_VALUES                                                                       \
    QUORVEL_TYPED_VALUES_OF(AddElem)                                                               \
    QUORVEL_TYPED_VALUES_OF(AddChildElem)                                                          \
    QUORVEL_TYPED_VALUES_OF(AddAttrib)                                                             \
    QUORVEL_TYPED_VALUES_OF(SetAttrib)                                                             \
    QUORVEL_TYPED_VALUES_OF(AddChildAttrib)                                                        \
    QUORVEL_TYPED_VALUES_OF(SetChildAttrib)

class QUORVEL_API CMarkup {
public:
    CMarkup();
    explicit CMarkup(const WCHAR* text); // as SetDoc; see GetError for the result
    // Copies the document, its index and the positions. Deliberate: does not copy the XML
    // declaration and the error text. Assigning an object to itself throws CInvalidArgException.
    CMarkup(const CMarkup& other);
    CMarkup& operator=(const CMarkup& other);
    virtual ~CMarkup();

    // Replaces the document and parses it. Returns true when a root element was parsed. Otherwise
    // the text is kept with an empty index, and GetError returns the reason. A later success does
    // not clear the error; an empty text, or one that starts with an end tag, leaves it unchanged.
    // The text may be part of this document. A null text counts as empty.
    bool SetDoc(const WCHAR* text);
    // A length below 1 returns false and changes nothing. A null text counts as empty.
    bool SetDoc(const WCHAR* text, int length);
    // Converts with MultiByteToWideChar. Null bytes and a length below 1 return false and change
    // nothing. An empty result returns false, resets the positions and leaves the document
    // unchanged.
    bool SetDoc(const char* bytes, int length, unsigned int codePage);

    bool IsWellFormed() const; // tests only whether a root element was parsed
    CString GetError() const;  // the text of the last error, empty when there was no error
    // The document, as SetDoc and the edits left it.
    CString GetDoc() const;
    CString& GetDocRef(); // after a change call SetDoc(GetDoc()) before using positions
    const CString& GetDocConstRef() const;

    void ResetPos();      // unsets all three: before the root
    void ResetMainPos();  // unsets main and child: before the first element of the level
    void ResetChildPos(); // unsets the child: before the first child

    // Moves to the next element with that name (null or empty: any name) after the main position on
    // this level. A name matches a tag if it begins with the whole tag name and then either ends or
    // has one of blank, "=", "/" and "[". On false the positions are unchanged.
    bool FindElem(const WCHAR* name = nullptr);
    // The same for the children of the main element, after the child position. Without a main
    // position, the first element of this level becomes the main element; if there is no element,
    // returns false.
    bool FindChildElem(const WCHAR* name = nullptr);
    // Moves down one level: the main element becomes the parent and the child becomes the main
    // element (or unset: then FindElem finds the first child). False without a main element.
    bool IntoElem();
    // Moves up one level: the parent becomes the main element, and the main element the child.
    // False at document level.
    bool OutOfElem();

    // Empty when there is no such element or attribute.
    CString GetTagName() const;
    CString GetChildTagName() const;
    // Returns quoted values only, with the five predefined entities decoded. The search ends at the
    // first ">", "/" or "?" outside quotes; in an unclosed quote it ends with the text. Deliberate:
    // an empty name returns the name of the tag's first attribute, and a null name returns an empty
    // text.
    CString GetAttrib(const WCHAR* name) const;
    CString GetChildAttrib(const WCHAR* name) const;
    // The text of an element without children: the content of a leading CDATA section unchanged, or
    // else the whole content, untrimmed, with the five predefined entities decoded.
    CString GetData() const;
    CString GetChildData() const;

    // Adds an element after the main position, or as the parent's last child, and makes it the main
    // position. At document level this works only without a root. AddChildElem does the same below
    // the main element, with the child position. A null or empty value makes an empty element. A
    // value that begins with "<![CDATA[" is stored unchanged. The arguments may point into the
    // document. Names are neither checked nor escaped: an empty name writes "</>" or "<>value</>",
    // which can be navigated now but is not an element when the text is parsed again. After a
    // failed parse there is no root, so AddElem at document level succeeds and appends to the kept
    // text. SetDoc(nullptr) starts a new document.
    bool AddElem(const WCHAR* name, const WCHAR* value = nullptr);
    bool AddChildElem(const WCHAR* name, const WCHAR* value = nullptr);
    // Set an attribute of the main or child element, or add it when it is missing; Add and Set are
    // the same operation. Return false without an element, for a null name or value, and when the
    // current value contains ">", since the parser ends the tag there (see above).
    bool AddAttrib(const WCHAR* name, const WCHAR* value);
    bool SetAttrib(const WCHAR* name, const WCHAR* value);
    bool AddChildAttrib(const WCHAR* name, const WCHAR* value);
    bool SetChildAttrib(const WCHAR* name, const WCHAR* value);

    // Each of the six also takes these types: bool ("yes" or "no"), char (the character itself;
    // above 127 that of Latin-1), integers (decimal digits; a long has its own width, which may be
    // 64 bits), float and double ("%g", with exponents of three digits). A pointer to anything but
    // text does not compile.
    QUORVEL_TYPED_VALUES

    // The first line of a saved file; by default <?xml version="1.0" encoding="utf-8"?>.
    CString GetXMLDeclaration() const;
    // Stores a text that matches ^<\?xml.*\?>$ as a whole. Refuses any other with false.
    bool SetXMLDeclaration(const WCHAR* text);
    // The code page that the stored declaration names; UTF-8 (65001) if it names no encoding, 0 for
    // an unknown name.
    unsigned int GetCodePage() const;

    // One element. Positions are in characters from the start of the document.
    struct ElemPos {
        int nTagOpen;     // the "<" of the start tag
        int nTagClose;    // the ">" of the start tag
        int nEndTagOpen;  // the "<" of the end tag; for an empty element its "/"
        int nEndTagClose; // the ">" of the end tag; for an empty element nTagClose
        int nSpare;       // not used
        // Indexes of elements; 0 means that there is no such element.
        int iParent;
        int iFirstChild;
        int iNextSibling;
    };

protected:
    // The state of the tokenizer.
    struct TokenPos {
        int nFirst;          // the token's first character
        int nLast;           // its last character; before nFirst if empty
        int nNext;           // where the next scan starts
        const WCHAR* pszDoc; // the text, up to its first zero
        BOOL bQuoted;        // the token was in quotes, which are not part of it
    };
    enum NodeKind { // what x_ParseNode returns
        nodeNone = 0,
        nodeElement = 1,
        nodeText = 2,
        nodeWhitespace = 4,
        nodeCData = 8,
        nodeInstruction = 16,
        nodeComment = 32,
        nodeDocumentType = 64
    };
    enum {
        kLocateBefore = 1,
        kLocateExact = 2
    }; // flags of x_LocateNew; exact skips no white space

    // A growable array of records. An index outside it throws
    // CInvalidArgException.
    class QUORVEL_API ElementIndex {
    public:
        ElementIndex() = default;
        ElementIndex(const ElementIndex&) = delete;
        ElementIndex& operator=(const ElementIndex&) = delete;
        ~ElementIndex();
        int GetSize() const { return m_size; } // in records
        // x_GetFreePos clears a new record when it takes it. Throws CMemoryException.
        void Resize(int size);
        // An index outside the array throws CInvalidArgException.
        ElemPos& operator[](int index) {
            CheckIndex(index);
            return m_records[index];
        }
        const ElemPos& operator[](int index) const {
            CheckIndex(index);
            return m_records[index];
        }
        void Swap(ElementIndex& other) noexcept {
            std::swap(m_records, other.m_records);
            std::swap(m_size, other.m_size);
            std::swap(m_room, other.m_room);
        }
        // The records, from 0; null before the first Resize.
        ElemPos* GetData() { return m_records; }
        const ElemPos* GetData() const { return m_records; }

    private:
        void CheckIndex(int index) const {
            if (static_cast<unsigned>(index) >= static_cast<unsigned>(m_size))
                ThrowBadIndex();
        }
        [[noreturn]] static void ThrowBadIndex();

        ElemPos* m_records = nullptr;
        int m_size = 0;
        int m_room = 0; // capacity in records
    };

    // Sets the three positions and the kind of the node.
    void x_SetPos(int iPosParent, int iPosMain, int iPosChild);
    int x_GetFreePos(); // takes a record
    int x_ReleasePos(); // releases the record taken last; returns 0
    // Sets the error text, with "%s" replaced by the name, and releases the record taken last.
    // Returns -1.
    int x_ParseError(const WCHAR* format, const WCHAR* name);
    // Parses the next element below a record, from its nEndTagOpen on. Returns the index; 0 if an
    // end tag comes first, with nEndTagOpen moved to it; -1 on error, with the error text set.
    int x_ParseElem(int iPosParent);
    // The kind of the node that begins at nNext. Moves nNext past the node (past the "<" for an
    // element). An end tag has the kind nodeNone.
    static int x_ParseNode(TokenPos& token);
    // Move forward to the character, or past white space. False at the end of the text.
    static bool x_FindChar(const WCHAR* text, int& position, WCHAR character);
    static bool x_FindAny(const WCHAR* text, int& position);
    static bool x_FindToken(TokenPos& token); // false at the end of the text
    // Return the text of the token, without quotes, or compare it with a name.
    static CString x_GetToken(const TokenPos& token);
    static bool x_MatchToken(const TokenPos& token, const WCHAR* name);
    // Replaces a range of the text, clamped to it. Does not change the index.
    void x_DocChange(int start, int replaceLength, const CString& text);
    // Shifts the positions after an element: its children (unless `afterPos`), the elements after
    // it, and the end tags of its ancestors. The caller shifts the element itself.
    void x_Adjust(int iPos, int shift, bool afterPos);
    // Finds the place of a new element; sets and returns `offset`. `iPosBefore` is the sibling next
    // to it (0: unset) and becomes the sibling to link after (0: link as first child). A non-zero
    // `length` describes a range at `offset` next to which the element is placed.
    int x_LocateNew(int iPosParent, int& iPosBefore, int& offset, int length, int flags);

    // The parts of the public operations, for the element with the index.
    int x_FindElem(int iPosParent, int iPosAfter, const WCHAR* name) const;
    bool x_FindAttrib(TokenPos& token, const WCHAR* name) const;
    CString x_GetTagName(int iPos) const;
    CString x_GetAttrib(int iPos, const WCHAR* name) const;
    CString x_GetData(int iPos) const;
    CString x_TextFromDoc(int first, int last) const;
    static CString x_TextToDoc(const WCHAR* text, bool attribute);
    bool x_AddElem(const WCHAR* name, const WCHAR* value, bool insert, bool child);
    bool x_SetAttrib(int iPos, const WCHAR* name, const WCHAR* value);

    // The state: the texts, the elements, the three positions, and the first index that is free.
    CString m_strXMLDeclaration;
    CString m_strDoc;
    CString m_strError;
    ElementIndex m_aPos;
    int m_iPosParent = 0;
    int m_iPosMain = 0;
    int m_iPosChild = 0;
    int m_iPosFree = 1;
    int m_nNodeType = 0;

private:
    friend class CMarkupEditSession; // shares the index and the parts of an edit

    struct Splice;  // a change of the text
    struct NewElem; // the text and the record of an element to add

    bool Parse();
    static bool SkipNode(quorvel::AngleScanner& scanner, const WCHAR* text, int open);
    int CloseElement(const ElemPos& element, int tagOpen);
    int LastChildOf(int iPosParent);
    bool PlanElem(const WCHAR* name, const WCHAR* value, bool insert, bool child, NewElem& plan);
    bool PlanAttrib(int iPos, const WCHAR* name, const WCHAR* value, Splice& plan) const;
    int LinkElem(const NewElem& plan, bool child);

    // The last child of one parent, cached so that appending without a child position does not walk
    // all siblings; 0 when unknown.
    int m_iLastChildParent = 0;
    int m_iLastChild = 0;
};
