#include <quorvel/xml/markup.h>

#include <quorvel/framework/exceptions.h>

#include "platform/large_block.h"
#include "platform/win32.h"
#include "xml/angle_scanner.h"
#include "xml/tokenizer.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <string_view>

CMarkup::ElementIndex::~ElementIndex() {
    std::free(m_records);
}

void CMarkup::ElementIndex::Resize(int size) {
    if (m_records == nullptr || size > m_room) {
        if (size < 0 || static_cast<std::size_t>(size) > PTRDIFF_MAX / sizeof(ElemPos))
            AfxThrowMemoryException();
        std::size_t bytes = static_cast<std::size_t>(size) * sizeof(ElemPos);
        if (m_records != nullptr)
            bytes = quorvel::RoomToGrow(bytes);
        void* const records = std::realloc(m_records, bytes);
        if (records == nullptr)
            AfxThrowMemoryException();
        quorvel::PreferHugePages(records, bytes);
        m_records = static_cast<ElemPos*>(records);
        m_room = static_cast<int>(bytes / sizeof(ElemPos));
    }
    m_size = size;
}

void CMarkup::ElementIndex::ThrowBadIndex() {
    AfxThrowInvalidArgException();
}

CMarkup::CMarkup() {
    SetDoc(nullptr);
}

CMarkup::CMarkup(const WCHAR* text) {
    SetDoc(text);
}

CMarkup::CMarkup(const CMarkup& other) {
    *this = other;
}

CMarkup::~CMarkup() = default;

CMarkup& CMarkup::operator=(const CMarkup& other) {
    if (this == &other)
        AfxThrowInvalidArgException();
    const int size = other.m_aPos.GetSize();
    m_aPos.Resize(size);
    std::memcpy(static_cast<void*>(m_aPos.GetData()), other.m_aPos.GetData(),
                static_cast<std::size_t>(other.m_iPosFree) * sizeof(ElemPos));
    m_strDoc = other.m_strDoc;
    m_iPosParent = other.m_iPosParent;
    m_iPosMain = other.m_iPosMain;
    m_iPosChild = other.m_iPosChild;
    m_iPosFree = other.m_iPosFree;
    m_nNodeType = other.m_nNodeType;
    m_iLastChildParent = m_iLastChild = 0;
    return *this;
}

bool CMarkup::SetDoc(const WCHAR* text) {
    m_strDoc = text;
    return Parse();
}

bool CMarkup::SetDoc(const WCHAR* text, int length) {
    if (length < 1)
        return false;
    m_strDoc.SetString(text, length);
    return Parse();
}

bool CMarkup::SetDoc(const char* bytes, int length, unsigned int codePage) {
    if (bytes == nullptr || length < 1)
        return false;
    ResetPos();
    if (codePage == CP_UTF8) { // always succeeds, with no more characters than bytes
        WCHAR* text = m_strDoc.GetBuffer(length);
        m_strDoc.ReleaseBuffer(MultiByteToWideChar(codePage, 0, bytes, length, text, length));
        return Parse();
    }
    const int needed = MultiByteToWideChar(codePage, 0, bytes, length, nullptr, 0);
    if (needed < 1)
        return false;
    MultiByteToWideChar(codePage, 0, bytes, length, m_strDoc.GetBufferSetLength(needed), needed);
    return Parse();
}

// Builds the index of the document's elements.
bool CMarkup::Parse() {
    m_iPosFree = 1;
    m_iLastChildParent = m_iLastChild = 0;
    ResetPos();
    if (m_aPos.GetSize() > 0)
        m_aPos[0] = {}; // leaves the index empty if there is no memory for it
    const int length = m_strDoc.GetLength();
    if (m_aPos.GetSize() < length / 64 + 8)
        m_aPos.Resize(length / 64 + 8);
    m_aPos[0] = {};
    const int root = length > 0 ? x_ParseElem(0) : 0;
    if (root > 0) {
        m_aPos[0].iFirstChild = root;
        return true;
    }
    m_aPos[0] = {};
    m_iPosFree = 1;
    return false;
}

