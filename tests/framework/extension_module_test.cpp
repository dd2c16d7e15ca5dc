#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/extension_module.h>
#include <quorvel/res/message_ids.h>

#include "support/german_texts.h"
#include "support/temporary_folder.h"
#include "support/test.h"

TEST(ExtensionModule, TextsComeFromTheProgramThenTheNewestThenTheSystemEntries) {
    constexpr UINT kText = quorvel::kTextExceptionMemory;
    const TemporaryFolder folder;
    const CString copyName = folder.Path(_T("copy.dll"));
    WCHAR program[MAX_PATH] = {};
    ASSERT_NE(GetModuleFileNameW(nullptr, program, MAX_PATH), 0u);
    std::filesystem::copy_file(std::filesystem::path(program).replace_filename("Quorvel_DEU.dll"),
                               std::basic_string<WCHAR>(copyName));
    {
        const GermanTexts german;
        const GermanTexts copy(copyName);
        ASSERT_NE(german.Module(), copy.Module());
        EXPECT_EQ(AfxFindStringResourceHandle(kText), copy.Module());
        EXPECT_EQ(AfxFindStringResourceHandle(1), nullptr);
        const WCHAR* const stringTable = MAKEINTRESOURCEW(6);
        EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCEW(kText / 16 + 1), stringTable),
                  copy.Module());
        EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCEW(1), stringTable), AfxGetResourceHandle());

        AFX_EXTENSION_MODULE state = {}; // for a module without texts
        ASSERT_TRUE(AfxInitExtensionModule(state, GetModuleHandleW(nullptr)));
        auto* const entry = new CDynLinkLibrary(state);
        EXPECT_EQ(AfxFindStringResourceHandle(kText), copy.Module());
        entry->m_hResource = german.Module(); // uses another module's resources
        EXPECT_EQ(AfxFindStringResourceHandle(kText), german.Module());
        entry->m_bSystem = TRUE;
        EXPECT_EQ(AfxFindStringResourceHandle(kText), copy.Module());
        entry->m_bSystem = FALSE;
        entry->m_hResource = nullptr; // does not hide the entries after it
        EXPECT_EQ(AfxFindStringResourceHandle(kText), copy.Module());
        delete entry;
        (new CDynLinkLibrary(state))->m_hResource = german.Module();
        EXPECT_EQ(AfxFindStringResourceHandle(kText), german.Module());
        AfxTermExtensionModule(state); // deletes the entry as well
        EXPECT_FALSE(state.bInitialized);
        EXPECT_EQ(AfxFindStringResourceHandle(kText), copy.Module());

        AfxSetResourceHandle(german.Module());
        EXPECT_EQ(AfxFindStringResourceHandle(kText), german.Module());
        AfxSetResourceHandle(nullptr);
    }
}

TEST(ExtensionModule, StringsLoadFromTheChain) {
    constexpr UINT kText = quorvel::kTextSystemError; // contains %1
    const GermanTexts german;
    const CString format = german.Text(kText);
    ASSERT_GE(format.Find(_T("%1")), 0);
    CString filled = format;
    filled.Replace(_T("%1"), _T("insert"));

    CString text;
    EXPECT_TRUE(text.LoadString(kText));
    EXPECT_EQ(text, format);
    text.FormatMessage(kText, _T("insert"));
    EXPECT_EQ(text, filled);
    AfxFormatString1(text, kText, _T("insert"));
    EXPECT_EQ(text, filled);
    CStringA narrow;
    EXPECT_TRUE(narrow.LoadString(kText));
    EXPECT_EQ(narrow, CStringA(format));

    EXPECT_FALSE(text.LoadString(1));
    EXPECT_THROW(text.Format(1u), CResourceException*);
}

TEST(FormatStrings, ReplacesEachNumberByItsString) {
    const WCHAR* const strings[] = {_T("one"), _T("two")};
    const auto filled = [&](const WCHAR* format) {
        CString text(_T("old"));
        AfxFormatStrings(text, format, strings, 2);
        return text;
    };
    EXPECT_EQ(filled(_T("%2%1 and %2")), _T("twoone and two"));
    EXPECT_EQ(filled(_T("%3")), _T("?"));
    EXPECT_EQ(filled(_T("%% %0 %a 100%")), _T("%% %0 %a 100%"));
}
