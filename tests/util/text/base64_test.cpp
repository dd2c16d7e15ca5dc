#include <quorvel/util/text/base64.h>

#include "support/test.h"

// Encodes in both widths, which must agree.
static std::string Encode(const std::string& bytes, DWORD flags) {
    const auto* const source = reinterpret_cast<const BYTE*>(bytes.data());
    const int size = static_cast<int>(bytes.size());
    int length = AfxBase64EncodeGetRequiredLength(size, flags);
    int wideLength = length;
    std::string text(static_cast<std::size_t>(length), '#');
    std::basic_string<WCHAR> wide(static_cast<std::size_t>(length), '#');
    EXPECT_TRUE(AfxBase64EncodeMultiByte(source, size, text.data(), &length, flags));
    EXPECT_TRUE(AfxBase64Encode(source, size, wide.data(), &wideLength, flags));
    EXPECT_EQ(text, std::string(wide.begin(), wide.end())); // including unwritten "#"
    EXPECT_EQ(length, wideLength);
    return text.substr(0, static_cast<std::size_t>(length));
}

static std::string Decode(const std::basic_string<WCHAR>& text) {
    int length = AfxBase64DecodeGetRequiredLength(static_cast<int>(text.size()));
    std::string bytes(text.size(), '#');
    EXPECT_TRUE(AfxBase64Decode(text.data(), static_cast<int>(text.size()),
                                reinterpret_cast<BYTE*>(bytes.data()), &length));
    EXPECT_EQ(bytes.find_first_not_of('#', static_cast<std::size_t>(length)), bytes.npos);
    return bytes.substr(0, static_cast<std::size_t>(length));
}

TEST(Base64, EncodesInEveryFlagCombination) {
    constexpr DWORD breaks = 0;
    const std::string a19(76, 'Q'); // 57 bytes 0x41 0x04 0x10 are 19 groups "QQQQ"
    std::string line;
    for (int i = 0; i < 19; ++i)
        line += "\x41\x04\x10";
    // A full line has its line break, but not if the last group fills it.
    const std::tuple<std::string, DWORD, std::string> rows[] = {
        {"Ma", BASE64_NO_PADDING, "TWE"},
        {"M", 0xfffffffc, "TQ=="}, // other bits are ignored
        {"\xfb\xff\xbf", BASE64_NO_LINE_BREAKS, "+/+/"},
        {line + "M", breaks, a19 + "\r\nTQ=="},
        {line + line, breaks, a19 + "\r\n" + a19 + "\r\n"},
        {line + "M", BASE64_NO_LINE_BREAKS | BASE64_NO_PADDING, a19 + "TQ"},
    };
    for (const auto& [bytes, flags, expected] : rows)
        EXPECT_EQ(Encode(bytes, flags), expected) << bytes;
}

TEST(Base64, RequiredLengthIsTheContractsBound) {
    constexpr DWORD noPads = BASE64_NO_PADDING, noLines = BASE64_NO_LINE_BREAKS;
    // 56 bytes are 74 characters; with 2 of padding they fill the line, so two breaks are counted.
    // Without padding 74 do not fill it, and rounding comes after the count.
    const std::tuple<int, DWORD, int> rows[] = {
        {0, 0, 0},   {INT_MIN, 0, 0},  {INT_MAX, noPads | noLines, 0},
        {56, 0, 80}, {2, noPads, 6},   {1610612733, noLines, 2147483644},
        {58, 0, 84}, {56, noPads, 78}, {1610612735, noLines, 0},
    };
    for (const auto& [length, flags, expected] : rows)
        EXPECT_EQ(AfxBase64EncodeGetRequiredLength(length, flags), expected) << length << flags;
    EXPECT_EQ(AfxBase64DecodeGetRequiredLength(-1), 0);
    EXPECT_EQ(AfxBase64DecodeGetRequiredLength(INT_MAX), INT_MAX);
}

TEST(Base64, RefusedArgumentsChangeNothing) {
    char text[8] = "#######";
    auto* const bytes = reinterpret_cast<BYTE*>(text);
    // With 5 the text would fit, but the room is below the bound.
    for (const auto& [size, room] : {std::pair(3, 5), {0, 8}, {INT_MAX, INT_MAX}, {3, -1}}) {
        int length = room;
        EXPECT_FALSE(AfxBase64EncodeMultiByte(bytes, size, text, &length, 0)) << size;
        EXPECT_EQ(length, room);
    }
    int length = 8;
    EXPECT_FALSE(AfxBase64EncodeMultiByte(nullptr, 3, text, &length, 0) ||
                 AfxBase64EncodeMultiByte(bytes, 3, nullptr, &length, 0) ||
                 AfxBase64EncodeMultiByte(bytes, 3, text, nullptr, 0) ||
                 AfxBase64DecodeMultiByte(nullptr, 4, bytes, &length) ||
                 AfxBase64DecodeMultiByte("TWFu", 4, nullptr, &length) ||
                 AfxBase64DecodeMultiByte("TWFu", 4, bytes, nullptr) ||
                 AfxBase64DecodeMultiByte("TWFu", -1, bytes, &length));
    EXPECT_STREQ(text, "#######");
    EXPECT_EQ(length, 8);
}

TEST(Base64, DecodesLeniently) {
    // Padding does not end a group, and a single character gives no byte. The low bytes of the
    // characters in the last row are in the alphabet.
    const std::tuple<const WCHAR*, const char*> rows[] = {
        {_T("TW Fu\r\n"), "Man"},
        {_T("=TWE="), "Ma"},
        {_T("TQ==TQ=="), "M\x04\xd0"},
        {_T("TWFuT"), "Man"},
        {_T("-_\x80\xff*"), ""},
        {_T("\xd0Zm9v\x01YmFy\xc4"), "foobar"},
        {_T("TWFu\x0154\x8054\xff41TWFuTWFuTWFuTWFu\x4154TWFu"), "ManManManManManMan"},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(Decode(text), expected) << expected;
    for (const unsigned foreign : {0u, 0u + '=', 0xc1u, 0x141u, 0xffffff00u + 'A'})
        EXPECT_EQ(AfxDecodeBase64Char(foreign), -1) << foreign;
    EXPECT_EQ(AfxDecodeBase64Char('/'), 63u);
}

TEST(Base64, TooSmallARoomTakesWholeGroupsAndCountsOn) {
    for (const auto& [room, written] :
         {std::pair(2, "#######"), {5, "Man####"}, {6, "ManMan#"}, {INT_MIN, "#######"}}) {
        char dest[8] = "#######";
        int length = room;
        EXPECT_FALSE(
            AfxBase64DecodeMultiByte("TWFuTWFuTQ==", 12, reinterpret_cast<BYTE*>(dest), &length));
        EXPECT_EQ(length, 7) << room;
        EXPECT_STREQ(dest, written) << room;
    }
}
