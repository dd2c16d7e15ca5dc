// CMarkup: an XML document held as its text and an index of its elements.
//
// The whole document is one UTF-16 string. Beside it stands one 32-byte record per element with the
// positions of its tags and its links to parent, first child and next sibling; nothing else is
// materialised. Reading decodes from the text on demand, and an edit splices the text and shifts
// the positions that lie behind it.
//
// A caller stands on one level of the tree, with three positions: the parent of the level (none at
// document level), the current or main element among the parent's children, and a child of the main
// element. Each of the last two may be none. FindElem and FindChildElem move along a level,
// IntoElem and OutOfElem to the next one; a parse leaves none of the three.
//
// Limits. Positions are 32-bit: a document has at most 2147483646 characters. A text or an edit
// that would pass that, or finds no memory, throws CMemoryException and changes nothing (where
// there is memory for a text but not for its index, the text is kept with an empty index). Parsing
// is linear and iterative whatever the nesting. An edit moves the text and visits the elements
// behind it, so that many edits at the front of a large document are quadratic by definition.
// Appending is linear where each element goes after the one added last, or, without a child
// position, to one long list of children at a time. CMarkupEditSession makes many edits in linear
// time. Elements and attributes can be added and attributes changed, but nothing can be removed: a
// host that drops an element takes its text out of the document (GetDocRef, SetDoc) or writes a new
// one.
//
// How texts are read (the parser is lenient; AfxCheckXML judges well-formedness):
// - A zero character ends the text for the parser; the document keeps what follows it.
// - Only the first top-level element is parsed, with the comments, processing instructions, CDATA
//   sections and document type declarations before it skipped.
// - A start tag ends at the first ">" after its name, even inside a quoted attribute value.
// - "<" directly followed by a delimiter other than "/", "!" and "?" names the tag by that one
//   delimiter, so that the tag "<>" is called ">" and ends at the next ">".
// - White space between "<" and "/" is allowed; between "<" and "!" or "?" it is an "Invalid node".
// - Comments, sections and instructions end at the first terminator behind their "<", so that
//   "<!-->" and "<?>" are complete. Any "<![" opens a CDATA section and any "<!-" a comment.
// - In a document type declaration every unquoted "[" and "]" counts, inside a longer word too, and
//   a comment is read like the rest of it: its brackets count, a quote that begins a word hides
//   everything up to the next quote of its kind, and outside brackets its ">" ends the declaration.
//   So one apostrophe in such a comment, as in "'tis", can make the document an "Invalid node".
// - An end tag whose ">" comes directly after its "/" is not completed, whatever the element's
//   name.
//
// An object is used by one thread at a time; different objects are independent.
#pragma once

#include <quorvel/framework/string.h>

#include <type_traits>
#include <utility>

