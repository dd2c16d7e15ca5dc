// CString and CStringA: the framework's string class, wide (UTF-16) and narrow.
//
// A string is one pointer to zero-terminated characters; copies share them until one is changed,
// and the count of sharers is atomic, so copies may be used on different threads. One object may
// not. Lengths and positions are in characters of the class (UTF-16 units or bytes), at most
// 2147483646; an operation that would pass that, or that finds no memory, throws CMemoryException
// and changes nothing. A null argument counts as an empty text, except where a member says
// otherwise.
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

// What lies before the characters of a string.
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

// The length as strings count it; one that no string can have stays too long.
inline int StringLength(std::size_t length) {
    return length < INT_MAX ? static_cast<int>(length) : INT_MAX;
}

// A number where a string of Ch takes a character. It is refused: it would join as the character
// of that code, or as an offset into the text. Narrow character literals join wide text too.
template <class Type, class Ch>
concept NumberNotCharacter = (std::is_arithmetic_v<Type> ||
                              std::is_enum_v<Type>)&&!std::same_as<Type, Ch> &&
                             !std::same_as<Type, char>;

} // namespace quorvel

template <class Ch>
class QUORVEL_API CStringT {
public:
    typedef Ch XCHAR;
    typedef typename quorvel::StringWidths<Ch>::Other YCHAR;

    CStringT() noexcept;
    CStringT(const CStringT& other) noexcept;
    CStringT(CStringT&& other) noexcept;
    CStringT(const Ch* text);
    CStringT(const Ch* text, int length); // a negative length counts as 0
    explicit CStringT(Ch character, int count = 1);
    explicit CStringT(const YCHAR* text);
    explicit CStringT(std::basic_string_view<Ch> text)
        : CStringT(text.data(), quorvel::StringLength(text.size())) {}
    // UTF-16 of the standard library, on Windows, where WCHAR is another type.
    explicit CStringT(std::u16string_view text) requires std::same_as<Ch, wchar_t>;
    ~CStringT();

    CStringT& operator=(const CStringT& other) noexcept;
    CStringT& operator=(CStringT&& other) noexcept;
    CStringT& operator=(const Ch* text);
    CStringT& operator=(const YCHAR* text);
    CStringT& operator=(Ch character);
    template <class Number>
    requires quorvel::NumberNotCharacter<Number, Ch> CStringT& operator=(Number) = delete;

    int GetLength() const noexcept { return Header()->length; }
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    int GetAllocLength() const noexcept { return Header()->capacity; }
    const Ch* GetString() const noexcept { return m_text; }
    operator const Ch*() const noexcept { return m_text; }
    // Positions from 0 to the length; the terminator may be read. Others are the caller's fault.
    Ch GetAt(int position) const noexcept { return m_text[position]; }
    Ch operator[](int position) const noexcept { return m_text[position]; }
    void SetAt(int position, Ch character);
    // The characters to read, embedded zeros included; valid until the string changes.
    const Ch* begin() const noexcept { return m_text; }
    const Ch* end() const noexcept { return m_text + GetLength(); }
    std::basic_string_view<Ch> GetView() const noexcept { return {begin(), end()}; }

    // UTF-16 and UTF-8 of the standard library, the same on both systems and whatever the active
    // code page. A malformed sequence, or a lone surrogate, becomes U+FFFD. Wide strings only.
    std::u16string ToUTF16() const requires std::is_same_v<Ch, WCHAR> { return {begin(), end()}; }
    std::string ToUTF8() const requires std::is_same_v<Ch, WCHAR>;
    static CStringT FromUTF8(std::string_view bytes) requires std::is_same_v<Ch, WCHAR>;

    void Empty() noexcept;
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

    // The characters for direct writing: at least `minimumLength` of them. Until a ReleaseBuffer
    // the string may not be used otherwise. ReleaseBuffer(-1) takes the length up to the first
    // zero.
    Ch* GetBuffer();
    Ch* GetBuffer(int minimumLength);
    Ch* GetBufferSetLength(int length);
    void ReleaseBuffer(int newLength = -1);
    void ReleaseBufferSetLength(int newLength) { ReleaseBuffer(newLength); }
    void Preallocate(int length);
    void Truncate(int newLength); // a length above the present one changes nothing
    void FreeExtra();

    // By code unit, and ignoring letter case by simple folding: of every letter in wide text, of
    // ASCII in narrow text. 0, -1 or 1. Both end at the first zero.
    int Compare(const Ch* text) const noexcept;
    int CompareNoCase(const Ch* text) const noexcept;

    // -1 when not found. A start outside the text finds nothing; an empty or null text to find
    // is found at the start.
    int Find(const Ch* text, int start = 0) const noexcept;
    int Find(Ch character, int start = 0) const noexcept;
    int ReverseFind(Ch character) const noexcept;
    int FindOneOf(const Ch* characters) const noexcept;

