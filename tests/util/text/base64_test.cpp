#include <quorvel/util/text/base64.h>

#include "support/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <tuple>
#include <vector>

namespace {

const BYTE* Bytes(const std::string& text) {
    return reinterpret_cast<const BYTE*>(text.data());
}

// Both widths; they must agree.
std::string Encode(const std::string& bytes, DWORD flags) {
    const int size = static_cast<int>(bytes.size());
    int length = AfxBase64EncodeGetRequiredLength(size, flags);
    int wideLength = length;
    std::string text(static_cast<std::size_t>(length), '#');
    std::basic_string<WCHAR> wide(static_cast<std::size_t>(length), '#');
    EXPECT_TRUE(AfxBase64EncodeMultiByte(Bytes(bytes), size, text.data(), &length, flags));
    EXPECT_TRUE(AfxBase64Encode(Bytes(bytes), size, wide.data(), &wideLength, flags));
    EXPECT_TRUE(std::equal(text.begin(), text.end(), wide.begin())); // unwritten "#" included
    EXPECT_EQ(length, wideLength);
    return text.substr(0, static_cast<std::size_t>(length));
}

std::string Decode(const std::string& text) {
    const int size = static_cast<int>(text.size());
    int length = AfxBase64DecodeGetRequiredLength(size);
    int wideLength = length;
    std::string bytes(text.size(), '#');
    std::string wideBytes(text.size(), '#');
    const std::basic_string<WCHAR> wide(text.begin(), text.end());
    EXPECT_TRUE(AfxBase64DecodeMultiByte(text.data(), size, reinterpret_cast<BYTE*>(bytes.data()),
                                         &length));
    EXPECT_TRUE(
        AfxBase64Decode(wide.data(), size, reinterpret_cast<BYTE*>(wideBytes.data()), &wideLength));
    EXPECT_EQ(bytes, wideBytes);
    EXPECT_EQ(length, wideLength);
    EXPECT_EQ(bytes.find_first_not_of('#', static_cast<std::size_t>(length)), bytes.npos);
    return bytes.substr(0, static_cast<std::size_t>(length));
}

} // namespace

TEST(Base64, EncodesInEveryFlagCombination) {
    constexpr DWORD breaks = 0;
    const std::string a19(76, 'Q'); // 57 bytes 0x41 0x04 0x10 are 19 groups "QQQQ"
    std::string line;
    for (int i = 0; i < 19; ++i)
        line += "\x41\x04\x10";
    // A full line keeps its break, one filled by the last group has none.
    const std::tuple<std::string, DWORD, std::string> rows[] = {
        {"f", breaks, "Zg=="},
        {"fo", breaks, "Zm8="},
        {"foo", breaks, "Zm9v"},
        {"foob", breaks, "Zm9vYg=="},
        {"fooba", breaks, "Zm9vYmE="},
        {"foobar", breaks, "Zm9vYmFy"},
        {"M", BASE64_NO_PADDING, "TQ"},
        {"Ma", BASE64_NO_PADDING, "TWE"},
        {"M", 0xfffffffc, "TQ=="}, // other bits are ignored
        {"\xfb\xff\xbf", BASE64_NO_LINE_BREAKS, "+/+/"},
        {line, breaks, a19 + "\r\n"},
        {line.substr(0, 55), breaks, a19.substr(0, 72) + "QQ=="},
        {line + "M", breaks, a19 + "\r\nTQ=="},
        {line + line, breaks, a19 + "\r\n" + a19 + "\r\n"},
        {line, BASE64_NO_LINE_BREAKS, a19},
        {line + "M", BASE64_NO_LINE_BREAKS | BASE64_NO_PADDING, a19 + "TQ"},
    };
    for (const auto& [bytes, flags, expected] : rows)
        EXPECT_EQ(Encode(bytes, flags), expected) << bytes;
}

TEST(Base64, RequiredLengthIsTheContractsBound) {
    constexpr DWORD noPads = BASE64_NO_PADDING;
    constexpr DWORD noLines = BASE64_NO_LINE_BREAKS;
    // 56 bytes are 74 characters, and 2 of padding fill the line, so two breaks are counted;
    // without padding 74 do not, and the rounding comes after the count.
    const std::tuple<int, DWORD, int> rows[] = {
        {0, 0, 0},      {-1, 0, 0},      {INT_MIN, 0, 0}, {1, 0, 6},
        {2, noPads, 6}, {3, noLines, 4}, {56, 0, 80},     {56, noPads, 78},
        {57, 0, 80},    {58, 0, 84},     {114, 0, 158},   {INT_MAX, 0, 0},
    };
    for (const auto& [length, flags, expected] : rows)
        EXPECT_EQ(AfxBase64EncodeGetRequiredLength(length, flags), expected)
            << length << " flags " << flags;
    EXPECT_EQ(AfxBase64EncodeGetRequiredLength(1, noPads | noLines), 4);
    EXPECT_EQ(AfxBase64EncodeGetRequiredLength(INT_MAX, noPads | noLines), 0);
    EXPECT_EQ(AfxBase64EncodeGetRequiredLength(1610612733, noLines), 2147483644);
    EXPECT_EQ(AfxBase64EncodeGetRequiredLength(1610612735, noLines), 0); // 2147483648
    for (const int length : {INT_MIN, -1, 0})
        EXPECT_EQ(AfxBase64DecodeGetRequiredLength(length), 0);
    EXPECT_EQ(AfxBase64DecodeGetRequiredLength(INT_MAX), INT_MAX);
}