bool CMarkup::IsWellFormed() const {
    return m_aPos.GetSize() > 0 && m_aPos[0].iFirstChild != 0;
}

CString CMarkup::GetError() const {
    return m_strError;
}

CString CMarkup::GetDoc() const {
    return m_strDoc;
}

CString& CMarkup::GetDocRef() {
    return m_strDoc;
}

const CString& CMarkup::GetDocConstRef() const {
    return m_strDoc;
}

void CMarkup::x_SetPos(int iPosParent, int iPosMain, int iPosChild) {
    m_iPosParent = iPosParent;
    m_iPosMain = iPosMain;
    m_iPosChild = iPosChild;
    m_nNodeType = iPosMain != 0 ? nodeElement : nodeNone;
}

void CMarkup::ResetPos() {
    x_SetPos(0, 0, 0);
}

void CMarkup::ResetMainPos() {
    x_SetPos(m_iPosParent, 0, 0);
}

void CMarkup::ResetChildPos() {
    x_SetPos(m_iPosParent, m_iPosMain, 0);
}

int CMarkup::x_GetFreePos() {
    if (m_iPosFree == m_aPos.GetSize())
        m_aPos.Resize(m_aPos.GetSize() + m_aPos.GetSize() / 2);
    m_aPos[m_iPosFree] = {};
    return m_iPosFree++;
}

int CMarkup::x_ReleasePos() {
    --m_iPosFree;
    return 0;
}

int CMarkup::x_FindElem(int iPosParent, int iPosAfter, const WCHAR* name) const {
    int iPos = iPosAfter != 0 ? m_aPos[iPosAfter].iNextSibling : m_aPos[iPosParent].iFirstChild;
    if (name == nullptr || *name == 0)
        return iPos;
    for (; iPos != 0; iPos = m_aPos[iPos].iNextSibling) {
        TokenPos token{0, 0, m_aPos[iPos].nTagOpen + 1, m_strDoc, FALSE};
        if (x_FindToken(token) && x_MatchToken(token, name))
            break;
    }
    return iPos;
}

bool CMarkup::FindElem(const WCHAR* name) {
    if (m_aPos.GetSize() == 0)
        return false;
    const int iPos = x_FindElem(m_iPosParent, m_iPosMain, name);
    if (iPos == 0)
        return false;
    x_SetPos(m_aPos[iPos].iParent, iPos, 0);
    return true;
}

bool CMarkup::FindChildElem(const WCHAR* name) {
    if (m_iPosMain == 0)
        FindElem();
    // Without a main element the search would start at the root.
    const int iPos = m_iPosMain != 0 ? x_FindElem(m_iPosMain, m_iPosChild, name) : 0;
    if (iPos == 0)
        return false;
    const int iMain = m_aPos[iPos].iParent;
    x_SetPos(m_aPos[iMain].iParent, iMain, iPos);
    return true;
}

bool CMarkup::IntoElem() {
    if (m_iPosMain == 0 || m_nNodeType != nodeElement)
        return false;
    x_SetPos(m_iPosMain, m_iPosChild, 0);
    return true;
}

bool CMarkup::OutOfElem() {
    if (m_iPosParent == 0)
        return false;
    x_SetPos(m_aPos[m_iPosParent].iParent, m_iPosParent, m_iPosMain);
    return true;
}

CString CMarkup::GetTagName() const {
    return x_GetTagName(m_iPosMain);
}

CString CMarkup::GetChildTagName() const {
    return x_GetTagName(m_iPosChild);
}

CString CMarkup::GetAttrib(const WCHAR* name) const {
    return x_GetAttrib(m_iPosMain, name);
}

CString CMarkup::GetChildAttrib(const WCHAR* name) const {
    return x_GetAttrib(m_iPosChild, name);
}

CString CMarkup::GetData() const {
    return x_GetData(m_iPosMain);
}

CString CMarkup::GetChildData() const {
    return x_GetData(m_iPosChild);
}

CString CMarkup::x_GetTagName(int iPos) const {
    if (iPos == 0)
        return CString();
    TokenPos token{0, 0, m_aPos[iPos].nTagOpen + 1, m_strDoc, FALSE};
    return x_FindToken(token) ? x_GetToken(token) : CString();
}

