// Byte order, UTF-8, and random identifiers.
#include <quorvel/util/text/byte_swap.h>
#include <quorvel/util/text/identifier.h>
#include <quorvel/util/text/match.h>
#include <quorvel/util/text/utf8.h>

#include "support/test.h"

#include <algorithm>

TEST(ByteSwap, ReversesTheBytesOfEachUnit) {
    WORD words[40] = {}; // more than a vector holds
    std::fill(words, words + 40, WORD{0x0102});
    EXPECT_TRUE(AfxSwapWordData(words, 39));
    EXPECT_TRUE(std::all_of(words, words + 39, [](WORD each) { return each == 0x0201; }));
    EXPECT_EQ(words[39], 0x0102); // beyond the count
    DWORD dwords[2] = {0x01020304, 0x000000ff};
    EXPECT_TRUE(AfxSwapDWordData(dwords, 1));
    EXPECT_TRUE(dwords[0] == 0x04030201u && dwords[1] == 0xffu);
}

TEST(Utf8, ConvertsBothWays) {
    CString wide;
    CStringA utf8;
    EXPECT_TRUE(AfxUTF8ToWideChar("\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80", wide));
    EXPECT_TRUE(AfxWideCharToUTF8(wide, utf8));
    EXPECT_EQ(utf8, "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80");
    for (const char* text : {static_cast<const char*>(nullptr), "\xc3", "\xed\xa0\x80"})
        EXPECT_FALSE(AfxUTF8ToWideChar(text, wide));
    EXPECT_EQ(wide, _T("\xe9\x20ac\xd83d\xde00"));
    EXPECT_TRUE(AfxWideCharToUTF8(_T("a\xd83d"), utf8)); // half a pair
    EXPECT_EQ(utf8, "a\xef\xbf\xbd");
    EXPECT_TRUE(AfxMultiByteToUTF8(1252, 0, "\x80", utf8));
    EXPECT_FALSE(AfxWideCharToUTF8(nullptr, utf8) ||
                 AfxMultiByteToUTF8(4, 0, "a", utf8)); // no such code page
    EXPECT_EQ(utf8, "\xe2\x82\xac");
}

TEST(Utf8, ByteOrderMarksAreDistinguished) {
    using namespace std::string_literals;
    typedef BOOL (*MarkTest)(const BYTE*, SIZE_T);
    const MarkTest tests[] = {AfxHasUTF8ByteOrderMark, AfxHasUTF16LEByteOrderMark,
                              AfxHasUTF16BEByteOrderMark, AfxHasUTF32LEByteOrderMark,
                              AfxHasUTF32BEByteOrderMark};
    // The bytes, and the number of the test that recognises them.
    const std::tuple<std::string, int> rows[] = {
        {"\xef\xbb\xbf", 0},  {"\xef\xbb", -1},     {"\xff\xfe", 1},      {"\xff\xfe\0a"s, 1},
        {"\xfe\xff\0\0"s, 2}, {"\xff\xfe\0\0"s, 3}, {"\0\0\xfe\xff"s, 4}, {"\0\0\xfe"s, -1},
    };
    for (const auto& [bytes, known] : rows)
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(tests[i](reinterpret_cast<const BYTE*>(bytes.data()), bytes.size()),
                      i == known)
                << testing::PrintToString(bytes) << ' ' << i;
    EXPECT_FALSE(AfxHasUTF8ByteOrderMark(nullptr, 3));
}

TEST(Identifier, IsFreshHexadecimalDigits) {
    CStringA id("#");
    EXPECT_FALSE(AfxGenerateID(id, 0) || AfxGenerateID(id, -1));
    EXPECT_EQ(id, "#");
    CString first, second;
    EXPECT_TRUE(AfxGenerateID(first, 32) && AfxGenerateID(second, 32) && first != second);
    EXPECT_TRUE(AfxGenerateID(id, 1000));
    EXPECT_TRUE(AfxValidateText(id, "[0-9a-f]{1000}", TRUE)) << id.GetString();
}
