// Code pages and locales where the Linux platform does more than Wine, or follows the documentation
// of Windows where Wine does not.
#include "platform/linux/locale/locale.h"
#include "platform/text_length.h"
#include "platform/win32.h"

#include "support/code_page.h"

#include <sys/mman.h>
#include <unistd.h>

namespace {

TEST(LinuxCodePage, RefusesAsDocumented) {
    WCHAR text[8] = {};
    char* const same = reinterpret_cast<char*>(text);
    BOOL used;
    EXPECT_EQ(87u, ErrorOf([&] { return MultiByteToWideChar(CP_UTF8, 0, same, 1, text, 8); }));
    EXPECT_EQ(87u, Encode(CP_UTF7, 0, u"a", 8, "?").error);
    EXPECT_EQ(87u, Encode(CP_UTF7, 0, u"a", 8, nullptr, &used).error);
    EXPECT_EQ(1004u, Decode(CP_UTF8, MB_PRECOMPOSED, "a").error);
    EXPECT_EQ(1004u, Encode(1252, WC_ERR_INVALID_CHARS, u"a").error);
    EXPECT_EQ(0u, Decode(54936, MB_ERR_INVALID_CHARS, "a").error);
}

TEST(LinuxCodePage, HasPagesWithShiftStatesAndLongCodes) {
    const std::tuple<UINT, std::string, std::u16string> rows[] = {
        {20924, "\x9f\xb7", u"\x20ac\x152"},
        {50220, "\x1b$B$\"\x1b(Ba", u"あa"},
        {54936, "\xd6\xd0\x81\x30\x81\x30\x90\x30\x81\x30", u"\x4e2d\x80\xd800\xdc00"},
    };
    for (const auto& [codePage, bytes, text] : rows) {
        EXPECT_EQ(Decode(codePage, 0, bytes).GetText(), text) << codePage;
        EXPECT_EQ(Encode(codePage, 0, text).GetText(), bytes) << codePage;
    }
    EXPECT_EQ(Encode(57002, 0, u"\x905\x915").GetText().substr(2), "\xa4\xb3"); // after a mark
    BOOL used = FALSE;
    EXPECT_EQ(Encode(50220, 0, u"a\xe01z", 8, nullptr, &used).GetText(), "a?z");
    EXPECT_TRUE(used);
    // A lead byte consumes only itself.
    EXPECT_EQ(Decode(CP_UTF8, 0, "\xf0xy").GetText(), u"\xfffdxy");
    EXPECT_EQ(Decode(54936, MB_ERR_INVALID_CHARS, "a\xff").error, ERROR_NO_UNICODE_TRANSLATION);
}

TEST(LinuxLocale, IsNamedByTheEnvironment) {
    using quorvel::LocaleIdOf;
    ExpectCases<LCID>({CASE(LocaleIdOf("nonsense"), 0x0409), CASE(LocaleIdOf("de_DE@euro"), 0x0407),
                       CASE(LocaleIdOf("es_ES"), 0x0c0a), CASE(LocaleIdOf("sr_RS@latin"), 0x241a),
                       CASE(LocaleIdOf("sr_RS"), 0x281a), CASE(LocaleIdOf("zh_CN.GB2312"), 0x0804),
                       CASE(LocaleIdOf("en_DK"), LOCALE_CUSTOM_DEFAULT)});
}

// The length is found in whole blocks of bytes, also at the last address that can be read.
TEST(LinuxTextLength, ReadsNoFurtherPage) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* const pages =
        mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    WCHAR* const end = static_cast<WCHAR*>(pages) + page / sizeof(WCHAR);
    ASSERT_EQ(mprotect(end, page, PROT_NONE), 0);
    for (std::size_t length = 0; length < 40; ++length) {
        for (std::size_t offset = 0; offset < 17; ++offset) {
            WCHAR* const text = end - 1 - offset - length;
            std::fill(static_cast<WCHAR*>(pages), end, u'\0'); // also before the text
            std::fill_n(text, length, u'x');
            EXPECT_EQ(length, quorvel::TextLength(text)) << offset << " units before the end";
        }
    }
    munmap(pages, 2 * page);
}

} // namespace
