// Code pages and locales where the Linux platform has more than Wine, or keeps to what Windows
// documents and Wine does not.
#include "platform/linux/locale.h"
#include "platform/win32.h"

#include "support/last_error.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace {

constexpr int kRoom = 64;

TEST(LinuxCodePage, RefusesAsDocumented) {
    WCHAR text[kRoom] = {};
    char bytes[kRoom] = {};
    char* const same = reinterpret_cast<char*>(text);
    BOOL used;
    const auto decode = [&](UINT codePage, DWORD flags) {
        return ErrorOf([&] { return MultiByteToWideChar(codePage, flags, "a", 1, text, kRoom); });
    };
    const auto encode = [&](UINT codePage, DWORD flags, LPCSTR defaultChar = nullptr,
                            LPBOOL usedDefault = nullptr) {
        return ErrorOf([&] {
            return WideCharToMultiByte(codePage, flags, u"a", 1, bytes, kRoom, defaultChar,
                                       usedDefault);
        });
    };
    EXPECT_EQ(87u, ErrorOf([&] { return MultiByteToWideChar(CP_UTF8, 0, same, 1, text, kRoom); }));
    EXPECT_EQ(87u, ErrorOf([&] {
                  return WideCharToMultiByte(1252, 0, text, 1, same, kRoom, nullptr, nullptr);
              }));
    EXPECT_EQ(87u, encode(CP_UTF8, 0, "?"));
    EXPECT_EQ(87u, encode(CP_UTF8, 0, nullptr, &used));
    EXPECT_EQ(1004u, decode(CP_UTF8, MB_PRECOMPOSED));
    EXPECT_EQ(1004u, decode(CP_UTF7, MB_ERR_INVALID_CHARS));
    EXPECT_EQ(1004u, decode(50220, MB_ERR_INVALID_CHARS));
    EXPECT_EQ(1004u, encode(1252, WC_ERR_INVALID_CHARS));
    EXPECT_EQ(0u, decode(54936, MB_ERR_INVALID_CHARS));
    EXPECT_EQ(0u, encode(54936, WC_ERR_INVALID_CHARS));
}

TEST(LinuxCodePage, ALeadByteCutShortKeepsWhatFollows) {
    WCHAR text[kRoom];
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "\xf0xy", 3, text, kRoom), 3);
    EXPECT_EQ(CString(text, 3), u"\xfffdxy");
}

TEST(LinuxCodePage, HasPagesWithShiftStatesAndLongCodes) {
    const std::tuple<UINT, std::string, std::u16string> rows[] = {
        {858, "\xd5", u"\x20ac"},
        {20924, "\x9f\xb7", u"\x20ac\x152"},
        {50220, "\x1b$B$\"\x1b(Ba", u"あa"},
        {50222, "\0161\x0f", u"\xff71"},
        {50225, "\x1b$)C\0160!\x0f", u"\xac00"},
        {50227, "\x1b$)A\x0eVP\x0f", u"\x4e2d"},
        {50930, "\x0e\x44\x81\x0f", u"\x3042"},
        {51932, "\xa4\xa2\x8e\xb1", u"\x3042\xff71"},
        {52936, "~{VP~}a", u"中a"},
        {54936, "\xd6\xd0\x81\x30\x81\x30\x90\x30\x81\x30", u"\x4e2d\x80\xd800\xdc00"},
        {57002, "\xa4\xb3", u"\x905\x915"},
    };
    for (const auto& [codePage, bytes, text] : rows) {
        SCOPED_TRACE(codePage);
        WCHAR decoded[kRoom];
        const int length = MultiByteToWideChar(codePage, 0, bytes.data(),
                                               static_cast<int>(bytes.size()), decoded, kRoom);
        EXPECT_TRUE(std::u16string(decoded, static_cast<std::size_t>(length)) == text);
        char encoded[kRoom];
        const int count =
            WideCharToMultiByte(codePage, 0, text.data(), static_cast<int>(text.size()), encoded,
                                kRoom, nullptr, nullptr);
        std::string written(encoded, static_cast<std::size_t>(count));
        if (codePage == 57002) // announces its script first
            written.erase(0, 2);
        EXPECT_EQ(written, bytes);
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
    const std::tuple<const char*, LCID> rows[] = {
        {"", 0x0409},        {"nonsense", 0x0409},
        {"C", 0x0409},       {"de_DE@euro", 0x0407},
        {"de_AT", 0x0c07},   {"de_DE.UTF-8", 0x0407},
        {"es_ES", 0x0c0a},   {"sr_RS@latin", 0x241a},
        {"nn_NO", 0x0814},   {"zh_CN.GB2312", 0x0804},
        {"sr_RS", 0x281a},   {"ca_ES@valencia", 0x0403},
        {"zh_HK", 0x0c04},   {"en_GB.ISO-8859-1", 0x0809},
        {"C.UTF-8", 0x0409}, {"en_DK", LOCALE_CUSTOM_DEFAULT},
    };
    for (const auto& [name, locale] : rows)
        EXPECT_EQ(quorvel::LocaleIdOf(name), locale) << name;
}

} // namespace
