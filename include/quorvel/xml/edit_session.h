// CMarkupEditSession: many edits of one document, made from its front to its end and applied in
// one pass.
//
// A session takes over the text, the index and the positions of a CMarkup, is walked and edited
// with operations of the same names, and gives everything back with Commit. Each call returns what
// CMarkup would have returned, and Commit leaves the text, the index and the positions that the
// same calls made directly would have left. All edits together cost time in proportion to the
// document and what is added to it, where direct edits cost that much each.
//
// Document order. An edit is refused (false, nothing changed) when its place lies before the start
// tag of the element that was added last or had an attribute set last. That element may be changed
// again, have children and siblings added behind it, and have others added directly before it.
// Walking and reading go anywhere.
//
// Until Commit the CMarkup keeps its old state and may be read but not edited. A session that goes
// away without Commit changes nothing. An edit that finds no memory throws CMemoryException and
// changes nothing; Commit cannot fail for want of memory. The CMarkup outlives the session, and
// both are used by one thread.
#pragma once

#include <quorvel/xml/markup.h>

class QUORVEL_API CMarkupEditSession : private CMarkup {
public:
    explicit CMarkupEditSession(CMarkup& markup);
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

    // These see the edits made so far.
    CString GetTagName();
    CString GetChildTagName();
    CString GetAttrib(const WCHAR* name);
    CString GetChildAttrib(const WCHAR* name);
    using CMarkup::GetChildData;
    using CMarkup::GetData;

    bool AddElem(const WCHAR* name, const WCHAR* value = nullptr);
    bool AddChildElem(const WCHAR* name, const WCHAR* value = nullptr);
    bool AddAttrib(const WCHAR* name, const WCHAR* value);
    bool SetAttrib(const WCHAR* name, const WCHAR* value);
    bool AddChildAttrib(const WCHAR* name, const WCHAR* value);
    bool SetChildAttrib(const WCHAR* name, const WCHAR* value);
    QUORVEL_TYPED_VALUES

    // Gives the document back with all accepted edits and ends the session: there is nothing left
    // to find in it, and every further edit is refused. False, with the CMarkup as it is, when the
    // session has ended already or the CMarkup's text was changed meanwhile.
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

    CMarkup* m_markup;     // null when the session has ended
    CString m_strOriginal; // tells a text that was changed meanwhile
    // The text lies around a gap: see edit_session.cpp.
    int m_nGapBegin = 0;
    int m_nGapEnd = 0;
    // The first tag behind the gap: the start tag of this element, or else its end tag.
    int m_iPosNext;
    bool m_bNextIsStart = true;
};