    // Positions and counts are clamped to the text.
    CStringT Mid(int first) const;
    CStringT Mid(int first, int count) const;
    CStringT Left(int count) const;
    CStringT Right(int count) const;
    CStringT SpanIncluding(const Ch* characters) const;
    CStringT SpanExcluding(const Ch* characters) const;
    // The next token from `position` on, which moves past it; -1 and an empty text at the end.
    CStringT Tokenize(const Ch* separators, int& position) const;

    // Each returns the new length; Replace and Remove return how many were found.
    // A position outside the text is taken as its nearer end.
    int Insert(int position, Ch character);
    int Insert(int position, const Ch* text);
    int Delete(int position, int count = 1);
    int Replace(Ch oldCharacter, Ch newCharacter);
    int Replace(const Ch* oldText, const Ch* newText);
    int Remove(Ch character);

    CStringT& MakeUpper();
    CStringT& MakeLower();
    CStringT& MakeReverse();
    // White space is what the C locale's isspace names; or the given characters.
    CStringT& Trim();
    CStringT& Trim(Ch character);
    CStringT& Trim(const Ch* characters);
    CStringT& TrimLeft();
    CStringT& TrimLeft(Ch character);
    CStringT& TrimLeft(const Ch* characters);
    CStringT& TrimRight();
    CStringT& TrimRight(Ch character);
    CStringT& TrimRight(const Ch* characters);

    // printf forms of the platform: %s takes text of this class's width, %S of the other, %hs
    // narrow and %ls wide; the widths convert one to one (a byte is a character up to U+00FF),
    // whatever the code page. %I64d, %I64u and %I64x are 64 bits wide; %ld is 32 bits. A format
    // that the platform refuses formats as the empty text, a null format too. Arguments may point
    // into this string; a string stands for its text, and objects of other classes do not compile.
    void Format(const Ch* format, ...);
    void FormatV(const Ch* format, va_list arguments);
    void AppendFormat(const Ch* format, ...);
    void AppendFormatV(const Ch* format, va_list arguments);
    QUORVEL_STRING_INSERTS(void, Format, (const Ch* format), (format))
    QUORVEL_STRING_INSERTS(void, AppendFormat, (const Ch* format), (format))
    // The format is a catalogue text; one that does not load throws CResourceException.
    void Format(UINT formatId, ...);
    void AppendFormat(UINT formatId, ...);
    QUORVEL_STRING_INSERTS(void, Format, (UINT formatId), (formatId))
    QUORVEL_STRING_INSERTS(void, AppendFormat, (UINT formatId), (formatId))

    // The platform's message formatter (FormatMessageW): %1 to %99 with their !printf! forms. A
    // null format empties the string; one that the platform refuses throws CMemoryException, and
    // the string keeps its text. Wide strings only.
    void FormatMessage(const Ch* format, ...) requires std::is_same_v<Ch, WCHAR>;
    void FormatMessageV(const Ch* format, va_list* arguments) requires std::is_same_v<Ch, WCHAR>;
    void FormatMessage(UINT formatId, ...) requires std::is_same_v<Ch, WCHAR>;
    QUORVEL_STRING_INSERTS(void, FormatMessage, (const Ch* format), (format))
    QUORVEL_STRING_INSERTS(void, FormatMessage, (UINT formatId), (formatId))

    // A string-table entry found through the resource chain, or in one module. FALSE, and the
    // string empty, when there is no such entry.
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

// Both are instantiated in the library. No "extern template" says so: an unoptimised Windows host
// would then look there for the inline members, which are not exported.
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

// Strings that are equal have equal hashes: both end at the first zero.
template <class Ch>
struct std::hash<CStringT<Ch>> {
    std::size_t operator()(const CStringT<Ch>& text) const noexcept {
        return std::hash<std::basic_string_view<Ch>>()(text.GetString());
    }
};

// Prints wide text as UTF-8, narrow text as its bytes.
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

// A sum takes over the characters of a left operand that is a temporary, so that a chain of sums
// grows one string.
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

// Writes the string-table entry found through the resource chain, cut to `maxChars` characters with
// the terminator; needs no memory. The length written: 0, and an empty text, when there is none.
QUORVEL_API int AfxLoadString(UINT id, LPWSTR text, UINT maxChars);

// The format with each %1 to %9 replaced by the string of that number, and by "?" where `count` is
// lower; nothing else is special. A null format gives an empty text. `result` may be an argument.
QUORVEL_API void AfxFormatStrings(CString& result, const WCHAR* format, const WCHAR* const* strings,
                                  int count);
// The same with a catalogue text; one that does not load throws CResourceException.
QUORVEL_API void AfxFormatString1(CString& result, UINT formatId, const WCHAR* first);
QUORVEL_API void AfxFormatString2(CString& result, UINT formatId, const WCHAR* first,
                                  const WCHAR* second);

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
// For pairs and tuples of the standard library: by their conversion strings would be compared as
// pointers.
template <class Ch>
std::weak_ordering operator<=>(const CStringT<Ch>& left, const CStringT<Ch>& right) noexcept {
    return left.Compare(right) <=> 0;
}
template <class Ch>
std::weak_ordering operator<=>(const CStringT<Ch>& left, const Ch* right) noexcept {
    return left.Compare(right) <=> 0;
}
