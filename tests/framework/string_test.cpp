#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/filesystem_path.h>

#include "support/test.h"

#include <sstream>
#include <unordered_set>

namespace {

// A change of a text, its result, and the return value.
struct Change {
    const char* label;
    const WCHAR* text;
    int (*change)(CString& s);
    const WCHAR* expected;
    int result;
};
#define CHANGE(text, change, expected, result)                                                     \
    {                                                                                              \
#change, _T(text), [](CString & s) -> int { return change; }, _T(expected), result         \
    }
#define EFFECT(text, change, expected) CHANGE(text, (static_cast<void>(change), 0), expected, 0)

// Makes each change to a separate string and to one that shares its characters with another string,
// which must not change.
void ExpectChanges(std::initializer_list<Change> rows) {
    for (const Change& row : rows) {
        SCOPED_TRACE(row.label);
        CString own(row.text);
        EXPECT_EQ(row.change(own), row.result);
        EXPECT_EQ(own, row.expected);
        const CString original(row.text);
        CString shared(original);
        EXPECT_EQ(row.change(shared), row.result);
        EXPECT_EQ(shared, row.expected);
        EXPECT_EQ(original, row.text);
    }
}

const WCHAR* const kNull = nullptr;

// Whether a call compiles.
template <class String, class... Inserts>
concept Formats = requires(String s, const typename String::XCHAR* format, Inserts... inserts) {
    s.Format(format, inserts...);
};
template <class... Inserts>
concept FormatsMessage = requires(CString s, const WCHAR* format, Inserts... inserts) {
    s.FormatMessage(format, inserts...);
};
template <class String, class Other>
concept Appends = requires(String s, Other other) {
    s += other;
};

struct Derived : CString {
    using CString::CString;
};
enum Number { kOne = 1 };

static_assert(Formats<CString, int, Derived, std::nullptr_t> && FormatsMessage<CString, int>);
static_assert(!Formats<CString, std::string> && !Formats<CStringA, int, POINT>);
static_assert(!FormatsMessage<Wide> && !FormatsMessage<CString, LARGE_INTEGER>);
static_assert(Appends<CString, WCHAR> && Appends<CString, char>);
static_assert(!Appends<CString, int> && !Appends<CString, BYTE> && !Appends<CString, bool>);
static_assert(!Appends<CString, double> && !Appends<CString, Number> && !Appends<CStringA, WCHAR>);

} // namespace

TEST(String, CopiesShareTheirCharactersUntilOneIsChanged) {
    const CString first(_T("abc"));
    CString second(first);
    EXPECT_EQ(first.GetString(), second.GetString());
    second.SetAt(1, 'x');
    EXPECT_EQ(first, _T("abc"));
    EXPECT_EQ(second, _T("axc"));
    CString moved(std::move(second));
    EXPECT_EQ(moved, _T("axc"));
    EXPECT_TRUE(second.IsEmpty()); // NOLINT: a moved-from string is empty
}

TEST(String, ArgumentsMayPointIntoTheStringItself) {
    ExpectChanges({
        EFFECT("abcdef", s.Append(s.GetString() + 3, 3), "abcdefdef"),
        EFFECT("abcdef", s.SetString(s.GetString() + 1, 3), "bcd"),
        EFFECT("abc", s = s.GetString(), "abc"),
        CHANGE("abc", s.Insert(1, s), "aabcbc", 6),
        CHANGE("abca", s.Replace(_T("a"), s.GetString() + 2), "cabcca", 2),
        CHANGE("abcbc", s.Replace(s.GetString() + 3, _T("-")), "a--", 2),
        EFFECT("abc", s.Format(_T("%s%d"), s, 7), "abc7"),
        EFFECT("abc", s.AppendFormat(_T("%S%s"), CStringA("de"), Derived(s.GetString())),
               "abcdeabc"),
        EFFECT("abc", s.FormatMessage(_T("%2!d! %1"), s + s, 7), "7 abcabc"),
        EFFECT("aba", s.Trim(s), ""),
        EFFECT("abxab", s.Trim(s.GetString() + 3), "x"),
    });
}

