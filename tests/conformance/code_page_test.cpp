// MultiByteToWideChar and WideCharToMultiByte: the same answers on both systems.
#include <quorvel/platform/platform.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace quorvel::win32;

namespace {

typedef std::basic_string<WCHAR> Wide;

struct Decoded {
    int result;
    DWORD error;
    Wide text; // the whole buffer, filled with marks beforehand
};

constexpr WCHAR kMark = 0xcdcd;

Decoded Decode(UINT codePage, DWORD flags, const std::string& bytes, int capacity) {
    Decoded decoded = {0, 0, Wide(static_cast<std::size_t>(capacity), kMark)};
    SetLastError(ERROR_SUCCESS);
    decoded.result =
        MultiByteToWideChar(codePage, flags, bytes.data(), static_cast<int>(bytes.size()),
                            capacity > 0 ? decoded.text.data() : nullptr, capacity);
    decoded.error = GetLastError();
    return decoded;
}

struct Encoded {
    int result;
    DWORD error;
    std::string bytes;
};

Encoded Encode(UINT codePage, DWORD flags, const Wide& text, int capacity) {
    Encoded encoded = {0, 0, std::string(static_cast<std::size_t>(capacity), '\xcd')};
    SetLastError(ERROR_SUCCESS);
    encoded.result = WideCharToMultiByte(
        codePage, flags, text.data(), static_cast<int>(text.size()),
        capacity > 0 ? encoded.bytes.data() : nullptr, capacity, nullptr, nullptr);
    encoded.error = GetLastError();
    return encoded;
}

class Digest { // FNV-1a, 64 bits
public:
    void Add(unsigned value) {
        for (int shift = 0; shift < 32; shift += 8)
            m_hash = (m_hash ^ (value >> shift & 0xff)) * 0x100000001b3;
    }
    unsigned long long Get() const { return m_hash; }

private:
    unsigned long long m_hash = 0xcbf29ce484222325;
};

TEST(Utf8, DecodesAndCountsReplacements) {
    const struct {
        const char* label;
        const char* bytes;
        const WCHAR* text;
        bool wellFormed;
    } rows[] = {
        {"two to four bytes", "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80",
         _T("a\xe9\x20ac\xd83d\xde00"), true},
        {"largest", "\x7f\xdf\xbf\xef\xbf\xbf\xf4\x8f\xbf\xbf", _T("\x7f\x7ff\xffff\xdbff\xdfff"),
         true},
        {"byte order mark stays",
         "\xef\xbb\xbf"
         "a",
         _T("\xfeff")
         _T("a"),
         true},
        {"longer than a block",
         "0123456789abcdef0123456789abcde\xc3\xa9"
         "0123456789abcdef!",
         _T("0123456789abcdef0123456789abcde\xe9")
         _T("0123456789abcdef!"),
         true},
        {"cut at the end", "a\xe2\x82", _T("a\xfffd"), false},
        {"cut by a letter", "\xf0\x9f\x98z", _T("\xfffdz"), false},
        {"cut by another lead", "\xf0\x9f\x98\xc3\xa9", _T("\xfffd\xe9"), false},
        {"trail bytes alone", "\x80\xbf", _T("\xfffd\xfffd"), false},
        {"overlong, two bytes", "\xc0\x80", _T("\xfffd\xfffd"), false},
        {"overlong, three bytes", "\xe0\x80\x80", _T("\xfffd\xfffd"), false},
        {"overlong, four bytes", "\xf0\x80\x80\x80", _T("\xfffd\xfffd\xfffd"), false},
        {"surrogate", "\xed\xa0\x80", _T("\xfffd\xfffd"), false},
        {"above the last", "\xf4\x90\x80\x80", _T("\xfffd\xfffd\xfffd"), false},
        {"no such lead", "\xf5\x80\xff", _T("\xfffd\xfffd\xfffd"), false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const Wide expected = row.text;
        const int length = static_cast<int>(expected.size());
        const Decoded lenient = Decode(CP_UTF8, 0, row.bytes, length);
        EXPECT_EQ(lenient.result, length);
        EXPECT_TRUE(lenient.text == expected);
        EXPECT_EQ(Decode(CP_UTF8, 0, row.bytes, 0).result, length);

        const Decoded strict = Decode(CP_UTF8, MB_ERR_INVALID_CHARS, row.bytes, length);
        EXPECT_EQ(strict.result, row.wellFormed ? length : 0);
        EXPECT_EQ(strict.error, row.wellFormed ? ERROR_SUCCESS : ERROR_NO_UNICODE_TRANSLATION);
        EXPECT_EQ(Decode(CP_UTF8, MB_ERR_INVALID_CHARS, row.bytes, 0).result, strict.result);
    }
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
        digest.Add(static_cast<unsigned>(
            MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), 7, text, 7)));
        digest.Add(
            static_cast<unsigned>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), 7, text, 7)));
        for (const WCHAR unit : text)
            digest.Add(unit);
    }
    EXPECT_EQ(digest.Get(), 800883436914645021u);
}

