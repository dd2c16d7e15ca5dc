// Editing: splices new text into the document and shifts the index after it.
#include <quorvel/xml/markup.h>

#include <quorvel/framework/exceptions.h>

#include "platform/win32.h"
#include "xml/markup_plan.h"
#include "xml/typed_values.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

constexpr int kLongestText = INT_MAX - 1; // of a CString

// The place of the tags of an element that is added to another one.
enum class Content { Normal, EmptyElement, EmptyPair };

Content ContentOf(const CMarkup::ElemPos& element) {
    if (element.nTagClose == element.nEndTagOpen + 1)
        return Content::EmptyElement;
    return element.nTagClose + 1 == element.nEndTagOpen ? Content::EmptyPair : Content::Normal;
}

const WCHAR* EntityOf(WCHAR character, bool attribute) {
    switch (character) {
    case '<':
        return _T("&lt;");
    case '&':
        return _T("&amp;");
    case '>':
        return _T("&gt;");
    case '\'':
        return attribute ? _T("&apos;") : nullptr;
    case '"':
        return attribute ? _T("&quot;") : nullptr;
    default:
        return nullptr;
    }
}

} // namespace

CString CMarkup::x_TextToDoc(const WCHAR* text, bool attribute) {
    static constexpr WCHAR kSection[] = _T("<![CDATA[");
    constexpr std::size_t kSectionLength = 9;
    CString result;
    if (text == nullptr)
        return result;
    const CString source(text);
    if (source.GetLength() >= static_cast<int>(kSectionLength) &&
        std::char_traits<WCHAR>::compare(text, kSection, kSectionLength) == 0)
        return source; // the caller has already wrapped it
    int copied = 0;
    for (int i = 0; i < source.GetLength(); ++i) {
        const WCHAR* entity = EntityOf(source[i], attribute);
        if (entity == nullptr)
            continue;
        if (result.IsEmpty())
            result.Preallocate(source.GetLength());
        result.Append(source.GetString() + copied, i - copied);
        result.Append(entity);
        copied = i + 1;
    }
    if (copied == 0)
        return source;
    result.Append(source.GetString() + copied, source.GetLength() - copied);
    return result;
}

void CMarkup::x_DocChange(int start, int replaceLength, const CString& text) {
    const int oldLength = m_strDoc.GetLength();
    start = std::clamp(start, 0, oldLength);
    replaceLength = std::clamp(replaceLength, 0, oldLength - start);
    const CString inserted(text); // the argument may be the document itself
    const int tail = oldLength - start - replaceLength;
    if (inserted.GetLength() > kLongestText - start - tail)
        AfxThrowMemoryException();
    const int newLength = start + inserted.GetLength() + tail;
    WCHAR* document = m_strDoc.GetBuffer(std::max(newLength, oldLength));
    WCHAR* target = document + start;
    std::char_traits<WCHAR>::move(target + inserted.GetLength(), target + replaceLength,
                                  static_cast<std::size_t>(tail));
    std::char_traits<WCHAR>::copy(target, inserted, static_cast<std::size_t>(inserted.GetLength()));
    m_strDoc.ReleaseBuffer(newLength);
}

// Shifts every element after `iPos`, in document order, to the end of the document. An element that
// is reached by moving forward moves as a whole. One that is reached by climbing encloses the
// change, so only its end tag moves.
void CMarkup::x_Adjust(int iPos, int shift, bool afterPos) {
    if (iPos == 0 || shift == 0)
        return;
    int top = m_aPos[iPos].iParent;
    bool enter = !afterPos;
    for (;;) {
        bool climbed = false;
        if (enter && m_aPos[iPos].iFirstChild != 0) {
            iPos = m_aPos[iPos].iFirstChild;
        } else {
            while (m_aPos[iPos].iNextSibling == 0 && !climbed) {
                iPos = m_aPos[iPos].iParent;
                climbed = iPos == 0 || iPos == top;
            }
            if (!climbed)
                iPos = m_aPos[iPos].iNextSibling;
        }
        ElemPos& element = m_aPos[iPos];
        if (!climbed) {
            element.nTagOpen += shift;
            element.nTagClose += shift;
        }
        element.nEndTagOpen += shift;
        element.nEndTagClose += shift;
        if (climbed && iPos == 0)
            return;
        if (climbed)
            top = element.iParent;
        enter = !climbed;
    }
}