TEST(String, ChangesInPlace) {
    ExpectChanges({
        CHANGE("ab", s.Insert(9, _T("c")), "abc", 3),
        CHANGE("abcd", s.Delete(2, INT_MAX), "ab", 2),
        CHANGE("a.b.", s.Replace(_T("."), nullptr), "ab", 2),
        CHANGE("aaaaa", s.Replace(_T("aa"), _T("b")), "bba", 2),
        CHANGE("aaa", s.Replace(_T(""), _T("b")), "aaa", 0),
        EFFECT("a\xe4z1", s.MakeUpper(), "A\xc4Z1"),
        EFFECT("A\xc4Z1", s.MakeLower(), "a\xe4z1"),
        EFFECT(" \t\r\nab \v\f", s.Trim(), "ab"),
        EFFECT(" a ", s.Trim(nullptr), " a "),
        EFFECT("abc", s.Format(kNull), ""),
        EFFECT("abc", s.FormatMessage(_T("%1"), _T("")), ""),
        EFFECT("abc", (s.GetBuffer(9)[1] = 0, s.ReleaseBuffer()), "a"),
        CHANGE("abc", (s.GetBufferSetLength(4)[3] = 'd', s.GetLength()), "abcd", 4),
    });
}

TEST(String, PartsAreClampedToTheText) {
    const CString s(_T("abcdef"));
    ExpectCases<CString, const WCHAR*>(
        {CASE(s.Mid(-2, 3), _T("abc")), CASE(s.Mid(2, -1), _T("")),
         CASE(s.Mid(1, INT_MAX), _T("bcdef")), CASE(s.Mid(INT_MAX, INT_MAX), _T("")),
         CASE(s.Left(INT_MIN), _T("")), CASE(s.SpanExcluding(_T("fd")), _T("abc"))});
}

TEST(String, FindsPlaces) {
    const CString s(_T("abcabc"));
    ExpectCases<int>({CASE(s.Find(_T("ab"), 1), 3), CASE(s.Find(_T("bcd"), 4), -1),
                      CASE(s.Find(_T(""), 6), 6), CASE(s.Find(kNull, 1), 1),
                      CASE(s.Find(_T("a"), -1), -1), CASE(s.Find(_T(""), 7), -1),
                      CASE(s.Find('c', 6), -1), CASE(s.ReverseFind('b'), 4),
                      CASE(s.FindOneOf(_T("xcb")), 1), CASE(s.FindOneOf(nullptr), -1)});
}

TEST(String, TokensAreWhatLiesBetweenSeparators) {
    // The tokens, each followed by a bar.
    const auto tokens = [](const CString& text, const WCHAR* separators) {
        CString found, token;
        int position = 0;
        while (token = text.Tokenize(separators, position), position != -1)
            found += token + _T("|");
        EXPECT_TRUE(text.Tokenize(separators, position).IsEmpty()); // stays at the end
        EXPECT_EQ(position, -1);
        return found;
    };
    ExpectCases<CString, const WCHAR*>({CASE(tokens(_T("a,b;c"), _T(",;")), _T("a|b|c|")),
                                        CASE(tokens(_T(",,a,,b,,"), _T(",")), _T("a|b|")),
                                        CASE(tokens(_T(""), _T(",")), _T("")),
                                        CASE(tokens(_T("a,b"), _T("")), _T("a,b|"))});
}

