#include <quorvel/util/text/match.h>

#include "support/test.h"

static Wide Widened(const std::string& text) {
    return Wide(text.begin(), text.end());
}

static std::string Repeated(const char* text, int count) {
    std::string result;
    while (count-- > 0)
        result += text;
    return result;
}

TEST(Match, BothWidthsSearchAndMatchAlike) {
    enum Found { none, part, whole };
    constexpr BOOL exact = TRUE, anyCase = FALSE;
    // "one" with a line break has more than the whole pattern.
    const std::tuple<const char*, const char*, BOOL, Found> rows[] = {
        {"foobar", "oba", exact, part},     {"FOO", "[[:lower:]]+", anyCase, whole},
        {"one\n", "^one$", exact, part},    {"FOO", "[[:lower:]]+", exact, none},
        {"one\ntwo", "^two$", exact, part}, {"abab", "^(ab)\\1$", exact, whole},
        {"-", "[[.-.]]", exact, whole},     {"\t \v", "^\\h+\\v$", exact, whole},
        {"E", "[[=e=]]", exact, whole},     {"\x1f", "[[:cntrl:]]", exact, whole},
        {"AZ", "\\u\\x5a", exact, whole},   {"a", "[[:unicode:]]", exact, none},
    };
    for (const auto& [text, pattern, caseSensitive, found] : rows) {
        const Wide wide = Widened(text), wideRule = Widened(pattern);
        SCOPED_TRACE(std::string(text) + " / " + pattern);
        EXPECT_EQ(AfxMatchText(text, pattern, caseSensitive), found > none);
        EXPECT_EQ(AfxMatchText(wide.c_str(), wideRule.c_str(), caseSensitive), found > none);
        EXPECT_EQ(AfxValidateText(text, pattern, caseSensitive), found == whole);
        EXPECT_EQ(AfxValidateText(wide.c_str(), wideRule.c_str(), caseSensitive), found == whole);
    }
}

TEST(Match, WideTextKnowsTheLettersBeyondAscii) {
    // Zhe is a lower-case letter; a Han word; a Roman numeral eight; the digit of another script is
    // not matched; a surrogate pair counts as two code units.
    const std::tuple<const WCHAR*, const WCHAR*, BOOL> rows[] = {
        {_T("\xe9"), _T("[[:lower:]]"), TRUE},  {_T("\x0416"), _T("(?i)[\x0430-\x044f]"), TRUE},
        {_T("\xc9"), _T("[[:lower:]]"), FALSE}, {_T("\x4e2d\x2167"), _T("^\\w\\w$"), TRUE},
        {_T("\x0662"), _T("\\d"), FALSE},       {_T("\xa0\x3000"), _T("^\\s\\h$"), TRUE},
        {_T("\x2028"), _T("^\\v$"), TRUE},      {_T("\x20ac"), _T("[[:unicode:]]"), TRUE},
        {_T("\x20ac"), _T("\\x{20AC}"), TRUE},  {_T("\xff5e"), _T("[[:print:]]"), FALSE},
        {_T("\xd83d\xde00"), _T("^..$"), TRUE},
    };
    for (const auto& [text, pattern, found] : rows)
        EXPECT_EQ(AfxMatchText(text, pattern, TRUE), found)
            << testing::PrintToString(CString(pattern));
    EXPECT_TRUE(AfxMatchText(_T("caf\xe9"), _T("CAF\xc9"), FALSE));
    EXPECT_FALSE(AfxMatchText("\xe9", "[[:alpha:]]|\xc9", FALSE)); // such a byte is not a letter
    EXPECT_TRUE(AfxMatchText("\xe9", "^[\xe0-\xff]$", TRUE));
}

TEST(Match, BadArgumentsAndPatternsMatchNothing) {
    EXPECT_FALSE(AfxMatchText(_T("a"), nullptr, TRUE));
    EXPECT_FALSE(AfxValidateText(static_cast<const char*>(nullptr), "a", TRUE));
    for (const char* pattern : {"(", ")", "[", "a{2,1}", "*", "a**", "\\", "(?<n", "[[:nonsense:]]",
                                "[[.nonsense.]]", "\\1(a)", "(?z)a", "[z-a]", "(?<=a*)b"})
        EXPECT_FALSE(AfxMatchText(_T("a1(*[\\"), Widened(pattern).c_str(), TRUE)) << pattern;
}

TEST(Match, PatternsThatExplodeEndInFalse) {
    const std::tuple<const char*, std::string, std::string, BOOL> rows[] = {
        {"nested stars", Repeated("a", 300), "(a*)*b", FALSE},
        {"overlapping choices", Repeated("a", 1000) + "b", "^(a|aa)+$", FALSE},
        {"long back references", Repeated("ab", 600) + "c",
         "(.*)\\1\\1x|c$(?#" + Repeated("the longer the pattern, the more states ", 50) + ")",
         FALSE},
        {"itself", Repeated("a", 100), "a(?R)", FALSE},
        {"399 levels", "a", Repeated("(", 399) + "a" + Repeated(")", 399), TRUE},
        {"400 levels", "a", Repeated("(", 400) + "a" + Repeated(")", 400), FALSE},
        {"levels that brackets seem to close", ")", Repeated("(?=[)]?", 100000), FALSE},
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
