// CString and CStringA: the framework's string class, wide (UTF-16) and narrow.
//
// A string is one pointer to zero-terminated characters. Copies share them until one is changed.
// The reference count is atomic, so different threads may use different copies, but not the same
// object. Lengths and positions count characters of the class (UTF-16 units or bytes), at most
// 2147483646. An operation that would exceed that, or that cannot allocate memory, throws
// CMemoryException and changes nothing. A null argument counts as an empty text, unless a member
// says otherwise.
//
// Conversion between the two widths uses the active code page (CP_ACP; UTF-8 on Linux).
//
// With the standard library:
//     CString name = CString::FromUTF8("J\xc3\xbcrgen");
//     std::cout << name << '\n'; // UTF-8 again
// std::filesystem::path is in <quorvel/framework/filesystem_path.h>.
#pragma once

#include <quorvel/framework/inserts.h>

#include <atomic>
#include <climits>
#include <compare>
#include <concepts>
#include <cstdarg>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace quorvel {

// The header before the characters of a string.
struct StringHeader {
    std::atomic<int> references; // -1: the static empty text, never counted or freed
    int length;
    int capacity; // in characters, without the terminator
    int reserved;
};

template <class Ch>
struct StringWidths;
template <>
struct StringWidths<WCHAR> {
    typedef char Other;
};
template <>
struct StringWidths<char> {
    typedef WCHAR Other;
};

// The length as an int. A length that no string can have becomes INT_MAX, which is refused.
inline int StringLength(std::size_t length) {
    return length < INT_MAX ? static_cast<int>(length) : INT_MAX;
}

// A number where a string of Ch expects a character. It does not compile, since it would append the
// character with that code. Narrow character literals may be joined to wide text.
template <class Type, class Ch>
concept NumberNotCharacter = (std::is_arithmetic_v<Type> ||
                              std::is_enum_v<Type>)&&!std::same_as<Type, Ch> &&
                             !std::same_as<Type, char>;

} // namespace quorvel

template <class Ch>
class QUORVEL_API CStringT {
public:
    typedef Ch XCHAR;                                        // the character of this class
    typedef typename quorvel::StringWidths<Ch>::Other YCHAR; // the character of the other width

    CStringT() noexcept;
    CStringT(const CStringT& other) noexcept;
    CStringT(CStringT&& other) noexcept;
    // Copy the text; text of the other width is converted.
    CStringT(const Ch* text);
    CStringT(const Ch* text, int length);           // a negative length counts as 0
    explicit CStringT(Ch character, int count = 1); // empty for a count below 1
    explicit CStringT(const YCHAR* text);
    explicit CStringT(std::basic_string_view<Ch> text)
        : CStringT(text.data(), quorvel::StringLength(text.size())) {}
    // For UTF-16 text of the standard library on Windows, where WCHAR is a different type.
    explicit CStringT(std::u16string_view text) requires std::same_as<Ch, wchar_t>;
    ~CStringT();

    CStringT& operator=(const CStringT& other) noexcept;
    CStringT& operator=(CStringT&& other) noexcept;
    // The text may be part of this string; text of the other width is converted.
    CStringT& operator=(const Ch* text);
    CStringT& operator=(const YCHAR* text);
    CStringT& operator=(Ch character);
    template <class Number>
    requires quorvel::NumberNotCharacter<Number, Ch> CStringT& operator=(Number) = delete;

    // The length is stored and includes embedded zeros.
    int GetLength() const noexcept { return Header()->length; }
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    int GetAllocLength() const noexcept { return Header()->capacity; } // in characters
    // Zero-terminated, never null; valid until the string changes.
    const Ch* GetString() const noexcept { return m_text; }
    operator const Ch*() const noexcept { return m_text; }
    // `position` must be from 0 to the length (the terminator); it is not checked.
    Ch GetAt(int position) const noexcept { return m_text[position]; }
    Ch operator[](int position) const noexcept { return m_text[position]; }
    void SetAt(int position, Ch character); // below the length; not checked
    // All characters, including embedded zeros. Valid until the string changes.
    const Ch* begin() const noexcept { return m_text; }
    const Ch* end() const noexcept { return m_text + GetLength(); }
    std::basic_string_view<Ch> GetView() const noexcept { return {begin(), end()}; }