TEST(Utf8, EncodesSurrogates) {
    const struct {
        const char* label;
        const WCHAR* text;
        const char* bytes;
        bool wellFormed;
    } rows[] = {
        {"one to four bytes", _T("a\xe9\x7ff\x800\xffff\xd83d\xde00"),
         "a\xc3\xa9\xdf\xbf\xe0\xa0\x80\xef\xbf\xbf\xf0\x9f\x98\x80", true},
        {"high alone", _T("x\xd83dy"), "x\xef\xbf\xbdy", false},
        {"low alone", _T("\xde00"), "\xef\xbf\xbd", false},
        {"wrong order", _T("\xde00\xd83d"), "\xef\xbf\xbd\xef\xbf\xbd", false},
        {"high at the end", _T("0123456789abcdef\xd83d"), "0123456789abcdef\xef\xbf\xbd", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const std::string expected = row.bytes;
        const int length = static_cast<int>(expected.size());
        const Encoded lenient = Encode(CP_UTF8, 0, row.text, length);
        EXPECT_EQ(lenient.result, length);
        EXPECT_EQ(lenient.bytes, expected);
        EXPECT_EQ(Encode(CP_UTF8, 0, row.text, 0).result, length);

        const Encoded strict = Encode(CP_UTF8, WC_ERR_INVALID_CHARS, row.text, length);
        EXPECT_EQ(strict.result, row.wellFormed ? length : 0);
        EXPECT_EQ(strict.error, row.wellFormed ? ERROR_SUCCESS : ERROR_NO_UNICODE_TRANSLATION);
    }
}

TEST(CodePage, RefusesArguments) {
    const UINT codePages[] = {CP_ACP, CP_UTF8, CP_UTF7, 1252, 932, 20127};
    for (const UINT codePage : codePages) {
        SCOPED_TRACE(codePage);
        WCHAR text[8];
        char bytes[8];
        const struct {
            const char* label;
            std::function<int()> call;
            int result;
            DWORD error;
        } rows[] = {
            {"with the terminator",
             [&] { return MultiByteToWideChar(codePage, 0, "abc", -1, text, 8); }, 4,
             ERROR_SUCCESS},
            {"any negative length",
             [&] { return MultiByteToWideChar(codePage, 0, "abc", -5, text, 4); }, 4,
             ERROR_SUCCESS},
            {"length query", [&] { return MultiByteToWideChar(codePage, 0, "abc", 3, nullptr, 0); },
             3, ERROR_SUCCESS},
            {"length query with a buffer",
             [&] { return MultiByteToWideChar(codePage, 0, "abc", 3, text, 0); }, 3, ERROR_SUCCESS},
            {"nothing", [&] { return MultiByteToWideChar(codePage, 0, "abc", 0, text, 8); }, 0,
             ERROR_INVALID_PARAMETER},
            {"null source", [&] { return MultiByteToWideChar(codePage, 0, nullptr, 3, text, 8); },
             0, ERROR_INVALID_PARAMETER},
            {"null target", [&] { return MultiByteToWideChar(codePage, 0, "abc", 3, nullptr, 8); },
             0, ERROR_INVALID_PARAMETER},
            {"negative capacity",
             [&] { return MultiByteToWideChar(codePage, 0, "abc", 3, text, -1); }, 0,
             ERROR_INVALID_PARAMETER},
            {"unknown flag", [&] { return MultiByteToWideChar(codePage, 0x10, "abc", 3, text, 8); },
             0, ERROR_INVALID_FLAGS},
            {"no room", [&] { return MultiByteToWideChar(codePage, 0, "abc", 3, text, 2); }, 0,
             ERROR_INSUFFICIENT_BUFFER},
            {"no room for the terminator",
             [&] { return MultiByteToWideChar(codePage, 0, "abc", -1, text, 3); }, 0,
             ERROR_INSUFFICIENT_BUFFER},
            {"to bytes with the terminator",
             [&] {
                 return WideCharToMultiByte(codePage, 0, _T("abc"), -1, bytes, 4, nullptr, nullptr);
             },
             4, ERROR_SUCCESS},
            {"to bytes, length query",
             [&] {
                 return WideCharToMultiByte(codePage, 0, _T("abc"), 3, nullptr, 0, nullptr,
                                            nullptr);
             },
             3, ERROR_SUCCESS},
            {"to bytes, nothing",
             [&] {
                 return WideCharToMultiByte(codePage, 0, _T("abc"), 0, bytes, 8, nullptr, nullptr);
             },
             0, ERROR_INVALID_PARAMETER},
            {"to bytes, null source",
             [&] {
                 return WideCharToMultiByte(codePage, 0, nullptr, 3, bytes, 8, nullptr, nullptr);
             },
             0, ERROR_INVALID_PARAMETER},
            {"to bytes, null target",
             [&] {
                 return WideCharToMultiByte(codePage, 0, _T("abc"), 3, nullptr, 8, nullptr,
                                            nullptr);
             },
             0, ERROR_INVALID_PARAMETER},
            {"to bytes, negative capacity",
             [&] {
                 return WideCharToMultiByte(codePage, 0, _T("abc"), 3, bytes, -1, nullptr, nullptr);
             },
             0, ERROR_INVALID_PARAMETER},
            {"to bytes, unknown flag",
             [&] {
                 return WideCharToMultiByte(codePage, 8, _T("abc"), 3, bytes, 8, nullptr, nullptr);
             },
             0, ERROR_INVALID_FLAGS},
            {"to bytes, no room",
             [&] {
                 return WideCharToMultiByte(codePage, 0, _T("abc"), 3, bytes, 2, nullptr, nullptr);
             },
             0, ERROR_INSUFFICIENT_BUFFER},
        };
        for (const auto& row : rows) {
            SetLastError(ERROR_SUCCESS);
            EXPECT_EQ(row.call(), row.result) << row.label;
            EXPECT_EQ(GetLastError(), row.error) << row.label;
        }
    }
}

TEST(CodePage, KnowsWhichThereAre) {
    const struct {
        UINT codePage;
        bool isValid;
    } rows[] = {{437, true},   {932, true},    {1252, true},   {10000, true},   {20127, true},
                {28605, true}, {65000, true},  {65001, true},  {CP_ACP, false}, {1200, false},
                {1201, false}, {12000, false}, {12001, false}, {99999, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.codePage);
        EXPECT_EQ(IsValidCodePage(row.codePage) != FALSE, row.isValid);
        if (row.codePage != CP_ACP) {
            EXPECT_EQ(Decode(row.codePage, 0, "a", 1).result, row.isValid);
        }
    }
    EXPECT_TRUE(IsValidCodePage(GetACP()));
}

TEST(CodePage, WritesWhatFits) {
    const struct {
        const char* label;
        UINT codePage;
        Wide text;
        std::string bytes;
    } rows[] = {
        {"UTF-8 keeps a sequence whole", CP_UTF8, _T("ab\xd83d\xde00"), "ab\xcd\xcd"},
        {"a pair of bytes is kept whole", 932, _T("A\x3042\x3042"), "A\x82\xa0\xcd"},
        {"UTF-7 is cut anywhere", CP_UTF7, _T("a\xe9"), "a+AO"},
        {"one byte", 1252, _T("abcdef"), "abcd"},
    };
    for (const auto& row : rows) {
        const Encoded encoded = Encode(row.codePage, 0, row.text, 4);
        EXPECT_EQ(encoded.result, 0) << row.label;
        EXPECT_EQ(encoded.error, ERROR_INSUFFICIENT_BUFFER) << row.label;
        EXPECT_EQ(encoded.bytes, row.bytes) << row.label;
    }
}

TEST(CodePage, SubstitutesWhatItLacks) {
    const struct {
        const char* label;
        UINT codePage;
        DWORD flags;
        Wide text;
        const char* defaultChar;
        const char* bytes;
        BOOL used;
    } rows[] = {
        {"all there", 1252, 0, _T("\x20ac\xe9"), nullptr, "\x80\xe9", FALSE},
        {"best fit", 1252, 0, _T("\x100\xff21\x2212\x3b1"), nullptr, "AA-a", FALSE},
        {"no best fit", 1252, WC_NO_BEST_FIT_CHARS, _T("\x100\xe9"), nullptr, "?\xe9", TRUE},
        {"no fit", 1252, 0, _T("a\x4e00z"), nullptr, "a?z", TRUE},
        {"the caller's default", 1252, 0, _T("a\x4e00z"), "#", "a#z", TRUE},
        {"only its first byte", 1252, 0, _T("\x4e00"), "#x", "#", TRUE},
        {"a surrogate pair is two", 1252, 0, _T("\xd83d\xde00"), nullptr, "??", TRUE},
        {"unassigned bytes are C1", 1252, 0, _T("\x81\x9d"), nullptr, "\x81\x9d", FALSE},
        {"an accent alone", 1252, 0, _T("e\x301"), nullptr, "e\xb4", FALSE},
        {"Latin 1 has no euro sign", 28591, 0, _T("\x20ac\x100\x2018"), nullptr, "?A'", TRUE},
        {"ASCII", 20127, 0, _T("\xe9\x80"), nullptr, "e?", TRUE},
        {"Cyrillic", 1251, 0, _T("\x416\xe9"), nullptr,
         "\xc6"
         "e",
         FALSE},
        {"a pair of bytes", 932, 0,
         _T("\x3042"
            "A\xe01"),
         nullptr,
         "\x82\xa0"
         "A?",
         TRUE},
        {"a pair as the default", 932, 0, _T("\xe01"), "\x82\xa0", "\x82\xa0", TRUE},
        {"of two codes the usual one", 932, 0, _T("\x7e8a\x2170\x2252"), nullptr,
         "\xfa\x5c\xfa\x40\x81\xe0", FALSE},
        {"EBCDIC", 37, 0, _T("A1\x4e00"), nullptr, "\xc1\xf1\x6f", TRUE},
    };
    for (const auto& row : rows) {
        char bytes[8] = {};
        BOOL used = 7;
        const int length = WideCharToMultiByte(row.codePage, row.flags, row.text.data(),
                                               static_cast<int>(row.text.size()), bytes, 8,
                                               row.defaultChar, &used);
        EXPECT_EQ(std::string(bytes, static_cast<std::size_t>(length)), row.bytes) << row.label;
        EXPECT_EQ(used, row.used) << row.label;
    }
}

TEST(CodePage, Decodes) {
    const struct {
        const char* label;
        UINT codePage;
        DWORD flags;
        std::string bytes;
        Wide text; // empty: refused
    } rows[] = {
        {"unassigned bytes of 1252", 1252, MB_ERR_INVALID_CHARS, "\x80\x81\x9d",
         _T("\x20ac\x81\x9d")},
        {"unassigned elsewhere", 1253, 0, "\xc1\xaa", _T("\x391\xf8f9")},
        {"unassigned and strict", 1253, MB_ERR_INVALID_CHARS, "\xc1\xaa", {}},
        {"ASCII has seven bits", 20127, 0, "a\xe1", _T("aa")},
        {"letter and accent", 1252, MB_COMPOSITE,
         "\xe9"
         "a",
         _T("e\x301"
            "a")},
        {"glyphs", 437, MB_USEGLYPHCHARS, "\x01\x0a\x1f\x7f\xe0",
         _T("\x263a\x25d9\x25bc\x2302\x3b1")},
        {"controls", 437, MB_PRECOMPOSED, "\x01\x1a\x1c\x7f", _T("\x01\x1a\x1c\x7f")},
        {"pairs", 932, 0,
         "\x82\xa0"
         "A\xb1",
         _T("\x3042"
            "A\xff71")},
        {"pair cut at the end", 932, 0, "A\x82", _T("A\x30fb")},
        {"pair cut at the end, strict", 932, MB_ERR_INVALID_CHARS, "A\x82", {}},
        {"the terminator is no trail byte", 932, 0, std::string("\x82\0a", 3),
         Wide(_T("\x30fb\0a"), 3)},
        {"no such trail byte", 932, 0, "\x82 a",
         _T("\x30fb"
            "a")},
        {"no such trail byte, strict", 932, MB_ERR_INVALID_CHARS, "\x82 a", {}},
        {"elsewhere a question mark", 936, 0, "\x82 a\x82", _T("?a?")},
        {"private bytes", 932, 0, "\xa0\xfd", _T("\xf8f0\xf8f1")},
        {"private pairs are assigned", 932, MB_ERR_INVALID_CHARS, "\xf0\x40", _T("\xe000")},
        {"EBCDIC", 500, 0, "\xc1\xf1\x25", _T("A1\n")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const Decoded decoded = Decode(row.codePage, row.flags, row.bytes,
                                       static_cast<int>(row.text.size() ? row.text.size() : 8));
        EXPECT_EQ(decoded.result, static_cast<int>(row.text.size()));
        EXPECT_EQ(decoded.error, row.text.empty() ? ERROR_NO_UNICODE_TRANSLATION : ERROR_SUCCESS);
        EXPECT_TRUE(row.text.empty() || decoded.text == row.text);
    }
}

TEST(Utf7, ConvertsBothWays) {
    const struct {
        const char* bytes;
        Wide text;
        bool isCanonical; // also what encoding gives
    } rows[] = {
        {"abcABC123'(),-./:? \t\r\n", _T("abcABC123'(),-./:? \t\r\n"), true},
        {"+-", _T("+"), true},
        {"+AOk-", _T("\xe9"), true},
        {"+AOk--", _T("\xe9-"), true},
        {"+AOk-+-", _T("\xe9+"), true},
        {"+AOkA6A-a",
         _T("\xe9\xe8"
            "a"),
         true},
        {"+AOkA6ADq-", _T("\xe9\xe8\xea"), true},
        {"+2D3eAA-", _T("\xd83d\xde00"), true},
        {"+ACEAIgAjACQ-", _T("!\"#$"), true},
        {"a+AOk", _T("a\xe9"), false},
        {"+AOk.b", _T("\xe9.b"), false},
        {"+AOkA-", _T("\xe9"), false},
        {"+!~", _T("!~"), false},
        {"\xe9", _T("\xe9"), false},
    };
    for (const auto& row : rows) {
        const int length = static_cast<int>(row.text.size());
        EXPECT_TRUE(Decode(CP_UTF7, 0, row.bytes, length).text == row.text) << row.bytes;
        EXPECT_EQ(Decode(CP_UTF7, 0, row.bytes, 0).result, length) << row.bytes;
        if (row.isCanonical) {
            const Encoded encoded = Encode(CP_UTF7, 0, row.text, 32);
            EXPECT_EQ(encoded.bytes.substr(0, static_cast<std::size_t>(encoded.result)), row.bytes);
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

    const struct {
        UINT codePage;
        unsigned long long digest;
    } rows[] = {
        {37, 7587705078318923767u},     {437, 10005031126520622702u},
        {500, 14171807254998475176u},   {708, 16386676683031387370u},
        {720, 16271569573039624644u},   {737, 17260232384494030009u},
        {775, 230600181902540696u},     {850, 18313301629165842882u},
        {852, 7725372664120202540u},    {855, 7331690974320443829u},
        {857, 9090229488152192250u},    {860, 14396241078622035541u},
        {861, 596560863413743597u},     {862, 11083145319699605182u},
        {863, 10788424772569358049u},   {864, 10354195849843351894u},
        {865, 7812201542828799384u},    {866, 3902295385120828833u},
        {869, 3291216241074759937u},    {874, 5174157258517238424u},
        {875, 6608405551261660452u},    {932, 518622306527681950u},
        {936, 3708739065927375887u},    {949, 16938665699474384259u},
        {950, 489786223983768905u},     {1026, 7745975369188346317u},
        {1250, 10838877821505811776u},  {1251, 1805455847905142533u},
        {1252, 18152887070016715757u},  {1253, 1665580821187835197u},
        {1254, 10350296986257780215u},  {1255, 8312421884321852716u},
        {1256, 9150885478261011635u},   {1257, 17237391281254648866u},
        {1258, 13225453805642577842u},  {10000, 1839320316756852353u},
        {10003, 14618843997269943063u}, {10004, 14524288920086166890u},
        {10005, 10318360004452025289u}, {10006, 709603785172373157u},
        {10007, 14979207853588706029u}, {10008, 5294891302965996841u},
        {10010, 2373718018747343469u},  {10017, 16554828689172720277u},
        {10029, 2495794565954274345u},  {10079, 12843130135217117141u},
        {10081, 8201305150694212565u},  {10082, 4258400779556230905u},
        {20127, 13984834078861643789u}, {20866, 8935281917441018782u},
        {21866, 10410857047507680558u}, {28591, 687333408798906369u},
        {28592, 9888756467928703768u},  {28593, 11180796794971025904u},
        {28594, 5347068237205448156u},  {28595, 3811541734979403652u},
        {28596, 12371502754028168359u}, {28597, 8172228974941126273u},
        {28598, 1652038887460765244u},  {28599, 541201895176569722u},
        {28605, 1360633539569948983u},
    };
    for (const auto& row : rows) {
        Digest digest;
        text.resize(pairs.size());
        text.resize(static_cast<std::size_t>(
            MultiByteToWideChar(row.codePage, 0, pairs.data(), static_cast<int>(pairs.size()),
                                text.data(), static_cast<int>(text.size()))));
        for (const WCHAR unit : text)
            digest.Add(unit);
        for (const DWORD flags : {DWORD(0), DWORD(WC_NO_BEST_FIT_CHARS)}) {
            const int length = WideCharToMultiByte(
                row.codePage, flags, units.data(), static_cast<int>(units.size()), bytes.data(),
                static_cast<int>(bytes.size()), nullptr, nullptr);
            for (int i = 0; i < length; ++i)
                digest.Add(static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]));
        }
        EXPECT_EQ(digest.Get(), row.digest) << row.codePage;
    }
}

} // namespace