TEST(Base64, RefusedArgumentsChangeNothing) {
    const BYTE source[3] = {'M', 'a', 'n'};
    char text[8] = "#######";
    const auto encode = [&](const BYTE* from, int size, char* to, int room) {
        int length = room;
        const BOOL done = AfxBase64EncodeMultiByte(from, size, to, &length, 0);
        return done || length != room;
    };
    EXPECT_FALSE(encode(nullptr, 3, text, 8));
    EXPECT_FALSE(encode(source, 3, nullptr, 8));
    EXPECT_FALSE(encode(source, 0, text, 8));
    EXPECT_FALSE(encode(source, -1, text, 8));
    EXPECT_FALSE(encode(source, INT_MAX, text, INT_MAX));
    EXPECT_FALSE(encode(source, 3, text, 5)) << "below the bound, though the text would fit";
    EXPECT_FALSE(encode(source, 3, text, -1));
    EXPECT_FALSE(AfxBase64EncodeMultiByte(source, 3, text, nullptr, 0));
    EXPECT_STREQ(text, "#######");

    BYTE bytes[4] = {'#'};
    int length = 3;
    EXPECT_FALSE(AfxBase64DecodeMultiByte(nullptr, 4, bytes, &length));
    EXPECT_FALSE(AfxBase64DecodeMultiByte("TWFu", 4, nullptr, &length));
    EXPECT_FALSE(AfxBase64DecodeMultiByte("TWFu", 4, bytes, nullptr));
    EXPECT_FALSE(AfxBase64DecodeMultiByte("TWFu", 0, bytes, &length));
    EXPECT_FALSE(AfxBase64DecodeMultiByte("TWFu", -1, bytes, &length));
    EXPECT_EQ(bytes[0], '#');
    EXPECT_EQ(length, 3);
}

TEST(Base64, DecodesLeniently) {
    // Padding does not end a group, and one character alone gives no byte.
    const std::tuple<const char*, const char*> rows[] = {
        {"TWFu", "Man"},
        {"TW Fu\r\n", "Man"},
        {"=TWFu", "Man"},
        {"TQ==", "M"},
        {"TQ", "M"},
        {"TWE=", "Ma"},
        {"TQ==TQ==", "M\x04\xd0"},
        {"TWFuT", "Man"},
        {"T", ""},
        {"====", ""},
        {"-_\x80\xff*", ""},
        {"\xd0Zm9v\x01YmFy\xc4", "foobar"},
        {"Zm9vYmFyZm9vYmFyZm9vYmFyZm9v\r\nYmFyZm9vYmFyZm9v", "foobarfoobarfoobarfoobarfoobarfoo"},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(Decode(text), expected) << text;
}

TEST(Base64, WideCharactersWhoseLowByteIsInTheAlphabetAreForeign) {
    const WCHAR text[] = _T("TWFu\x0154\x8054\xff41TWFuTWFuTWFuTWFu\x4154TWFu");
    BYTE dest[32];
    int length = sizeof dest;
    EXPECT_TRUE(
        AfxBase64DecodeWideChar(text, static_cast<int>(std::size(text)) - 1, dest, &length));
    EXPECT_EQ(std::string(dest, dest + length), "ManManManManManMan");
}

TEST(Base64, TooSmallARoomTakesWholeGroupsAndCountsOn) {
    const std::tuple<int, const char*> rows[] = {
        {0, "#######"}, {2, "#######"},  {3, "Man####"},      {5, "Man####"},
        {6, "ManMan#"}, {-1, "#######"}, {INT_MIN, "#######"}};
    for (const auto& [room, written] : rows) {
        char dest[8] = "#######";
        int length = room;
        EXPECT_FALSE(
            AfxBase64DecodeMultiByte("TWFuTWFuTQ==", 12, reinterpret_cast<BYTE*>(dest), &length))
            << room;
        EXPECT_EQ(length, 7) << room;
        EXPECT_STREQ(dest, written) << room;
    }
}

TEST(Base64, CharacterValuesFollowTheAlphabet) {
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (unsigned c = 0; c < 0x180; ++c) {
        const auto found = c < 0x80 && c != 0 ? alphabet.find(static_cast<char>(c)) : alphabet.npos;
        EXPECT_EQ(AfxDecodeBase64Char(c), found == alphabet.npos ? -1 : static_cast<int>(found))
            << c;
    }
    EXPECT_EQ(AfxDecodeBase64Char(0xffffff00u + 'A'), -1);
}
