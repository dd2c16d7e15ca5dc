// The edit session keeps the text in one buffer around a gap:
//
//     edited text | 0 ... gap ... | unedited text
//
// The recorded positions are positions in the buffer. An insertion at the end of the gap moves no
// text after the gap: only tags that the gap passes get new positions. Edits come in document
// order, so each tag is passed only once. Between two edits
//
// - the gap is directly before the "<" of the element edited last (at first, before the whole
//   text), so each tag, and the content of each element without children, is in one piece;
// - a zero follows the edited text, and every reader stops there. This matters for an element added
//   under a name that begins with a quote, which no parsed name does: a search sees its tag only up
//   to the zero;
// - m_iPosNext and m_bNextIsStart name the first tag after the gap.
//
// With a gap of length 0 the buffer is an ordinary document. Record 0 has no tags. The direct edits
// add their shifts to it, and so does this code.
#include <quorvel/xml/edit_session.h>

#include "platform/win32.h"
#include "xml/markup_plan.h"
#include "xml/typed_values.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <string>

namespace {

void Move(WCHAR* text, int to, int from, int length) {
    std::char_traits<WCHAR>::move(text + to, text + from, static_cast<std::size_t>(length));
}

void Write(WCHAR* target, const WCHAR* text, int length) {
    std::char_traits<WCHAR>::copy(target, text, static_cast<std::size_t>(length));
}

} // namespace

CMarkupEditSession::CMarkupEditSession(CMarkup& markup)
    : CMarkup(markup), m_markup(&markup), m_strOriginal(m_strDoc),
      m_iPosNext(m_aPos[0].iFirstChild) {}

CMarkupEditSession::~CMarkupEditSession() = default;

// Adds `shift` to every tag position from `first` on.
void CMarkupEditSession::ShiftFrom(int first, int shift) {
    ElemPos* records = m_aPos.GetData();
    const auto move = [first, shift](int& position) { position += position >= first ? shift : 0; };
    for (int i = 1; i < m_iPosFree; ++i) {
        move(records[i].nTagOpen);
        move(records[i].nTagClose);
        move(records[i].nEndTagOpen);
        move(records[i].nEndTagClose);
    }
}

// Grows the gap so that `length` more characters and its zero fit. Returns the distance by which
// the text after the gap has moved.
int CMarkupEditSession::MakeRoom(int length) {
    const int missing = length - GapLength() + 1;
    if (missing <= 0)
        return 0;
    // Growing by half keeps the copying linear in the size of the result.
    constexpr std::int64_t kLeastGrowth = 64;
    const int oldLength = m_strDoc.GetLength();
    const std::int64_t wanted = std::max<std::int64_t>(missing, oldLength / 2 + kLeastGrowth);
    const std::int64_t newLength = std::max<std::int64_t>(
        std::int64_t{oldLength} + missing, std::min<std::int64_t>(oldLength + wanted, INT_MAX - 1));
    CString widened;
    WCHAR* text =
        widened.GetBufferSetLength(static_cast<int>(std::min<std::int64_t>(newLength, INT_MAX)));
    const int extra = static_cast<int>(newLength) - oldLength;
    Write(text, m_strDoc, m_nGapBegin);
    Write(text + m_nGapEnd + extra, m_strDoc.GetString() + m_nGapEnd, oldLength - m_nGapEnd);
    text[m_nGapBegin] = 0;
    m_strDoc = std::move(widened);
    ShiftFrom(m_nGapEnd, extra);
    m_nGapEnd += extra;
    return extra;
}

// Moves the gap forward to `to`, past the tags on the way. The gap may be inside a start tag only
// during an edit.
void CMarkupEditSession::MoveGap(int to) {
    const int gap = GapLength();
    const int moved = to - m_nGapEnd;
    Move(m_strDoc.GetBuffer(), m_nGapBegin, m_nGapEnd, moved);
    m_nGapBegin += moved;
    m_nGapEnd = to;
    while (m_iPosNext != 0) {
        ElemPos& element = m_aPos[m_iPosNext];
        if (m_bNextIsStart) {
            if (element.nTagOpen >= to)
                return;
            element.nTagOpen -= gap;
            if (element.nTagClose >= to)
                return;
            element.nTagClose -= gap;
            if (element.iFirstChild != 0) {
                m_iPosNext = element.iFirstChild;
                continue;
            }
            m_bNextIsStart = false;
        }
        if (element.nEndTagOpen >= to)
            return;
        element.nEndTagOpen -= gap;
        element.nEndTagClose -= gap;
        m_bNextIsStart = element.iNextSibling != 0;
        m_iPosNext = m_bNextIsStart ? element.iNextSibling : element.iParent;
    }
}

void CMarkupEditSession::CloseGap() {
    const int gap = GapLength();
    if (gap == 0)
        return;
    const int length = m_strDoc.GetLength();
    Move(m_strDoc.GetBuffer(), m_nGapBegin, m_nGapEnd, length - m_nGapEnd);
    m_strDoc.ReleaseBuffer(length - gap);
    ShiftFrom(m_nGapEnd, -gap);
    m_nGapEnd = m_nGapBegin;
}

void CMarkupEditSession::EndEdit(int shift) {
    m_aPos[0].nEndTagOpen += shift;
    m_aPos[0].nEndTagClose += shift;
    m_strDoc.GetBuffer()[m_nGapBegin] = 0;
}

