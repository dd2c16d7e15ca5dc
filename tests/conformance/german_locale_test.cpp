// The user's own locale, in a program that runs as German (Germany).
#include "platform/win32.h"

#include "support/test.h"

TEST(GermanLocale, ChoosesTheLanguageOfResources) {
    const HMODULE module = LoadLibraryW(QUORVEL_OWN_SAMPLES _T("/full.dll"));
    ASSERT_NE(module, nullptr);
    const std::tuple<UINT, const WCHAR*> rows[] = {
        {100, _T("Deutsch")},     // before English
        {200, _T("nur deutsch")}, // before French
        {300, _T("neutral")},     // before all others
        {111, _T("")},            // of a block that is there in German without it
    };
    for (const auto& [id, expected] : rows) {
        WCHAR text[100] = {};
        LoadStringW(module, id, text, 100);
        EXPECT_EQ(CString(text), expected) << id;
    }
    EXPECT_TRUE(FreeLibrary(module));
}
