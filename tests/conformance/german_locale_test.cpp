// The user's own locale, in a program that runs as German (Germany).
#include "platform/win32.h"

#include "support/test.h"

TEST(GermanLocale, ChoosesTheLanguageOfResources) {
    const HMODULE module = LoadLibraryW(QUORVEL_OWN_SAMPLES _T("/full.dll"));
    ASSERT_NE(module, nullptr);
    const std::tuple<UINT, const WCHAR*> rows[] = {
        {100, _T("Deutsch")},     // preferred to English
        {200, _T("nur deutsch")}, // preferred to French
        {300, _T("neutral")},     // preferred to all others
        {111, _T("")},            // its German block exists but lacks this text
    };
    for (const auto& [id, expected] : rows) {
        WCHAR text[100] = {};
        LoadStringW(module, id, text, 100);
        EXPECT_EQ(CString(text), expected) << id;
    }
    EXPECT_TRUE(FreeLibrary(module));
}