int CMarkup::LastChildOf(int iPosParent) {
    // For a shorter list it is not worth forgetting the last child of a long list.
    constexpr int kLongWalk = 16;
    if (m_iLastChild != 0 && m_iLastChildParent == iPosParent)
        return m_iLastChild;
    int iPos = m_aPos[iPosParent].iFirstChild;
    int steps = 0;
    for (; iPos != 0 && m_aPos[iPos].iNextSibling != 0; ++steps)
        iPos = m_aPos[iPos].iNextSibling;
    if (steps >= kLongWalk) {
        m_iLastChildParent = iPosParent;
        m_iLastChild = iPos;
    }
    return iPos;
}

int CMarkup::x_LocateNew(int iPosParent, int& iPosBefore, int& offset, int length, int flags) {
    const bool before = (flags & kLocateBefore) != 0;
    const ElemPos& parent = m_aPos[iPosParent];
    const bool parentIsEmpty = iPosParent != 0 && ContentOf(parent) == Content::EmptyElement;
    if (length != 0)
        offset = before ? offset : offset + length;
    else if (iPosBefore != 0)
        offset = before ? m_aPos[iPosBefore].nTagOpen : m_aPos[iPosBefore].nEndTagClose + 1;
    else if (parentIsEmpty)
        offset = parent.nTagClose;
    else if (iPosParent != 0)
        offset = before ? parent.nTagClose + 1 : parent.nEndTagOpen;
    else
        offset = before ? 0 : m_strDoc.GetLength();

    if ((flags & kLocateExact) == 0 && !parentIsEmpty) {
        int next = offset;
        if (!x_FindAny(m_strDoc, next) || m_strDoc[next] == '<')
            offset = next;
    }

    if (iPosBefore == 0)
        iPosBefore = before || parent.iFirstChild == 0 ? 0 : LastChildOf(iPosParent);
    else if (before) {
        int previous = 0;
        for (int iPos = parent.iFirstChild; iPos != iPosBefore; iPos = m_aPos[iPos].iNextSibling)
            previous = iPos;
        iPosBefore = previous;
    }
    return offset;
}

bool CMarkup::PlanElem(const WCHAR* name, const WCHAR* value, bool insert, bool child,
                       NewElem& plan) {
    if (name == nullptr || (child && m_iPosMain == 0))
        return false;
    const int iParent = child ? m_iPosMain : m_iPosParent;
    plan.iAfter = child ? m_iPosChild : m_iPosMain;
    if (iParent == 0) {
        if (m_aPos[0].iFirstChild != 0)
            return false;
        m_aPos[0].nEndTagOpen = m_strDoc.GetLength();
    }
    const Content content = iParent != 0 ? ContentOf(m_aPos[iParent]) : Content::Normal;
    int offset = 0;
    x_LocateNew(iParent, plan.iAfter, offset, 0, insert ? kLocateBefore : 0);

    // Composes the element's text and the positions of its tags in the document.
    const std::basic_string_view<WCHAR> tagName(name);
    if (tagName.size() > static_cast<std::size_t>(kLongestText))
        AfxThrowMemoryException();
    const int nameLength = static_cast<int>(tagName.size());
    CString escaped;
    std::basic_string_view<WCHAR> data(value != nullptr ? value : _T(""));
    if (std::any_of(data.begin(), data.end(),
                    [](WCHAR c) { return EntityOf(c, false) != nullptr; })) {
        escaped = x_TextToDoc(value, false);
        data = {escaped.GetString(), static_cast<std::size_t>(escaped.GetLength())};
    }
    if (data.size() > static_cast<std::size_t>(kLongestText))
        AfxThrowMemoryException();
    const int dataLength = static_cast<int>(data.size());
    const std::int64_t longest = std::int64_t{2} * nameLength + dataLength + 9;
    if (longest > kLongestText - offset)
        AfxThrowMemoryException();
    if (content != Content::Normal)
        offset += 2; // room for the line break before the new element
    ElemPos& element = plan.element;
    element = {offset, 0, 0, 0, 0, iParent, 0, 0};
    CString& text = plan.splice.text;
    text.Preallocate(static_cast<int>(longest));
    text.AppendChar('<');
    text.Append(name, nameLength);
    if (data.empty()) {
        text.Append(_T("/>\r\n"), 4);
        element.nTagClose = offset + nameLength + 2;
        element.nEndTagOpen = element.nTagClose - 1;
        element.nEndTagClose = element.nTagClose;
    } else {
        text.AppendChar('>');
        text.Append(data.data(), dataLength);
        text.Append(_T("</"), 2);
        text.Append(name, nameLength);
        text.Append(_T(">\r\n"), 3);
        element.nTagClose = offset + nameLength + 1;
        element.nEndTagOpen = element.nTagClose + dataLength + 1;
        element.nEndTagClose = element.nEndTagOpen + nameLength + 2;
    }

    plan.splice.start = offset;
    if (content == Content::EmptyElement) { // the parent's "/" becomes its content and end tag
        const CString parentName = x_GetTagName(iParent);
        plan.parentWasEmpty = true;
        plan.parentNameLength = parentName.GetLength();
        plan.splice.start = m_aPos[iParent].nTagClose - 1;
        plan.splice.replaced = 1;
        text.Insert(0, _T(">\r\n"));
        text += _T("</");
        text += parentName;
    } else if (content == Content::EmptyPair) {
        plan.splice.start = m_aPos[iParent].nTagClose + 1;
        text.Insert(0, _T("\r\n"));
    }
    return true;
}

