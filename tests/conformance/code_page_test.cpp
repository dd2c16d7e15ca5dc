// MultiByteToWideChar and WideCharToMultiByte: the same answers on both systems.
#include <quorvel/platform/platform.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

} // namespace