namespace quorvel {

class AngleScanner;

// What an overload for bool would take.
template <class T>
concept PointerToNoText = !std::is_convertible_v<T, const WCHAR*> &&
                          (std::is_pointer_v<T> || std::is_member_pointer_v<T>);

} // namespace quorvel

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
    explicit CMarkup(const WCHAR* text);
    // Copies the document, its index and the positions. The XML declaration and the error text are
    // deliberately not copied. Assigning an object to itself throws CInvalidArgException.
    CMarkup(const CMarkup& other);
    CMarkup& operator=(const CMarkup& other);
    virtual ~CMarkup();

    // Replaces the document and parses it; true when a root element was parsed. Otherwise the text
    // is kept with an empty index, and GetError tells why (a later success does not clear it; an
    // empty text or one that starts with an end tag leaves it as it was). The text may be a part of
    // this very document. A null text counts as empty.
    bool SetDoc(const WCHAR* text);
    // A length below 1, or null bytes, is refused with false and changes nothing.
    bool SetDoc(const WCHAR* text, int length);
    // As MultiByteToWideChar converts them; a conversion that yields nothing gives false, with the
    // positions reset and the document as it was.
    bool SetDoc(const char* bytes, int length, unsigned int codePage);

    bool IsWellFormed() const; // whether there is a root element, and no more than that
    CString GetError() const;
    CString GetDoc() const;
    CString& GetDocRef(); // who changes it calls SetDoc before using positions again
    const CString& GetDocConstRef() const;

    void ResetPos();      // no position: before the root
    void ResetMainPos();  // neither main nor child position: before the first element of the level
    void ResetChildPos(); // no child position: before the first child

    // The next element of that name (of any name for null or empty) after the main position at this
    // level. A name matches a tag when it begins with the whole tag name and goes on with nothing
    // or one of blank, "=", "/" and "[". False leaves the positions as they are.
    bool FindElem(const WCHAR* name = nullptr);
    // The same among the children of the main element, after the child position. Without a main
    // position the first element of this level becomes it; where there is none, the result is
    // false.
    bool FindChildElem(const WCHAR* name = nullptr);
    // Down one level: the main element becomes the parent and the child position the main one (none
    // stays none, so that FindElem then finds the first child). False without a main element.
    bool IntoElem();
    // Up one level: the parent becomes the main element and the main position the child one. False
    // at document level.
    bool OutOfElem();

    // Empty where there is no such element or attribute.
    CString GetTagName() const;
    CString GetChildTagName() const;
    // Quoted values only, with the five predefined entities decoded. The search ends at the first
    // ">", "/" or "?" outside quotes, and where a quote is not closed at the end of the text. An
    // empty name gives the name of the tag's first attribute (deliberate, as is that a null name
    // gives an empty text).
    CString GetAttrib(const WCHAR* name) const;
    CString GetChildAttrib(const WCHAR* name) const;
    // The text of an element without children: that of a leading CDATA section as it stands, or
    // else the whole content with the five predefined entities decoded and nothing trimmed.
    CString GetData() const;
    CString GetChildData() const;

    // Adds an element after the main position, or as the parent's last child, and makes it the main
    // position; at document level only while there is no root. AddChildElem does the same below the
    // main element with the child position. A null or empty value makes an empty element; a value
    // that begins with "<![CDATA[" is taken as it stands. The arguments may point into the
    // document. Names are neither checked nor escaped: an empty one writes "</>" or "<>value</>",
    // which can be walked as an element but is none when the text is read again. After a parse that
    // failed there is no root, so that AddElem succeeds at document level: it appends to the text
    // that was kept. SetDoc(nullptr) begins a new document.
    bool AddElem(const WCHAR* name, const WCHAR* value = nullptr);
    bool AddChildElem(const WCHAR* name, const WCHAR* value = nullptr);
    // Set an attribute of the main or child element, adding it when it is absent; Add and Set are
    // the same operation. False without an element, for a null name or value, and where the present
    // value reaches to the ">" at which the tag was cut or lies behind it.
    bool AddAttrib(const WCHAR* name, const WCHAR* value);
    bool SetAttrib(const WCHAR* name, const WCHAR* value);
    bool AddChildAttrib(const WCHAR* name, const WCHAR* value);
    bool SetChildAttrib(const WCHAR* name, const WCHAR* value);

    // Each of the six also takes a value of these types: "yes" or "no" for bool, the character
    // itself for char (above 127 that of Latin-1), the decimal digits for integers (a long in its
    // own width: 64 bits where it has them), "%g" for float and double (with exponents of three
    // digits). A pointer to anything but a text does not compile.
    QUORVEL_TYPED_VALUES

    // The line that a saved file begins with; by default <?xml version="1.0" encoding="utf-8"?>.
    CString GetXMLDeclaration() const;
    // Stores a text that as a whole matches ^<\?xml.*\?>$ and refuses any other.
    bool SetXMLDeclaration(const WCHAR* text);
    // The code page that the stored declaration names, UTF-8 (65001) where it names none, 0 for a
    // name that is not known.
    unsigned int GetCodePage() const;

    // One element. Positions are in characters from the start of the document.
    struct ElemPos {
        int nTagOpen;     // the "<" of the start tag
        int nTagClose;    // the ">" of the start tag
        int nEndTagOpen;  // the "<" of the end tag; of an empty element its "/"
        int nEndTagClose; // the ">" of the end tag; of an empty element nTagClose
        int nSpare;
        int iParent;
        int iFirstChild;
        int iNextSibling;
    };