// Creates the record of an element whose text is already in the document, and makes it current.
int CMarkup::LinkElem(const NewElem& plan, bool child) {
    const int iNew = x_GetFreePos();
    const int iParent = plan.element.iParent;
    ElemPos& parent = m_aPos[iParent];
    int& link = plan.iAfter != 0 ? m_aPos[plan.iAfter].iNextSibling : parent.iFirstChild;
    m_aPos[iNew] = plan.element;
    m_aPos[iNew].iNextSibling = link;
    link = iNew;
    if (m_aPos[iNew].iNextSibling == 0 && m_iLastChildParent == iParent)
        m_iLastChild = iNew;
    if (plan.parentWasEmpty) {
        parent.nTagClose -= 1;
        parent.nEndTagOpen -= plan.parentNameLength + 1;
    }
    if (child)
        x_SetPos(m_iPosParent, m_iPosMain, iNew);
    else
        x_SetPos(iParent, iNew, 0);
    return iNew;
}

bool CMarkup::x_AddElem(const WCHAR* name, const WCHAR* value, bool insert, bool child) {
    NewElem plan;
    if (!PlanElem(name, value, insert, child, plan))
        return false;
    // Allocates first and splices then: nothing changes if the allocation fails.
    x_GetFreePos();
    x_ReleasePos();
    x_DocChange(plan.splice.start, plan.splice.replaced, plan.splice.text);
    x_Adjust(LinkElem(plan, child), plan.splice.Shift(), false);
    return true;
}

bool CMarkup::PlanAttrib(int iPos, const WCHAR* name, const WCHAR* value, Splice& plan) const {
    if (name == nullptr || value == nullptr || iPos == 0 || m_nNodeType != nodeElement)
        return false;
    const ElemPos& element = m_aPos[iPos];
    TokenPos token{0, 0, element.nTagOpen + 1, m_strDoc, FALSE};
    plan.text = x_TextToDoc(value, true);
    if (x_FindAttrib(token, name) && token.bQuoted) {
        // The value contains the ">" at which the parser ended the tag, so it extends past the tag.
        if (token.nLast >= element.nTagClose)
            return false;
        plan.start = token.nFirst;
        plan.replaced = token.nLast - token.nFirst + 1;
        return true;
    }
    plan.start =
        ContentOf(element) == Content::EmptyElement ? element.nEndTagOpen : element.nTagClose;
    CString attribute(_T(" "));
    attribute += name;
    attribute += _T("=\"");
    attribute += plan.text;
    attribute += _T("\"");
    plan.text = attribute;
    return true;
}

bool CMarkup::x_SetAttrib(int iPos, const WCHAR* name, const WCHAR* value) {
    Splice plan;
    if (!PlanAttrib(iPos, name, value, plan))
        return false;
    x_DocChange(plan.start, plan.replaced, plan.text);
    ElemPos& element = m_aPos[iPos];
    element.nTagClose += plan.Shift();
    element.nEndTagOpen += plan.Shift();
    element.nEndTagClose += plan.Shift();
    x_Adjust(iPos, plan.Shift(), false);
    return true;
}

bool CMarkup::AddElem(const WCHAR* name, const WCHAR* value) {
    return x_AddElem(name, value, false, false);
}

bool CMarkup::AddChildElem(const WCHAR* name, const WCHAR* value) {
    return x_AddElem(name, value, false, true);
}

bool CMarkup::AddAttrib(const WCHAR* name, const WCHAR* value) {
    return x_SetAttrib(m_iPosMain, name, value);
}

bool CMarkup::SetAttrib(const WCHAR* name, const WCHAR* value) {
    return x_SetAttrib(m_iPosMain, name, value);
}

bool CMarkup::AddChildAttrib(const WCHAR* name, const WCHAR* value) {
    return x_SetAttrib(m_iPosChild, name, value);
}

bool CMarkup::SetChildAttrib(const WCHAR* name, const WCHAR* value) {
    return x_SetAttrib(m_iPosChild, name, value);
}

QUORVEL_DEFINE_TYPED_VALUES(CMarkup)
