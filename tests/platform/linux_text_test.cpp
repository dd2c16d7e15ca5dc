// Code pages and locales where the Linux platform has more than Wine, or keeps to what Windows
// documents and Wine does not.
#include "platform/linux/locale.h"
#include "platform/win32.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int kRoom = 64;

TEST(LinuxCodePage, RefusesAsDocumented) {
    WCHAR text[kRoom] = {};
    char bytes[kRoom] = {};
    char* const same = reinterpret_cast<char*>(text);
    BOOL used;
    const auto decode = [&](UINT codePage, DWORD flags) {
        return MultiByteToWideChar(codePage, flags, "a", 1, text, kRoom);
    };
    const auto encode = [&](UINT codePage, DWORD flags, LPCSTR defaultChar, LPBOOL usedDefault) {
        return WideCharToMultiByte(codePage, flags, u"a", 1, bytes, kRoom, defaultChar,
                                   usedDefault);
    };
    const struct {
        const char* label;
        int result;
        DWORD error;
        DWORD expected;
    } rows[] = {
        {"same buffer", MultiByteToWideChar(CP_UTF8, 0, same, 1, text, kRoom), GetLastError(),
         ERROR_INVALID_PARAMETER},
        {"same buffer, to bytes",
         WideCharToMultiByte(1252, 0, text, 1, same, kRoom, nullptr, nullptr), GetLastError(),
         ERROR_INVALID_PARAMETER},
        {"default for UTF-8", encode(CP_UTF8, 0, "?", nullptr), GetLastError(),
         ERROR_INVALID_PARAMETER},
        {"used default for UTF-8", encode(CP_UTF8, 0, nullptr, &used), GetLastError(),
         ERROR_INVALID_PARAMETER},
        {"precomposed UTF-8", decode(CP_UTF8, MB_PRECOMPOSED), GetLastError(), ERROR_INVALID_FLAGS},
        {"strict UTF-7", decode(CP_UTF7, MB_ERR_INVALID_CHARS), GetLastError(),
         ERROR_INVALID_FLAGS},
        {"strict shift states", decode(50220, MB_ERR_INVALID_CHARS), GetLastError(),
         ERROR_INVALID_FLAGS},
        {"strict writing of bytes", encode(1252, WC_ERR_INVALID_CHARS, nullptr, nullptr),
         GetLastError(), ERROR_INVALID_FLAGS},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.result, 0) << row.label;
        EXPECT_EQ(row.error, row.expected) << row.label;
    }
    EXPECT_EQ(decode(54936, MB_ERR_INVALID_CHARS), 1);
    EXPECT_EQ(encode(54936, WC_ERR_INVALID_CHARS, nullptr, nullptr), 1);
}

TEST(LinuxCodePage, ALeadByteCutShortKeepsWhatFollows) {
    WCHAR text[kRoom];
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "\xf0xy", 3, text, kRoom), 3);
    EXPECT_EQ(CString(text, 3), u"\xfffdxy");
}

TEST(LinuxCodePage, HasPagesWithShiftStatesAndLongCodes) {
    const struct {
        UINT codePage;
        std::string bytes;
        std::u16string text;
    } rows[] = {
        {858, "\xd5", u"\x20ac"},
        {1140, "\x9f\xc1",
         u"\x20ac"
         u"A"},
        {20924, "\x9f\xb7", u"\x20ac\x152"},
        {38598, "\xe0", u"\x5d0"},
        {50220, "\x1b$B$\"\x1b(Ba",
         u"\x3042"
         u"a"},
        {50222,
         "\x0e"
         "1\x0f",
         u"\xff71"},
        {50225,
         "\x1b$)C\x0e"
         "0!\x0f",
         u"\xac00"},
        {50227, "\x1b$)A\x0eVP\x0f", u"\x4e2d"},
        {50930, "\x0e\x44\x81\x0f", u"\x3042"},
        {51932, "\xa4\xa2\x8e\xb1", u"\x3042\xff71"},
        {51936, "\xd6\xd0", u"\x4e2d"},
        {51949, "\xb0\xa1", u"\xac00"},
        {52936, "~{VP~}a",
         u"\x4e2d"
         u"a"},
        {54936, "\xd6\xd0\x81\x30\x81\x30\x90\x30\x81\x30", u"\x4e2d\x80\xd800\xdc00"},
        {57002, "\xa4\xb3", u"\x905\x915"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.codePage);
        WCHAR text[kRoom];
        const int length = MultiByteToWideChar(row.codePage, 0, row.bytes.data(),
                                               static_cast<int>(row.bytes.size()), text, kRoom);
        EXPECT_TRUE(std::u16string(text, static_cast<std::size_t>(length)) == row.text);
        char bytes[kRoom];
        const int count =
            WideCharToMultiByte(row.codePage, 0, row.text.data(), static_cast<int>(row.text.size()),
                                bytes, kRoom, nullptr, nullptr);
        std::string written(bytes, static_cast<std::size_t>(count));
        if (row.codePage == 57002) // announces its script first
            written.erase(0, 2);
        EXPECT_EQ(written, row.bytes);
    }
}

