#include <quorvel/util/text/escape.h>

#include "support/test.h"

TEST(Escape, BytesUnsafeInWebAddressesAreEscaped) {
    const std::tuple<const char*, BOOL, const char*> rows[] = {
        {"a azAZ09-_.*", FALSE, "a%20azAZ09-_.*"},
        {"+~/:?#[]@!$&'(),;=%\"<>\\^`{|}", TRUE,
         "%2B%7E%2F%3A%3F%23%5B%5D%40%21%24%26%27%28%29%2C%3B%3D%25%22%3C%3E%5C%5E%60%7B%7C%7D"},
        {"\x01\t\x7f\x80\xff", FALSE, "%01%09%7F%80%FF"},
    };
    for (const auto& [text, spaceAsPlus, expected] : rows) {
        CStringA escaped("#");
        EXPECT_TRUE(AfxUTF8EscapeUnsafeURLCharacters(text, escaped, spaceAsPlus));
        EXPECT_EQ(escaped, expected) << text;
    }
}

TEST(Escape, TheOutputEndsWhereTheNextItemDoesNotFit) {
    // A number of letters, what follows, whether all of it fits, and what follows in the output.
    const std::tuple<unsigned, const char*, BOOL, const char*> rows[] = {
        {2083, "a", FALSE, ""},
        {2080, "%", TRUE, "%25"},
        {2081, "%b", FALSE, ""},
        {2082, " ", TRUE, "+"},
    };
    for (const auto& [count, rest, whole, expected] : rows) {
        const std::string letters(count, 'a');
        CStringA escaped;
        EXPECT_EQ(AfxUTF8EscapeUnsafeURLCharacters((letters + rest).c_str(), escaped, TRUE), whole);
        EXPECT_EQ(escaped, (letters + expected).c_str());
    }
}

TEST(Escape, OtherEncodingsAreEscapedAsUtf8) {
    CStringA escaped;
    EXPECT_TRUE(AfxMultiByteToUTF8EscapeUnsafeURLCharacters(1252, 0, "\x80 \xe9", escaped, TRUE));
    EXPECT_EQ(escaped, "%E2%82%AC+%C3%A9");
    EXPECT_TRUE(AfxWideCharToUTF8EscapeUnsafeURLCharacters(_T("\xd83d\xde00"), escaped, FALSE));
    EXPECT_EQ(escaped, "%F0%9F%98%80");
    EXPECT_FALSE(AfxMultiByteToUTF8EscapeUnsafeURLCharacters(CP_UTF8, MB_ERR_INVALID_CHARS, "\xe9",
                                                             escaped, TRUE));
    EXPECT_EQ(escaped, "%F0%9F%98%80");
}

TEST(Escape, RegularExpressionMetacharactersGetABackslash) {
    CString escaped(_T("#$()*+.?[\\]^{|}a-b_c/d \t\xe9<>\"'!%&,:;=@`~"));
    EXPECT_TRUE(AfxEscapeRegularExpressionMetacharacters(escaped, escaped)); // in place
    EXPECT_EQ(escaped, _T("\\#\\$\\(\\)\\*\\+\\.\\?\\[\\\\\\]\\^\\{\\|\\}")
                       _T("a-b_c/d \t\xe9<>\"'!%&,:;=@`~"));
}