    // Converts to and from the standard library's UTF-16 and UTF-8, on both systems and with any
    // active code page. A malformed sequence or a lone surrogate becomes U+FFFD. Wide strings only.
    std::u16string ToUTF16() const requires std::is_same_v<Ch, WCHAR> { return {begin(), end()}; }
    std::string ToUTF8() const requires std::is_same_v<Ch, WCHAR>;
    static CStringT FromUTF8(std::string_view bytes) requires std::is_same_v<Ch, WCHAR>;

    void Empty() noexcept; // also releases the memory
    // The text may be part of this string. Without a length it ends at its first zero; a negative
    // length counts as 0.
    void SetString(const Ch* text);
    void SetString(const Ch* text, int length);
    void Append(const Ch* text);
    void Append(const Ch* text, int length);
    void Append(const CStringT& other);
    void AppendChar(Ch character);
    CStringT& operator+=(const CStringT& other);
    CStringT& operator+=(const Ch* text);
    CStringT& operator+=(Ch character);
    template <class Number>
    requires quorvel::NumberNotCharacter<Number, Ch> CStringT& operator+=(Number) = delete;

    // Memory for at least `minimumLength` characters, to write into directly. Call
    // ReleaseBuffer before any other use of the string; -1 sets the length to the position of
    // the first zero.
    Ch* GetBuffer();
    Ch* GetBuffer(int minimumLength);
    Ch* GetBufferSetLength(int length);
    void ReleaseBuffer(int newLength = -1);
    void ReleaseBufferSetLength(int newLength) { ReleaseBuffer(newLength); }
    void Preallocate(int length); // at least this capacity; keeps the text
    void Truncate(int newLength); // a length above the current one changes nothing
    void FreeExtra();             // reduces the capacity to the length

    // Compares code units; NoCase uses simple case folding of all letters in wide text, and of
    // ASCII in narrow text. Returns -1, 0 or 1. Both strings end at their first zero.
    int Compare(const Ch* text) const noexcept;
    int CompareNoCase(const Ch* text) const noexcept;

    // Return the position of the first match (ReverseFind: the last), or -1. A start outside the
    // text finds nothing. An empty or null text to find is found at the start.
    int Find(const Ch* text, int start = 0) const noexcept;
    int Find(Ch character, int start = 0) const noexcept;
    int ReverseFind(Ch character) const noexcept;
    int FindOneOf(const Ch* characters) const noexcept; // any of these characters

    // Positions and counts are clamped to the text.
    CStringT Mid(int first) const;
    CStringT Mid(int first, int count) const;
    CStringT Left(int count) const;
    CStringT Right(int count) const;
    CStringT SpanIncluding(const Ch* characters) const; // the beginning, all in the set
    CStringT SpanExcluding(const Ch* characters) const; // up to the first in the set
    // Returns the next token and moves `position` past it. At the end returns "" and sets -1.
    CStringT Tokenize(const Ch* separators, int& position) const;

    // Each returns the new length; Replace and Remove return the number of matches. A position
    // outside the text becomes the nearer end.
    int Insert(int position, Ch character);
    int Insert(int position, const Ch* text);
    int Delete(int position, int count = 1);
    int Replace(Ch oldCharacter, Ch newCharacter);
    int Replace(const Ch* oldText, const Ch* newText);
    int Remove(Ch character);

    CStringT& MakeUpper();   // simple case mapping, in narrow text of ASCII only
    CStringT& MakeLower();   // by the rules of MakeUpper
    CStringT& MakeReverse(); // reverses the order of the characters
    // White space is what isspace of the C locale accepts. The other overloads trim what is given.
    CStringT& Trim();
    CStringT& Trim(Ch character);
    CStringT& Trim(const Ch* characters);
    CStringT& TrimLeft();
    CStringT& TrimLeft(Ch character);
    CStringT& TrimLeft(const Ch* characters);
    CStringT& TrimRight();
    CStringT& TrimRight(Ch character);
    CStringT& TrimRight(const Ch* characters);

