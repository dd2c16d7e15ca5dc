#include <quorvel/util/text/match.h>

#include <gtest/gtest.h>

#include <string>

namespace {

typedef std::basic_string<WCHAR> Wide;

Wide Widened(const std::string& text) {
    return Wide(text.begin(), text.end());
}

std::string Repeated(const char* text, int count) {
    std::string result;
    while (count-- > 0)
        result += text;
    return result;
}

} // namespace

TEST(Match, BothWidthsSearchAndMatchAlike) {
    constexpr BOOL exact = TRUE;
    constexpr BOOL anyCase = FALSE;
    const struct {
        const char *text, *pattern;
        BOOL caseSensitive, found, whole; // found: anywhere
    } rows[] = {
        {"foobar", "oba", exact, TRUE, FALSE},
        {"foobar", "^foo", exact, TRUE, FALSE},
        {"foobar", "f.*r", exact, TRUE, TRUE},
        {"foobar", "OBA", exact, FALSE, FALSE},
        {"foobar", "OBA", anyCase, TRUE, FALSE},
        {"FOO", "[a-f]oo", anyCase, TRUE, TRUE},
        {"FOO", "[[:lower:]]+", anyCase, TRUE, TRUE},
        {"FOO", "[[:lower:]]+", exact, FALSE, FALSE},
        {"", "", exact, TRUE, TRUE},
        {"", "a*", exact, TRUE, TRUE},
        {"", "a", exact, FALSE, FALSE},
        {"one\ntwo", "^two$", exact, TRUE, FALSE},
        {"one\n", "^one$", exact, TRUE, FALSE}, // the whole text has a line break more
        {"abab", "^(ab)\\1$", exact, TRUE, TRUE},
        {"<a><b>", "<.+?>", exact, TRUE, TRUE},
        {"foobar", "foo(?=bar)", exact, TRUE, FALSE},
        {"x caf 42 y", "\\bcaf\\s+\\d+\\b", exact, TRUE, FALSE},
        {"a-b_c", "^\\w+$", exact, FALSE, FALSE},
        {"\t \v", "^\\h+\\v$", exact, TRUE, TRUE},
        {"1.5*(x)", "1\\.5\\*\\(x\\)", exact, TRUE, TRUE},
        {"DEADbeef", "^[\\da-f]{8}$", anyCase, TRUE, TRUE},
        {"~", "[[:punct:]]", exact, TRUE, TRUE},
        {"-", "[[.-.]]", exact, TRUE, TRUE},
        {"E", "[[=e=]]", exact, TRUE, TRUE},
        {"\x1f", "[[:cntrl:]]", exact, TRUE, TRUE},
        {"AZ", "\\u\\x5a", exact, TRUE, TRUE},
        {"a", "[[:unicode:]]", exact, FALSE, FALSE},
    };
    for (const auto& row : rows) {
        const Wide text = Widened(row.text);
        const Wide pattern = Widened(row.pattern);
        SCOPED_TRACE(std::string(row.text) + " / " + row.pattern);
        EXPECT_EQ(AfxMatchText(text.c_str(), pattern.c_str(), row.caseSensitive), row.found);
        EXPECT_EQ(AfxMatchText(row.text, row.pattern, row.caseSensitive), row.found);
        EXPECT_EQ(AfxValidateText(text.c_str(), pattern.c_str(), row.caseSensitive), row.whole);
        EXPECT_EQ(AfxValidateText(row.text, row.pattern, row.caseSensitive), row.whole);
    }
}

