// MultiByteToWideChar and WideCharToMultiByte: the same answers on both systems.
#include <quorvel/platform/platform.h>

#include "support/digest.h"
#include "support/test.h"

using namespace quorvel::win32;

namespace {

// What a conversion gives: the whole buffer, which is filled with marks beforehand.
template <class Text>
struct Converted {
    int result;
    DWORD error;
    Text text;
};

Converted<Wide> Decode(UINT codePage, DWORD flags, const std::string& bytes, int capacity) {
    Wide text(static_cast<std::size_t>(capacity), WCHAR(0xcdcd));
    SetLastError(ERROR_SUCCESS);
    const int result =
        MultiByteToWideChar(codePage, flags, bytes.data(), static_cast<int>(bytes.size()),
                            capacity > 0 ? text.data() : nullptr, capacity);
    return {result, GetLastError(), text};
}

Converted<std::string> Encode(UINT codePage, DWORD flags, const Wide& text, int capacity) {
    std::string bytes(static_cast<std::size_t>(capacity), '\xcd');
    SetLastError(ERROR_SUCCESS);
    const int result =
        WideCharToMultiByte(codePage, flags, text.data(), static_cast<int>(text.size()),
                            capacity > 0 ? bytes.data() : nullptr, capacity, nullptr, nullptr);
    return {result, GetLastError(), bytes};
}

// Every mix of four bytes out of the ones where a decoder can go wrong. Letters follow, because
// Wine drops what comes after a lead byte that announces more than there is.
TEST(Utf8, EveryMixOfCriticalBytesDecodesAlike) {
    const std::string critical = "a\x7f\x80\x8f\x90\x9f\xa0\xbf\xc0\xc1\xc2\xdf\xe0\xe1\xed\xee\xef"
                                 "\xf0\xf1\xf4\xf5\xff";
    Digest digest;
    std::string bytes = "....zzz";
    const std::size_t count = critical.size();
    for (std::size_t i = 0; i < count * count * count * count; ++i) {
        for (std::size_t k = 0, rest = i; k < 4; ++k, rest /= count)
            bytes[k] = critical[rest % count];
        WCHAR text[7] = {};
        for (const DWORD flags : {DWORD(MB_ERR_INVALID_CHARS), DWORD(0)})
            digest.Add(static_cast<unsigned>(
                MultiByteToWideChar(CP_UTF8, flags, bytes.data(), 7, text, 7)));
        digest.AddAll(text);
    }
    EXPECT_EQ(digest.Get(), 0x10d7d723u);
}

// In short texts and in long ones, which are converted in blocks, and with no unit of room to
// spare.
TEST(Utf8, ConvertsASequenceAlikeWhereverItLies) {
    const std::tuple<const char*, const WCHAR*, bool> rows[] = {
        {"\xc3\xa9", _T("é"), true},
        {"\xf0\x9f\x98\x80", _T("😀"), true},
        {"\xef\xbb\xbf", _T("\xfeff"), true}, // the byte order mark stays
        {"\x7f\xdf\xbf\xef\xbf\xbf\xf4\x8f\xbf\xbf", _T("\x7f\x7ff\xffff\xdbff\xdfff"), true},
        {"\xc3", _T("\xfffd"), false},
        {"\xf0\x8f\xbf\xbf", _T("\xfffd\xfffd\xfffd"), false},
    };
    for (const auto& [sequence, units, wellFormed] : rows) {
        for (std::size_t i = 0; i < 40 * 4 * 20; ++i) {
            const std::size_t before = i % 40;
            const std::size_t between = i / 40 % 4;
            const std::size_t behind = i / 160 + (wellFormed ? 0 : 4); // Wine again
            const std::string bytes = std::string(before, 'a') + sequence +
                                      std::string(between, 'b') + sequence +
                                      std::string(behind, 'c');
            const Wide text =
                Wide(before, 'a') + units + Wide(between, 'b') + units + Wide(behind, 'c');
            const int length = static_cast<int>(text.size());
            const auto decoded = Decode(CP_UTF8, 0, bytes, length);
            ASSERT_TRUE(decoded.text == text) << testing::PrintToString(bytes);
            ASSERT_EQ(decoded.result, length);
            // Wine takes half a pair at the very end for all of it.
            ASSERT_TRUE(behind == 0 ||
                        Decode(CP_UTF8, 0, bytes, length - 1).error == ERROR_INSUFFICIENT_BUFFER);
            ASSERT_EQ(Decode(CP_UTF8, MB_ERR_INVALID_CHARS, bytes, length).result,
                      wellFormed ? length : 0);
            if (!wellFormed)
                continue;
            const int size = static_cast<int>(bytes.size());
            ASSERT_EQ(Encode(CP_UTF8, 0, text, size).text, bytes);
            ASSERT_EQ(Encode(CP_UTF8, 0, text, size - 1).error, ERROR_INSUFFICIENT_BUFFER);
        }
    }
}

TEST(Utf8, ReplacesHalfAPairUnlessTheCallIsStrict) {
    for (const WCHAR* text : {_T("x\xd83dy"), _T("0123456789abcdef\xd83d"), _T("\xde00\xd83d")}) {
        std::string expected;
        for (const WCHAR unit : Wide(text))
            expected += unit < 0x80 ? std::string(1, static_cast<char>(unit)) : "\xef\xbf\xbd";
        const int size = static_cast<int>(expected.size());
        EXPECT_EQ(Encode(CP_UTF8, 0, text, size).text, expected);
        for (const int room : {size, 0})
            EXPECT_EQ(Encode(CP_UTF8, WC_ERR_INVALID_CHARS, text, room).error,
                      ERROR_NO_UNICODE_TRANSLATION)
                << expected;
    }
}

// Windows refuses both arguments for UTF-8; here it is the active code page, and programs give
// them. Wine takes them too, but writes U+FFFD for lone surrogates.
TEST(Utf8, TakesADefaultCharacter) {
    const std::tuple<UINT, const WCHAR*, const char*, const char*, BOOL> rows[] = {
        {CP_ACP, _T("ab"), "?", "ab", FALSE},
        {CP_UTF8, _T("a\xd83d\xde00"), "?", "a\xf0\x9f\x98\x80", FALSE},
        {CP_UTF8, _T("a\xd83d"), "?", kOnLinux ? "a?" : "a\xef\xbf\xbd", TRUE},
        {CP_UTF8, _T("\xde00x\xd83d"), "!", kOnLinux ? "!x!" : "\xef\xbf\xbdx\xef\xbf\xbd", TRUE},
        {CP_UTF8, _T("\xd83dx"), nullptr, "\xef\xbf\xbdx", TRUE},
    };
    for (const auto& [codePage, text, defaultChar, expected, expectedUse] : rows) {
        char bytes[16] = {};
        BOOL used = 2;
        EXPECT_NE(WideCharToMultiByte(codePage, 0, text, -1, bytes, 16, defaultChar, &used), 0);
        EXPECT_STREQ(bytes, expected);
        EXPECT_EQ(used, expectedUse) << expected;
    }
}

TEST(CodePage, RefusesArgumentsBothWays) {
    const std::tuple<const char*, bool, bool, bool, int, int, int, DWORD> rows[] = {
        {"with the terminator", true, true, true, -1, 4, 4, ERROR_SUCCESS},
        {"length query", true, false, true, 3, 0, 3, ERROR_SUCCESS},
        {"nothing", true, true, true, 0, 8, 0, ERROR_INVALID_PARAMETER},
        {"negative capacity", true, true, true, 3, -1, 0, ERROR_INVALID_PARAMETER},
        {"unknown flag", true, true, false, 3, 8, 0, ERROR_INVALID_FLAGS},
        {"no room", true, true, true, 3, 2, 0, ERROR_INSUFFICIENT_BUFFER},
        {"no room for the terminator", true, true, true, -1, 3, 0, ERROR_INSUFFICIENT_BUFFER},
    };
    for (const UINT codePage : {65000, 65001, 1252, 932})
        for (const auto& [label, hasSource, hasTarget, isFlagKnown, count, capacity, result,
                          error] : rows) {
            SCOPED_TRACE(codePage);
            SCOPED_TRACE(label);
            WCHAR text[8];
            char bytes[8];
            SetLastError(ERROR_SUCCESS);
            EXPECT_EQ(MultiByteToWideChar(codePage, isFlagKnown ? 0 : 0x10,
                                          hasSource ? "abc" : nullptr, count,
                                          hasTarget ? text : nullptr, capacity),
                      result);
            EXPECT_EQ(GetLastError(), error);
            SetLastError(ERROR_SUCCESS);
            EXPECT_EQ(WideCharToMultiByte(codePage, isFlagKnown ? 0 : 8,
                                          hasSource ? _T("abc") : nullptr, count,
                                          hasTarget ? bytes : nullptr, capacity, nullptr, nullptr),
                      result);
            EXPECT_EQ(GetLastError(), error);
        }
}

TEST(CodePage, IsNotThereForUtf16NorUnderTheNumberOfTheSystems) {
    for (const UINT codePage : {UINT(1200), UINT(1201), UINT(CP_ACP)})
        EXPECT_FALSE(IsValidCodePage(codePage)) << codePage;
    EXPECT_EQ(Decode(1200, 0, "a", 1).result, 0);
    EXPECT_TRUE(IsValidCodePage(GetACP()));
}

TEST(CodePage, SubstitutesWhatItLacks) {
    const std::tuple<const char*, UINT, DWORD, Wide, const char*, const char*, BOOL> rows[] = {
        {"no best fit", 1252, WC_NO_BEST_FIT_CHARS, _T("\x100\xe9"), nullptr, "?\xe9", TRUE},
        {"only its first byte", 1252, 0, _T("\x4e00"), "#x", "#", TRUE},
        {"a surrogate pair is two", 1252, 0, _T("\xd83d\xde00"), nullptr, "??", TRUE},
        {"a pair as the default", 932, 0, _T("\xe01"), "\x82\xa0", "\x82\xa0", TRUE},
    };
    for (const auto& [label, codePage, flags, text, defaultChar, bytes, used] : rows) {
        char buffer[8] = {};
        BOOL usedDefault = 7;
        const int length =
            WideCharToMultiByte(codePage, flags, text.data(), static_cast<int>(text.size()), buffer,
                                8, defaultChar, &usedDefault);
        EXPECT_EQ(std::string(buffer, static_cast<std::size_t>(length)), bytes) << label;
        EXPECT_EQ(usedDefault, used) << label;
    }
}

TEST(CodePage, Decodes) {
    // An empty text: refused.
    const std::tuple<const char*, UINT, DWORD, std::string, Wide> rows[] = {
        {"unassigned and strict", 1253, MB_ERR_INVALID_CHARS, "\xc1\xaa", {}},
        {"letter and accent", 1252, MB_COMPOSITE, "\351a", _T("e\u0301a")},
        {"glyphs", 437, MB_USEGLYPHCHARS, "\x01\x0a\x1f\x7f\xe0",
         _T("\x263a\x25d9\x25bc\x2302\x3b1")},
        {"pair cut at the end", 932, 0, "A\x82", _T("A\x30fb")},
        {"pair cut at the end, strict", 932, MB_ERR_INVALID_CHARS, "A\x82", {}},
        {"the terminator is no trail byte", 932, 0, std::string("\x82\0a", 3),
         Wide(_T("\x30fb\0a"), 3)},
        {"elsewhere a question mark", 936, 0, "\x82 a\x82", _T("?a?")},
    };
    for (const auto& [label, codePage, flags, bytes, text] : rows) {
        SCOPED_TRACE(label);
        const auto decoded =
            Decode(codePage, flags, bytes, static_cast<int>(text.size() ? text.size() : 8));
        EXPECT_EQ(decoded.result, static_cast<int>(text.size()));
        EXPECT_EQ(decoded.error, text.empty() ? ERROR_NO_UNICODE_TRANSLATION : ERROR_SUCCESS);
        EXPECT_TRUE(text.empty() || decoded.text == text);
    }
}

TEST(Utf7, ConvertsBothWays) {
    // At the end: whether encoding gives the bytes again.
    const std::tuple<const char*, Wide, bool> rows[] = {
        {"+-", _T("+"), true},
        {"+AOk-+-", _T("\xe9+"), true},
        {"+AOkA6A-a", _T("éèa"), true},
        {"+AOk.b", _T("\xe9.b"), false},
        {"+2D3eAA-", _T("\xd83d\xde00"), true},
        {"+ACEAIgAjACQ-", _T("!\"#$"), true},
        {"+!~", _T("!~"), false},
        {"\xe9", _T("\xe9"), false},
    };
    for (const auto& [bytes, text, isCanonical] : rows) {
        const int length = static_cast<int>(text.size());
        EXPECT_TRUE(Decode(CP_UTF7, 0, bytes, length).text == text) << bytes;
        EXPECT_EQ(Decode(CP_UTF7, 0, bytes, 0).result, length) << bytes;
        if (isCanonical) {
            const auto encoded = Encode(CP_UTF7, 0, text, 32);
            EXPECT_EQ(encoded.text.substr(0, static_cast<std::size_t>(encoded.result)), bytes);
        }
    }
}

// Every pair of bytes and every unit, both ways, with and without best fits.
TEST(CodePage, TablesAreThePlatforms) {
    std::string pairs;
    for (int pair = 0; pair < 0x10000; ++pair) {
        pairs += static_cast<char>(pair >> 8);
        pairs += static_cast<char>(pair);
    }
    Wide units;
    for (int unit = 0; unit < 0x10000; ++unit)
        units += static_cast<WCHAR>(unit);
    std::string bytes(2 * units.size(), 0);
    Wide text(pairs.size(), 0);

    const std::tuple<UINT, unsigned> rows[] = {
        {37, 0x54ec8e66},    {437, 0x7c25eca2},   {500, 0x2fd0be34},   {708, 0x962a3775},
        {720, 0x12c4eb94},   {737, 0x5dfd655e},   {775, 0xc443be3c},   {850, 0x4126db0f},
        {852, 0xb153dcad},   {855, 0xfaf1a7ad},   {857, 0xce315f74},   {860, 0x4feea6a9},
        {861, 0xc6ea471c},   {862, 0xe7755b4c},   {863, 0x5abd71ca},   {864, 0xb30ddf12},
        {865, 0xfe7b3671},   {866, 0x08e2515b},   {869, 0xfded56ba},   {874, 0x9a239e04},
        {875, 0x5d1e70f2},   {932, 0x761f99a3},   {936, 0xee4f0a88},   {949, 0x99519f36},
        {950, 0xcea2a4b0},   {1026, 0x841ab243},  {1250, 0x3cddd8b3},  {1251, 0x3107e382},
        {1252, 0x4bccb971},  {1253, 0xb087e1d3},  {1254, 0xde1349b2},  {1255, 0xd5744a85},
        {1256, 0x96f94d68},  {1257, 0x02aec828},  {1258, 0x9923b798},  {10000, 0x25f5ea94},
        {10003, 0x96c0f23e}, {10004, 0x29701ebb}, {10005, 0xc6c42e08}, {10006, 0x03a1ca47},
        {10007, 0x3605a4c0}, {10008, 0x6cecd6bf}, {10010, 0x0890019b}, {10017, 0xa22b7a6e},
        {10029, 0x1aacd3c6}, {10079, 0x5b80e11a}, {10081, 0x78652040}, {10082, 0x4baaf60b},
        {20127, 0x3b474c72}, {20866, 0x6d0b740e}, {21866, 0xcc6bf67d}, {28591, 0xf03e7e16},
        {28592, 0xd4074885}, {28593, 0xcd38da82}, {28594, 0x1e533fe7}, {28595, 0x4ce0ae87},
        {28596, 0x842dcc92}, {28597, 0x23eca875}, {28598, 0x94d7c6a1}, {28599, 0x9e463f3b},
        {28605, 0xd96d69c9},
    };
    for (const auto& [codePage, expected] : rows) {
        Digest digest;
        text.resize(pairs.size());
        text.resize(static_cast<std::size_t>(
            MultiByteToWideChar(codePage, 0, pairs.data(), static_cast<int>(pairs.size()),
                                text.data(), static_cast<int>(text.size()))));
        digest.AddAll(text);
        for (const DWORD flags : {DWORD(0), DWORD(WC_NO_BEST_FIT_CHARS)}) {
            const int length =
                WideCharToMultiByte(codePage, flags, units.data(), static_cast<int>(units.size()),
                                    bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
            for (int i = 0; i < length; ++i)
                digest.Add(static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]));
        }
        EXPECT_EQ(digest.Get(), expected) << codePage;
    }
}

} // namespace
