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
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::filesystem::copy_file(std::filesystem::path(program).replace_filename("Quorvel_DEU.dll"),
                               std::basic_string<WCHAR>(copyName));
    const GermanTexts german;
    const GermanTexts copy(copyName);
    ASSERT_NE(german.Module(), copy.Module());
    const auto expect = [](const GermanTexts& module) {
        EXPECT_EQ(AfxFindStringResourceHandle(kText), module.Module());
    };
    expect(copy);
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCEW(kText / 16 + 1), MAKEINTRESOURCEW(6)),
              copy.Module()); // a string table

    AFX_EXTENSION_MODULE state = {}; // for a module without texts
    ASSERT_TRUE(AfxInitExtensionModule(state, GetModuleHandleW(nullptr)));
    auto* const entry = new CDynLinkLibrary(state);
    expect(copy);
    entry->m_hResource = german.Module(); // uses another module's resources
    expect(german);
    entry->m_bSystem = TRUE;
    expect(copy);
    entry->m_bSystem = FALSE;
    AfxTermExtensionModule(state); // deletes the entry as well
    expect(copy);
    AfxSetResourceHandle(german.Module());
    expect(german);
    AfxSetResourceHandle(nullptr);
}

TEST(ExtensionModule, StringsLoadFromTheChain) {
    constexpr UINT kText = quorvel::kTextSystemError; // contains %1
    const GermanTexts german;
    CString filled = german.Text(kText);
    ASSERT_EQ(filled.Replace(_T("%1"), _T("insert")), 1);

    CString text;
    text.FormatMessage(kText, _T("insert"));
    EXPECT_EQ(text, filled);
    AfxFormatString1(text, kText, _T("insert"));
    EXPECT_EQ(text, filled);
    EXPECT_THROW(text.Format(1u), CResourceException*);
}

TEST(FormatStrings, ReplacesEachNumberByItsString) {
    const WCHAR* const strings[] = {_T("one"), _T("two")};
    CString text(_T("old"));
    AfxFormatStrings(text, _T("%2%1 and %2, %3 %% %0 %a 100%"), strings, 2);
    EXPECT_EQ(text, _T("twoone and two, ? %% %0 %a 100%"));
}
