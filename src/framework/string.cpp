#include <quorvel/framework/string.h>

#include <quorvel/framework/exceptions.h>

#include "platform/case_fold.h"
#include "platform/large_block.h"
#include "platform/text_length.h"
#include "platform/win32.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>

using quorvel::StringHeader;

namespace {

// The text that all empty strings share. It is never written, counted or freed.
template <class Ch>
struct EmptyText {
    StringHeader header;
    Ch terminator;
};
template <class Ch>
constinit EmptyText<Ch> s_empty = {{{-1}, 0, 0, 0}, 0};

template <class Ch>
Ch* EmptyCharacters() {
    return reinterpret_cast<Ch*>(&s_empty<Ch>.header + 1);
}

constexpr int kMaximumLength = INT_MAX - 1;

template <class Ch>
int LengthOf(const Ch* text) {
    if (text == nullptr)
        return 0;
    const std::size_t length = quorvel::TextLength(text);
    if (length > static_cast<std::size_t>(kMaximumLength))
        AfxThrowMemoryException();
    return static_cast<int>(length);
}

template <class Ch>
void CopyCharacters(Ch* target, const Ch* source, int count) {
    std::char_traits<Ch>::copy(target, source, static_cast<std::size_t>(count));
}

template <class Ch>
bool IsOneOf(Ch character, const Ch* characters) {
    return character != 0 &&
           std::char_traits<Ch>::find(characters, std::char_traits<Ch>::length(characters),
                                      character) != nullptr;
}

template <class Ch>
bool IsSpace(Ch character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

int LengthSum(int left, int right) {
    if (right > kMaximumLength - left)
        AfxThrowMemoryException();
    return left + right;
}

WCHAR Fold(WCHAR character) {
    return quorvel::FoldCase(character);
}
char Fold(char character) { // bytes above ASCII have no meaning alone
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

void ToUpper(WCHAR* text, int length) {
    CharUpperBuffW(text, static_cast<DWORD>(length));
}
void ToUpper(char* text, int length) {
    CharUpperBuffA(text, static_cast<DWORD>(length));
}
void ToLower(WCHAR* text, int length) {
    CharLowerBuffW(text, static_cast<DWORD>(length));
}
void ToLower(char* text, int length) {
    CharLowerBuffA(text, static_cast<DWORD>(length));
}

int FormattedLength(const WCHAR* format, va_list arguments) {
    return _vscwprintf(format, arguments);
}
int FormattedLength(const char* format, va_list arguments) {
    return _vscprintf(format, arguments);
}
int FormatInto(WCHAR* text, int size, const WCHAR* format, va_list arguments) {
    return _vsnwprintf(text, static_cast<std::size_t>(size), format, arguments);
}
int FormatInto(char* text, int size, const char* format, va_list arguments) {
    return _vsnprintf(text, static_cast<std::size_t>(size), format, arguments);
}

void Convert(CString& result, const char* text) {
    const int length = LengthOf(text);
    const int needed = length == 0 ? 0 : MultiByteToWideChar(CP_ACP, 0, text, length, nullptr, 0);
    if (needed > 0)
        MultiByteToWideChar(CP_ACP, 0, text, length, result.GetBufferSetLength(needed), needed);
}
void Convert(CStringA& result, const WCHAR* text) {
    const int length = LengthOf(text);
    const int needed =
        length == 0 ? 0
                    : WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
    if (needed > 0)
        WideCharToMultiByte(CP_ACP, 0, text, length, result.GetBufferSetLength(needed), needed,
                            nullptr, nullptr);
}

} // namespace

template <class Ch>
CStringT<Ch>::CStringT() noexcept : m_text(EmptyCharacters<Ch>()) {}

template <class Ch>
CStringT<Ch>::CStringT(const CStringT& other) noexcept {
    Attach(other);
}

template <class Ch>
CStringT<Ch>::CStringT(CStringT&& other) noexcept
    : m_text(std::exchange(other.m_text, EmptyCharacters<Ch>())) {}

template <class Ch>
CStringT<Ch>::CStringT(const Ch* text) : CStringT() {
    SetString(text);
}

template <class Ch>
CStringT<Ch>::CStringT(const Ch* text, int length) : CStringT() {
    SetString(text, length);
}

template <class Ch>
CStringT<Ch>::CStringT(Ch character, int count) : CStringT() {
    if (count > 0)
        std::char_traits<Ch>::assign(GetBufferSetLength(count), static_cast<std::size_t>(count),
                                     character);
}

template <class Ch>
CStringT<Ch>::CStringT(const YCHAR* text) : CStringT() {
    Convert(*this, text);
}

template <class Ch>
CStringT<Ch>::~CStringT() {
    Release();
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::operator=(const CStringT& other) noexcept {
    if (m_text != other.m_text) {
        Release();
        Attach(other);
    }
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::operator=(CStringT&& other) noexcept {
    std::swap(m_text, other.m_text);
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::operator=(const Ch* text) {
    SetString(text);
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::operator=(const YCHAR* text) {
    return *this = CStringT(text);
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::operator=(Ch character) {
    SetString(&character, 1);
    return *this;
}

template <class Ch>
void CStringT<Ch>::Attach(const CStringT& other) noexcept {
    m_text = other.m_text;
    if (m_text != EmptyCharacters<Ch>())
        Header()->references.fetch_add(1, std::memory_order_relaxed);
}

template <class Ch>
void CStringT<Ch>::Release() noexcept {
    if (m_text == EmptyCharacters<Ch>())
        return;
    StringHeader* header = Header();
    m_text = EmptyCharacters<Ch>();
    if (header->references.fetch_sub(1, std::memory_order_acq_rel) == 1)
        std::free(header);
}

// Whether the text begins in this string's buffer, which a change may move. The buffer's end does
// not count, because another, empty text may begin there.
template <class Ch>
bool CStringT<Ch>::Owns(const Ch* text) const noexcept {
    const std::less<const Ch*> before;
    return !before(text, m_text) && before(text, m_text + GetLength());
}

// Moves the text to a new buffer for `capacity` characters that only this string uses.
template <class Ch>
void CStringT<Ch>::Reallocate(int capacity) {
    if (capacity < 0 || capacity > kMaximumLength ||
        static_cast<std::size_t>(capacity) >= (SIZE_MAX - sizeof(StringHeader)) / sizeof(Ch))
        AfxThrowMemoryException();
    const std::size_t bytes =
        sizeof(StringHeader) + (static_cast<std::size_t>(capacity) + 1) * sizeof(Ch);
    StringHeader* old = Header();
    StringHeader* header;
    if (!IsShared()) {
        header = static_cast<StringHeader*>(std::realloc(static_cast<void*>(old), bytes));
        if (header == nullptr)
            AfxThrowMemoryException();
        quorvel::PreferHugePages(header, bytes);
    } else {
        void* block = std::malloc(bytes);
        if (block == nullptr)
            AfxThrowMemoryException();
        quorvel::PreferHugePages(block, bytes);
        header = new (block) StringHeader{{1}, std::min(old->length, capacity), 0, 0};
        CopyCharacters(reinterpret_cast<Ch*>(header + 1), m_text, header->length);
        Release();
    }
    m_text = reinterpret_cast<Ch*>(header + 1);
    header->capacity = capacity;
    SetLength(std::min(header->length, capacity));
}

// Makes sure that only this string uses its buffer, and that `minimumLength` fits.
template <class Ch>
Ch* CStringT<Ch>::PrepareWrite(int minimumLength) {
    const int capacity = GetAllocLength();
    if (IsShared()) {
        Reallocate(std::max(minimumLength, GetLength()));
    } else if (capacity < minimumLength) {
        // Growing by half keeps the cost of appending linear.
        const std::size_t more = static_cast<std::size_t>(capacity) + capacity / 2;
        const std::size_t room = quorvel::RoomToGrow(more * sizeof(Ch)) / sizeof(Ch);
        const int grown = static_cast<int>(std::min<std::size_t>(room, kMaximumLength));
        Reallocate(std::max(minimumLength, grown));
    }
    return m_text;
}

template <class Ch>
void CStringT<Ch>::SetLength(int length) noexcept {
    Header()->length = length;
    m_text[length] = 0;
}

template <class Ch>
void CStringT<Ch>::SetAt(int position, Ch character) {
    PrepareWrite(GetLength())[position] = character;
}

template <class Ch>
void CStringT<Ch>::Empty() noexcept {
    Release();
}

template <class Ch>
void CStringT<Ch>::SetString(const Ch* text) {
    SetString(text, LengthOf(text));
}

template <class Ch>
void CStringT<Ch>::SetString(const Ch* text, int length) {
    if (text == nullptr || length <= 0) {
        Empty();
    } else if (Owns(text)) {
        *this = Mid(static_cast<int>(text - m_text), length);
    } else if (IsShared() || GetAllocLength() < length) {
        CStringT fresh; // keeps the old text until the allocation has succeeded
        CopyCharacters(fresh.PrepareWrite(length), text, length);
        fresh.SetLength(length);
        *this = std::move(fresh);
    } else {
        CopyCharacters(m_text, text, length);
        SetLength(length);
    }
}

template <class Ch>
void CStringT<Ch>::Append(const Ch* text) {
    Append(text, LengthOf(text));
}

template <class Ch>
void CStringT<Ch>::Append(const Ch* text, int length) {
    if (text == nullptr || length <= 0)
        return;
    const int oldLength = GetLength();
    const int newLength = LengthSum(oldLength, length);
    const std::ptrdiff_t ownPlace = Owns(text) ? text - m_text : -1;
    Ch* target = PrepareWrite(newLength);
    CopyCharacters(target + oldLength, ownPlace < 0 ? text : target + ownPlace, length);
    SetLength(newLength);
}

template <class Ch>
void CStringT<Ch>::Append(const CStringT& other) {
    if (IsEmpty() && GetAllocLength() < other.GetLength())
        *this = other;
    else
        Append(other.m_text, other.GetLength());
}

template <class Ch>
void CStringT<Ch>::AppendChar(Ch character) {
    const int length = LengthSum(GetLength(), 1);
    PrepareWrite(length)[length - 1] = character;
    SetLength(length);
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::operator+=(const CStringT& other) {
    Append(other);
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::operator+=(const Ch* text) {
    Append(text);
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::operator+=(Ch character) {
    AppendChar(character);
    return *this;
}

template <class Ch>
Ch* CStringT<Ch>::GetBuffer() {
    return PrepareWrite(GetLength());
}

template <class Ch>
Ch* CStringT<Ch>::GetBuffer(int minimumLength) {
    return PrepareWrite(std::max(minimumLength, 0));
}

template <class Ch>
Ch* CStringT<Ch>::GetBufferSetLength(int length) {
    Ch* text = PrepareWrite(std::max(length, 0));
    SetLength(std::max(length, 0));
    return text;
}

template <class Ch>
void CStringT<Ch>::ReleaseBuffer(int newLength) {
    if (m_text == EmptyCharacters<Ch>())
        return;
    PrepareWrite(GetLength()); // without a preceding GetBuffer, other strings may share the buffer
    if (newLength < 0) {
        const Ch* end =
            std::char_traits<Ch>::find(m_text, static_cast<std::size_t>(GetAllocLength()), Ch());
        newLength = end != nullptr ? static_cast<int>(end - m_text) : GetAllocLength();
    }
    SetLength(std::min(newLength, GetAllocLength()));
}

template <class Ch>
void CStringT<Ch>::Preallocate(int length) {
    PrepareWrite(std::max(length, GetLength()));
}

template <class Ch>
void CStringT<Ch>::Truncate(int newLength) {
    if (newLength < 0 || newLength >= GetLength())
        return;
    if (IsShared())
        *this = Left(newLength);
    else
        SetLength(newLength);
}

template <class Ch>
void CStringT<Ch>::FreeExtra() {
    if (IsEmpty())
        Release();
    else if (GetAllocLength() > GetLength())
        Reallocate(GetLength());
}

template <class Ch>
int CStringT<Ch>::Compare(const Ch* text) const noexcept {
    const Ch* left = m_text;
    const Ch* right = text != nullptr ? text : EmptyCharacters<Ch>();
    if (left == right)
        return 0;
    while (*left != 0 && *left == *right)
        ++left, ++right;
    typedef std::make_unsigned_t<std::conditional_t<sizeof(Ch) == 1, char, short>> Unsigned;
    const auto a = static_cast<Unsigned>(*left);
    const auto b = static_cast<Unsigned>(*right);
    return a < b ? -1 : a > b ? 1 : 0;
}

template <class Ch>
int CStringT<Ch>::CompareNoCase(const Ch* text) const noexcept {
    const Ch* left = m_text;
    const Ch* right = text != nullptr ? text : EmptyCharacters<Ch>();
    while (*left != 0 && Fold(*left) == Fold(*right))
        ++left, ++right;
    typedef std::make_unsigned_t<std::conditional_t<sizeof(Ch) == 1, char, short>> Unsigned;
    const auto a = static_cast<Unsigned>(Fold(*left));
    const auto b = static_cast<Unsigned>(Fold(*right));
    return a < b ? -1 : a > b ? 1 : 0;
}

template <class Ch>
int CStringT<Ch>::Find(const Ch* text, int start) const noexcept {
    if (start < 0 || start > GetLength())
        return -1;
    const std::basic_string_view<Ch> view(m_text, static_cast<std::size_t>(GetLength()));
    const std::size_t found =
        view.find(text != nullptr ? text : EmptyCharacters<Ch>(), static_cast<std::size_t>(start));
    return found == view.npos ? -1 : static_cast<int>(found);
}

template <class Ch>
int CStringT<Ch>::Find(Ch character, int start) const noexcept {
    if (start < 0 || start >= GetLength())
        return -1;
    const Ch* found = std::char_traits<Ch>::find(
        m_text + start, static_cast<std::size_t>(GetLength() - start), character);
    return found == nullptr ? -1 : static_cast<int>(found - m_text);
}

template <class Ch>
int CStringT<Ch>::ReverseFind(Ch character) const noexcept {
    int position = GetLength() - 1;
    while (position >= 0 && m_text[position] != character)
        --position;
    return position;
}

template <class Ch>
int CStringT<Ch>::FindOneOf(const Ch* characters) const noexcept {
    if (characters == nullptr)
        return -1;
    for (int position = 0; position < GetLength(); ++position)
        if (IsOneOf(m_text[position], characters))
            return position;
    return -1;
}

template <class Ch>
CStringT<Ch> CStringT<Ch>::Mid(int first) const {
    return Mid(first, GetLength());
}

template <class Ch>
CStringT<Ch> CStringT<Ch>::Mid(int first, int count) const {
    first = std::clamp(first, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - first);
    return count == GetLength() ? *this : CStringT(m_text + first, count);
}

template <class Ch>
CStringT<Ch> CStringT<Ch>::Left(int count) const {
    return Mid(0, count);
}

template <class Ch>
CStringT<Ch> CStringT<Ch>::Right(int count) const {
    count = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - count, count);
}

template <class Ch>
CStringT<Ch> CStringT<Ch>::SpanIncluding(const Ch* characters) const {
    int end = 0;
    while (characters != nullptr && IsOneOf(m_text[end], characters))
        ++end;
    return Left(end);
}

template <class Ch>
CStringT<Ch> CStringT<Ch>::SpanExcluding(const Ch* characters) const {
    const int end = FindOneOf(characters);
    return end < 0 ? *this : Left(end);
}

template <class Ch>
CStringT<Ch> CStringT<Ch>::Tokenize(const Ch* separators, int& position) const {
    if (position < 0 || position > GetLength()) {
        position = -1;
        return CStringT();
    }
    if (separators == nullptr || *separators == 0) {
        const int first = std::exchange(position, GetLength());
        if (first < GetLength())
            return Mid(first);
        position = -1;
        return CStringT();
    }
    int first = position;
    while (IsOneOf(m_text[first], separators))
        ++first;
    if (first >= GetLength()) {
        position = -1;
        return CStringT();
    }
    int end = first;
    while (end < GetLength() && !IsOneOf(m_text[end], separators))
        ++end;
    position = end + 1;
    return Mid(first, end - first);
}

template <class Ch>
int CStringT<Ch>::Insert(int position, Ch character) {
    return Insert(position, &character, 1);
}

template <class Ch>
int CStringT<Ch>::Insert(int position, const Ch* text) {
    if (Owns(text)) {
        const CStringT copy(text);
        return Insert(position, copy.m_text, copy.GetLength());
    }
    return Insert(position, text, LengthOf(text));
}

template <class Ch>
int CStringT<Ch>::Insert(int position, const Ch* text, int length) {
    if (length == 0)
        return GetLength();
    position = std::clamp(position, 0, GetLength());
    const int tail = GetLength() - position;
    const int newLength = LengthSum(GetLength(), length);
    Ch* target = PrepareWrite(newLength) + position;
    std::char_traits<Ch>::move(target + length, target, static_cast<std::size_t>(tail));
    CopyCharacters(target, text, length);
    SetLength(newLength);
    return newLength;
}

template <class Ch>
int CStringT<Ch>::Delete(int position, int count) {
    position = std::clamp(position, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - position);
    if (count > 0) {
        const int tail = GetLength() - position - count;
        Ch* target = PrepareWrite(GetLength()) + position;
        std::char_traits<Ch>::move(target, target + count, static_cast<std::size_t>(tail));
        SetLength(position + tail);
    }
    return GetLength();
}

template <class Ch>
int CStringT<Ch>::Replace(Ch oldCharacter, Ch newCharacter) {
    const int first = oldCharacter == newCharacter ? -1 : Find(oldCharacter);
    if (first < 0)
        return 0;
    Ch* text = PrepareWrite(GetLength());
    int count = 0;
    for (int position = first; position < GetLength(); ++position)
        if (text[position] == oldCharacter)
            text[position] = newCharacter, ++count;
    return count;
}

template <class Ch>
int CStringT<Ch>::Replace(const Ch* oldText, const Ch* newText) {
    const int oldLength = LengthOf(oldText);
    const int newLength = LengthOf(newText);
    if (oldLength == 0)
        return 0;
    CStringT result;
    int count = 0;
    int copied = 0;
    for (int found = Find(oldText); found >= 0; found = Find(oldText, copied)) {
        result.Append(m_text + copied, found - copied);
        result.Append(newText, newLength);
        copied = found + oldLength;
        ++count;
    }
    if (count > 0) {
        result.Append(m_text + copied, GetLength() - copied);
        *this = std::move(result);
    }
    return count;
}

template <class Ch>
int CStringT<Ch>::Remove(Ch character) {
    if (Find(character) < 0)
        return 0;
    const int oldLength = GetLength();
    Ch* text = PrepareWrite(oldLength);
    SetLength(static_cast<int>(std::remove(text, text + oldLength, character) - text));
    return oldLength - GetLength();
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::MakeUpper() {
    if (!IsEmpty())
        ToUpper(PrepareWrite(GetLength()), GetLength());
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::MakeLower() {
    if (!IsEmpty())
        ToLower(PrepareWrite(GetLength()), GetLength());
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::MakeReverse() {
    if (!IsEmpty()) {
        Ch* text = PrepareWrite(GetLength());
        std::reverse(text, text + GetLength());
    }
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::Trim() {
    return TrimRight().TrimLeft();
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::Trim(Ch character) {
    return TrimRight(character).TrimLeft(character);
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::Trim(const Ch* characters) {
    if (Owns(characters)) { // the first step may remove them
        const CStringT copy(characters);
        return Trim(copy.m_text);
    }
    return TrimRight(characters).TrimLeft(characters);
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::TrimLeft() {
    int count = 0;
    while (IsSpace(m_text[count]))
        ++count;
    Delete(0, count);
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::TrimLeft(Ch character) {
    const Ch text[2] = {character, 0};
    return TrimLeft(text);
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::TrimLeft(const Ch* characters) {
    int count = 0;
    while (characters != nullptr && IsOneOf(m_text[count], characters))
        ++count;
    Delete(0, count);
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::TrimRight() {
    int length = GetLength();
    while (length > 0 && IsSpace(m_text[length - 1]))
        --length;
    Truncate(length);
    return *this;
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::TrimRight(Ch character) {
    const Ch text[2] = {character, 0};
    return TrimRight(text);
}

template <class Ch>
CStringT<Ch>& CStringT<Ch>::TrimRight(const Ch* characters) {
    int length = GetLength();
    while (characters != nullptr && length > 0 && IsOneOf(m_text[length - 1], characters))
        --length;
    Truncate(length);
    return *this;
}

template <class Ch>
void CStringT<Ch>::Format(const Ch* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

template <class Ch>
void CStringT<Ch>::FormatV(const Ch* format, va_list arguments) {
    CStringT result; // the arguments may point into this text
    result.AppendFormatV(format, arguments);
    *this = std::move(result);
}

template <class Ch>
void CStringT<Ch>::AppendFormat(const Ch* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    AppendFormatV(format, arguments);
    va_end(arguments);
}

template <class Ch>
void CStringT<Ch>::AppendFormatV(const Ch* format, va_list arguments) {
    if (format == nullptr)
        return;
    // Most results are short, so they are formatted once, and only longer ones are measured first.
    // The terminator shows that nothing is missing: Wine's length is too small for a %c cut off.
    Ch shortText[256];
    constexpr int shortSize = static_cast<int>(std::size(shortText));
    va_list copy;
    va_copy(copy, arguments);
    int added = FormatInto(shortText, shortSize, format, copy);
    va_end(copy);
    if (added >= 0 && added < shortSize && shortText[added] == 0)
        return Append(shortText, added);
    va_copy(copy, arguments);
    added = FormattedLength(format, copy);
    va_end(copy);
    if (added <= 0)
        return;
    CStringT formatted;
    Ch* text = formatted.GetBuffer(added);
    FormatInto(text, added + 1, format, arguments);
    formatted.SetLength(added);
    Append(formatted);
}

template class CStringT<WCHAR>;
template class CStringT<char>;