TEST(LinuxCodePage, FindsItsWayInPagesWithoutATable) {
    char bytes[kRoom];
    BOOL used = FALSE;
    const auto encode = [&](UINT codePage, const char* defaultChar) {
        const int count =
            WideCharToMultiByte(codePage, 0, u"a\xe01z", 3, bytes, kRoom, defaultChar, &used);
        return std::string(bytes, static_cast<std::size_t>(count));
    };
    EXPECT_EQ(encode(50220, nullptr), "a?z");
    EXPECT_TRUE(used);
    EXPECT_EQ(encode(51932, "#"), "a#z");
    WCHAR text[kRoom];
    EXPECT_EQ(MultiByteToWideChar(50221, 0, "\x1b(I1", 4, text, kRoom), 1); // read, never written
    EXPECT_EQ(text[0], 0xff71);
    EXPECT_EQ(MultiByteToWideChar(54936, 0, "a\xff", 2, text, kRoom), 2);
    EXPECT_EQ(text[1], 0xfffd);
    EXPECT_EQ(MultiByteToWideChar(54936, MB_ERR_INVALID_CHARS, "a\xff", 2, text, kRoom), 0);
    EXPECT_EQ(GetLastError(), ERROR_NO_UNICODE_TRANSLATION);
}

TEST(LinuxCodePage, IsBuiltOnceForAllThreads) {
    std::vector<std::thread> threads;
    int failures[4] = {};
    for (int& failed : failures) {
        threads.emplace_back([&failed] {
            WCHAR text[2];
            for (const UINT codePage : {949u, 1256u, 10007u, 28594u})
                failed += MultiByteToWideChar(codePage, 0, "a", 1, text, 2) != 1;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const int failed : failures)
        EXPECT_EQ(failed, 0);
}

TEST(LinuxLocale, IsNamedByTheEnvironment) {
    const struct {
        const char* name;
        LCID locale;
    } rows[] = {
        {"C", 0x0409},
        {"POSIX", 0x0409},
        {"C.UTF-8", 0x0409},
        {"", 0x0409},
        {"nonsense", 0x0409},
        {"de_DE.UTF-8", 0x0407},
        {"de_DE@euro", 0x0407},
        {"de", 0x0407},
        {"de_AT", 0x0c07},
        {"en_GB.ISO-8859-1", 0x0809},
        {"es_ES", 0x0c0a},
        {"ca_ES@valencia", 0x0403},
        {"no_NO", 0x0414},
        {"nn_NO", 0x0814},
        {"pt_BR", 0x0416},
        {"sr_RS", 0x281a},
        {"sr_RS@latin", 0x241a},
        {"zh_CN.GB2312", 0x0804},
        {"zh_TW", 0x0404},
        {"zh_HK", 0x0c04},
        {"en_DK", LOCALE_CUSTOM_DEFAULT},
    };
    for (const auto& row : rows)
        EXPECT_EQ(quorvel::LocaleIdOf(row.name), row.locale) << row.name;
}

} // namespace
