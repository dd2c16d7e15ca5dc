// CMarkupEditSession: many edits of one document, made in document order and applied in one
// pass.
//
// A session takes over the text, the index and the positions of a CMarkup. It has operations of the
// same names to navigate and edit, and Commit gives everything back. Each call returns what CMarkup
// would return, and Commit leaves the same text, index and positions as the same direct calls. The
// total time of all edits is proportional to the size of the document and of the additions; each
// direct edit takes that long.
//
// Document order. An edit is refused (false, nothing changed) when its place is before the start
// tag of the last element that was added or had an attribute set. That element may be changed
// again, children and siblings may be added after it, and elements directly before it. Navigation
// and reading are possible everywhere.
//
// Until Commit the CMarkup keeps its old state; it may be read but not edited. A session that is
// destroyed without Commit changes nothing. An edit that cannot allocate memory throws
// CMemoryException and changes nothing; Commit needs no memory. The CMarkup must outlive the
// session. Use both on one thread.
#pragma once

#include <quorvel/xml/markup.h>

class QUORVEL_API CMarkupEditSession : private CMarkup {
public:
    explicit CMarkupEditSession(CMarkup& markup); // takes the state over
    CMarkupEditSession(const CMarkupEditSession&) = delete;
    CMarkupEditSession& operator=(const CMarkupEditSession&) = delete;
    ~CMarkupEditSession() override;

    using CMarkup::FindChildElem;
    using CMarkup::FindElem;
    using CMarkup::IntoElem;
    using CMarkup::IsWellFormed;
    using CMarkup::OutOfElem;
    using CMarkup::ResetChildPos;
    using CMarkup::ResetMainPos;
    using CMarkup::ResetPos;

    // These see all edits so far.
    CString GetTagName();
    CString GetChildTagName();
    CString GetAttrib(const WCHAR* name);
    CString GetChildAttrib(const WCHAR* name);
    using CMarkup::GetChildData;
    using CMarkup::GetData;

    // As in CMarkup; also false when the place is refused.
    bool AddElem(const WCHAR* name, const WCHAR* value = nullptr);
    bool AddChildElem(const WCHAR* name, const WCHAR* value = nullptr);
    bool AddAttrib(const WCHAR* name, const WCHAR* value);
    bool SetAttrib(const WCHAR* name, const WCHAR* value);
    bool AddChildAttrib(const WCHAR* name, const WCHAR* value);
    bool SetChildAttrib(const WCHAR* name, const WCHAR* value);
    QUORVEL_TYPED_VALUES

    // Returns the document with all accepted edits and ends the session: nothing can be found in it
    // any more, and edits are refused. Returns false and leaves the CMarkup unchanged when the
    // session has already ended or the CMarkup's text was changed meanwhile.
    bool Commit();

private:
    bool Add(const WCHAR* name, const WCHAR* value, bool child);
    bool Set(int iPos, const WCHAR* name, const WCHAR* value);
    int GapLength() const { return m_nGapEnd - m_nGapBegin; }
    int MakeRoom(int length);
    void MoveGap(int to);
    void CloseGap();
    void EndEdit(int shift);
    void ShiftFrom(int first, int shift);
    bool IsReadAcrossGap(int iPos) const;
    void PrepareRead(int iPos);

    CMarkup* m_markup;     // null after the session has ended
    CString m_strOriginal; // detects a text that was changed meanwhile
    // The text has a gap: see edit_session.cpp.
    int m_nGapBegin = 0;
    int m_nGapEnd = 0;
    // The first tag after the gap: this element's start tag, or else its end tag.
    int m_iPosNext;
    bool m_bNextIsStart = true;
};