bool CMarkupEditSession::Set(int iPos, const WCHAR* name, const WCHAR* value) {
    if (m_markup == nullptr || iPos == 0 || m_aPos[iPos].nTagOpen < m_nGapEnd)
        return false;
    Splice plan;
    if (!PlanAttrib(iPos, name, value, plan))
        return false;
    plan.start += MakeRoom(plan.text.GetLength());
    ElemPos& element = m_aPos[iPos];
    MoveGap(element.nTagOpen);
    // The part of the tag before the change moves into the gap.
    const int shift = plan.Shift();
    WCHAR* text = m_strDoc.GetBuffer();
    Move(text, element.nTagOpen - shift, element.nTagOpen, plan.start - element.nTagOpen);
    Write(text + plan.start - shift, plan.text, plan.text.GetLength());
    element.nTagOpen -= shift;
    m_nGapEnd = element.nTagOpen;
    EndEdit(shift);
    return true;
}

bool CMarkupEditSession::Add(const WCHAR* name, const WCHAR* value, bool child) {
    NewElem plan;
    if (m_markup == nullptr || !PlanElem(name, value, false, child, plan))
        return false;
    if (plan.splice.start == m_nGapBegin) // directly before the element edited last
        plan.Move(GapLength());
    if (plan.splice.start < m_nGapEnd)
        return false;
    x_GetFreePos(); // this can fail, so it is before any change
    x_ReleasePos();
    plan.Move(MakeRoom(plan.splice.text.GetLength()));
    MoveGap(plan.splice.start);
    // The parent's part is written before the gap, the element and the rest after the gap.
    const Splice& splice = plan.splice;
    const int lead = plan.element.nTagOpen - splice.start;
    const int rest = splice.text.GetLength() - lead;
    WCHAR* text = m_strDoc.GetBuffer();
    Write(text + splice.start + splice.replaced - rest, splice.text.GetString() + lead, rest);
    Write(text + m_nGapBegin, splice.text, lead);
    const int shift = splice.Shift();
    plan.Move(-shift);
    m_iPosNext = LinkElem(plan, child);
    m_bNextIsStart = true;
    if (plan.parentWasEmpty)
        m_aPos[plan.element.iParent].nTagClose = m_nGapBegin;
    m_nGapBegin += lead;
    m_nGapEnd = plan.element.nTagOpen;
    EndEdit(shift);
    return true;
}

// Whether the tokenizer reads past the end of an element's tag up to the gap, for example after a
// quote that is not closed.
bool CMarkupEditSession::IsReadAcrossGap(int iPos) const {
    if (iPos == 0 || m_aPos[iPos].nTagOpen >= m_nGapEnd)
        return false;
    TokenPos token{0, 0, m_aPos[iPos].nTagOpen + 1, m_strDoc, FALSE};
    while (x_FindToken(token)) {
        const WCHAR first = token.pszDoc[token.nFirst];
        if (!token.bQuoted && (first == '>' || first == '/' || first == '?'))
            return false;
    }
    return true;
}

void CMarkupEditSession::PrepareRead(int iPos) {
    if (IsReadAcrossGap(iPos))
        CloseGap();
}

CString CMarkupEditSession::GetTagName() {
    PrepareRead(m_iPosMain);
    return CMarkup::GetTagName();
}

CString CMarkupEditSession::GetChildTagName() {
    PrepareRead(m_iPosChild);
    return CMarkup::GetChildTagName();
}

CString CMarkupEditSession::GetAttrib(const WCHAR* name) {
    PrepareRead(m_iPosMain);
    return CMarkup::GetAttrib(name);
}

CString CMarkupEditSession::GetChildAttrib(const WCHAR* name) {
    PrepareRead(m_iPosChild);
    return CMarkup::GetChildAttrib(name);
}

bool CMarkupEditSession::AddElem(const WCHAR* name, const WCHAR* value) {
    return Add(name, value, false);
}

bool CMarkupEditSession::AddChildElem(const WCHAR* name, const WCHAR* value) {
    return Add(name, value, true);
}

bool CMarkupEditSession::AddAttrib(const WCHAR* name, const WCHAR* value) {
    return Set(m_iPosMain, name, value);
}

bool CMarkupEditSession::SetAttrib(const WCHAR* name, const WCHAR* value) {
    return Set(m_iPosMain, name, value);
}

bool CMarkupEditSession::AddChildAttrib(const WCHAR* name, const WCHAR* value) {
    return Set(m_iPosChild, name, value);
}

bool CMarkupEditSession::SetChildAttrib(const WCHAR* name, const WCHAR* value) {
    return Set(m_iPosChild, name, value);
}

QUORVEL_DEFINE_TYPED_VALUES(CMarkupEditSession)

bool CMarkupEditSession::Commit() {
    if (m_markup == nullptr || m_markup->m_strDoc.GetString() != m_strOriginal.GetString())
        return false;
    CloseGap();
    CMarkup& markup = *m_markup;
    markup.m_strDoc = m_strDoc;
    markup.m_aPos.Swap(m_aPos);
    markup.m_iPosFree = m_iPosFree;
    markup.x_SetPos(m_iPosParent, m_iPosMain, m_iPosChild);
    markup.m_iLastChildParent = markup.m_iLastChild = 0;
    m_markup = nullptr;
    m_strOriginal.Empty();
    m_strDoc.Empty();
    m_aPos[0] = {};
    ResetPos();
    return true;
}