TEST(String, ComparesByUnitAndWithoutCase) {
    const std::tuple<const WCHAR*, const WCHAR*, int, int> rows[] = {
        {_T("abc"), _T("abd"), -1, -1}, {_T("abc"), _T("ab"), 1, 1},
        {_T("A"), _T("_"), -1, 1}, // compares lower-case letters
        {_T("\xffe0"), _T("a"), 1, 1},  {_T("\xe4"), _T("\xc4"), 1, 0},
        {_T(""), nullptr, 0, 0},
    };
    for (const auto& [text, right, order, orderNoCase] : rows) {
        const CString left(text);
        SCOPED_TRACE(testing::PrintToString(left));
        EXPECT_EQ(left.Compare(right), order);
        EXPECT_EQ(left.CompareNoCase(right), orderNoCase);
        EXPECT_EQ(left == right, order == 0);
        EXPECT_EQ(left <= CString(right), order <= 0);
    }
    EXPECT_EQ(CStringA("ABC").CompareNoCase("abd"), -1);
}

TEST(String, ConvertsFromAndToTheStandardLibrary) {
    // UTF-8 bytes, their UTF-16, and the UTF-8 converted back.
    const std::tuple<std::string, std::u16string, std::string> rows[] = {
        {"", u"", ""},
        {"J\xc3\xbcrgen", u"J\u00fcrgen", "J\xc3\xbcrgen"},
        {"\xf0\x9f\x98\x80", u"\xd83d\xde00", "\xf0\x9f\x98\x80"},
        {std::string("a\0b", 3), std::u16string(u"a\0b", 3), std::string("a\0b", 3)},
        {"a\xff", u"a\xfffd", "a\xef\xbf\xbd"},
    };
    for (const auto& [utf8, utf16, back] : rows) {
        SCOPED_TRACE(testing::PrintToString(utf8));
        const CString text = CString::FromUTF8(utf8);
        EXPECT_EQ(text, CString(utf16));
        EXPECT_EQ(text.ToUTF16(), utf16);
        EXPECT_EQ(text.ToUTF8(), back);
        EXPECT_EQ(text.GetView(), Wide(utf16.begin(), utf16.end()));
        EXPECT_EQ((std::ostringstream() << text << CStringA("!")).str(), back + '!');
        if (utf8.find('\0') == utf8.npos) {
            EXPECT_EQ(AfxPathToString(AfxStringToPath(text)), text);
            EXPECT_EQ(AfxStringToPath(text).u16string(), utf16);
        }
    }
    EXPECT_EQ(CString(u"\xd800").ToUTF8(), "\xef\xbf\xbd");
}

TEST(String, OrdersAndHashesByItsText) {
    typedef std::pair<CString, int> Named;
    const CString low(_T("a")), high(_T("b")), copy(high.GetString()); // at different addresses
    EXPECT_LT(Named(low, 2), Named(high, 1));
    EXPECT_TRUE(Named(high, 1) < Named(copy, 2) && Named(copy, 1) < Named(high, 2));
    const CString longer(_T("b\0c"), 3); // equal: comparison ends at the first zero
    EXPECT_EQ(std::unordered_set<CString>({high, longer, CString(_T("bc"))}).size(), 2u);
}

TEST(String, ALengthNearTheLimitOrAMessageThatIsRefusedChangesNothing) {
    typedef void (*Operation)(CString&);
    for (const Operation operation : std::initializer_list<Operation>{
             [](CString& s) { s.FormatMessage(_T("100%")); },
             [](CString& s) { s.GetBuffer(INT_MAX); },
             [](CString& s) { s.SetString(_T("x"), INT_MAX); },
             [](CString& s) { s.Append(_T("x"), INT_MAX - 3); }, // together with the present text
             [](CString& s) { s = CString('x', INT_MAX); },
             [](CString& s) { s = CString(std::basic_string_view<WCHAR>(_T("x"), INT_MAX)); },
         }) {
        CString text(_T("abc"));
        EXPECT_THROW(operation(text), CMemoryException*);
        EXPECT_EQ(text, _T("abc"));
        const CString original(text);
        EXPECT_THROW(operation(text), CMemoryException*);
        EXPECT_EQ(text.GetString(), original.GetString()); // still shared
    }
}