    // printf formats of the platform. %s takes text of this class's width, %S of the other width,
    // %hs narrow and %ls wide text. Widths convert one to one (a byte is a character up to U+00FF),
    // with any code page. %I64d, %I64u and %I64x have 64 bits, %ld has 32. A null format, and a
    // format that the platform refuses, gives an empty text. Arguments may point into this string.
    // A CString argument passes its text; objects of other classes do not compile.
    void Format(const Ch* format, ...);
    void FormatV(const Ch* format, va_list arguments);
    void AppendFormat(const Ch* format, ...);
    void AppendFormatV(const Ch* format, va_list arguments);
    QUORVEL_STRING_INSERTS(void, Format, (const Ch* format), (format))
    QUORVEL_STRING_INSERTS(void, AppendFormat, (const Ch* format), (format))
    // The format is a catalogue text. A missing text throws CResourceException.
    void Format(UINT formatId, ...);
    void AppendFormat(UINT formatId, ...);
    QUORVEL_STRING_INSERTS(void, Format, (UINT formatId), (formatId))
    QUORVEL_STRING_INSERTS(void, AppendFormat, (UINT formatId), (formatId))

    // Uses the platform's message formatter (FormatMessageW): %1 to %99, with !printf! forms. A
    // null format empties the string. A format that the platform refuses throws CMemoryException
    // and leaves the string unchanged. Wide strings only.
    void FormatMessage(const Ch* format, ...) requires std::is_same_v<Ch, WCHAR>;
    void FormatMessageV(const Ch* format, va_list* arguments) requires std::is_same_v<Ch, WCHAR>;
    void FormatMessage(UINT formatId, ...) requires std::is_same_v<Ch, WCHAR>;
    QUORVEL_STRING_INSERTS(void, FormatMessage, (const Ch* format), (format))
    QUORVEL_STRING_INSERTS(void, FormatMessage, (UINT formatId), (formatId))

    // Loads a string-table entry: searches the resource chain, or only `module`. Returns FALSE and
    // empties the string when the entry is missing.
    BOOL LoadString(UINT id);
    BOOL LoadString(HINSTANCE module, UINT id);

private:
    quorvel::StringHeader* Header() const noexcept {
        return reinterpret_cast<quorvel::StringHeader*>(const_cast<Ch*>(m_text)) - 1;
    }
    bool IsShared() const noexcept {
        return Header()->references.load(std::memory_order_acquire) != 1;
    }
    bool Owns(const Ch* text) const noexcept;
    void Attach(const CStringT& other) noexcept;
    void Release() noexcept;
    Ch* PrepareWrite(int minimumLength);
    void Reallocate(int capacity);
    void SetLength(int length) noexcept;
    int Insert(int position, const Ch* text, int length);

    Ch* m_text;
};

// Both are instantiated in the library. There is no "extern template": an unoptimised Windows host
// would then search the library for inline members, which it does not export.
typedef CStringT<WCHAR> CString;
typedef CStringT<WCHAR> CStringW;
typedef CStringT<char> CStringA;

template <class Ch>
CStringT<Ch>::CStringT(std::u16string_view text) requires std::same_as<Ch, wchar_t> : CStringT() {
    Ch* unit = GetBufferSetLength(quorvel::StringLength(text.size()));
    for (const char16_t each : text)
        *unit++ = each;
}

template <class Ch>
std::string CStringT<Ch>::ToUTF8() const requires std::is_same_v<Ch, WCHAR> {
    using namespace quorvel::win32;
    std::string bytes;
    if (IsEmpty()) // the length of 0 would be refused
        return bytes;
    const int length = GetLength();
    const int size = WideCharToMultiByte(CP_UTF8, 0, m_text, length, nullptr, 0, nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(size));
    WideCharToMultiByte(CP_UTF8, 0, m_text, length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

template <class Ch>
CStringT<Ch> CStringT<Ch>::FromUTF8(std::string_view bytes) requires std::is_same_v<Ch, WCHAR> {
    using namespace quorvel::win32;
    CStringT text;
    if (bytes.empty())
        return text;
    const int size = quorvel::StringLength(bytes.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, nullptr, 0);
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, text.GetBufferSetLength(length), length);
    return text;
}

// Equal strings have equal hashes: both the comparison and the hash end at the first zero.
template <class Ch>
struct std::hash<CStringT<Ch>> {
    std::size_t operator()(const CStringT<Ch>& text) const noexcept {
        return std::hash<std::basic_string_view<Ch>>()(text.GetString());
    }
};

// Prints wide text as UTF-8, and narrow text unchanged.
template <class Traits>
std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& stream,
                                             const CString& text) {
    return stream << std::string_view(text.ToUTF8());
}
template <class Traits>
std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& stream,
                                             const CStringA& text) {
    return stream << text.GetView();
}

