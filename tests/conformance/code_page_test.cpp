// MultiByteToWideChar and WideCharToMultiByte: the same results on both systems.
#include <quorvel/platform/platform.h>

#include "support/golden.h"
#include "support/test.h"

using namespace quorvel::win32;

namespace {

// The result of a conversion: the whole buffer, which was filled with markers before.
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

// The length of the well-formed sequence at `at`, or minus the length of an ill-formed beginning
// that the platform replaces as a whole, including a second byte outside the range of its row.
int Utf8Sequence(const std::string& bytes, std::size_t at) {
    struct Row {
        int first, last, low, high, length; // lead bytes, range of the second byte
    };
    static constexpr Row kRows[] = {
        {0x00, 0x7f, 0, 0, 1},       {0xc2, 0xdf, 0x80, 0xbf, 2}, {0xe0, 0xe0, 0xa0, 0xbf, 3},
        {0xe1, 0xec, 0x80, 0xbf, 3}, {0xed, 0xed, 0x80, 0x9f, 3}, {0xee, 0xef, 0x80, 0xbf, 3},
        {0xf0, 0xf0, 0x90, 0xbf, 4}, {0xf1, 0xf3, 0x80, 0xbf, 4}, {0xf4, 0xf4, 0x80, 0x8f, 4},
    };
    const auto byte = [&](int i) {
        return static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    };
    for (const auto& [first, last, low, high, length] : kRows) {
        if (byte(0) < first || byte(0) > last)
            continue;
        for (int i = 1; i < length; ++i) {
            if (byte(i) < 0x80 || byte(i) > 0xbf)
                return -i;
            if (i == 1 && (byte(i) < low || byte(i) > high))
                return -2;
        }
        return length;
    }
    return -1;
}

// All combinations of four of the bytes that are critical for a decoder. Letters follow, because
// Wine drops the bytes after a lead byte that announces more bytes than exist.
TEST(Utf8, EveryMixOfCriticalBytesDecodesAlike) {
    const std::string critical = "a\x7f\x80\x8f\x90\x9f\xa0\xbf\xc0\xc1\xc2\xdf\xe0\xe1\xed\xee\xef"
                                 "\xf0\xf1\xf4\xf5\xff";
    std::string bytes = "....zzz";
    const std::size_t count = critical.size();
    for (std::size_t i = 0; i < count * count * count * count; ++i) {
        for (std::size_t k = 0, rest = i; k < 4; ++k, rest /= count)
            bytes[k] = critical[rest % count];
        Wide expected;
        bool isWellFormed = true;
        for (std::size_t at = 0; at < bytes.size();) {
            const int length = Utf8Sequence(bytes, at);
            isWellFormed = isWellFormed && length > 0;
            std::uint32_t character = static_cast<unsigned char>(bytes[at]);
            if (length > 1)
                character &= 0x7fu >> length;
            for (int k = 1; k < length; ++k)
                character = character << 6 | (bytes[at + static_cast<std::size_t>(k)] & 0x3fu);
            if (length == 4)
                (expected += static_cast<WCHAR>(0xd7c0 + (character >> 10))) +=
                    static_cast<WCHAR>(0xdc00 | (character & 0x3ff));
            else
                expected += length > 0 ? static_cast<WCHAR>(character) : WCHAR(0xfffd);
            at += static_cast<std::size_t>(std::abs(length));
        }
        const auto decoded = Decode(CP_UTF8, 0, bytes, 7);
        ASSERT_EQ(decoded.text.substr(0, static_cast<std::size_t>(decoded.result)), expected)
            << testing::PrintToString(bytes);
        ASSERT_EQ(Decode(CP_UTF8, MB_ERR_INVALID_CHARS, bytes, 7).result,
                  isWellFormed ? decoded.result : 0)
            << testing::PrintToString(bytes);
    }
}

// In short texts and in long texts, which are converted in blocks, and in a buffer of exactly the
// required size.
TEST(Utf8, ConvertsASequenceAlikeWhereverItLies) {
    const std::tuple<const char*, const WCHAR*, bool> rows[] = {
        {"\xc3\xa9", _T("é"), true},
        {"\xf0\x9f\x98\x80", _T("😀"), true},
        {"\xef\xbb\xbf", _T("\xfeff"), true}, // keeps the byte order mark
        {"\x7f\xdf\xbf\xef\xbf\xbf\xf4\x8f\xbf\xbf", _T("\x7f\x7ff\xffff\xdbff\xdfff"), true},
        {"\xc3", _T("\xfffd"), false},
        {"\xf0\x8f\xbf\xbf", _T("\xfffd\xfffd\xfffd"), false},
    };
    for (const auto& [sequence, units, wellFormed] : rows) {
        for (std::size_t i = 0; i < 70 * 4 * 40; ++i) {
            const std::size_t before = i % 70;
            const std::size_t between = i / 70 % 4;
            const std::size_t behind = i / 280 + (wellFormed ? 0 : 4); // Wine again
            const std::string bytes = std::string(before, 'a') + sequence +
                                      std::string(between, 'b') + sequence +
                                      std::string(behind, 'c');
            const Wide text =
                Wide(before, 'a') + units + Wide(between, 'b') + units + Wide(behind, 'c');
            const int length = static_cast<int>(text.size());
            const auto decoded = Decode(CP_UTF8, 0, bytes, length);
            ASSERT_TRUE(decoded.text == text) << testing::PrintToString(bytes);
            ASSERT_EQ(decoded.result, length);
            // At the very end Wine takes half a surrogate pair for a whole one.
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

// Windows refuses both arguments for UTF-8. Here it is the active code page, and programs pass
// them. Wine accepts them too, but writes U+FFFD for lone surrogates.
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
        {"letters of another block", 1361, 0, _T("\x3131\xffa1\x20a9"), nullptr,
         "\x88\x41\x88\x41\\", FALSE},
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
    // An empty text means that it is refused.
    const std::tuple<const char*, UINT, DWORD, std::string, Wide> rows[] = {
        {"unassigned and strict", 1253, MB_ERR_INVALID_CHARS, "\xc1\xaa", {}},
        {"letter and accent", 1252, MB_COMPOSITE, "\351a", _T("e\u0301a")},
        {"glyphs", 437, MB_USEGLYPHCHARS, "\x01\x0a\x1f\x7f\xe0",
         _T("\x263a\x25d9\x25bc\x2302\x3b1")},
        {"no glyphs", 1252, MB_USEGLYPHCHARS, "\x01", _T("\x01")},
        {"a glyph for one", 864, MB_USEGLYPHCHARS, "\x01\x7f", _T("\x01\x2302")},
        {"syllables stay whole", 949, MB_COMPOSITE, "\xb0\xa1", _T("\xac00")},
        {"seven bits", 20127, 0, "\xc1\xbf", _T("A?")},
        {"seven bits, strict", 20127, MB_ERR_INVALID_CHARS, "\xc1", _T("A")},
        {"the default, strict", 20127, MB_ERR_INVALID_CHARS, "\xbf", {}},
        {"a syllable", 1361, 0, "\x88\x61\xd3\xbd", _T("\xac00\xd7a3")},
        {"single letters", 1361, 0, "\x88\x41\x84\x61\x84\x42\xda\xfe",
         _T("\x1100\x1161\x11a8\x11a1")},
        {"symbols, Han, private", 1361, 0, "\xd9\x31\xe0\x31\xf9\xfe\xd8\xfe",
         _T("\x3000\x4f3d\x8a70\xe0bb")},
        {"no letter", 1361, MB_ERR_INVALID_CHARS, "\x84\x52", {}},
        {"no lead byte", 1361, MB_ERR_INVALID_CHARS, "\xdf\x31", {}},
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
    // The last field: whether encoding returns the same bytes.
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

// Every byte and pair of bytes; every unit with and without best fits. A zero after each ends it,
// so that half a pair takes no byte of the next. Pairs that decode byte by byte are blank.
TEST(CodePage, TablesAreThePlatforms) {
    Golden golden("code_pages");
    for (const UINT codePage :
         {37,    437,   500,   708,   720,   737,   775,   850,   852,   855,   857,   860,   861,
          862,   863,   864,   865,   866,   869,   874,   875,   932,   936,   949,   950,   1026,
          1250,  1251,  1252,  1253,  1254,  1255,  1256,  1257,  1258,  10000, 10003, 10004, 10005,
          10006, 10007, 10008, 10010, 10017, 10029, 10079, 10081, 10082, 20127, 20866, 21866, 28591,
          28592, 28593, 28594, 28595, 28596, 28597, 28598, 28599, 28605}) {
        SCOPED_TRACE(codePage);
        const auto decode = [codePage](const std::string& bytes) {
            const auto decoded = Decode(codePage, 0, bytes, static_cast<int>(bytes.size()));
            return decoded.text.substr(0, static_cast<std::size_t>(decoded.result));
        };
        std::vector<Wide> single;
        Wide all, pairs;
        for (int byte = 0; byte < 0x100; ++byte)
            all += single.emplace_back(decode({static_cast<char>(byte), 0}));
        golden.Expect(all, "bytes");
        for (std::size_t lead = 0; lead < 0x100; ++lead) {
            std::string bytes;
            Wide apart;
            for (std::size_t trail = 0; trail < 0x100; ++trail) {
                bytes += {static_cast<char>(lead), static_cast<char>(trail), 0};
                apart += single[lead].substr(0, 1) + single[trail];
            }
            const Wide text = decode(bytes);
            pairs += text == apart ? _T(" ") : text;
        }
        golden.Expect(pairs, "pairs");
        for (const DWORD flags : {DWORD(0), DWORD(WC_NO_BEST_FIT_CHARS)}) {
            Wide units;
            for (int unit = 0; unit < 0x10000; ++unit)
                (units += static_cast<WCHAR>(unit)) += WCHAR(0);
            const auto encoded = Encode(codePage, flags, units, static_cast<int>(3 * units.size()));
            golden.Expect(encoded.text.substr(0, static_cast<std::size_t>(encoded.result)),
                          flags == 0 ? "units" : "units without best fits");
        }
    }
}

} // namespace