protected:
    // The state of the tokenizer.
    struct TokenPos {
        int nFirst;          // the token's first character
        int nLast;           // its last one; before the first where it is empty
        int nNext;           // where the next scan starts
        const WCHAR* pszDoc; // the text, which its first zero ends
        BOOL bQuoted;        // the token stands between quotes, which are none of it
    };
    enum NodeKind {
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

    // A growable array of records whose index is checked: outside it CInvalidArgException is
    // thrown.
    class QUORVEL_API ElementIndex {
    public:
        ElementIndex() = default;
        ElementIndex(const ElementIndex&) = delete;
        ElementIndex& operator=(const ElementIndex&) = delete;
        ~ElementIndex();
        int GetSize() const { return m_size; }
        // New records are zero once they are taken (x_GetFreePos). Throws CMemoryException.
        void Resize(int size);
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
        int m_room = 0; // records that there is memory for
    };

    void x_SetPos(int iPosParent, int iPosMain, int iPosChild);
    int x_GetFreePos(); // takes a record
    int x_ReleasePos(); // gives back the one taken last; returns 0
    // Sets the error text, with the name in the place of "%s", and gives back the record taken
    // last. Returns -1.
    int x_ParseError(const WCHAR* format, const WCHAR* name);
    // Parses the next element below a record, from the record's nEndTagOpen on. Returns its index;
    // 0 where an end tag comes first, with nEndTagOpen moved to it; -1 with the error text set.
    int x_ParseElem(int iPosParent);
    // The kind of the node that begins at nNext, which moves behind it (of an element behind the
    // "<" alone). An end tag is none.
    static int x_ParseNode(TokenPos& token);
    // Move forward to the character, and past white space; false at the end of the text.
    static bool x_FindChar(const WCHAR* text, int& position, WCHAR character);
    static bool x_FindAny(const WCHAR* text, int& position);
    static bool x_FindToken(TokenPos& token); // false at the end of the text
    static CString x_GetToken(const TokenPos& token);
    static bool x_MatchToken(const TokenPos& token, const WCHAR* name);
    // Replaces a part of the text, cut to what there is; the index stays as it is.
    void x_DocChange(int start, int replaceLength, const CString& text);
    // Shifts what lies behind an element: its children (not with `afterPos`), the elements after
    // it, and the end tags of those around it. The element itself is the caller's to shift.
    void x_Adjust(int iPos, int shift, bool afterPos);
    // Where a new element goes, as `offset` and result. `iPosBefore` is the sibling to stand next
    // to (0: none) and becomes the one to link behind (0: as the first child). A length stands for
    // a span at `offset` to stand next to.
    int x_LocateNew(int iPosParent, int& iPosBefore, int& offset, int length, int flags);

    int x_FindElem(int iPosParent, int iPosAfter, const WCHAR* name) const;
    bool x_FindAttrib(TokenPos& token, const WCHAR* name) const;
    CString x_GetTagName(int iPos) const;
    CString x_GetAttrib(int iPos, const WCHAR* name) const;
    CString x_GetData(int iPos) const;
    CString x_TextFromDoc(int first, int last) const;
    static CString x_TextToDoc(const WCHAR* text, bool attribute);
    bool x_AddElem(const WCHAR* name, const WCHAR* value, bool insert, bool child);
    bool x_SetAttrib(int iPos, const WCHAR* name, const WCHAR* value);

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
    friend class CMarkupEditSession; // shares the index and what an edit is made of

    struct Splice;  // a change of the text
    struct NewElem; // the text and the record of an element to add

    bool Parse();
    static bool SkipNode(quorvel::AngleScanner& scanner, const WCHAR* text, int open);
    int CloseElement(const ElemPos& element, int tagOpen);
    int LastChildOf(int iPosParent);
    bool PlanElem(const WCHAR* name, const WCHAR* value, bool insert, bool child, NewElem& plan);
    bool PlanAttrib(int iPos, const WCHAR* name, const WCHAR* value, Splice& plan) const;
    int LinkElem(const NewElem& plan, bool child);

    // The last child of one parent with many, remembered so that appending without a child position
    // need not walk the siblings; 0 when not known.
    int m_iLastChildParent = 0;
    int m_iLastChild = 0;
};
