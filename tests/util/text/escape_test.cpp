#include <quorvel/util/text/escape.h>

#include "support/test.h"

TEST(Escape, BytesUnsafeInWebAddressesAreEscaped) {
    const std::tuple<const char*, BOOL, const char*> rows[] = {
        {"a b", TRUE, "a+b"},
        {"a b", FALSE, "a%20b"},
        {"azAZ09-_.*", FALSE, "azAZ09-_.*"},
        {"+~/:?#[]@!$&'(),;=%\"<>\\^`{|}", TRUE,
         "%2B%7E%2F%3A%3F%23%5B%5D%40%21%24%26%27%28%29%2C%3B%3D%25%22%3C%3E%5C%5E%60%7B%7C%7D"},
        {"\x01\t\x7f\x80\xff", FALSE, "%01%09%7F%80%FF"},
    };
    for (const auto& [text, spaceAsPlus, expected] : rows) {
        CStringA escaped("#");
        EXPECT_TRUE(AfxUTF8EscapeUnsafeURLCharacters(text, escaped, spaceAsPlus));
        EXPECT_EQ(escaped, expected) << text;
    }
    CStringA escaped("#");
    EXPECT_FALSE(AfxUTF8EscapeUnsafeURLCharacters(nullptr, escaped, FALSE));
    EXPECT_EQ(escaped, "#");
}

TEST(Escape, TheOutputEndsWhereTheNextItemDoesNotFit) {
    const std::tuple<const char*, std::string, BOOL, std::string> rows[] = {
        {"2084 kept", std::string(2084, 'a'), FALSE, std::string(2083, 'a')},
        {"an escape in the last three places", std::string(2080, 'a') + "%", TRUE,
         std::string(2080, 'a') + "%25"},
        {"an escape with two places left", std::string(2081, 'a') + "%b", FALSE,
         std::string(2081, 'a')},
        {"a plus in the last place", std::string(2082, 'a') + " ", TRUE,
         std::string(2082, 'a') + "+"},
    };
    for (const auto& [label, text, whole, expected] : rows) {
        CStringA escaped;
        EXPECT_EQ(AfxUTF8EscapeUnsafeURLCharacters(text.c_str(), escaped, TRUE), whole) << label;
        EXPECT_EQ(escaped, expected.c_str()) << label;
    }
}

TEST(Escape, OtherEncodingsAreEscapedAsUtf8) {
    CStringA escaped;
    EXPECT_TRUE(AfxMultiByteToUTF8EscapeUnsafeURLCharacters(1252, 0, "\x80 \xe9", escaped, TRUE));
    EXPECT_EQ(escaped, "%E2%82%AC+%C3%A9");
    EXPECT_TRUE(AfxWideCharToUTF8EscapeUnsafeURLCharacters(_T("\xd83d\xde00"), escaped, FALSE));
    EXPECT_EQ(escaped, "%F0%9F%98%80");
    EXPECT_FALSE(AfxMultiByteToUTF8EscapeUnsafeURLCharacters(1252, 0, nullptr, escaped, TRUE));
    EXPECT_FALSE(AfxMultiByteToUTF8EscapeUnsafeURLCharacters(CP_UTF8, MB_ERR_INVALID_CHARS, "\xe9",
                                                             escaped, TRUE));
    EXPECT_FALSE(AfxWideCharToUTF8EscapeUnsafeURLCharacters(nullptr, escaped, TRUE));
    EXPECT_EQ(escaped, "%F0%9F%98%80");
}

TEST(Escape, RegularExpressionMetacharactersGetABackslash) {
    const std::tuple<const WCHAR*, const WCHAR*> rows[] = {
        {_T("#$()*+.?[\\]^{|}"), _T("\\#\\$\\(\\)\\*\\+\\.\\?\\[\\\\\\]\\^\\{\\|\\}")},
        {_T("a-b_c/d \t\xe9<>\"'!%&,:;=@`~"), _T("a-b_c/d \t\xe9<>\"'!%&,:;=@`~")},
    };
    for (const auto& [text, expected] : rows) {
        CString escaped(_T("#"));
        EXPECT_TRUE(AfxEscapeRegularExpressionMetacharacters(text, escaped));
        EXPECT_EQ(escaped, expected);
    }
    CString escaped(_T("a.b"));
    EXPECT_FALSE(AfxEscapeRegularExpressionMetacharacters(nullptr, escaped));
    EXPECT_EQ(escaped, _T("a.b"));
    EXPECT_TRUE(AfxEscapeRegularExpressionMetacharacters(escaped, escaped)); // in place
    EXPECT_EQ(escaped, _T("a\\.b"));
}