TEST(Match, WideTextKnowsTheLettersBeyondAscii) {
    const struct {
        const WCHAR *text, *pattern;
        BOOL caseSensitive, found;
    } rows[] = {
        {_T("caf\xe9"), _T("CAF\xc9"), FALSE, TRUE},
        {_T("caf\xe9"), _T("CAF\xc9"), TRUE, FALSE},
        {_T("\x0416"), _T("[\x0430-\x044f]"), FALSE, TRUE}, // Zhe among the small letters
        {_T("\xe9"), _T("^[[:alpha:]]$"), TRUE, TRUE},
        {_T("\xe9"), _T("[[:lower:]]"), TRUE, TRUE},
        {_T("\xc9"), _T("[[:lower:]]"), TRUE, FALSE},
        {_T("\xc9"), _T("[[:upper:]]"), TRUE, TRUE},
        {_T("\x4e2d\x6587"), _T("^\\w\\w$"), TRUE, TRUE},
        {_T("\x4e2d"), _T("[[:lower:][:upper:]]"), TRUE, FALSE},
        {_T("\x2167"), _T("\\w"), TRUE, TRUE},  // Roman eight
        {_T("\x0662"), _T("\\d"), TRUE, FALSE}, // a digit of another script
        {_T("\xa0\x3000"), _T("^\\s\\h$"), TRUE, TRUE},
        {_T("\x2028"), _T("^\\v$"), TRUE, TRUE},
        {_T("\x20ac"), _T("[[:unicode:]]"), TRUE, TRUE},
        {_T("\x20ac"), _T("\\x{20AC}"), TRUE, TRUE},
        {_T("\xff5e"), _T("[[:print:]]"), TRUE, FALSE},
        {_T("\xd83d\xde00"), _T("^..$"), TRUE, TRUE}, // code units
    };
    for (const auto& row : rows)
        EXPECT_EQ(AfxMatchText(row.text, row.pattern, row.caseSensitive), row.found)
            << "row " << &row - rows;
    EXPECT_FALSE(AfxMatchText("\xe9", "[[:alpha:]]|\xc9", FALSE)); // bytes are no letters
    EXPECT_TRUE(AfxMatchText("\xe9", "^[\xe0-\xff]$", TRUE));
}

TEST(Match, BadArgumentsAndPatternsMatchNothing) {
    EXPECT_FALSE(AfxMatchText(static_cast<const WCHAR*>(nullptr), _T("a"), TRUE));
    EXPECT_FALSE(AfxMatchText(_T("a"), nullptr, TRUE));
    EXPECT_FALSE(AfxValidateText(static_cast<const char*>(nullptr), "a", TRUE));
    EXPECT_FALSE(AfxValidateText("a", nullptr, TRUE));
    for (const char* pattern : {"(", ")", "[", "a{2,1}", "*", "a**", "\\", "(?<n", "[[:nonsense:]]",
                                "[[.nonsense.]]", "\\1(a)", "(?z)a", "[z-a]", "(?<=a*)b"}) {
        EXPECT_FALSE(AfxMatchText("a1(*[\\", pattern, TRUE)) << pattern;
        EXPECT_FALSE(AfxMatchText(_T("a1(*[\\"), Widened(pattern).c_str(), TRUE)) << pattern;
    }
}

TEST(Match, PatternsThatExplodeEndInFalse) {
    const struct {
        const char* label;
        std::string text, pattern;
        BOOL found;
    } rows[] = {
        {"nested stars", Repeated("a", 300), "(a*)*b", FALSE},
        {"nested pluses", Repeated("a", 1000) + "b", "^(a+)+$", FALSE},
        {"overlapping choices", Repeated("a", 1000) + "b", "^(a|aa)+$", FALSE},
        {"back reference", Repeated("a", 200), "(a*)*\\1b", FALSE},
        {"itself", Repeated("a", 100), "a(?R)", FALSE},
        {"399 levels", "a", Repeated("(", 399) + "a" + Repeated(")", 399), TRUE},
        {"399 levels ahead", "a", Repeated("(?=", 399) + "a" + Repeated(")", 399), TRUE},
        {"399 levels of choices", "b", Repeated("(?:a|", 399) + "b" + Repeated(")", 399), TRUE},
        {"400 levels", "a", Repeated("(", 400) + "a" + Repeated(")", 400), FALSE},
        {"levels that brackets seem to close", ")", Repeated("(?=[)]?", 100000), FALSE},
        {"100000 levels", "a", Repeated("(", 100000) + "a" + Repeated(")", 100000), FALSE},
        {"escaped levels", Repeated("(", 200), Repeated("\\(", 200), TRUE},
        {"1000 groups side by side", "z", Repeated("(a)?", 1000) + "z", TRUE},
        {"30000 choices", "zz", Repeated("a|", 30000) + "zz", TRUE},
    };
    for (const auto& [label, text, pattern, found] : rows) {
        SCOPED_TRACE(label);
        EXPECT_EQ(AfxMatchText(Widened(text).c_str(), Widened(pattern).c_str(), TRUE), found);
        EXPECT_EQ(AfxMatchText(text.c_str(), pattern.c_str(), TRUE), found);
    }
}
