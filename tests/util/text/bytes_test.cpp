// Byte order, UTF-8, and random identifiers.
#include <quorvel/util/text/byte_swap.h>
#include <quorvel/util/text/identifier.h>
#include <quorvel/util/text/match.h>
#include <quorvel/util/text/utf8.h>

#include "support/text.h"

#include <gtest/gtest.h>

TEST(ByteSwap, ReversesTheBytesOfEachUnit) {
    WORD words[40] = {0x0102, 0xfffe, 0x0080};
    EXPECT_TRUE(AfxSwapWordData(words, 2));
    EXPECT_EQ(words[0], 0x0201);
    EXPECT_EQ(words[1], 0xfeff);
    EXPECT_EQ(words[2], 0x0080); // behind the count
    for (WORD i = 0; i < 40; ++i)
        words[i] = i;
    EXPECT_TRUE(AfxSwapWordData(words, 39));
    for (WORD i = 0; i < 39; ++i)
        EXPECT_EQ(words[i], i << 8);
    EXPECT_EQ(words[39], 39);

    DWORD dwords[2] = {0x01020304, 0x000000ff};
    EXPECT_TRUE(AfxSwapDWordData(dwords, 2));
    EXPECT_EQ(dwords[0], 0x04030201u);
    EXPECT_EQ(dwords[1], 0xff000000u);

    EXPECT_FALSE(AfxSwapWordData(nullptr, 1));
    EXPECT_FALSE(AfxSwapWordData(words, 0));
    EXPECT_FALSE(AfxSwapDWordData(nullptr, 1));
    EXPECT_FALSE(AfxSwapDWordData(dwords, 0));
}

TEST(Utf8, ConvertsBothWays) {
    const struct {
        const char* utf8;
        const WCHAR* wide;
    } rows[] = {{"", _T("")},
                {"a", _T("a")},
                {"\xc3\xa9\xe2\x82\xac", _T("\xe9\x20ac")},
                {"\xf0\x9f\x98\x80", _T("\xd83d\xde00")}};
    for (const auto& row : rows) {
        CString wide(_T("#"));
        CStringA utf8("#");
        EXPECT_TRUE(AfxUTF8ToWideChar(row.utf8, wide));
        EXPECT_EQ(wide, row.wide);
        EXPECT_TRUE(AfxWideCharToUTF8(row.wide, utf8));
        EXPECT_EQ(utf8, row.utf8);
    }
    CString wide(_T("#"));
    CStringA utf8("#");
    for (const char* text : {"\xff", "\xc3", "\xc0\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80"})
        EXPECT_FALSE(AfxUTF8ToWideChar(text, wide)) << text;
    EXPECT_FALSE(AfxUTF8ToWideChar(nullptr, wide));
    EXPECT_FALSE(AfxWideCharToUTF8(nullptr, utf8));
    EXPECT_FALSE(AfxMultiByteToUTF8(1252, 0, nullptr, utf8));
    EXPECT_FALSE(AfxMultiByteToUTF8(4, 0, "a", utf8)); // no such code page
    EXPECT_EQ(wide, _T("#"));
    EXPECT_EQ(utf8, "#");
    EXPECT_TRUE(AfxWideCharToUTF8(_T("a\xd83d"), utf8)); // half a pair
    EXPECT_EQ(utf8, "a\xef\xbf\xbd");
    EXPECT_TRUE(AfxMultiByteToUTF8(1252, 0, "\x80", utf8));
    EXPECT_EQ(utf8, "\xe2\x82\xac");
}

TEST(Utf8, ByteOrderMarksAreToldApart) {
    typedef BOOL (*MarkTest)(const BYTE*, SIZE_T);
    const MarkTest tests[] = {AfxHasUTF8ByteOrderMark, AfxHasUTF16LEByteOrderMark,
                              AfxHasUTF16BEByteOrderMark, AfxHasUTF32LEByteOrderMark,
                              AfxHasUTF32BEByteOrderMark};
    const struct {
        std::string bytes;
        MarkTest test; // the one that knows it; null: none does
    } rows[] = {
        {"\xef\xbb\xbf", AfxHasUTF8ByteOrderMark},
        {"\xef\xbb", nullptr},
        {"\xff\xfe", AfxHasUTF16LEByteOrderMark},
        {std::string("\xff\xfe\0a", 4), AfxHasUTF16LEByteOrderMark},
        {std::string("\xfe\xff\0\0", 4), AfxHasUTF16BEByteOrderMark},
        {std::string("\xff\xfe\0\0", 4), AfxHasUTF32LEByteOrderMark},
        {std::string("\0\0\xfe\xff", 4), AfxHasUTF32BEByteOrderMark},
        {std::string("\0\0\xfe", 3), nullptr},
        {"abcd", nullptr},
        {"", nullptr},
    };
    for (const auto& row : rows)
        for (const MarkTest& test : tests)
            EXPECT_EQ(test(reinterpret_cast<const BYTE*>(row.bytes.data()), row.bytes.size()),
                      test == row.test)
                << testing::PrintToString(row.bytes) << ' ' << &test - tests;
    EXPECT_FALSE(AfxHasUTF8ByteOrderMark(nullptr, 3));
}

TEST(Identifier, IsFreshHexadecimalDigits) {
    CStringA id("#");
    EXPECT_FALSE(AfxGenerateID(id, 0));
    EXPECT_FALSE(AfxGenerateID(id, -1));
    EXPECT_EQ(id, "#");
    for (const int length : {1, 32, 1000}) {
        EXPECT_TRUE(AfxGenerateID(id, length));
        EXPECT_EQ(id.GetLength(), length);
        EXPECT_TRUE(AfxValidateText(id, "[0-9a-f]+", TRUE)) << id.GetString();
    }
    CString first, second;
    EXPECT_TRUE(AfxGenerateID(first, 32));
    EXPECT_TRUE(AfxGenerateID(second, 32));
    EXPECT_NE(first, second);
    for (const char digit : std::string("0123456789abcdef")) // 1000 digits have every one
        EXPECT_GE(id.Find(digit), 0) << digit;
}
