#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/string.h>

#include "support/text.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <vector>

namespace {

// A text, what is done to it, what it is then and what that returned.
struct Change {
    const char* label;
    const WCHAR* text;
    std::function<int(CString&)> change;
    const WCHAR* expected;
    int result;
};

// Every change is made to a string of its own and to one that shares its characters with another,
// which must not change.
template <std::size_t Count>
void ExpectChanges(const Change (&rows)[Count]) {
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
    EXPECT_TRUE(second.IsEmpty()); // NOLINT: a string that was moved from is empty
    moved = moved.GetString();
    moved = *&moved;
    EXPECT_EQ(moved, _T("axc"));
}

TEST(String, ArgumentsMayPointIntoTheStringItself) {
    const Change rows[] = {
        {"append a part", _T("abcdef"),
         [](CString& text) { return text.Append(text.GetString() + 3, 3), 0; }, _T("abcdefdef"), 0},
        {"append itself", _T("abc"), [](CString& text) { return text += text, 0; }, _T("abcabc"),
         0},
        {"append its end", _T("abc"), [](CString& text) { return text += text.GetString() + 3, 0; },
         _T("abc"), 0},
        {"assign a part", _T("abcdef"),
         [](CString& text) { return text = text.GetString() + 4, 0; }, _T("ef"), 0},
        {"set a part", _T("abcdef"),
         [](CString& text) { return text.SetString(text.GetString() + 1, 3), 0; }, _T("bcd"), 0},
        {"insert itself", _T("abc"), [](CString& text) { return text.Insert(1, text); },
         _T("aabcbc"), 6},
        {"insert a part", _T("abc"),
         [](CString& text) { return text.Insert(0, text.GetString() + 2); }, _T("cabc"), 4},
        {"replace by a part", _T("abca"),
         [](CString& text) { return text.Replace(_T("a"), text.GetString() + 2); }, _T("cabcca"),
         2},
        {"replace a part", _T("abcbc"),
         [](CString& text) { return text.Replace(text.GetString() + 3, _T("-")); }, _T("a--"), 2},
        {"format itself", _T("abc"),
         [](CString& text) {
             return text.Format(_T("%s%s"), text.GetString(), text.GetString()), 0;
         },
         _T("abcabc"), 0},
        {"append itself formatted", _T("abc"),
         [](CString& text) { return text.AppendFormat(_T("%s"), text.GetString()), 0; },
         _T("abcabc"), 0},
        {"trim by itself", _T("aba"), [](CString& text) { return text.Trim(text), 0; }, _T(""), 0},
        {"trim by a part", _T("xax"),
         [](CString& text) { return text.Trim(text.GetString() + 2), 0; }, _T("a"), 0},
    };
    ExpectChanges(rows);
}

TEST(String, ChangesInPlace) {
    const Change rows[] = {
        {"insert past the end", _T("ab"), [](CString& text) { return text.Insert(9, _T("c")); },
         _T("abc"), 3},
        {"insert before the start", _T("ab"),
         [](CString& text) { return text.Insert(-1, _T("c")); }, _T("cab"), 3},
        {"insert nothing", _T("ab"), [](CString& text) { return text.Insert(1, nullptr); },
         _T("ab"), 2},
        {"insert a character", _T("ab"), [](CString& text) { return text.Insert(1, WCHAR{'-'}); },
         _T("a-b"), 3},
        {"delete", _T("abcd"), [](CString& text) { return text.Delete(1, 2); }, _T("ad"), 2},
        {"delete too much", _T("abcd"), [](CString& text) { return text.Delete(2, INT_MAX); },
         _T("ab"), 2},
        {"delete nothing", _T("abcd"), [](CString& text) { return text.Delete(1, -1); }, _T("abcd"),
         4},
        {"delete past the end", _T("ab"), [](CString& text) { return text.Delete(2); }, _T("ab"),
         2},
        {"replace by nothing", _T("a.b."),
         [](CString& text) { return text.Replace(_T("."), nullptr); }, _T("ab"), 2},
        {"replace overlapping", _T("aaaaa"),
         [](CString& text) { return text.Replace(_T("aa"), _T("b")); }, _T("bba"), 2},
        {"replace nothing", _T("aaa"), [](CString& text) { return text.Replace(_T(""), _T("b")); },
         _T("aaa"), 0},
        {"replace a character", _T("a/b/"), [](CString& text) { return text.Replace('/', '\\'); },
         _T("a\\b\\"), 2},
        {"replace a character by itself", _T("aaa"),
         [](CString& text) { return text.Replace('a', 'a'); }, _T("aaa"), 0},
        {"remove", _T("abaca"), [](CString& text) { return text.Remove('a'); }, _T("bc"), 3},
        {"remove what is not there", _T("abc"), [](CString& text) { return text.Remove('x'); },
         _T("abc"), 0},
        {"truncate", _T("abc"), [](CString& text) { return text.Truncate(1), 0; }, _T("a"), 0},
        {"truncate to more", _T("abc"), [](CString& text) { return text.Truncate(4), 0; },
         _T("abc"), 0},
        {"reverse", _T("abc"), [](CString& text) { return text.MakeReverse(), 0; }, _T("cba"), 0},
        {"upper", _T("a\xe4z1"), [](CString& text) { return text.MakeUpper(), 0; }, _T("A\xc4Z1"),
         0},
        {"lower", _T("A\xc4Z1"), [](CString& text) { return text.MakeLower(), 0; }, _T("a\xe4z1"),
         0},
        {"trim", _T(" \t\r\nab \v\f"), [](CString& text) { return text.Trim(), 0; }, _T("ab"), 0},
        {"trim all", _T("   "), [](CString& text) { return text.Trim(), 0; }, _T(""), 0},
        {"trim left", _T("  a "), [](CString& text) { return text.TrimLeft(), 0; }, _T("a "), 0},
        {"trim right", _T(" a  "), [](CString& text) { return text.TrimRight(), 0; }, _T(" a"), 0},
        {"trim a character", _T("xxaxx"), [](CString& text) { return text.Trim('x'), 0; }, _T("a"),
         0},
        {"trim characters", _T("xyaxy"), [](CString& text) { return text.Trim(_T("yx")), 0; },
         _T("a"), 0},
        {"trim no characters", _T(" a "), [](CString& text) { return text.Trim(_T("")), 0; },
         _T(" a "), 0},
        {"trim null", _T(" a "), [](CString& text) { return text.Trim(nullptr), 0; }, _T(" a "), 0},
        {"assign null", _T("abc"),
         [](CString& text) { return text = static_cast<const WCHAR*>(nullptr), 0; }, _T(""), 0},
        {"assign a character", _T("abc"), [](CString& text) { return text = 'x', 0; }, _T("x"), 0},
        {"append in an empty text", _T(""), [](CString& text) { return text += _T("abc"), 0; },
         _T("abc"), 0},
        {"format null", _T("abc"),
         [](CString& text) { return text.Format(static_cast<const WCHAR*>(nullptr)), 0; }, _T(""),
         0},
        {"write and release", _T("abc"),
         [](CString& text) { return text.GetBuffer(9)[1] = 0, text.ReleaseBuffer(), 0; }, _T("a"),
         0},
        {"write to the full", _T("abc"),
         [](CString& text) { return text.GetBuffer()[2] = 'x', text.ReleaseBuffer(), 0; },
         _T("abx"), 0},
        {"release without a buffer", _T("abc"),
         [](CString& text) { return text.ReleaseBuffer(2), 0; }, _T("ab"), 0},
        {"set the length", _T("abc"),
         [](CString& text) { return text.GetBufferSetLength(4)[3] = 'd', text.GetLength(); },
         _T("abcd"), 4},
    };
    ExpectChanges(rows);
}

TEST(String, PartsAreClampedToTheText) {
    const CString text(_T("abcdef"));
    const struct {
        const char* label;
        CString part;
        const WCHAR* expected;
    } rows[] = {
        {"all", text.Mid(0), _T("abcdef")},
        {"middle", text.Mid(2, 3), _T("cde")},
        {"negative start", text.Mid(-2, 3), _T("abc")},
        {"past the end", text.Mid(9, 1), _T("")},
        {"negative count", text.Mid(2, -1), _T("")},
        {"largest", text.Mid(1, INT_MAX), _T("bcdef")},
        {"largest start", text.Mid(INT_MAX, INT_MAX), _T("")},
        {"left", text.Left(2), _T("ab")},
        {"left too much", text.Left(INT_MAX), _T("abcdef")},
        {"left negative", text.Left(INT_MIN), _T("")},
        {"right", text.Right(2), _T("ef")},
        {"right too much", text.Right(INT_MAX), _T("abcdef")},
        {"right negative", text.Right(-1), _T("")},
        {"including", text.SpanIncluding(_T("cba")), _T("abc")},
        {"including null", text.SpanIncluding(nullptr), _T("")},
        {"excluding", text.SpanExcluding(_T("fd")), _T("abc")},
        {"excluding nothing", text.SpanExcluding(_T("")), _T("abcdef")},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.part, row.expected) << row.label;
}

TEST(String, FindsPlaces) {
    const CString text(_T("abcabc"));
    const CString empty;
    const struct {
        const char* label;
        int place;
        int expected;
    } rows[] = {
        {"text", text.Find(_T("ca")), 2},
        {"from a start", text.Find(_T("ab"), 1), 3},
        {"no text", text.Find(_T("cb")), -1},
        {"longer than the rest", text.Find(_T("bcd"), 4), -1},
        {"empty", text.Find(_T(""), 2), 2},
        {"empty at the end", text.Find(_T(""), 6), 6},
        {"null", text.Find(static_cast<const WCHAR*>(nullptr), 1), 1},
        {"negative start", text.Find(_T("a"), -1), -1},
        {"start past the end", text.Find(_T(""), 7), -1},
        {"character", text.Find('c', 3), 5},
        {"character at the end", text.Find('c', 6), -1},
        {"in an empty text", empty.Find('a'), -1},
        {"from behind", text.ReverseFind('b'), 4},
        {"from behind, none", text.ReverseFind('x'), -1},
        {"one of", text.FindOneOf(_T("xcb")), 1},
        {"one of none", text.FindOneOf(_T("")), -1},
        {"one of null", text.FindOneOf(nullptr), -1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.place, row.expected) << row.label;
}

TEST(String, TokensAreWhatLiesBetweenSeparators) {
    const struct {
        const WCHAR* text;
        const WCHAR* separators;
        std::vector<CString> tokens;
    } rows[] = {
        {_T("a,b;c"), _T(",;"), {CString(_T("a")), CString(_T("b")), CString(_T("c"))}},
        {_T(",,a,,b,,"), _T(","), {CString(_T("a")), CString(_T("b"))}},
        {_T("abc"), _T(","), {CString(_T("abc"))}},
        {_T(",,,"), _T(","), {}},
        {_T(""), _T(","), {}},
        {_T("a,b"), _T(""), {CString(_T("a,b"))}},
        {_T("a,b"), nullptr, {CString(_T("a,b"))}},
    };
    for (const auto& row : rows) {
        const CString text(row.text);
        std::vector<CString> tokens;
        int position = 0;
        for (CString token = text.Tokenize(row.separators, position); position != -1;
             token = text.Tokenize(row.separators, position))
            tokens.push_back(token);
        EXPECT_EQ(tokens, row.tokens) << testing::PrintToString(text);
        EXPECT_TRUE(text.Tokenize(row.separators, position).IsEmpty()); // and stays at its end
        EXPECT_EQ(position, -1);
    }
}

TEST(String, ComparesByUnitAndWithoutCase) {
    const struct {
        const WCHAR* left;
        const WCHAR* right;
        int order;
        int orderNoCase;
    } rows[] = {
        {_T("abc"), _T("abc"), 0, 0},     {_T("abc"), _T("abd"), -1, -1},
        {_T("abc"), _T("ab"), 1, 1},      {_T("abc"), _T("ABC"), 1, 0},
        {_T("a"), _T("_"), 1, 1},         {_T("A"), _T("_"), -1, 1}, // small letters are compared
        {_T("\xffe0"), _T("a"), 1, 1},    {_T("\xe4"), _T("\xc4"), 1, 0},
        {_T("\x44f"), _T("\x42f"), 1, 0}, {_T(""), nullptr, 0, 0},
        {_T("a"), nullptr, 1, 1},
    };
    for (const auto& row : rows) {
        const CString left(row.left);
        SCOPED_TRACE(testing::PrintToString(left));
        EXPECT_EQ(left.Compare(row.right), row.order);
        EXPECT_EQ(left.CompareNoCase(row.right), row.orderNoCase);
        EXPECT_EQ(left == row.right, row.order == 0);
        EXPECT_EQ(row.right<left, row.order> 0);
        EXPECT_EQ(left <= CString(row.right), row.order <= 0);
    }
    EXPECT_EQ(CStringA("\xe4").Compare("a"), 1);
    EXPECT_EQ(CStringA("ABC").CompareNoCase("abd"), -1);
}

TEST(String, SumsAndConversions) {
    const CString a(_T("a"));
    EXPECT_EQ(a + a, _T("aa"));
    EXPECT_EQ(a + _T("b") + 'c' + WCHAR{'d'}, _T("abcd"));
    EXPECT_EQ(_T("b") + a, _T("ba"));
    EXPECT_EQ('b' + a, _T("ba"));
    EXPECT_EQ(a, _T("a"));
    EXPECT_EQ(CString('x', 3), _T("xxx"));
    EXPECT_EQ(CString('x', -1), _T(""));
    EXPECT_EQ(CString("ab"), _T("ab"));
    EXPECT_EQ(CStringA(_T("ab")), "ab");
    EXPECT_EQ(CString(static_cast<const char*>(nullptr)), _T(""));
    CStringA narrow;
    narrow = a;
    EXPECT_EQ(narrow, "a");
}

TEST(String, ALengthNearTheLimitIsRefusedAndNothingChanges) {
    typedef std::function<void(CString&)> Operation;
    const struct {
        const char* label;
        Operation operation;
    } rows[] = {
        {"GetBuffer", [](CString& text) { text.GetBuffer(INT_MAX); }},
        {"GetBufferSetLength", [](CString& text) { text.GetBufferSetLength(INT_MAX); }},
        {"Preallocate", [](CString& text) { text.Preallocate(INT_MAX); }},
        {"SetString", [](CString& text) { text.SetString(_T("x"), INT_MAX); }},
        {"Append", [](CString& text) { text.Append(_T("x"), INT_MAX); }},
        {"Append, sum past the limit", [](CString& text) { text.Append(_T("x"), INT_MAX - 3); }},
        {"construct", [](CString& text) { text = CString('x', INT_MAX); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        CString text(_T("abc"));
        EXPECT_THROW(row.operation(text), CMemoryException*);
        EXPECT_EQ(text, _T("abc"));
        const CString original(text);
        EXPECT_THROW(row.operation(text), CMemoryException*);
        EXPECT_EQ(text.GetString(), original.GetString()); // still shared
    }
}

TEST(String, PreallocatedRoomIsUsed) {
    CString text;
    text.Preallocate(100);
    const WCHAR* const characters = text.GetString();
    text += CString(_T("abc"));
    text.AppendFormat(_T("%d"), 7);
    text.Insert(0, _T("x"));
    EXPECT_EQ(text, _T("xabc7"));
    EXPECT_EQ(text.GetString(), characters);
    text.FreeExtra();
    EXPECT_EQ(text.GetAllocLength(), 5);
    text.Empty();
    EXPECT_EQ(text.GetAllocLength(), 0);
}

TEST(String, FormatsMessages) {
    const struct {
        const WCHAR* format;
        const WCHAR* text;
    } rows[] = {
        {_T("%1 and %2!d!"), _T("one and 2")},
        {_T("%2!d! before %1"), _T("2 before one")},
        {_T("100%%"), _T("100%")},
        {_T("%3"), _T("")},
        {_T(""), _T("")},
        {nullptr, _T("")},
    };
    for (const auto& row : rows) {
        CString text(_T("old"));
        text.FormatMessage(row.format, _T("one"), 2, _T(""));
        EXPECT_EQ(text, row.text);
    }
    CString text(_T("old"));
    EXPECT_THROW(text.FormatMessage(_T("100%")), CMemoryException*);
    EXPECT_EQ(text, _T("old"));
}