// A sum reuses the characters of a left operand that is a temporary, so a chain of sums grows one
// string.
template <class Ch>
CStringT<Ch> operator+(CStringT<Ch> left, const CStringT<Ch>& right) {
    left.Append(right);
    return left;
}
template <class Ch>
CStringT<Ch> operator+(CStringT<Ch> left, const Ch* right) {
    left.Append(right);
    return left;
}
template <class Ch>
CStringT<Ch> operator+(const Ch* left, const CStringT<Ch>& right) {
    return CStringT<Ch>(left) + right;
}
template <class Ch>
CStringT<Ch> operator+(CStringT<Ch> left, std::type_identity_t<Ch> right) {
    left.AppendChar(right);
    return left;
}
template <class Ch>
CStringT<Ch> operator+(std::type_identity_t<Ch> left, const CStringT<Ch>& right) {
    return CStringT<Ch>(left, 1) + right;
}
inline CString operator+(CString left, char right) {
    left.AppendChar(static_cast<unsigned char>(right));
    return left;
}
inline CString operator+(char left, const CString& right) {
    return CString(static_cast<unsigned char>(left), 1) + right;
}
template <class Ch, class Number>
requires quorvel::NumberNotCharacter<Number, Ch> CStringT<Ch>
operator+(const CStringT<Ch>& left, Number right) = delete;
template <class Ch, class Number>
requires quorvel::NumberNotCharacter<Number, Ch> CStringT<Ch>
operator+(Number left, const CStringT<Ch>& right) = delete;

// Loads a string-table entry from the resource chain, truncated to `maxChars` characters including
// the terminator, without allocating. Returns the length; 0 with an empty text when it is missing.
QUORVEL_API int AfxLoadString(UINT id, LPWSTR text, UINT maxChars);

// Replaces %1 to %9 in the format by the string of that number, or by "?" when `count` is lower.
// Nothing else is special. A null format gives an empty text. `result` may be an argument too.
QUORVEL_API void AfxFormatStrings(CString& result, const WCHAR* format, const WCHAR* const* strings,
                                  int count);
// The same with a catalogue text. A missing text throws CResourceException.
QUORVEL_API void AfxFormatString1(CString& result, UINT formatId, const WCHAR* first);
QUORVEL_API void AfxFormatString2(CString& result, UINT formatId, const WCHAR* first,
                                  const WCHAR* second);

// Compare with operators in the order of Compare. A null text counts as empty.
#define QUORVEL_STRING_COMPARISON(op)                                                              \
    template <class Ch>                                                                            \
    bool operator op(const CStringT<Ch>& left, const CStringT<Ch>& right) noexcept {               \
        return left.Compare(right) op 0;                                                           \
    }                                                                                              \
    template <class Ch>                                                                            \
    bool operator op(const CStringT<Ch>& left, const Ch* right) noexcept {                         \
        return left.Compare(right) op 0;                                                           \
    }                                                                                              \
    template <class Ch>                                                                            \
    bool operator op(const Ch* left, const CStringT<Ch>& right) noexcept {                         \
        return 0 op right.Compare(left);                                                           \
    }
QUORVEL_STRING_COMPARISON(==)
QUORVEL_STRING_COMPARISON(!=)
QUORVEL_STRING_COMPARISON(<)
QUORVEL_STRING_COMPARISON(>)
QUORVEL_STRING_COMPARISON(<=)
QUORVEL_STRING_COMPARISON(>=)
#undef QUORVEL_STRING_COMPARISON
// For pairs and tuples of the standard library. Without it they would compare strings as
// pointers.
template <class Ch>
std::weak_ordering operator<=>(const CStringT<Ch>& left, const CStringT<Ch>& right) noexcept {
    return left.Compare(right) <=> 0;
}
template <class Ch>
std::weak_ordering operator<=>(const CStringT<Ch>& left, const Ch* right) noexcept {
    return left.Compare(right) <=> 0;
}
