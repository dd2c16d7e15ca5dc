// MultiByteToWideChar and WideCharToMultiByte: the same results on both systems.
#include <quorvel/platform/platform.h>

#include "support/code_page.h"
#include "support/golden.h"

using namespace quorvel::win32;

namespace {

// In short texts and in long texts, which are converted in blocks, and in a buffer of exactly the
// required size.
TEST(Utf8, ConvertsASequenceAlikeWhereverItLies) {
    const std::tuple<const char*, const WCHAR*, bool> rows[] = {
        {"\xc3\xa9", _T("é"), true},
        {"\xf0\x9f\x98\x80", _T("😀"), true},
        {"\xef\xbb\xbf", _T("\xfeff"), true}, // keeps the byte order mark
        {"\x7f\xdf\xbf\xef\xbf\xbf\xf4\x8f\xbf\xbf", _T("\x7f\x7ff\xffff\xdbff\xdfff"), true},
        // The platform replaces an ill-formed beginning together with a second byte out of range.
        {"\x80", _T("\xfffd"), false},
        {"\xc3", _T("\xfffd"), false},
        {"\xc1\xbf", _T("\xfffd\xfffd"), false},
        {"\xe0\x9f\xbf", _T("\xfffd\xfffd"), false},
        {"\xe3\x81", _T("\xfffd"), false},
        {"\xed\xa0\x80", _T("\xfffd\xfffd"), false},
        {"\xf0\x8f\xbf\xbf", _T("\xfffd\xfffd\xfffd"), false},
        {"\xf0\x9f\x98", _T("\xfffd"), false},
        {"\xf4\x90\x80\x80", _T("\xfffd\xfffd\xfffd"), false},
        {"\xf5\x80\x80\x80", _T("\xfffd\xfffd\xfffd\xfffd"), false},
        {"\xff", _T("\xfffd"), false},
        {"\xf0z\x9f\x98", _T("\xfffdz\xfffd\xfffd"), false},
        {"\xf0\x9fz\x98", _T("\xfffdz\xfffd"), false},
    };
    for (const auto& [sequence, units, wellFormed] : rows) {
        for (std::size_t i = 0; i < 70 * 4 * 40; i += wellFormed ? 1 : 11) {
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
            ASSERT_TRUE(decoded.buffer == text) << testing::PrintToString(bytes);
            ASSERT_EQ(decoded.result, length);
            // At the very end Wine takes half a surrogate pair for a whole one.
            ASSERT_TRUE(behind == 0 ||
                        Decode(CP_UTF8, 0, bytes, length - 1).error == ERROR_INSUFFICIENT_BUFFER);
            ASSERT_EQ(Decode(CP_UTF8, MB_ERR_INVALID_CHARS, bytes, length).result,
                      wellFormed ? length : 0);
            if (!wellFormed)
                continue;
            const int size = static_cast<int>(bytes.size());
            ASSERT_EQ(Encode(CP_UTF8, 0, text, size).buffer, bytes);
            ASSERT_EQ(Encode(CP_UTF8, 0, text, size - 1).error, ERROR_INSUFFICIENT_BUFFER);
        }
    }
}

TEST(Utf8, ReplacesHalfAPairUnlessTheCallIsStrict) {
    const std::tuple<const WCHAR*, const char*> rows[] = {
        {_T("x\xd83dy"), "x\xef\xbf\xbdy"},
        {_T("0123456789abcdef\xd83d"), "0123456789abcdef\xef\xbf\xbd"},
        {_T("\xde00\xd83d"), "\xef\xbf\xbd\xef\xbf\xbd"},
    };
    for (const auto& [text, bytes] : rows) {
        EXPECT_EQ(Encode(CP_UTF8, 0, text).GetText(), bytes);
        for (const int room : {64, 0})
            EXPECT_EQ(Encode(CP_UTF8, WC_ERR_INVALID_CHARS, text, room).error,
                      ERROR_NO_UNICODE_TRANSLATION)
                << bytes;
    }
}

TEST(CodePage, RefusesArgumentsBothWays) {
    const std::tuple<const char*, DWORD, int, int, int, DWORD> rows[] = {
        {"with the terminator", 0, -1, 4, 4, ERROR_SUCCESS},
        {"length query", 0, 3, 0, 3, ERROR_SUCCESS},
        {"nothing", 0, 0, 8, 0, ERROR_INVALID_PARAMETER},
        {"negative capacity", 0, 3, -1, 0, ERROR_INVALID_PARAMETER},
        {"unknown flag", 0x18, 3, 8, 0, ERROR_INVALID_FLAGS},
        {"no room", 0, 3, 2, 0, ERROR_INSUFFICIENT_BUFFER},
        {"no room for the terminator", 0, -1, 3, 0, ERROR_INSUFFICIENT_BUFFER},
    };
    for (const UINT codePage : {65000, 65001, 1252, 932})
        for (const auto& [label, flags, count, capacity, result, error] : rows) {
            SCOPED_TRACE(testing::Message() << codePage << " " << label);
            WCHAR text[8];
            char bytes[8];
            SetLastError(ERROR_SUCCESS);
            EXPECT_EQ(MultiByteToWideChar(codePage, flags & 0x10, "abc", count, text, capacity),
                      result);
            EXPECT_EQ(GetLastError(), error);
            SetLastError(ERROR_SUCCESS);
            EXPECT_EQ(WideCharToMultiByte(codePage, flags & 8, _T("abc"), count, bytes, capacity,
                                          nullptr, nullptr),
                      result);
            EXPECT_EQ(GetLastError(), error);
        }
    EXPECT_FALSE(IsValidCodePage(1200) || IsValidCodePage(CP_ACP));
    EXPECT_EQ(Decode(1200, 0, "a", 1).result, 0);
}

// Windows refuses default characters for UTF-8; programs pass them. Wine writes U+FFFD for lone
// surrogates.
TEST(CodePage, SubstitutesWhatItLacks) {
    const std::tuple<const char*, UINT, DWORD, Wide, const char*, const char*, BOOL> rows[] = {
        {"nothing", CP_UTF8, 0, _T("a\xd83d\xde00"), "?", "a\xf0\x9f\x98\x80", FALSE},
        {"half a pair", CP_UTF8, 0, _T("x\xd83d"), "!", kOnLinux ? "x!" : "x\xef\xbf\xbd", TRUE},
        {"no default", CP_UTF8, 0, _T("\xd83dx"), nullptr, "\xef\xbf\xbdx", TRUE},
        {"no best fit", 1252, WC_NO_BEST_FIT_CHARS, _T("\x100\xe9"), nullptr, "?\xe9", TRUE},
        {"only its first byte", 1252, 0, _T("\x4e00"), "#x", "#", TRUE},
        {"letters of another block", 1361, 0, _T("\x3131\xffa1\x20a9"), nullptr,
         "\x88\x41\x88\x41\\", FALSE},
        {"a pair as the default", 932, 0, _T("\xe01"), "\x82\xa0", "\x82\xa0", TRUE},
    };
    for (const auto& [label, codePage, flags, text, defaultChar, bytes, used] : rows) {
        BOOL usedDefault = 7;
        EXPECT_EQ(Encode(codePage, flags, text, 8, defaultChar, &usedDefault).GetText(), bytes)
            << label;
        EXPECT_EQ(usedDefault, used) << label;
    }
}

TEST(CodePage, Decodes) {
    // An empty text means that it is refused.
    const std::tuple<const char*, UINT, DWORD, std::string, Wide> rows[] = {
        {"unassigned and strict", 1253, MB_ERR_INVALID_CHARS, "\xc1\xaa", {}},
        {"glyphs", 437, MB_USEGLYPHCHARS, "\x01\x0a\x1f\x7f\xe0",
         _T("\x263a\x25d9\x25bc\x2302\x3b1")},
        {"a glyph for one", 864, MB_USEGLYPHCHARS, "\x01\x7f", _T("\x01\x2302")},
        {"syllables stay whole", 949, MB_COMPOSITE, "\xb0\xa1", _T("\xac00")},
        {"the default, strict", 20127, MB_ERR_INVALID_CHARS, "\xbf", {}},
        {"a syllable", 1361, 0, "\x88\x61\xd3\xbd", _T("\xac00\xd7a3")},
        {"single letters", 1361, 0, "\x88\x41\x84\x61\x84\x42\xda\xfe",
         _T("\x1100\x1161\x11a8\x11a1")},
        {"symbols, Han, private", 1361, 0, "\xd9\x31\xe0\x31\xf9\xfe\xd8\xfe",
         _T("\x3000\x4f3d\x8a70\xe0bb")},
        {"no letter", 1361, MB_ERR_INVALID_CHARS, "\x84\x52", {}},
        {"pair cut at the end", 932, 0, "A\x82", _T("A\x30fb")},
        {"pair cut at the end, strict", 932, MB_ERR_INVALID_CHARS, "A\x82", {}},
        {"the terminator is no trail byte", 932, 0, std::string("\x82\0a", 3),
         Wide(_T("\x30fb\0a"), 3)},
        {"elsewhere a question mark", 936, 0, "\x82 a\x82", _T("?a?")},
    };
    for (const auto& [label, codePage, flags, bytes, text] : rows) {
        SCOPED_TRACE(label);
        const auto decoded = Decode(codePage, flags, bytes);
        EXPECT_EQ(decoded.error, text.empty() ? ERROR_NO_UNICODE_TRANSLATION : ERROR_SUCCESS);
        EXPECT_TRUE(decoded.GetText() == text);
    }
}

TEST(Utf7, ConvertsBothWays) {
    // The last field: whether encoding returns the same bytes.
    const std::tuple<const char*, Wide, bool> rows[] = {
        {"+AOk.b", _T("\xe9.b"), false},      {"+2D3eAA-", _T("\xd83d\xde00"), true},
        {"+ACEAIgAjACQ-", _T("!\"#$"), true}, {"+!~", _T("!~"), false},
        {"\xe9", _T("\xe9"), false},
    };
    for (const auto& [bytes, text, isCanonical] : rows) {
        EXPECT_TRUE(Decode(CP_UTF7, 0, bytes).GetText() == text) << bytes;
        EXPECT_EQ(Decode(CP_UTF7, 0, bytes, 0).result, static_cast<int>(text.size())) << bytes;
        EXPECT_EQ(Encode(CP_UTF7, 0, text).GetText() == bytes, isCanonical) << bytes;
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
        std::vector<Wide> single;
        Wide all, pairs;
        for (int byte = 0; byte < 0x100; ++byte)
            all += single.emplace_back(Decode(codePage, 0, {static_cast<char>(byte), 0}).GetText());
        golden.Expect(all, "bytes");
        for (std::size_t lead = 0; lead < 0x100; ++lead) {
            std::string bytes;
            Wide apart;
            for (std::size_t trail = 0; trail < 0x100; ++trail) {
                bytes += {static_cast<char>(lead), static_cast<char>(trail), 0};
                apart += single[lead].substr(0, 1) + single[trail];
            }
            const Wide text = Decode(codePage, 0, bytes, 3 * 0x100).GetText();
            pairs += text == apart ? _T(" ") : text;
        }
        golden.Expect(pairs, "pairs");
        for (const DWORD flags : {DWORD(0), DWORD(WC_NO_BEST_FIT_CHARS)}) {
            Wide units;
            for (int unit = 0; unit < 0x10000; ++unit)
                (units += static_cast<WCHAR>(unit)) += WCHAR(0);
            golden.Expect(Encode(codePage, flags, units, 6 * 0x10000).GetText(),
                          flags == 0 ? "units" : "units without best fits");
        }
    }
}

} // namespace