// Finds the quoted value of the named attribute in the start tag that contains token.nNext.
// Deliberate: for an empty name, finds the name of the first attribute.
bool CMarkup::x_FindAttrib(TokenPos& token, const WCHAR* name) const {
    const auto findQuote = [end = m_strDoc.GetLength()](const WCHAR* text, int& position,
                                                        WCHAR quote) {
        position += quorvel::FindEither(text + position, end - position, quote, 0);
        return text[position] != 0;
    };
    int nameCount = -1;
    for (int count = 0; quorvel::FindToken(token, findQuote); ++count) {
        if (token.bQuoted) {
            if (nameCount >= 0 && count == nameCount + 2)
                return true;
            continue;
        }
        const WCHAR first = token.pszDoc[token.nFirst];
        if (first == '>' || first == '/' || first == '?')
            return false;
        if (first == '=' || count == 0 || nameCount >= 0)
            continue;
        if (name == nullptr || *name == 0)
            return true;
        if (x_MatchToken(token, name))
            nameCount = count;
    }
    return false;
}

CString CMarkup::x_GetAttrib(int iPos, const WCHAR* name) const {
    if (iPos == 0 || m_nNodeType != nodeElement || name == nullptr)
        return CString();
    TokenPos token{0, 0, m_aPos[iPos].nTagOpen + 1, m_strDoc, FALSE};
    if (!x_FindAttrib(token, name))
        return CString();
    const int length = m_strDoc.GetLength();
    return x_TextFromDoc(token.nFirst, token.nLast < length ? token.nLast : token.nLast - 1);
}

CString CMarkup::x_GetData(int iPos) const {
    static constexpr WCHAR kOpen[] = _T("<![CDATA[");
    constexpr int kOpenLength = 9;
    constexpr int kShortestSection = 12;
    if (iPos == 0)
        return CString();
    const ElemPos& element = m_aPos[iPos];
    if (element.iFirstChild != 0 || element.nTagClose == element.nEndTagOpen + 1)
        return CString();
    const WCHAR* text = m_strDoc;
    int position = element.nTagClose + 1;
    x_FindAny(text, position);
    if (element.nEndTagOpen - position >= kShortestSection &&
        std::char_traits<WCHAR>::compare(text + position, kOpen, kOpenLength) == 0) {
        const std::basic_string_view<WCHAR> content(
            text + position + kOpenLength,
            static_cast<std::size_t>(element.nEndTagOpen - position - kOpenLength));
        const std::size_t length = content.find(_T("]]>"));
        if (length != content.npos)
            return CString(content.data(), static_cast<int>(length));
    }
    return x_TextFromDoc(element.nTagClose + 1, element.nEndTagOpen - 1);
}

CString CMarkup::x_TextFromDoc(int first, int last) const {
    struct Entity {
        const WCHAR* name;
        int length;
        WCHAR character;
    };
    static constexpr Entity kEntities[] = {
        {_T("lt;"), 3, '<'},    {_T("amp;"), 4, '&'},  {_T("gt;"), 3, '>'},
        {_T("apos;"), 5, '\''}, {_T("quot;"), 5, '"'},
    };
    if (first > last)
        return CString();
    const WCHAR* text = m_strDoc;
    const WCHAR* end = text + last + 1;
    const WCHAR* copied = text + first;
    CString result;
    while (copied < end) {
        const int plain = quorvel::FindEither(copied, static_cast<int>(end - copied), '&', '&');
        if (copied + plain == end && result.IsEmpty())
            return CString(copied, plain); // the usual case: no entity; the copy has the exact size
        result.Append(copied, plain);
        copied += plain;
        if (copied == end)
            break;
        WCHAR character = '&';
        ++copied;
        for (const Entity& entity : kEntities) {
            if (end - copied >= entity.length &&
                std::char_traits<WCHAR>::compare(copied, entity.name,
                                                 static_cast<std::size_t>(entity.length)) == 0) {
                character = entity.character;
                copied += entity.length;
                break;
            }
        }
        result.AppendChar(character);
    }
    return result;
}
